#include "dialogs/main/frmNummernkreise.h"

#include "data/circle_changes.h"
#include "data/loading.h"
#include "data/special_ranges.h"
#include "dialogs/main/refresh_font.h"
#include "dialogs/side/frmOptionen.h"
#include "dialogs/side/frmSonderkreise.h"
#include "hosting/circle_administration.h"
#include "hosting/renumbering.h"
#include "hosting/start_up.h"
#include "platform/hinted.h"
#include "rules/activity.h"
#include "rules/validation.h"

namespace vexnumkr {
namespace {

constexpr std::int32_t windowIcon = 267;     // in the host's catalogue
constexpr std::int32_t usualMaskLimit = 40;  // where the database names none
constexpr std::int32_t filterEntries = 2;    // "Alle Buchungskreise" and "Aktive Buchungskreise"

std::int32_t entryWithText(ComboBox& combo, const std::string& text, std::int32_t otherwise) {
  for (std::int32_t i = 0; i < combo.ListCount(); ++i)
    if (combo.List(i) == text) return i;
  return otherwise;
}

std::set<std::string> numberKeys(const XArray& table) {
  std::set<std::string> keys;
  for (const RangeRow& row : table)
    if (row.isStandard()) keys.insert(row.NSchl.str());
  return keys;
}

// Opens the editor on the value of `range` in the grid: found by the key's description, from there
// by the circle's caption, from there by the value itself.
void editValue(TreeGrid& grid, const RangeRow& range, ValueColumn value) {
  const std::int16_t column = gridColumnOf(value);
  std::int32_t item = grid.FindString(0, grid_column::Beschreibung, range.NBezeichnung.str());
  if (item < 0) return;
  item = grid.FindString(item, grid_column::Beschreibung, range.Gruppe.str());
  if (item < 0) return;
  item = grid.FindString(item, column, (range.*value).toText());
  grid.StartEdit(item, column);
}

}  // namespace

frmNummernkreise::frmNummernkreise(Session& session)
    : session_(session),
      form_(session.forms().createForm(mainDialogDescription(), *this)),
      sftNummernkreise_(form_->control<TreeGrid>("sftNummernkreise")),
      tree_(session, sftNummernkreise_),
      notes_(session, sftNummernkreise_),
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
  basAllgemein::RefreshFont(session_, *form_, fontName);
}

void frmNummernkreise::Show() { form_->ShowModal(); }

void frmNummernkreise::Form_Load() {
  const UserAction opening(session_.failures());
  takeIcon();
  try {
    const CancelOffer offer(session_.progress());
    reporting("Form_Load", [&] { load(); });
  } catch (const WorkCancelled&) {
    closeMode_ = Unloaded;
    form_->Unload();
  }
}

void frmNummernkreise::load() {
  layout_.emplace(*form_);
  closeMode_ = NotClosing;
  prepare();
  cboBuchungskreis_.ListIndex(0);
  fillUserCombo();
  ShowUserCombo();
  CreateToolTips();
  session_.forms().DoEvents();
  loadRanges();
  limitMasks();
  cboUser_.ListIndex(0);
  session_.beginTransaction();
}

void frmNummernkreise::loadRanges() {
  const RangeData data = session_.data();
  if (basAllgemein::LoadItems(data, session_.source(), session_.reporter(), session_.progress()))
    basAllgemein::CheckActivity(data.table, data.users, session_.reporter());
  basAllgemein::RefreshSGroups(data, session_.source(), session_.reporter(), session_.progress());
}

// A mask that does not fit into its column would keep everything from being saved.
void frmNummernkreise::limitMasks() {
  std::int32_t limit = 0;
  ignoringFailures(
      [&] { limit = session_.source().ConnWork().TextLimit("Nummernkreise", "Maske"); });
  sftNummernkreise_.ColTextLimit(grid_column::Maske, limit > 0 ? limit : usualMaskLimit);
}

