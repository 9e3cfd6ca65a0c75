#include "rules/saving.h"

#include "data/query.h"
#include "data/table/columns.h"
#include "hosting/reporting.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr const char* everybody = "ALL";

statement::Range rangeOf(const TableRow& row) {
  return {row.toLong(column::Buchungskreis), row.toText(column::NSchl),
          row.toText(column::NBezeichnung),  row.toLong(column::StartWert),
          row.toLong(column::AktuellerWert), row.toLong(column::EndWert),
          row.toBoolean(column::Aktiviert),  row.toLong(column::SortierIndex),
          row.toText(column::IstNSchlVon),   row.toText(column::Maske)};
}

void writeRow(HostContext& context, std::int32_t row) {
  const XArray& table = context.XArray();
  const std::string user = table.toText(row, column::Benutzer);
  if (user == alleBenutzer) {
    InsertIntoNummernkreise(context, rangeOf(table.at(row)));
    context.progress().advance();
  }
  if (table.toBoolean(row, column::Aktiviert)) {
    InsertIntoNummernkreis_Zuordnung(context, table.toLong(row, column::Buchungskreis),
                                     table.toText(row, column::NSchl), ReplaceUser(user));
    context.progress().advance();
  }
}

// What saving sends: an insert per common and per active row, two deletions and the commit. A value
// that does not convert is found out when its row is written.
std::int64_t statementsFor(const XArray& table) {
  std::int64_t statements = 3;
  for (std::int32_t i = table.LowerBound(1); i <= table.UpperBound(1); ++i) {
    const TableRow row = table.at(i);
    if (row.equals(column::Benutzer, alleBenutzer)) ++statements;
    if (row.get(column::Aktiviert) == Value(true)) ++statements;
  }
  return statements;
}

void writeTable(HostContext& context) {
  const Work work(context.progress(), "Nummernkreise werden gespeichert…");
  const XArray& table = context.XArray();
  context.progress().expect(statementsFor(table));
  execute(context.cmdSQL(), statement::deleteRanges(context.andereHerkunft()));
  context.progress().advance();
  execute(context.cmdSQL(), statement::deleteAssignments(context.Herkunft()));
  context.progress().advance();
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    writeRow(context, row);
  context.Conn().CommitTrans();
  context.progress().advance();
}

// True when the table was written and committed. A failure leaves a fresh transaction behind.
bool writeOrRollBack(HostContext& context) {
  const Procedure procedure{moduleName, "Save"};
  try {
    writeTable(context);
    return true;
  } catch (...) {
    reportCurrentFailure(context, procedure);
  }
  ignoringFailures([&] { context.Conn().RollbackTrans(); });
  reportingFailures(context, procedure, [&] { context.Conn().BeginTrans(); });
  return false;
}

enum class Decision { Save, Discard, KeepOpen };

Decision decide(HostContext& context, bool askFirst) {
  if (!context.blnChanged()) return Decision::Discard;
  if (!askFirst) return Decision::Save;
  const std::int32_t answer = MsgBoxEx(context, "Sollen die Änderungen gespeichert werden?",
                                       msg_box::yesNoCancel + msg_box::question, "Abfrage");
  if (answer == msg_box::cancel) return Decision::KeepOpen;
  // Whoever could not be asked has not agreed to saving.
  return answer == msg_box::yes ? Decision::Save : Decision::Discard;
}

}  // namespace

bool Save(HostContext& context, bool& viewReset, bool askFirst, GridRefill SyncDataWithControl) {
  bool mayClose = false;
  reportingFailures(context, {moduleName, "Save"}, [&] {
    switch (decide(context, askFirst)) {
      case Decision::Discard:
        context.Conn().RollbackTrans();
        mayClose = true;
        break;
      case Decision::Save:
        mayClose =
            CheckValidity(context, viewReset, SyncDataWithControl) && writeOrRollBack(context);
        break;
      case Decision::KeepOpen:
        break;
    }
  });
  return mayClose;
}

void InsertIntoNummernkreise(HostContext& context, const statement::Range& range) {
  try {
    execute(context.cmdSQL(), statement::insertRange(range));
  } catch (...) {
    UpdateIntoNummernkreise(context, range);
  }
}

void UpdateIntoNummernkreise(HostContext& context, const statement::Range& range) {
  execute(context.cmdSQL(), statement::updateRange(range));
}

void InsertIntoNummernkreis_Zuordnung(HostContext& context, std::int32_t Buchungskreis,
                                      const std::string& NSchl, const std::string& Benutzer) {
  execute(context.cmdSQL(),
          statement::insertAssignment(Buchungskreis, NSchl, Benutzer, context.Herkunft()));
}

std::string ReplaceUser(const std::string& text) { return text == alleBenutzer ? everybody : text; }

}  // namespace vexnumkr::basAllgemein
