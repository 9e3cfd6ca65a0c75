// What a database engine is like: everything in which the supported ones differ.
//
// Each has a folder here, in which its one object is made, and is in the list of
// cmake/VexnumkrEngines.cmake. Nothing else knows any of them, so nobody can take one for another.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/connection_string.h>

#include "platform/sql_tokens.h"
#include "platform/statement_gate.h"

namespace vexnumkr {

/// How a session finds out whether its transaction still runs after a statement has failed in it.
enum class Recovery {
  secondBegin,  ///< The engine refuses to begin another one while it does.
  askEngine,    ///< Engine::transactionQuery says so.
  savepoint,    ///< It runs once it has gone back to the savepoint behind the last change.
};

/// A driver of Qt's for one engine.
struct QtDriver {
  std::string_view name;  ///< E.g. "QPSQL".
  /// The options that it knows; empty where they are any pairs of the engine's own.
  std::span<const std::string_view> options;
  /// What the driver is told, for what the user has asked for.
  ConnectionSettings (*prepare)(ConnectionSettings settings);
  /// Options, with semicolons between them, by which it gives up a server that does not answer; for
  /// connection strings with several.
  std::string_view patience = {};
  /// Whether it has an object made of each row that is read forward only, so that a result of many
  /// rows costs less taken whole.
  bool isQuickerWhole = false;
};

/// How the engine is reached by ODBC.
struct OdbcAccess {
  /// What the ODBC driver is told besides, for the connection string given.
  std::string (*prepare)(const std::string& connectionString);
  bool usesSqlStates;    ///< The driver's own codes say nothing, but its SQLSTATEs do.
  bool hasEightBitText;  ///< Statements go through an encoding that not all characters survive.
};

/// A row of a catalogue: the texts by the names of their columns, none where it is NULL.
using CatalogueRow = std::map<std::string, std::optional<std::string>>;
/// Runs a select of the engine's catalogue.
using Catalogue = std::function<std::vector<CatalogueRow>(const std::string& select)>;

/// What tells the records of a table apart.
struct TableKeys {
  /// The columns of the primary key or, on servers, of another unique index without NULL; empty
  /// where there is none.
  std::vector<std::string> unique;
  /// Whether that is the engine's row number under a name of its own, and may be changed.
  bool isRowNumber = false;
  /// All columns, where the engine has row numbers whose name a column may take.
  std::vector<std::string> columns;
};

using Statements = std::span<const char* const>;

struct Engine {
  std::string_view name;   ///< That of its folders.
  std::string_view title;  ///< As its makers write it.

  /// What the names of its drivers and providers have in common, in lower case.
  std::span<const std::string_view> marks;
  /// Succeeds on it with one text, and on none before it in the list.
  const char* versionQuery;
  /// What that text contains; empty where succeeding says enough.
  std::string_view versionMark;

  /// Whether a database is a file, which its failures to open do not name.
  bool opensFiles;
  std::span<const QtDriver> drivers;
  std::optional<OdbcAccess> odbc;

  /// Run on every connection that the adapter opens itself, never on a borrowed one.
  Statements openingStatements;
  /// What limits how long a statement of such a connection may take, and how long it waits for a
  /// lock, which is never longer than without; 0 is as after opening.
  std::string (*limit)(std::int32_t seconds);
  /// Makes such a connection's statements serializable that run outside transactions; may be null.
  const char* isolateSession;
  /// Selects the settings that decide about quotes, backslashes and encodings; null where none do.
  const char* lexicalMode;
  /// What that selects where nobody has changed it.
  std::string_view usualMode;
  /// The rules under that setting. Error: 3706 where there are none to go by.
  LexicalRules (*rules)(std::string_view mode);
  /// Why a statement is not sent although the engine knows it (German): the drivers would wait for
  /// ever. Empty where it is sent; null where every one is.
  std::string_view (*unsendable)(const Statement& statement);

  /// The encoding that texts are sent in under that setting, where it lacks characters that they
  /// may have; empty where none are lacking. Null where none ever are.
  std::string (*lackingEncoding)(std::string_view mode);
  /// Makes the session's texts be sent in an encoding of that name.
  std::string (*setEncoding)(const std::string& encoding);
  /// The one that lacks nothing.
  const char* wholeEncoding;

  /// What begins a transaction of isolation ado::unspecified, and of ado::isolated.
  Statements begin;
  Statements beginIsolated;
  /// What begins one that reads what was stored at one moment, and changes nothing.
  Statements beginReading;
  /// What goes before a select to make it a cursor of the running transaction called vexnumkr_rows;
  /// null where the client libraries hand rows over one by one.
  const char* declareCursor;
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
  /// What begins an isolated transaction that changes something before it locks tables: what it
  /// reads under the lock has to be what is stored then, not what was when it began.
  Statements beginBeforeLocking;
  /// What begins an isolated transaction that locks tables first, and what keeps others from
  /// changing one (named as a statement names it) until it ends; null where the first is
  /// enough.
  Statements beginForWriting;
  std::string (*lockTable)(const std::string& table);
  /// The same in a transaction that another layer has begun in a way of its own: a single
  /// statement, which locks whatever that way is.
  std::string (*lockTableAnyhow)(const std::string& table);
  /// Whether an isolated transaction goes on seeing what was stored at its first statement, also
  /// under a lock that it takes later.
  bool seesItsBeginning;
  /// Selects the first of the tables, given as a list of literals, that knows no transactions: its
  /// name as Tabelle, its kind as Art, and the statement that gives it some as Abhilfe. Null where
  /// every table does.
  std::string (*withoutTransactions)(const std::string& tables);

  /// Selects how many characters a column for texts has room for; no row, NULL or 0 where that is
  /// not said. Both are named as a statement names them.
  std::string (*textLimit)(const std::string& table, const std::string& column);

  /// The names of a record's built-in unique number; a table's own column of that name hides it.
  std::span<const char* const> rowNumberNames;
  /// Asks about `table`, which is named as a statement names it, perhaps `schema.table`, perhaps in
  /// quotes. A view has no keys.
  TableKeys (*keys)(const Catalogue& ask, std::string_view table);
  /// Compares a key column with its value, so that NULL equals NULL where keys may hold it.
  const char* keyEquals;
  char nameQuote;
  /// Whether a failure of that code may have kept an insert from its row although the row was not
  /// there yet (no lock, no room, a text too long): the update that takes the insert's place would
  /// find nothing and succeed, and the commit would make the loss final.
  bool (*endsTransaction)(std::string_view code);
  /// Whether a select with a failure of that code has met a text that is not in the database's
  /// encoding, or cannot be put into the connection's.
  bool (*isUnreadable)(std::string_view code);
  /// Whether a failure of that code was a lock or a change of somebody else's, so that the same
  /// work may succeed when it is done again from its beginning.
  bool (*isLocked)(std::string_view code);
  /// Whether a failure of that code says that the connection is gone.
  bool (*isLost)(std::string_view code);
  /// Why the server takes no changes at present, though another of its cluster may (German); empty
  /// where it does. Null where there is no other.
  std::string (*unwritable)(const Catalogue& ask);
  /// Whether a failure of that code says the same.
  bool (*isUnwritable)(std::string_view code);
  /// What users are told besides the engine's own message for a failure of that code (German): what
  /// it means to them, and what to do; mostly empty.
  std::string_view (*advice)(std::string_view code);
  /// The engine's code for a statement that names a column or table which does not exist.
  std::int32_t unknownName;
};

}  // namespace vexnumkr
