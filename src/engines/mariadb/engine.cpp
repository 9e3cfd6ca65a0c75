#include <algorithm>
#include <array>
#include <charconv>

#include <vexnumkr/error.h>

#include "engines/engine_list.h"
#include "engines/mariadb/keys.h"

namespace vexnumkr::engines {
namespace {

// MySQL's drivers reach it too.
constexpr std::array<std::string_view, 2> marks = {"mariadb", "mysql"};

constexpr std::array<std::string_view, 17> options = {"CLIENT_COMPRESS",
                                                      "CLIENT_FOUND_ROWS",
                                                      "CLIENT_IGNORE_SPACE",
                                                      "CLIENT_INTERACTIVE",
                                                      "CLIENT_NO_SCHEMA",
                                                      "CLIENT_ODBC",
                                                      "CLIENT_SSL",
                                                      "UNIX_SOCKET",
                                                      "MYSQL_OPT_RECONNECT",
                                                      "MYSQL_OPT_CONNECT_TIMEOUT",
                                                      "MYSQL_OPT_READ_TIMEOUT",
                                                      "MYSQL_OPT_WRITE_TIMEOUT",
                                                      "SSL_KEY",
                                                      "SSL_CERT",
                                                      "SSL_CA",
                                                      "SSL_CAPATH",
                                                      "SSL_CIPHER"};

// Changes are counted by the rows found, as everywhere else. A server that is named by a path is
// reached through the socket of that name.
ConnectionSettings prepare(ConnectionSettings settings) {
  if (!settings.options.empty()) settings.options += ';';
  settings.options += "CLIENT_FOUND_ROWS=1";
  if (settings.server.starts_with('/')) {
    settings.options += ";UNIX_SOCKET=" + settings.server;
    settings.server.clear();
  }
  return settings;
}

// Longer than any lock is waited for.
constexpr std::string_view patience =
    "MYSQL_OPT_CONNECT_TIMEOUT=5;MYSQL_OPT_READ_TIMEOUT=60;MYSQL_OPT_WRITE_TIMEOUT=60";

constexpr std::array drivers = {QtDriver{"QMYSQL", options, prepare, patience},
                                QtDriver{"QMARIADB", options, prepare, patience}};

// Texts mean what stands in them, and one that is too long for its column is an error. By default
// a table that somebody alters would be waited for a day.
constexpr std::array opening = {
    "SET SESSION autocommit = 1, lock_wait_timeout = 50, innodb_lock_wait_timeout = 50, sql_mode = "
    "'STRICT_TRANS_TABLES,NO_BACKSLASH_ESCAPES,ANSI_QUOTES,NO_ENGINE_SUBSTITUTION'"};
constexpr std::int32_t longestWait = 50;

std::string limit(std::int32_t seconds) {
  const std::string wait =
      std::to_string(seconds == 0 ? longestWait : std::min(seconds, longestWait));
  return "SET SESSION max_statement_time = " +
         (seconds == 0 ? std::string("DEFAULT") : std::to_string(seconds)) +
         ", lock_wait_timeout = " + wait + ", innodb_lock_wait_timeout = " + wait;
}

constexpr std::array begin = {"START TRANSACTION"};
constexpr std::array beginIsolated = {
    "SET TRANSACTION ISOLATION LEVEL SERIALIZABLE; START TRANSACTION"};
// Its moment is this one, not that of the first select.
constexpr std::array beginReading = {
    "SET TRANSACTION ISOLATION LEVEL REPEATABLE READ; "
    "START TRANSACTION WITH CONSISTENT SNAPSHOT, READ ONLY"};

std::string withoutTransactions(const std::string& tables) {
  return "SELECT t.TABLE_NAME AS Tabelle, t.ENGINE AS Art, "
         "CONCAT('ALTER TABLE ', t.TABLE_NAME, ' ENGINE = InnoDB') AS Abhilfe "
         "FROM information_schema.TABLES t "
         "JOIN information_schema.ENGINES e ON e.ENGINE = t.ENGINE "
         "WHERE t.TABLE_SCHEMA = DATABASE() AND t.TABLE_NAME IN (" +
         tables + ") AND e.TRANSACTIONS <> 'YES' ORDER BY t.TABLE_NAME LIMIT 1";
}

// Its rows, and the gaps between them.
std::string lockTable(const std::string& table) {
  return "SELECT COUNT(*) FROM " + table + " FOR UPDATE";
}

// The setting ends in the encodings for results and for statements.
std::string lackingEncoding(std::string_view mode) {
  const std::string_view withResults = mode.substr(0, std::min(mode.rfind(' '), mode.size()));
  const std::size_t at = withResults.rfind(' ');
  const std::string encoding(at == std::string_view::npos ? "" : withResults.substr(at + 1));
  return encoding == "utf8mb4" ? std::string() : encoding;
}

std::string setEncoding(const std::string& encoding) {
  return "SET character_set_results = " + encoding;
}

template <std::size_t size>
bool isOneOf(std::string_view code, const std::array<int, size>& codes) {
  int number = 0;
  std::from_chars(code.data(), code.data() + code.size(), number);
  return std::find(codes.begin(), codes.end(), number) != codes.end();
}

// A full disk (1021, 1114), rows changed meanwhile (1020), a node that has left its cluster (1047),
// a failed commit (1180), locks (1205, 1213), values that do not fit (1264, 1366, 1406),
// cancellations (1317, 1969).
bool endsTransaction(std::string_view code) {
  static constexpr std::array codes = {1020, 1021, 1047, 1114, 1180, 1205,
                                       1213, 1264, 1317, 1366, 1406, 1969};
  return isOneOf(code, codes);
}

// Rows changed meanwhile, a lock waited for too long, a deadlock.
bool isLocked(std::string_view code) {
  static constexpr std::array codes = {1020, 1205, 1213};
  return isOneOf(code, codes);
}

bool isLost(std::string_view code) {
  static constexpr std::array codes = {1053, 1152, 1158, 1159, 1160, 1161, 1184,
                                       1927, 2001, 2002, 2003, 2006, 2013, 2055};
  return isOneOf(code, codes);
}

// A node that has left its cluster, a server that was set to read-only.
bool isUnwritable(std::string_view code) {
  static constexpr std::array codes = {1047, 1290};
  return isOneOf(code, codes);
}

// What a node of a cluster tells of itself. Status variables can be asked for in every state.
std::string unwritable(const Catalogue& ask) {
  std::map<std::string, std::string> states;
  for (const CatalogueRow& row :
       ask("SHOW GLOBAL STATUS WHERE Variable_name IN ('wsrep_provider_name', "
           "'wsrep_cluster_status', 'wsrep_local_state_comment', 'wsrep_ready')"))
    states[row.at("Variable_name").value_or("")] = row.at("Value").value_or("");
  const bool isInCluster = !states["wsrep_provider_name"].empty();
  const std::string& state = states["wsrep_local_state_comment"];
  if (isInCluster && states["wsrep_cluster_status"] != "Primary")
    return "Der Knoten hat die Verbindung zur Mehrheit seines Clusters verloren (" +
           states["wsrep_cluster_status"] + ").";
  if (isInCluster && state.starts_with("Donor"))
    return "Der Knoten gibt gerade seinen Datenbestand an einen anderen weiter (" + state + ").";
  if (isInCluster && (state != "Synced" || states["wsrep_ready"] != "ON"))
    return "Der Knoten ist noch nicht auf dem Stand der anderen (" + state + ").";
  if (ask("SELECT @@GLOBAL.read_only AS Nur").at(0).at("Nur") != "0")
    return "Der Server ist nur zum Lesen freigegeben (read_only).";
  return {};
}

std::string_view advice(std::string_view code) {
  if (code == "1047")
    return "Der Datenbankknoten arbeitet gerade nicht mit den anderen seines Clusters zusammen und "
           "nimmt nichts an. Bitte versuchen Sie es in einer Minute noch einmal; bleibt es dabei, "
           "muss die Datenbankadministration den Knoten wieder aufnehmen.";
  if (code == "1213")
    return "Eine gleichzeitige Änderung an anderer Stelle hatte Vorrang, deshalb ist diese "
           "zurückgenommen. Bitte versuchen Sie es noch einmal.";
  return {};
}

// In these the second byte of a character may be that of a backslash, which then escapes nothing.
bool hidesBackslashes(std::string_view mode) {
  static constexpr std::array<std::string_view, 4> encodings = {" gbk", " big5", " sjis", " cp932"};
  return std::any_of(encodings.begin(), encodings.end(),
                     [&](std::string_view encoding) { return mode.ends_with(encoding); });
}

bool neverUnreadable(std::string_view /*code*/) { return false; }

// Of those without a size in characters it says how many bytes they hold; the largest hold more
// than the number that is returned can say.
std::string textLimit(const std::string& table, const std::string& column) {
  return "SELECT LEAST(CHARACTER_MAXIMUM_LENGTH, 2147483647) FROM information_schema.COLUMNS "
         "WHERE TABLE_SCHEMA = DATABASE() AND TABLE_NAME = '" +
         table + "' AND COLUMN_NAME = '" + column + "'";
}

LexicalRules rules(std::string_view mode) {
  const auto has = [&](std::string_view part) { return mode.find(part) != std::string_view::npos; };
  const bool backslashEscapes = !has("NO_BACKSLASH_ESCAPES");
  if (backslashEscapes && hidesBackslashes(mode))
    throw Error(error_number::unknownDriver, "MariaDB",
                "Der Zeichensatz der Datenbankverbindung wird nicht unterstützt, solange "
                "Gegenschrägstriche in Texten eine Bedeutung haben.");
  return {.backslashEscapes = backslashEscapes,
          .doubleQuotedTexts = !has("ANSI_QUOTES"),
          .backquotedNames = true,
          .executableComments = true,
          .hashComments = true,
          .dashesNeedBlank = true,
          .verticalTabIsBlank = true};
}

}  // namespace

// A deadlock rolls the whole transaction back, and what followed would be committed by itself.
const Engine mariadb = {
    .name = "mariadb",
    .title = "MariaDB",
    .marks = marks,
    .versionQuery = "SELECT version() AS Fassung",
    .versionMark = "MariaDB",
    .opensFiles = false,
    .drivers = drivers,
    .odbc = std::nullopt,
    .openingStatements = opening,
    .limit = limit,
    .isolateSession = "SET SESSION TRANSACTION ISOLATION LEVEL SERIALIZABLE",
    .lexicalMode =
        "SELECT CONCAT(@@SESSION.sql_mode, ' ', IFNULL(@@SESSION.character_set_results, 'binary'), "
        "' ', @@SESSION.character_set_client)",
    .usualMode = "STRICT_TRANS_TABLES utf8mb4 utf8mb4",
    .rules = rules,
    .unsendable = nullptr,
    .lackingEncoding = lackingEncoding,
    .setEncoding = setEncoding,
    .wholeEncoding = "utf8mb4",
    .begin = begin,
    .beginIsolated = beginIsolated,
    .beginReading = beginReading,
    .declareCursor = nullptr,
    .commit = "COMMIT",
    .rollback = "ROLLBACK",
    .guardsTransactions = false,
    .transactionProbe = nullptr,
    .recovery = Recovery::askEngine,
    .transactionQuery = "SELECT @@in_transaction",
    .afterChange = nullptr,
    .undo = nullptr,
    .beginBeforeLocking = beginIsolated,
    .beginForWriting = beginIsolated,
    .lockTable = lockTable,
    .lockTableAnyhow = lockTable,
    .seesItsBeginning = false,
    .withoutTransactions = withoutTransactions,
    .textLimit = textLimit,
    .rowNumberNames = {},
    .keys = mariadbKeys,
    .keyEquals = " = ",
    .nameQuote = '`',
    .endsTransaction = endsTransaction,
    .isUnreadable = neverUnreadable,
    .isLocked = isLocked,
    .isLost = isLost,
    .unwritable = unwritable,
    .isUnwritable = isUnwritable,
    .advice = advice,
    .unknownName = 0};

}  // namespace vexnumkr::engines
