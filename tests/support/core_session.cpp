#include "support/core_session.h"

#include <vexnumkr/adapters.h>

#include "app/schema/schema.h"
#include "data/booking_circles.h"
#include "hosting/start_up.h"

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

CoreSession::~CoreSession() { basAllgemein::basTerminate(context_); }

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
  context_.Conn(connection_);
  context_.LngApplication(application);
  context_.strVerarbeitungsdatum("20240315");
  context_.createColUser();
  context_.colUser().emplace_back(alleBenutzer);
  for (const std::string& user : users) context_.colUser().push_back(user);
  basAllgemein::basInititialize(context_);
  basAllgemein::RefreshCombo(context_, nullptr);
}

std::vector<std::string> CoreSession::rows() {
  std::vector<std::string> result;
  for (std::int32_t i = table().LowerBound(1); i <= table().UpperBound(1); ++i) {
    std::vector<std::string> cells;
    for (std::int32_t c = 0; c <= table().UpperBound(2); ++c)
      cells.push_back(cellText(table().get(i, c)));
    result.push_back(joined(cells));
  }
  return result;
}

std::vector<std::string> CoreSession::activity() {
  std::vector<std::string> result;
  for (std::int32_t i = table().LowerBound(1); i <= table().UpperBound(1); ++i)
    result.push_back(cellText(table().get(i, 0)) + " " + cellText(table().get(i, 1)) + " " +
                     cellText(table().get(i, 3)) + " " + cellText(table().get(i, 8)));
  return result;
}

void CoreSession::row(const std::vector<Value>& cells) {
  table().AppendRows();
  const std::int32_t last = table().UpperBound(1);
  for (std::size_t c = 0; c < cells.size(); ++c)
    table().set(last, static_cast<std::int32_t>(c), cells[c]);
}

}  // namespace vexnumkr::test
