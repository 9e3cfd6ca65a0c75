// Connection strings: reading and composing them, and showing them without their passwords.
//
// A connection string is a list of `key=value` pairs separated by semicolons, keys without regard
// to the case of ASCII letters. Blanks around keys and values do not count, nor do empty pairs. A
// value that holds a semicolon, or begins or ends with a blank, is enclosed in marks; the mark that
// closes it stands doubled where it is part of the value.
//
// Everything here takes any text, of any length, and is plain computation: no thread rule.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/export.h>

namespace vexnumkr {

/// Which marks may enclose a value, by whose string it is.
enum class ConnectionSyntax {
  native,  ///< "value": the strings of openQtSqlConnection.
  odbc,    ///< {value} too: the strings of ODBC's drivers.
  oleDb,   ///< 'value' too: the strings of ADO.
};

/// One pair as it stands in a connection string.
struct ConnectionPair {
  std::string key;
  std::string value;      ///< Without the marks around it.
  std::size_t begin = 0;  ///< Where the value stands in the text, marks included, in bytes:
  std::size_t end = 0;    ///< [begin, end).
};

/// The pairs of `text` in their order; whatever is no pair is passed over. Never fails, so it suits
/// texts that somebody else will refuse. A double quote that nothing closes encloses everything
/// behind it; any other such mark is a character like the rest.
VEXNUMKR_API std::vector<ConnectionPair> connectionPairs(
    std::string_view text, ConnectionSyntax syntax = ConnectionSyntax::native);

/// The value of the first pair of that key; empty where there is none. The first counts as it does
/// for ODBC; openQtSqlConnection, which could mean either, refuses a key that comes twice.
VEXNUMKR_API std::string connectionValue(std::string_view text, std::string_view key,
                                         ConnectionSyntax syntax = ConnectionSyntax::native);

/// What openQtSqlConnection is told: the keys Driver, Database, Server, Port, UID, PWD and Options.
/// Texts that are not given are empty.
struct ConnectionSettings {
  std::string driver = {};    ///< Qt's name of it, e.g. "QPSQL".
  std::string database = {};  ///< A file, a server's database, or for ODBC a string of its own.
  std::string server = {};    ///< A host or the path of a Unix socket, or several; see below.
  std::uint16_t port = 0;     ///< 0 is the engine's own.
  std::string user = {};
  std::string password = {};
  std::string options = {};  ///< For Qt's driver, as it writes them.

  friend bool operator==(const ConnectionSettings&, const ConnectionSettings&) = default;
};

/// Reads a native connection string strictly.
/// Errors (3001): anything that is not of the form above, an unknown key, a key twice, Driver or
/// Database missing or empty, a port that is none, and those of serverAddresses. The texts never
/// repeat a value or an unknown key: either may be a part of a password that lacks its quotes.
VEXNUMKR_API ConnectionSettings parseConnectionString(std::string_view text);

/// A text that parses to `settings`; empty ones are left out. Values are put in quotes where they
/// need them, so whatever a password holds is safe. REQUIRES: no text holds a zero character, at
/// which drivers would end the string.
VEXNUMKR_API std::string composeConnectionString(const ConnectionSettings& settings);

/// One of the servers that a connection string names.
struct ServerAddress {
  std::string server = {};  ///< A host or the path of a Unix socket; empty is this machine.
  std::uint16_t port = 0;   ///< 0 is the engine's own.

  friend bool operator==(const ServerAddress&, const ServerAddress&) = default;
};

/// The servers in `settings.server`: names with commas between them, behind each perhaps a colon
/// and its own port ("db1:3307,db2,[fd00::3]:3307"), else that of `settings`. In their order, and
/// always at least one. A path and an address with several colons outside brackets have no port of
/// their own.
/// Errors (3001): one without a name among several, a port that is none.
VEXNUMKR_API std::vector<ServerAddress> serverAddresses(const ConnectionSettings& settings);

/// The connection string of the SQLite database in `file`, whatever characters its path has. The
/// file is not looked at.
VEXNUMKR_API std::string sqliteConnectionString(const std::string& file);

/// A stretch of a text in bytes: [begin, end).
struct TextRange {
  std::size_t begin = 0;
  std::size_t end = 0;

  friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// Where passwords stand in a connection string of any syntax, marks included: behind each key that
/// ends in PWD, Password or Passphrase, also inside a value (an ODBC string in Database, driver
/// options, Extended Properties). What follows such a pair without being a pair itself may be the
/// rest of a password that lacks its quotes, and counts. In order, not overlapping.
VEXNUMKR_API std::vector<TextRange> passwordRanges(std::string_view connectionString);

/// The connection string as it may be shown: each password is "***", however long it is. What is
/// left is for people, logs and boxes, and not for connecting.
VEXNUMKR_API std::string maskedConnectionString(std::string_view connectionString);

/// `message`, e.g. an engine's, with the passwords of `connectionString` as "***": wherever they
/// stand, or, of one and two bytes, where they stand as passwords, behind their key. A password of
/// several words is masked as a whole and word by word.
VEXNUMKR_API std::string withoutPasswords(std::string_view message,
                                          std::string_view connectionString);

}  // namespace vexnumkr
