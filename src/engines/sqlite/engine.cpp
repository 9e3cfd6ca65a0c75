#include <algorithm>
#include <array>
#include <charconv>

#include <vexnumkr/connection_string.h>

#include "engines/engine_list.h"
#include "engines/sqlite/keys.h"
#include "engines/sqlite/location.h"

namespace vexnumkr::engines {
namespace {

constexpr std::array<std::string_view, 1> marks = {"sqlite"};

constexpr std::array<std::string_view, 6> options = {
    "QSQLITE_BUSY_TIMEOUT",        "QSQLITE_OPEN_READONLY", "QSQLITE_OPEN_URI",
    "QSQLITE_ENABLE_SHARED_CACHE", "QSQLITE_ENABLE_REGEXP", "QSQLITE_NO_USE_EXTENDED_RESULT_CODES"};

// SQLite checks foreign keys only on connections that ask for it, and a schema that declares them
// means them.
constexpr std::array opening = {"PRAGMA foreign_keys = ON"};
constexpr std::int32_t longestWait = 5;
// Transactions are serializable whatever one asks for.
constexpr std::array begin = {"BEGIN DEFERRED"};
constexpr std::array beginForWriting = {"BEGIN IMMEDIATE"};
// Whatever may write takes the lock, also where it finds nothing to write.
std::string lockByWriting(const std::string& table) {
  return "DELETE FROM " + table + " WHERE 1 = 0";
}
constexpr std::array rowNumbers = {"rowid", "_rowid_", "oid"};

ConnectionSettings prepare(ConnectionSettings settings) {
  settings.database = sqlite_location::uriOf(settings.database);
  if (!settings.options.empty()) settings.options += ';';
  settings.options +=
      "QSQLITE_BUSY_TIMEOUT=" + std::to_string(longestWait * 1000) + ";QSQLITE_OPEN_URI";
  return settings;
}

constexpr std::array drivers = {QtDriver{"QSQLITE", options, prepare}};

// Without being told so the driver takes what a column of integers holds for 32 bits, and cuts off
// the rest; and it waits for locks for 100 seconds, whatever the session asks for.
std::string prepareOdbc(const std::string& connectionString) {
  std::string prepared = connectionString;
  const auto add = [&](const std::string& key, const std::string& value) {
    if (!connectionValue(connectionString, key, ConnectionSyntax::odbc).empty()) return;
    prepared += (prepared.empty() ? "" : ";") + key + '=' + value;
  };
  add("BigInt", "1");
  add("Timeout", std::to_string(longestWait * 1000));
  return prepared;
}

// The engine has no limit for statements.
std::string limit(std::int32_t seconds) {
  const std::int32_t wait = seconds == 0 ? longestWait : std::min(seconds, longestWait);
  return "PRAGMA busy_timeout = " + std::to_string(wait * 1000);
}

// Extended codes have more in their upper bytes; what is negative is no code of SQLite's.
int primaryCode(std::string_view code) {
  int number = 0;
  std::from_chars(code.data(), code.data() + code.size(), number);
  return number < 0 ? 0 : number & 0xff;
}

// Out of memory, interrupted, disk errors, a damaged file, a full disk. Whoever cannot have the
// lock is told so at the first change already.
bool endsTransaction(std::string_view code) {
  static constexpr std::array codes = {7, 9, 10, 11, 13};
  return std::find(codes.begin(), codes.end(), primaryCode(code)) != codes.end();
}

// "Busy" and "locked".
bool isLocked(std::string_view code) {
  const int number = primaryCode(code);
  return number == 5 || number == 6;
}

bool neverLost(std::string_view /*code*/) { return false; }

std::string_view noAdvice(std::string_view /*code*/) { return {}; }

bool neverUnreadable(std::string_view /*code*/) { return false; }

// The size is not kept to, but it is what the table was made for.
std::string textLimit(const std::string& table, const std::string& column) {
  return "SELECT CAST(substr(type, instr(type, '(') + 1) AS INTEGER) FROM pragma_table_info('" +
         table + "') WHERE name = '" + column + "' COLLATE NOCASE";
}

LexicalRules rules(std::string_view /*mode*/) {
  return {.backquotedNames = true,
          .bracketedNames = true,
          .verticalTabFollowsBlanks = true,
          .byteOrderMarkIsBlank = true,
          .triggersHoldStatements = true};
}

}  // namespace

const Engine sqlite = {
    .name = "sqlite",
    .title = "SQLite",
    .marks = marks,
    .versionQuery = "SELECT sqlite_version() AS Fassung",
    .versionMark = "",
    .opensFiles = true,
    .drivers = drivers,
    .odbc = OdbcAccess{.prepare = prepareOdbc, .usesSqlStates = false, .hasEightBitText = true},
    .openingStatements = opening,
    .limit = limit,
    .isolateSession = nullptr,
    .lexicalMode = nullptr,
    .usualMode = "",
    .rules = rules,
    .unsendable = nullptr,
    .lackingEncoding = nullptr,
    .setEncoding = nullptr,
    .wholeEncoding = nullptr,
    .begin = begin,
    .beginIsolated = begin,
    .beginReading = begin,
    .declareCursor = nullptr,
    .commit = "COMMIT",
    .rollback = "ROLLBACK",
    .guardsTransactions = true,
    .transactionProbe = nullptr,
    .recovery = Recovery::secondBegin,
    .transactionQuery = nullptr,
    .afterChange = nullptr,
    .undo = nullptr,
    .beginBeforeLocking = begin,
    .beginForWriting = beginForWriting,
    .lockTable = nullptr,
    .lockTableAnyhow = lockByWriting,
    .seesItsBeginning = false,
    .withoutTransactions = nullptr,
    .textLimit = textLimit,
    .rowNumberNames = rowNumbers,
    .keys = sqliteKeys,
    .keyEquals = " IS ",
    .nameQuote = '"',
    .endsTransaction = endsTransaction,
    .isUnreadable = neverUnreadable,
    .isLocked = isLocked,
    .isLost = neverLost,
    .unwritable = nullptr,
    .isUnwritable = neverLost,
    .advice = noAdvice,
    .unknownName = 1};

}  // namespace vexnumkr::engines
