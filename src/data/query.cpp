#include "data/query.h"

namespace vexnumkr {

std::unique_ptr<Recordset> query(Command& command, const std::string& text) {
  std::int32_t found = 0;
  return query(command, text, found);
}

std::unique_ptr<Recordset> query(Command& command, const std::string& text, std::int32_t& found) {
  command.CommandText(text);
  return command.Execute(found);
}

std::int32_t execute(Command& command, const std::string& text) {
  std::int32_t recordsAffected = 0;
  query(command, text, recordsAffected);
  return recordsAffected;
}

}  // namespace vexnumkr
