// The tables that a scenario starts with.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vexnumkr::scenario {

struct TableDefinition {
  const char* name;
  /// Definitions of columns and keys, as they stand in CREATE TABLE.
  const char* definition;
  /// Number of columns, for ordering by all of them.
  int columns;
};

/// The settings table's name.
inline constexpr const char* settingsTable = "Einstellungen";

/// All tables, those that are listed first.
const std::vector<TableDefinition>& tableDefinitions();

/// The statement that makes `table` on that engine. Texts are compared by code points on each.
std::string createStatement(const TableDefinition& table, std::string_view engine);

/// Statements to run on the database when its tables are there.
const std::vector<std::string>& indexStatements();

}  // namespace vexnumkr::scenario
