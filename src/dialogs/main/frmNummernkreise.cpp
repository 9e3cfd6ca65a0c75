#include "dialogs/main/frmNummernkreise.h"

#include "data/booking_circles.h"
#include "data/loading.h"
#include "data/range_table.h"
#include "data/special_ranges.h"
#include "dialogs/main/refresh_font.h"
#include "dialogs/main/tree.h"
#include "dialogs/side/frmOptionen.h"
#include "dialogs/side/frmSonderkreise.h"
#include "hosting/reporting.h"
#include "hosting/start_up.h"
#include "rules/activity.h"
#include "rules/mask_numbering.h"
#include "rules/saving.h"

namespace vexnumkr {
namespace {

constexpr std::int32_t windowIcon = 267;   // in the host's catalogue
constexpr std::int32_t filterEntries = 2;  // "Alle Buchungskreise" and "Aktive Buchungskreise"

std::int32_t entryWithText(ComboBox& combo, const std::string& text, std::int32_t otherwise) {
  for (std::int32_t i = 0; i < combo.ListCount(); ++i)
    if (combo.List(i) == text) return i;
  return otherwise;
}

}  // namespace

frmNummernkreise::frmNummernkreise(HostContext& context)
    : context_(context),
      form_(context.forms().createForm(mainDialogDescription(), *this)),
      sftNummernkreise_(form_->control<TreeGrid>("sftNummernkreise")),
      cboBuchungskreis_(form_->control<ComboBox>("cboBuchungskreis")),
      cboUser_(form_->control<ComboBox>("cboUser")) {
  connectControls();
}

frmNummernkreise::~frmNummernkreise() = default;

void frmNummernkreise::connectControls() {
  const auto onClick = [this](const char* name, void (frmNummernkreise::*handler)()) {
    form_->control<Button>(name).OnClick([this, handler] { (this->*handler)(); });
  };
  onClick("cmdAuto", &frmNummernkreise::cmdAuto_Click);
  onClick("cmdBuchungskreise", &frmNummernkreise::cmdBuchungskreise_Click);
  onClick("cmdSonderkreise", &frmNummernkreise::cmdSonderkreise_Click);
  onClick("cmdOptionen", &frmNummernkreise::cmdOptionen_Click);
  onClick("cmdOK", &frmNummernkreise::cmdOK_Click);
  onClick("cmdCancel", &frmNummernkreise::cmdCancel_Click);
  cboBuchungskreis_.OnClick([this] { cboBuchungskreis_Click(); });
  cboUser_.OnClick([this] { cboUser_Click(); });
  sftNummernkreise_.Events(this);
}

void frmNummernkreise::RefreshFont(const std::string& fontName) {
  basAllgemein::RefreshFont(context_, *form_, fontName);
}

void frmNummernkreise::Show() { form_->ShowModal(); }

void frmNummernkreise::Form_Load() {
  takeIcon();
  reporting("Form_Load", [&] {
    layout_.emplace(*form_);
    closeMode_ = NotClosing;
    prepare();
    cboBuchungskreis_.ListIndex(0);
    fillUserCombo();
    ShowUserCombo();
    CreateToolTips();
    context_.forms().DoEvents();
    basAllgemein::LoadItems(context_, basAllgemein::CheckActivity);
    basAllgemein::RefreshSGroups(context_);
    cboUser_.ListIndex(0);
    context_.Conn().BeginTrans();
  });
}

// What is asked of the database ahead of the ranges; a slow server keeps the pointer busy.
void frmNummernkreise::prepare() {
  const Work work(context_.progress(), "Nummernkreise werden geladen…");
  basAllgemein::basInititialize(context_);
  sftNummernkreise_.CellButtonPicture(form_->control<PictureHolder>("UglyButtons").Picture());
  applyApplicationStyle();
  context_.sftNummernkreise(&sftNummernkreise_);
  storePictures();
  form_->control<Button>("cmdSonderkreise").Visible(basAllgemein::CheckSonderkreise(context_));
  basAllgemein::RefreshCombo(context_, &cboBuchungskreis_);
}

// A host that cannot deliver the icon is told of; the dialog does without.
void frmNummernkreise::takeIcon() {
  reporting("Form_Load", [&] {
    if (HostTexts* texts = context_.host().Texts()) form_->Icon(texts->Picture(windowIcon));
  });
}

void frmNummernkreise::applyApplicationStyle() {
  if (context_.LngApplication() == 1) {
    sftNummernkreise_.DisplayStyle(3);
  } else if (context_.LngApplication() == 2) {
    sftNummernkreise_.DisplayStyle(1);
    form_->control<Button>("cmdOptionen").Visible(true);
  }
}

void frmNummernkreise::storePictures() {
  const auto picture = [this](const char* name) {
    return form_->control<PictureHolder>(name).Picture();
  };
  context_.pictures({.Checked = picture("Checked"),
                     .Unchecked = picture("Unchecked"),
                     .ValueFalse = picture("ValueFalse"),
                     .ValueTrue = picture("ValueTrue"),
                     .NotFound = picture("NotFound")});
}

void frmNummernkreise::fillUserCombo() {
  for (const std::string& user : context_.colUser()) cboUser_.AddItem(user);
}

void frmNummernkreise::Form_Shown() { shown_ = true; }

void frmNummernkreise::Form_Resize() {
  reporting("Form_Resize", [&] {
    if (shown_ && layout_) layout_->apply();
  });
}

void frmNummernkreise::rebuildGrid() {
  basAllgemein::SyncDataWithControl(context_, cboBuchungskreis_.Text(), cboUser_.Text());
}

void frmNummernkreise::cboBuchungskreis_Click() {
  onInput("cboBuchungskreis_Click", [&] {
    context_.strFilterBuchungskreis(cboBuchungskreis_.Text());
    if (!suppressComboEvents_) rebuildGrid();
  });
}

void frmNummernkreise::cboUser_Click() {
  onInput("cboUser_Click", [&] {
    context_.strFilterUser(cboUser_.Text());
    if (!suppressComboEvents_) rebuildGrid();
  });
}

void frmNummernkreise::cmdAuto_Click() {
  onInput("cmdAuto_Click", [&] {
    if (basAllgemein::StartAutoNum(context_)) rebuildGrid();
  });
}

void frmNummernkreise::cmdBuchungskreise_Click() {
  onInput("cmdBuchungskreise_Click", [&] {
    if (!basAllgemein::CallBuchungskreise(context_, context_.Herkunft())) return;
    refillFilter();
    basAllgemein::RefreshInXArray(context_);
    basAllgemein::CheckActivity(context_);
    rebuildGrid();
    ShowUserCombo();
  });
}

// The entry that was shown stays shown where the new list has it; the filter is never empty.
void frmNummernkreise::refillFilter() {
  const std::string shown = cboBuchungskreis_.Text();
  basAllgemein::RefreshCombo(context_, &cboBuchungskreis_);
  cboBuchungskreis_.SelectSilently(entryWithText(cboBuchungskreis_, shown, 0));
  context_.strFilterBuchungskreis(cboBuchungskreis_.Text());
}

void frmNummernkreise::cmdSonderkreise_Click() {
  onInput("cmdSonderkreise_Click", [&] {
    {
      frmSonderkreise dialog(context_);
      if (context_.Herkunft() == "ORB")
        basAllgemein::RefreshFont(context_, dialog.form(), hostFont);
      dialog.Show();
    }
    basAllgemein::RefreshSGroups(context_);
    rebuildGrid();
  });
}

void frmNummernkreise::cmdOptionen_Click() {
  onInput("cmdOptionen_Click", [&] { frmOptionen(context_).Show(); });
}

void frmNummernkreise::cmdOK_Click() {
  onInput("cmdOK_Click", [&] {
    closeMode_ = ByOK;
    form_->Unload();
  });
}

void frmNummernkreise::cmdCancel_Click() {
  onInput("cmdCancel_Click", [&] {
    closeMode_ = ByCancel;
    form_->Unload();
  });
}

void frmNummernkreise::Form_KeyDown(std::int16_t KeyCode, std::int16_t /*Shift*/) {
  onInput("Form_KeyDown", [&] {
    if (!cboUser_.Visible()) return;
    if (KeyCode == key_code::f10) {
      sftNummernkreise_.EndEdit(false);
      cmdCancel_Click();
      return;
    }
    if (KeyCode < key_code::f7 || KeyCode > key_code::f9) return;
    if (!sftNummernkreise_.EndEdit(true)) return;
    if (KeyCode == key_code::f7) selectUser(-1);
    if (KeyCode == key_code::f8) selectUser(+1);
    if (KeyCode == key_code::f9) cmdOK_Click();
  });
}

void frmNummernkreise::selectUser(std::int32_t step) {
  const std::int32_t index = cboUser_.ListIndex() + step;
  if (index >= 0 && index < cboUser_.ListCount()) cboUser_.ListIndex(index);
}

void frmNummernkreise::Form_QueryUnload(bool& Cancel, std::int16_t /*UnloadMode*/) {
  bool viewReset = false;
  reporting("Form_QueryUnload", [&] {
    if (closeMode_ == NotClosing) closeMode_ = ByCloseButton;
    const auto save = [&](bool askFirst) {
      if (!basAllgemein::Save(context_, viewReset, askFirst, basAllgemein::SyncDataWithControl))
        Cancel = true;
    };
    if (closeMode_ == ByOK) save(context_.Herkunft() == "ORB");
    if (closeMode_ == ByCancel) context_.Conn().RollbackTrans();
    if (closeMode_ == ByCloseButton) save(true);
    if (viewReset) resetFilters();
  });
}

// The grid shows everything already, so the filters only have to say so.
void frmNummernkreise::resetFilters() {
  suppressComboEvents_ = true;
  ignoringFailures([&] { cboBuchungskreis_.Text(alleBuchungskreise); });
  ignoringFailures([&] { cboUser_.Text(alleBenutzer); });
  suppressComboEvents_ = false;
}

void frmNummernkreise::Form_Unload() {
  reporting("Form_Unload", [&] {
    basAllgemein::basTerminate(context_);
    context_.sftNummernkreise(nullptr);
    context_.pictures({});
  });
}

void frmNummernkreise::ShowUserCombo() {
  reporting("ShowUserCombo", [&] {
    const bool circlesExist = cboBuchungskreis_.ListCount() > filterEntries;
    form_->control<Label>("lblUser").Visible(circlesExist);
    cboUser_.Visible(circlesExist);
    if (circlesExist && shown_ && cboUser_.ListIndex() != 0) cboUser_.ListIndex(0);
  });
}

void frmNummernkreise::CreateToolTips() {
  reporting("CreateToolTips", [&] {
    form_->control<Button>("cmdAuto").ToolTipText(
        "Belegt die Nummernkreise jeweils anhand der eingegebenen Maske neu vor.");
    form_->control<Button>("cmdBuchungskreise")
        .ToolTipText(
            "Nummernkreise verwalten.\r\n"
            "Hinweis: Ist kein Nummernkreis vorhanden, so wird die Auflistung \"Benutzer\" "
            "ausgeblendet.");
    cboUser_.ToolTipText(
        "Hinweis: Nummernkreise können nur dann verwaltet werden, wenn die Option "
        "\"Alle Benutzer\" ausgewählt worden ist.");
  });
}

std::unique_ptr<MainDialog> createMainDialog(HostContext& context) {
  return std::make_unique<frmNummernkreise>(context);
}

}  // namespace vexnumkr
