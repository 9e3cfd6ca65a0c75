// What differs between the database engines, all in one table.
#pragma once

#include <QtCore/QString>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vexnumkr::qtsql {

struct Engine {
  std::string_view driver;  ///< The name of Qt's driver for it.

  /// What Qt's driver is told on opening.
  const char* connectOptions;
  /// The name that Qt's driver opens for the `Database` of a connection string.
  QString (*databaseName)(const std::string& database);
  /// Run on every connection that the adapter opens itself, never on a borrowed one.
  std::span<const char* const> openingStatements;

  const char* begin;
  const char* commit;
  const char* rollback;
  /// The isolation levels that need nothing done, by their ADO numbers.
  std::span<const std::int32_t> isolationLevels;
  /// Whether some failures roll the whole transaction back without being asked to.
  bool failureMayRollBack;

  /// The names of a record's built-in unique number; a table's own column of that name hides it.
  std::span<const char* const> rowNumberNames;
  /// Compares a key column with its value, so that NULL equals NULL where keys may hold it.
  const char* keyEquals;
  /// The engine's code for a statement that names a column or table which does not exist.
  std::int32_t unknownName;
};

/// The engine that Qt's driver of that name (without regard to case) reaches.
/// Error: 3706 for any other.
const Engine& engineOf(std::string_view driver);

/// Error: 3251 when `engine` has no such isolation level.
void requireIsolation(const Engine& engine, std::int32_t level);

}  // namespace vexnumkr::qtsql
