#include "adapters/qtsql/engine.h"

#include <algorithm>
#include <array>

#include <vexnumkr/database.h>

#include "adapters/qtsql/failure.h"

namespace vexnumkr::qtsql {
namespace {

using Statements = std::span<const char* const>;

// SQLite checks foreign keys only on connections that ask for it, and a schema that declares them
// means them. Through ODBC there is no other way to say how long to wait for a lock.
constexpr std::array sqliteOpening = {"PRAGMA foreign_keys = ON", "PRAGMA busy_timeout = 5000"};
// Transactions are serializable whatever one asks for.
constexpr std::array sqliteBegin = {"BEGIN DEFERRED"};
constexpr std::array sqliteRowNumbers = {"rowid", "_rowid_", "oid"};

// Out of memory, interrupted, disk errors, a damaged file, a full disk; extended codes have more in
// their upper bytes. Whoever cannot have the lock is told so at the first change already.
bool sqliteEndsTransaction(const QString& code) {
  static constexpr std::array codes = {7, 9, 10, 11, 13};
  return std::find(codes.begin(), codes.end(), code.toInt() & 0xff) != codes.end();
}

LexicalRules sqliteRules(const QString& /*mode*/) { return {.dialect = Dialect::sqlite}; }

// Locks are waited for as long as MariaDB does it by default; notices would go to standard error.
constexpr std::array postgresqlOpening = {
    "SET standard_conforming_strings = on; SET lock_timeout = '50s'; "
    "SET client_min_messages = error"};
constexpr std::array postgresqlBegin = {"BEGIN; SAVEPOINT vexnumkr"};
constexpr std::array postgresqlBeginIsolated = {
    "BEGIN ISOLATION LEVEL SERIALIZABLE; SAVEPOINT vexnumkr"};

// Values that do not fit, roll-backs, resources, locks, cancellations and the server's own
// troubles.
bool postgresqlEndsTransaction(const QString& code) {
  static constexpr std::array classes = {"22", "40", "53", "54", "55", "57", "58", "XX"};
  return std::any_of(classes.begin(), classes.end(), [&](const char* start) {
    return code.size() == 5 && code.startsWith(QLatin1String(start));
  });
}

LexicalRules postgresqlRules(const QString& mode) {
  return {.dialect = Dialect::postgresql, .backslashEscapes = mode == QLatin1String("off")};
}

// Texts mean what stands in them, and one that is too long for its column is an error.
constexpr std::array mariadbOpening = {
    "SET SESSION autocommit = 1, sql_mode = "
    "'STRICT_TRANS_TABLES,NO_BACKSLASH_ESCAPES,ANSI_QUOTES,NO_ENGINE_SUBSTITUTION'"};
constexpr std::array mariadbBegin = {"START TRANSACTION"};
constexpr std::array mariadbBeginIsolated = {"SET TRANSACTION ISOLATION LEVEL SERIALIZABLE",
                                             "START TRANSACTION"};

// A full disk (1021, 1114), rows changed meanwhile (1020), a failed commit (1180), locks (1205,
// 1213), values that do not fit (1264, 1366, 1406), cancellations (1317, 1969).
bool mariadbEndsTransaction(const QString& code) {
  static constexpr std::array codes = {1020, 1021, 1114, 1180, 1205, 1213,
                                       1264, 1317, 1366, 1406, 1969};
  return std::find(codes.begin(), codes.end(), code.toInt()) != codes.end();
}

// In these the second byte of a character may be that of a backslash, which then escapes nothing.
bool hidesBackslashes(const QString& mode) {
  static constexpr std::array encodings = {"gbk", "big5", "sjis", "cp932"};
  return std::any_of(encodings.begin(), encodings.end(), [&](const char* encoding) {
    return mode.endsWith(QLatin1Char(' ') + QLatin1String(encoding));
  });
}

LexicalRules mariadbRules(const QString& mode) {
  const bool backslashEscapes = !mode.contains(QLatin1String("NO_BACKSLASH_ESCAPES"));
  if (backslashEscapes && hidesBackslashes(mode))
    throw failure(failure_number::unknownDriver,
                  "Der Zeichensatz der Datenbankverbindung wird nicht unterstützt, solange "
                  "Gegenschrägstriche in Texten eine Bedeutung haben.");
  return {.dialect = Dialect::mariadb,
          .backslashEscapes = backslashEscapes,
          .doubleQuotedTexts = !mode.contains(QLatin1String("ANSI_QUOTES"))};
}

}  // namespace

const Engine sqlite = {.name = "SQLite",
                       .dialect = Dialect::sqlite,
                       .openingStatements = sqliteOpening,
                       .isolateSession = nullptr,
                       .lexicalMode = nullptr,
                       .rules = sqliteRules,
                       .begin = sqliteBegin,
                       .beginIsolated = sqliteBegin,
                       .commit = "COMMIT",
                       .rollback = "ROLLBACK",
                       .guardsTransactions = true,
                       .transactionProbe = nullptr,
                       .recovery = Recovery::secondBegin,
                       .transactionQuery = nullptr,
                       .afterChange = nullptr,
                       .undo = nullptr,
                       .rowNumberNames = sqliteRowNumbers,
                       .keyEquals = " IS ",
                       .nameQuote = '"',
                       .endsTransaction = sqliteEndsTransaction,
                       .unknownName = 1};

// A failed statement aborts the whole transaction unless it can go back to a savepoint. There is
// always one right behind the last change: it goes along with that change, and a commit that found
// none would otherwise be taken for one of an aborted transaction, which silently is a roll-back.
const Engine postgresql = {
    .name = "PostgreSQL",
    .dialect = Dialect::postgresql,
    .openingStatements = postgresqlOpening,
    .isolateSession = "SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL SERIALIZABLE",
    .lexicalMode = "SHOW standard_conforming_strings",
    .rules = postgresqlRules,
    .begin = postgresqlBegin,
    .beginIsolated = postgresqlBeginIsolated,
    .commit = "RELEASE SAVEPOINT vexnumkr; COMMIT",
    .rollback = "ROLLBACK",
    .guardsTransactions = false,
    .transactionProbe = "SAVEPOINT vexnumkr_probe; RELEASE SAVEPOINT vexnumkr_probe",
    .recovery = Recovery::savepoint,
    .transactionQuery = nullptr,
    .afterChange = "RELEASE SAVEPOINT vexnumkr; SAVEPOINT vexnumkr",
    .undo = "ROLLBACK TO SAVEPOINT vexnumkr",
    .rowNumberNames = {},
    .keyEquals = " = ",
    .nameQuote = '"',
    .endsTransaction = postgresqlEndsTransaction,
    .unknownName = 0};

// A deadlock rolls the whole transaction back, and what followed would be committed by itself.
const Engine mariadb = {
    .name = "MariaDB",
    .dialect = Dialect::mariadb,
    .openingStatements = mariadbOpening,
    .isolateSession = "SET SESSION TRANSACTION ISOLATION LEVEL SERIALIZABLE",
    .lexicalMode = "SELECT CONCAT(@@SESSION.sql_mode, ' ', @@SESSION.character_set_client)",
    .rules = mariadbRules,
    .begin = mariadbBegin,
    .beginIsolated = mariadbBeginIsolated,
    .commit = "COMMIT",
    .rollback = "ROLLBACK",
    .guardsTransactions = false,
    .transactionProbe = nullptr,
    .recovery = Recovery::askEngine,
    .transactionQuery = "SELECT @@in_transaction",
    .afterChange = nullptr,
    .undo = nullptr,
    .rowNumberNames = {},
    .keyEquals = " = ",
    .nameQuote = '`',
    .endsTransaction = mariadbEndsTransaction,
    .unknownName = 0};

void requireIsolation(std::int32_t level) {
  if (level == ado::unspecified || level == ado::isolated) return;
  throw failure(failure_number::notAvailable,
                "Die Isolationsstufe " + std::to_string(level) + " gibt es nicht.");
}

}  // namespace vexnumkr::qtsql
