#include "support/core_session.h"

#include <vexnumkr/adapters.h>

#include "app/schema/schema.h"
#include "data/circle_changes.h"
#include "data/loading.h"
#include "data/range_answers.h"
#include "data/range_rows.h"
#include "data/range_table.h"
#include "data/special_ranges.h"
#include "hosting/renumbering.h"
#include "hosting/start_up.h"
#include "rules/activity.h"

namespace vexnumkr::test {
namespace {

std::string joined(const std::vector<std::string>& cells) {
  std::string text;
  for (const std::string& cell : cells)
    text += (text.empty() && &cell == &cells[0] ? "" : "|") + cell;
  return text;
}

}  // namespace

std::string cellText(const Value& value) {
  if (value.isNull()) return "NULL";
  if (value.isBoolean()) return value.asBoolean() ? "True" : "False";
  return value.toText();
}

CoreSession::CoreSession() {
  own_ = openQtSqlConnection(connectionString());
  for (const std::string& statement : app::rangeTableStatements(database_.schema())) sql(statement);
  connection_ = scriptedConnection(openQtSqlConnection(connectionString()), script_);
}

CoreSession::~CoreSession() { basAllgemein::basTerminate(session_); }

void CoreSession::TearDown() {
  EXPECT_EQ(forms_.takeBoxes(), std::vector<Box>{});
  EXPECT_TRUE(forms_.allAnswersUsed());
}

void CoreSession::sql(const std::string& text) {
  std::int32_t affected = 0;
  own_->Execute(text, affected);
}

std::vector<std::string> CoreSession::select(const std::string& text) {
  // The columns' names are what stands between SELECT and FROM.
  const std::size_t begin = text.find(' ') + 1;
  const std::string list = text.substr(begin, text.find(" FROM ") - begin);
  std::vector<std::string> names;
  for (std::size_t at = 0; at < list.size();) {
    const std::size_t comma = std::min(list.find(", ", at), list.size());
    names.push_back(list.substr(at, comma - at));
    at = comma + 2;
  }
  std::vector<std::string> result;
  std::int32_t affected = 0;
  const auto records = own_->Execute(text, affected);
  for (; !records->EndOfFile(); records->MoveNext()) {
    std::vector<std::string> cells;
    for (const std::string& name : names) cells.push_back(cellText(records->Fields(name)));
    result.push_back(joined(cells));
  }
  return result;
}

void CoreSession::start(std::int32_t application, const std::vector<std::string>& users) {
  session_.Conn(connection_);
  session_.LngApplication(application);
  session_.strVerarbeitungsdatum("20240315");
  session_.createColUser();
  session_.colUser().emplace_back(alleBenutzer);
  for (const std::string& user : users) session_.colUser().push_back(user);
  basAllgemein::basInititialize(session_);
  RefreshCombo();
}

std::vector<std::string> CoreSession::rows() {
  std::vector<std::string> result;
  for (const RangeRow& row : table()) {
    std::vector<std::string> cells;
    for (const Value& cell : row.columns()) cells.push_back(cellText(cell));
    result.push_back(joined(cells));
  }
  return result;
}

std::vector<std::string> CoreSession::activity() {
  std::vector<std::string> result;
  for (const RangeRow& row : table())
    result.push_back(row.Benutzer.str() + " " + std::to_string(row.Buchungskreis) + " " +
                     row.NSchl.str() + " " + cellText(row.Aktiviert));
  return result;
}

void CoreSession::row(const RowCells& cells) { table().append(rowOf(table(), cells)); }

void CoreSession::change(std::int32_t row, const std::function<void(RangeRow&)>& write) {
  XArray before;
  before.copyFrom(table());
  table().create();
  std::int32_t i = 0;
  for (RangeRow each : before) {
    const auto own = [&](Text& text) { text = table().text(text.str()); };
    for (Text* text :
         {&each.Benutzer, &each.Gruppe, &each.NSchl, &each.NBezeichnung, &each.IstNSchlVon})
      own(*text);
    for (const ValueColumn column :
         {&RangeRow::StartWert, &RangeRow::AktuellerWert, &RangeRow::EndWert, &RangeRow::Maske})
      if ((each.*column).isText()) each.*column = table().text((each.*column).toText());
    if (i++ == row) write(each);
    table().append(each);
  }
}

void CoreSession::LoadItems() {
  if (basAllgemein::LoadItems(session_.data(), session_.source(), session_.reporter(),
                              session_.progress()))
    CheckActivity();
}

bool CoreSession::AktiviertDB(std::int32_t circle, const std::string& key,
                              const std::string& user) {
  return basAllgemein::AktiviertDB(session_.source(), session_.reporter(), circle, key, user);
}

void CoreSession::AddDataBuchungskreis(const std::string& user, std::int32_t circle,
                                       const std::string& caption, const std::string& key,
                                       bool fromDatabase) {
  basAllgemein::AddDataBuchungskreis(
      session_.data(), *makeRangeQuestions(session_.source(), session_.reporter()),
      session_.reporter(), session_.progress(), user, circle, caption, key, fromDatabase);
}

void CoreSession::GetBuchungskreisData(std::int32_t circle, const std::string& key,
                                       std::int32_t& start, std::int32_t& end,
                                       std::int32_t& current) {
  basAllgemein::GetBuchungskreisData(session_.source(), session_.reporter(), circle, key, start,
                                     end, current);
}

bool CoreSession::CheckSonderkreise() {
  return basAllgemein::CheckSonderkreise(session_.source(), session_.reporter());
}

void CoreSession::RefreshSGroups() {
  basAllgemein::RefreshSGroups(session_.data(), session_.source(), session_.reporter(),
                               session_.progress());
}

bool CoreSession::RefreshCombo() {
  return basAllgemein::RefreshCombo(session_.Buchungskreise(), session_.source(),
                                    session_.reporter());
}

void CoreSession::RefreshInXArray() {
  if (basAllgemein::RefreshInXArray(session_.data(), session_.source(), session_.reporter(),
                                    session_.progress()))
    session_.blnChanged(true);
}

std::int32_t CoreSession::FoundInXArray(const std::string& user, std::int32_t circle,
                                        const std::string& key) {
  return basAllgemein::FoundInXArray(table(), session_.reporter(), user, circle, key);
}

void CoreSession::AddInXArray(const RangeRow& range, bool allUsers) {
  basAllgemein::AddInXArray(table(), session_.data().users, session_.reporter(), range, allUsers);
}

bool CoreSession::DeleteInXArray(std::int32_t circle, const std::string& key, bool allUsers) {
  return basAllgemein::DeleteInXArray(table(), session_.data().users, session_.reporter(), circle,
                                      key, allUsers);
}

void CoreSession::SetValueAll(const std::string& key, std::int32_t circle, ValueColumn column,
                              const Value& value) {
  basAllgemein::SetValueAll(table(), session_.data().users, session_.reporter(), key, circle,
                            column, value);
}

void CoreSession::SetValue(const std::string& key, const std::string& caption,
                           const std::string& user, bool active) {
  basAllgemein::SetValue(table(), session_.reporter(), key, caption, user, active);
}

void CoreSession::CheckActivity() {
  basAllgemein::CheckActivity(table(), session_.data().users, session_.reporter());
}

bool CoreSession::StartAutoNum() { return basAllgemein::StartAutoNum(session_); }

bool CoreSession::Save(bool askFirst) { return basAllgemein::Save(session_, display_, askFirst); }

}  // namespace vexnumkr::test