// What is asked of the database ahead of the ranges; a slow server keeps the pointer busy.
void frmNummernkreise::prepare() {
  const Work work(session_.progress(), "Nummernkreise werden geladen…");
  basAllgemein::basInititialize(session_);
  sftNummernkreise_.CellButtonPicture(form_->control<PictureHolder>("UglyButtons").Picture());
  applyApplicationStyle();
  storePictures();
  form_->control<Button>("cmdSonderkreise")
      .Visible(basAllgemein::CheckSonderkreise(session_.source(), session_.reporter()));
  RefreshCombo();
}

// A host that cannot deliver the icon is told of; the dialog does without.
void frmNummernkreise::takeIcon() {
  reporting("Form_Load", [&] {
    if (HostTexts* texts = session_.host().Texts()) form_->Icon(texts->Picture(windowIcon));
  });
}

void frmNummernkreise::applyApplicationStyle() {
  if (session_.LngApplication() == 1) {
    sftNummernkreise_.DisplayStyle(3);
  } else if (session_.LngApplication() == 2) {
    sftNummernkreise_.DisplayStyle(1);
    form_->control<Button>("cmdOptionen").Visible(true);
  }
}

void frmNummernkreise::storePictures() {
  const auto picture = [this](const char* name) {
    return form_->control<PictureHolder>(name).Picture();
  };
  tree_.pictures({.Checked = picture("Checked"),
                  .Unchecked = picture("Unchecked"),
                  .ValueFalse = picture("ValueFalse"),
                  .ValueTrue = picture("ValueTrue"),
                  .NotFound = picture("NotFound")});
}

void frmNummernkreise::fillUserCombo() {
  for (const std::string& user : session_.colUser()) cboUser_.AddItem(user);
}

void frmNummernkreise::Form_Shown() { shown_ = true; }

void frmNummernkreise::Form_Resize() {
  reporting("Form_Resize", [&] {
    if (shown_ && layout_) layout_->apply();
  });
}

void frmNummernkreise::rebuildGrid() {
  notes_.forget();
  tree_.SyncDataWithControl(shownView());
}

// Where the circles could not be read, the filter stays as it was, as the list does.
void frmNummernkreise::RefreshCombo() {
  if (!basAllgemein::RefreshCombo(session_.Buchungskreise(), session_.source(),
                                  session_.reporter()))
    return;
  reportingFailures(session_.reporter(), {generalModule, "RefreshCombo"}, [&] {
    cboBuchungskreis_.Clear();
    cboBuchungskreis_.AddItem(alleBuchungskreise);
    cboBuchungskreis_.AddItem(aktiveBuchungskreise);
    for (const BookingCircle& circle : session_.Buchungskreise())
      cboBuchungskreis_.AddItem(circle.Beschreibung);
  });
}

void frmNummernkreise::cboBuchungskreis_Click() {
  onInput("cboBuchungskreis_Click", [&] {
    view_.filter = cboBuchungskreis_.Text();
    if (!suppressComboEvents_) rebuildGrid();
  });
}

void frmNummernkreise::cboUser_Click() {
  onInput("cboUser_Click", [&] {
    view_.user = cboUser_.Text();
    if (!suppressComboEvents_) rebuildGrid();
  });
}

void frmNummernkreise::cmdAuto_Click() {
  onInput("cmdAuto_Click", [&] {
    if (basAllgemein::StartAutoNum(session_)) rebuildGrid();
  });
}

void frmNummernkreise::cmdBuchungskreise_Click() {
  onInput("cmdBuchungskreise_Click", [&] {
    session_.requireTransaction();
    const BookingCircleList before = session_.Buchungskreise();
    if (!basAllgemein::CallBuchungskreise(session_, session_.Herkunft())) return;
    refillFilter();
    if (session_.Buchungskreise() != before) session_.blnChanged(true);
    const RangeData data = session_.data();
    if (basAllgemein::RefreshInXArray(data, session_.source(), session_.reporter(),
                                      session_.progress()))
      session_.blnChanged(true);
    basAllgemein::CheckActivity(data.table, data.users, session_.reporter());
    rebuildGrid();
    ShowUserCombo();
  });
}

