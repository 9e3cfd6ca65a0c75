#include "dialogs/side/frmSonderkreise.h"

#include "data/sql/statements.h"
#include "data/stored/nz_value.h"
#include "platform/descriptions.h"

namespace vexnumkr {
namespace {

constexpr const char* moduleName = "frmSonderkreise";

constexpr std::int32_t designWidth = 4890;
constexpr std::int32_t designHeight = 3525;
constexpr Rect listPosition{120, 420, 4635, 2535};
constexpr Rect okPosition{1980, 3060, 1335, 345};
constexpr Rect cancelPosition{3420, 3060, 1335, 345};

FormDescription description() {
  FormDescription form;
  form.name = "frmSonderkreise";
  form.caption = "Sonderkreise";
  form.width = designWidth;
  form.height = designHeight;
  form.font = {"Tahoma"};
  form.resizable = true;
  form.minimumWidth = designWidth;
  form.minimumHeight = 2400;

  ControlDescription list =
      describeControl(ControlKind::CheckList, "lstSonderkreise", listPosition);
  list.accessibleName = "Sonderkreise";
  list.tabIndex = 0;
  ControlDescription label = describeLabel(
      "lblSonderkreise",
      "Folgende Sonderkreise können noch zusätzlich aktiviert werden:", {120, 120, 4605, 195});
  label.labelled = "lstSonderkreise";
  form.controls = {label, list, describeButton("cmdOK", "OK", okPosition, 1, ButtonRole::Default),
                   describeButton("cmdCancel", "Abbrechen", cancelPosition, 2, ButtonRole::Cancel)};
  return form;
}

std::string entryText(const Recordset& record) {
  return record.Fields("NBezeichnung").toText() + " (" + record.Fields("U_NSchl").toText() + ")";
}

}  // namespace

frmSonderkreise::frmSonderkreise(Session& session)
    : session_(session),
      form_(session.forms().createForm(description(), *this)),
      lstSonderkreise_(form_->control<CheckList>("lstSonderkreise")) {
  form_->control<Button>("cmdOK").OnClick([this] { cmdOK_Click(); });
  form_->control<Button>("cmdCancel").OnClick([this] { cmdCancel_Click(); });
}

frmSonderkreise::~frmSonderkreise() = default;

void frmSonderkreise::Form_Load() {
  reportingFailures(session_.reporter(), {moduleName, "Form_Load"}, [&] {
    records_ = session_.Conn().createRecordset();
    records_->CursorLocation(ado::useClient);
    records_->Open(statement::specialRangesByDescription(session_.Herkunft()), session_.Conn(),
                   ado::openKeyset, ado::lockOptimistic, ado::unspecified);
    for (std::int32_t i = 0; !records_->EndOfFile(); records_->MoveNext(), ++i) {
      lstSonderkreise_.AddItem(entryText(*records_));
      lstSonderkreise_.Selected(i, records_->Fields("Aktiviert").toBoolean());
    }
  });
}

// Writes every record, changed or not. Without a record there is nothing to write.
void frmSonderkreise::SaveSettings() {
  reportingFailures(session_.reporter(), {moduleName, "SaveSettings"}, [&] {
    if (records_ == nullptr || lstSonderkreise_.ListCount() == 0) return;
    const Work work(session_.progress(), "Sonderkreise werden gespeichert…");
    session_.progress().expect(lstSonderkreise_.ListCount());
    records_->MoveFirst();
    for (std::int32_t i = 0; i < lstSonderkreise_.ListCount(); ++i) {
      const bool selected = lstSonderkreise_.Selected(i);
      const bool changes =
          basAllgemein::NzValue(records_->Fields("Aktiviert"), false).toBoolean() != selected;
      records_->Fields("Aktiviert", selected);
      records_->Update();
      if (changes) session_.blnChanged(true);
      records_->MoveNext();
      session_.progress().advance();
    }
  });
}

void frmSonderkreise::Form_Resize() {
  const std::int32_t dW = form_->ScaleWidth() - designWidth;
  const std::int32_t dH = form_->ScaleHeight() - designHeight;
  const auto moved = [&](Rect position) {
    position.left += dW;
    position.top += dH;
    return position;
  };
  Rect list = listPosition;
  list.width += dW;
  list.height += dH;
  lstSonderkreise_.Position(list);
  form_->control<Button>("cmdOK").Position(moved(okPosition));
  form_->control<Button>("cmdCancel").Position(moved(cancelPosition));
}

void frmSonderkreise::cmdOK_Click() {
  SaveSettings();
  ignoringFailures([&] { form_->Unload(); });
}

void frmSonderkreise::cmdCancel_Click() {
  reportingFailures(session_.reporter(), {moduleName, "cmdCancel_Click"}, [&] { form_->Unload(); });
}

void frmSonderkreise::Form_Unload() {
  ignoringFailures([&] {
    if (records_ != nullptr) records_->Close();
  });
  records_.reset();
}

}  // namespace vexnumkr
