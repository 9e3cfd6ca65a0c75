#include <algorithm>
#include <array>

#include "engines/engine_list.h"
#include "engines/postgresql/keys.h"
#include "platform/ascii_case.h"

namespace vexnumkr::engines {
namespace {

constexpr std::array<std::string_view, 2> marks = {"postgres", "psql"};

ConnectionSettings prepare(ConnectionSettings settings) { return settings; }

constexpr std::string_view patience =
    "connect_timeout=5;keepalives_idle=10;keepalives_interval=5;keepalives_count=3;"
    "tcp_user_timeout=30000";

constexpr std::array drivers = {QtDriver{"QPSQL", {}, prepare, patience, true}};

bool names(const std::string& text, std::string_view word) {
  return inLowerCase(text).find(word) != std::string::npos;
}

// The ODBC driver has savepoints of its own, which fail where a text cannot be read at all, and
// take the transaction along; with "-0" it leaves that to this adapter.
std::string prepareOdbc(const std::string& connectionString) {
  if (names(connectionString, "protocol=")) return connectionString;
  return connectionString + (connectionString.empty() ? "" : ";") + "Protocol=7.4-0";
}

// Locks are waited for as long as MariaDB does it by default; notices would go to standard error.
constexpr std::array opening = {
    "SET standard_conforming_strings = on; SET lock_timeout = '50s'; "
    "SET client_min_messages = error"};
constexpr std::int32_t longestWait = 50;

std::string limit(std::int32_t seconds) {
  const std::int32_t wait = seconds == 0 ? longestWait : std::min(seconds, longestWait);
  return "SET statement_timeout = '" + std::to_string(seconds) + "s'; SET lock_timeout = '" +
         std::to_string(wait) + "s'";
}

constexpr std::array begin = {"BEGIN; SAVEPOINT vexnumkr"};
constexpr std::array beginIsolated = {"BEGIN ISOLATION LEVEL SERIALIZABLE; SAVEPOINT vexnumkr"};
constexpr std::array beginReading = {
    "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY; SAVEPOINT vexnumkr"};
// All rows will be read, so it is planned for that.
constexpr const char* declareCursor =
    "SET LOCAL cursor_tuple_fraction = 1; DECLARE vexnumkr_rows NO SCROLL CURSOR FOR ";
// A serializable transaction goes on seeing what was stored at its first statement, and fails where
// it changes what others have changed since.
constexpr std::array beginBeforeLocking = {
    "BEGIN ISOLATION LEVEL READ COMMITTED; SAVEPOINT vexnumkr"};

// Before the first select, so that what the transaction sees is what is stored once it has the
// lock.
std::string lockTable(const std::string& table) {
  return "LOCK TABLE " + table + " IN SHARE ROW EXCLUSIVE MODE";
}

// Values that do not fit, roll-backs, resources, locks, cancellations and the server's own
// troubles.
bool endsTransaction(std::string_view code) {
  static constexpr std::array<std::string_view, 8> classes = {"22", "40", "53", "54",
                                                              "55", "57", "58", "XX"};
  return std::any_of(classes.begin(), classes.end(), [&](std::string_view start) {
    return code.size() == 5 && code.starts_with(start);
  });
}

// What stands in the database, and what the connection's encoding lacks.
bool isUnreadable(std::string_view code) { return code == "22021" || code == "22P05"; }

// Serialization failures and deadlocks, and locks that were waited for too long.
bool isLocked(std::string_view code) {
  return code == "40001" || code == "40P01" || code == "55P03";
}

// Classes 08 and 57P are about the connection; without any code the server has not answered.
bool isLost(std::string_view code) {
  return code.empty() || code.starts_with("08") || code.starts_with("57P");
}

// The modifier counts four more than the characters.
std::string textLimit(const std::string& table, const std::string& column) {
  return "SELECT a.atttypmod - 4 FROM pg_attribute a JOIN pg_type t ON t.oid = a.atttypid "
         "WHERE a.attrelid = to_regclass('" +
         table + "') AND a.attname = lower('" + column +
         "') AND a.atttypmod > 4 AND t.typname IN ('varchar', 'bpchar')";
}

constexpr std::string_view readOnlyTransaction = "25006";

bool isUnwritable(std::string_view code) { return code == readOnlyTransaction; }

std::string unwritable(const Catalogue& ask) {
  const CatalogueRow state = ask("SELECT pg_is_in_recovery()::integer AS Standby, "
                                 "current_setting('default_transaction_read_only') AS Nur")
                                 .at(0);
  if (state.at("standby") != "0")
    return "Der Server ist ein Standby und nimmt keine Änderungen an.";
  if (state.at("nur") != "off")
    return "Der Server ist nur zum Lesen freigegeben (default_transaction_read_only).";
  return {};
}

std::string_view advice(std::string_view code) {
  if (code != readOnlyTransaction) return {};
  return "Der Datenbankserver nimmt zurzeit keine Änderungen an; vielleicht ist inzwischen ein "
         "anderer der Hauptserver. Bitte versuchen Sie es noch einmal; bleibt es dabei, muss die "
         "Datenbankadministration die Verbindung richtigstellen.";
}

// UTF-8, as Qt's driver calls it as well, and whatever there is, unchanged.
constexpr std::array<std::string_view, 3> wholeEncodings = {"UTF8", "UNICODE", "SQL_ASCII"};

// The setting ends in the encoding of texts. Qt's driver goes on reading and sending UTF-8 where
// the host has set another one: both ways wrong, so that a text seems to come back as it was sent.
std::string lackingEncoding(std::string_view mode) {
  const std::size_t at = mode.rfind(' ');
  const std::string encoding(at == std::string_view::npos ? "" : mode.substr(at + 1));
  return std::ranges::find(wholeEncodings, encoding) != wholeEncodings.end() ? std::string()
                                                                             : encoding;
}

std::string setEncoding(const std::string& encoding) {
  return "SET client_encoding = '" + encoding + "'";
}

// A vertical tab is white space from version 16 on; before, it makes the whole text a mistake.
LexicalRules rules(std::string_view mode) {
  return {.backslashEscapes = mode.starts_with("off"),
          .escapeTexts = true,
          .dollarTexts = true,
          .nestedComments = true,
          .strictNumbers = true,
          .verticalTabIsBlank = true};
}

// Rows that the client is to send or to take, where no driver does either.
std::string_view unsendable(const Statement& statement) {
  const auto isClient = [](const Token& token) { return token.is("STDIN") || token.is("STDOUT"); };
  if (!statement.startsWith("COPY") || std::ranges::none_of(statement.tokens, isClient)) return {};
  return "Daten können mit COPY nicht über diese Verbindung kopiert werden.";
}

}  // namespace

// A failed statement aborts the whole transaction unless it can go back to a savepoint. There is
// always one right behind the last change: it goes along with that change, and a commit that found
// none would otherwise be taken for one of an aborted transaction, which silently is a roll-back.
const Engine postgresql = {
    .name = "postgresql",
    .title = "PostgreSQL",
    .marks = marks,
    .versionQuery = "SELECT version() AS Fassung",
    .versionMark = "PostgreSQL",
    .opensFiles = false,
    .drivers = drivers,
    .odbc = OdbcAccess{.prepare = prepareOdbc, .usesSqlStates = true, .hasEightBitText = false},
    .openingStatements = opening,
    .limit = limit,
    .isolateSession = "SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL SERIALIZABLE",
    .lexicalMode =
        "SELECT CONCAT(current_setting('standard_conforming_strings'), ' ', "
        "current_setting('client_encoding'))",
    .usualMode = "on UTF8",
    .rules = rules,
    .unsendable = unsendable,
    .lackingEncoding = lackingEncoding,
    .setEncoding = setEncoding,
    .wholeEncoding = "UTF8",
    .begin = begin,
    .beginIsolated = beginIsolated,
    .beginReading = beginReading,
    .declareCursor = declareCursor,
    .commit = "RELEASE SAVEPOINT vexnumkr; COMMIT",
    .rollback = "ROLLBACK",
    .guardsTransactions = false,
    .transactionProbe = "SAVEPOINT vexnumkr_probe; RELEASE SAVEPOINT vexnumkr_probe",
    .recovery = Recovery::savepoint,
    .transactionQuery = nullptr,
    .afterChange = "RELEASE SAVEPOINT vexnumkr; SAVEPOINT vexnumkr",
    .undo = "ROLLBACK TO SAVEPOINT vexnumkr",
    .beginBeforeLocking = beginBeforeLocking,
    .beginForWriting = beginIsolated,
    .lockTable = lockTable,
    .lockTableAnyhow = lockTable,
    .seesItsBeginning = true,
    .withoutTransactions = nullptr,
    .textLimit = textLimit,
    .rowNumberNames = {},
    .keys = postgresqlKeys,
    .keyEquals = " = ",
    .nameQuote = '"',
    .endsTransaction = endsTransaction,
    .isUnreadable = isUnreadable,
    .isLocked = isLocked,
    .isLost = isLost,
    .unwritable = unwritable,
    .isUnwritable = isUnwritable,
    .advice = advice,
    .unknownName = 0};

}  // namespace vexnumkr::engines
