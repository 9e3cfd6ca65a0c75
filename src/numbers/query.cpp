#include "numbers/query.h"

#include <vexnumkr/error.h>

namespace vexnumkr::numbers {

std::unique_ptr<Recordset> select(Connection& connection, const std::string& text) {
  std::int32_t found = 0;
  auto rows = connection.Execute(text, found);
  if (rows == nullptr) throw Error::objectNotSet();
  return rows;
}

std::int32_t execute(Connection& connection, const std::string& text) {
  std::int32_t affected = 0;
  connection.Execute(text, affected);
  return affected;
}

std::string textOf(const Recordset& row, std::string_view field) {
  const Value value = row.Fields(field);
  if (value.isNull()) return {};
  std::string text = value.toText();
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

}  // namespace vexnumkr::numbers
