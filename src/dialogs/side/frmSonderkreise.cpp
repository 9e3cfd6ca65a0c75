#include "dialogs/side/frmSonderkreise.h"

#include "data/nz_value.h"
#include "data/sql/statements.h"
#include "platform/descriptions.h"

namespace vexnumkr {
namespace {

constexpr const char* moduleName = "frmSonderkreise";

FormDescription description() {
  FormDescription form;
  form.name = "frmSonderkreise";
  form.caption = "Sonderkreise";
  form.width = 4890;
  form.height = 3525;
  form.font = {"Tahoma"};

  ControlDescription list =
      describeControl(ControlKind::CheckList, "lstSonderkreise", {120, 420, 4635, 2535});
  list.accessibleName = "Sonderkreise";
  list.tabIndex = 0;
  ControlDescription label = describeLabel(
      "lblSonderkreise",
      "Folgende Sonderkreise können noch zusätzlich aktiviert werden:", {120, 120, 4605, 195});
  label.labelled = "lstSonderkreise";
  form.controls = {
      label, list, describeButton("cmdOK", "OK", {1980, 3060, 1335, 345}, 1, ButtonRole::Default),
      describeButton("cmdCancel", "Abbrechen", {3420, 3060, 1335, 345}, 2, ButtonRole::Cancel)};
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
