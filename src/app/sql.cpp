#include "app/sql.h"

namespace vexnumkr::app {

std::string sqlText(std::string_view text) {
  std::string result = "'";
  for (const char c : text) {
    result += c;
    if (c == '\'') result += c;
  }
  return result + "'";
}

std::int32_t execute(Connection& connection, const std::string& statement) {
  std::int32_t changed = 0;
  connection.Execute(statement, changed);
  return changed;
}

void forEachRow(Connection& connection, const std::string& select,
                const std::function<void(const Recordset&)>& row) {
  std::int32_t found = 0;
  const auto rows = connection.Execute(select, found);
  for (; !rows->EndOfFile(); rows->MoveNext()) row(*rows);
  rows->Close();
}

std::string textField(const Recordset& row, std::string_view name) {
  const Value value = row.Fields(name);
  return value.isNull() ? std::string() : value.toText();
}

}  // namespace vexnumkr::app
