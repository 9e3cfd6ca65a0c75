#include "engines/transactional_tables.h"

namespace vexnumkr {

std::string selectWithoutTransactions(const Engine& engine,
                                      const std::vector<std::string>& tables) {
  if (engine.withoutTransactions == nullptr || tables.empty()) return {};
  std::string literals;
  for (const std::string& table : tables)
    literals += (literals.empty() ? "'" : ", '") + table + '\'';
  return engine.withoutTransactions(literals);
}

Error knowsNoTransactions(const TableWithoutTransactions& table, const char* source) {
  return Error(error_number::notAvailable, source,
               "Die Tabelle " + table.name + " kennt keine Transaktionen (" + table.kind +
                   "). Damit könnte nichts zurückgenommen werden. Bitte lassen Sie sie "
                   "umstellen: " +
                   table.remedy);
}

}  // namespace vexnumkr