// The entry that was shown stays shown where the new list has it; the filter is never empty.
void frmNummernkreise::refillFilter() {
  const std::string shown = cboBuchungskreis_.Text();
  RefreshCombo();
  cboBuchungskreis_.SelectSilently(entryWithText(cboBuchungskreis_, shown, 0));
  view_.filter = cboBuchungskreis_.Text();
}

void frmNummernkreise::cmdSonderkreise_Click() {
  onInput("cmdSonderkreise_Click", [&] {
    session_.requireTransaction();
    const std::set<std::string> before = numberKeys(session_.XArray());
    {
      frmSonderkreise dialog(session_);
      if (session_.Herkunft() == "ORB")
        basAllgemein::RefreshFont(session_, dialog.form(), hostFont);
      dialog.Show();
    }
    basAllgemein::RefreshSGroups(session_.data(), session_.source(), session_.reporter(),
                                 session_.progress());
    rebuildGrid();
    showNewGroup(before);
  });
}

// Where one was switched on, or the first of several.
void frmNummernkreise::showNewGroup(const std::set<std::string>& before) {
  for (std::int32_t item = 0; item < sftNummernkreise_.ListCount(); ++item) {
    const bool isNew = sftNummernkreise_.ItemLevel(item) == 0 &&
                       !before.contains(sftNummernkreise_.List(item, grid_column::NSchl));
    if (isNew) return sftNummernkreise_.ShowGroup(item);
  }
}

void frmNummernkreise::cmdOptionen_Click() {
  onInput("cmdOptionen_Click", [&] { frmOptionen(session_).Show(); });
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
  const UserAction closing(session_.failures());
  viewReset_ = false;
  reporting("Form_QueryUnload", [&] {
    if (closeMode_ == NotClosing) closeMode_ = ByCloseButton;
    const auto save = [&](bool askFirst) {
      if (!basAllgemein::Save(session_, *this, askFirst)) Cancel = true;
    };
    if (closeMode_ == ByOK) save(session_.Herkunft() == "ORB");
    if (closeMode_ == ByCancel) session_.rollBackTransaction();
    if (closeMode_ == ByCloseButton) save(true);
    if (viewReset_) resetFilters();
  });
  // A refused closing is forgotten, so that the close button asks as it always does.
  if (Cancel) closeMode_ = NotClosing;
}

// Says which rule is broken and opens the editor on the offending value, in a grid that shows all.
void frmNummernkreise::showDefect(const RangeDefect& defect) {
  session_.boxes().MsgBoxEx(defectMessage(session_.XArray(), defect), msg_box::okOnly, "Info");
  if (!view_.showsEverything()) {
    tree_.SyncDataWithControl({alleBuchungskreise, alleBenutzer});
    viewReset_ = true;
  }
  ignoringFailures([&] {
    editValue(sftNummernkreise_, session_.XArray().at(offendingRow(defect)),
              offendingValue(defect.rule));
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
    basAllgemein::basTerminate(session_);
    tree_.pictures({});
  });
}

void frmNummernkreise::ShowUserCombo() {
  reporting("ShowUserCombo", [&] {
    const bool circlesExist = cboBuchungskreis_.ListCount() > filterEntries;
    // Before the list goes, too: nobody could leave a user's view without it.
    if (shown_ && cboUser_.ListIndex() != 0) cboUser_.ListIndex(0);
    form_->control<Label>("lblUser").Visible(circlesExist);
    cboUser_.Visible(circlesExist);
  });
}

void frmNummernkreise::giveHint(const char* button, const char* text) {
  if (auto* hinted = dynamic_cast<Hinted*>(&form_->control<Button>(button))) hinted->Hint(text);
}

void frmNummernkreise::CreateToolTips() {
  reporting("CreateToolTips", [&] {
    giveHint("cmdOK", "Speichert und schließt den Dialog (F9).");
    giveHint("cmdCancel", "Schließt den Dialog, ohne zu speichern (F10).");
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

std::unique_ptr<MainDialog> createMainDialog(Session& session) {
  return std::make_unique<frmNummernkreise>(session);
}

}  // namespace vexnumkr
