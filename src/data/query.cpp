#include "data/query.h"

namespace vexnumkr {

std::unique_ptr<Recordset> query(Command& command, const std::string& text) {
  std::int32_t recordsAffected = 0;
  command.CommandText(text);
  return command.Execute(recordsAffected);
}

std::int32_t execute(Command& command, const std::string& text) {
  std::int32_t recordsAffected = 0;
  command.CommandText(text);
  command.Execute(recordsAffected);
  return recordsAffected;
}

}  // namespace vexnumkr
