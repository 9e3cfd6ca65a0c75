// What differs between the database engines, all in one table.
#pragma once

#include <QString>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "platform/sql_tokens.h"

class QSqlDatabase;

namespace vexnumkr::qtsql {

class Session;

/// How a session finds out whether its transaction still runs after a statement has failed in it.
enum class Recovery {
  secondBegin,  ///< The engine refuses to begin another one while it does.
  askEngine,    ///< Engine::transactionQuery says so.
  savepoint,    ///< It runs once it has gone back to the savepoint behind the last change.
};

struct Engine {
  std::string_view name;
  Dialect dialect;

  /// Run on every connection that the adapter opens itself, never on a borrowed one.
  std::span<const char* const> openingStatements;
  /// Makes such a connection's statements serializable that run outside transactions; may be null.
  const char* isolateSession;
  /// Selects the setting that decides about quotes and backslashes; null where nothing does.
  const char* lexicalMode;
  /// The rules under that setting. Error: 3706 where there are none to go by.
  LexicalRules (*rules)(const QString& mode);

  /// What begins a transaction of isolation ado::unspecified, and of ado::isolated.
  std::span<const char* const> begin;
  std::span<const char* const> beginIsolated;
  const char* commit;
  const char* rollback;
  /// Whether the engine itself refuses to begin a second transaction and to end one that is none.
  bool guardsTransactions;
  /// Succeeds exactly while a transaction runs; for connections that others use as well.
  const char* transactionProbe;
  Recovery recovery;
  /// Selects a number that is 0 unless a transaction runs.
  const char* transactionQuery;
  /// With Recovery::savepoint: goes behind each change, so that a later failure does not undo it.
  const char* afterChange;
  /// With Recovery::savepoint: goes back there.
  const char* undo;

  /// The names of a record's built-in unique number; a table's own column of that name hides it.
  std::span<const char* const> rowNumberNames;
  /// Compares a key column with its value, so that NULL equals NULL where keys may hold it.
  const char* keyEquals;
  char nameQuote;
  /// Whether a failure of that code may have kept an insert from its row although the row was not
  /// there yet (no lock, no room, a text too long): the update that takes the insert's place would
  /// find nothing and succeed, and the commit would make the loss final.
  bool (*endsTransaction)(const QString& code);
  /// The engine's code for a statement that names a column or table which does not exist.
  std::int32_t unknownName;
};

extern const Engine sqlite;
extern const Engine postgresql;
extern const Engine mariadb;

/// Error: 3251 when there is no such isolation level. All engines have ado::isolated.
void requireIsolation(std::int32_t level);

}  // namespace vexnumkr::qtsql
