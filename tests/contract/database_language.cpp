#include "contract/database_language.h"

namespace vexnumkr::test {
namespace {

std::string currentRow(const Recordset& recordset, Fields fields) {
  std::string row;
  for (const char* const field : fields) {
    if (field != *fields.begin()) row += '|';
    row += shown(recordset.Fields(field));
  }
  return row;
}

}  // namespace

std::string shown(const Value& value) {
  if (value.isEmpty()) return "Empty";
  if (value.isNull()) return "Null";
  if (value.isLong()) return std::to_string(value.asLong());
  if (value.isBoolean()) return value.asBoolean() ? "True" : "False";
  return "'" + value.asText() + "'";
}

std::int32_t run(Connection& connection, const std::string& text) {
  std::int32_t affected = -1;
  connection.Execute(text, affected);
  return affected;
}

std::vector<std::string> rows(Connection& connection, const std::string& select, Fields fields) {
  std::int32_t affected = -1;
  return rest(*connection.Execute(select, affected), fields);
}

std::vector<std::string> rest(Recordset& recordset, Fields fields) {
  std::vector<std::string> found;
  for (; !recordset.EndOfFile(); recordset.MoveNext())
    found.push_back(currentRow(recordset, fields));
  return found;
}

Value value(Connection& connection, const std::string& select) {
  std::int32_t affected = -1;
  return connection.Execute(select, affected)->Fields("X");
}

Error errorOf(Connection& connection, const std::string& text) {
  return errorOf([&] { run(connection, text); });
}

}  // namespace vexnumkr::test
