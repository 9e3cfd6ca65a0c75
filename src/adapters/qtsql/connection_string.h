// The connection string: `key=value` pairs separated by semicolons.
//
// Keys are Driver, Database, Server, Port, UID, PWD and Options, without regard to case. Blanks
// around keys and values do not count, nor do empty pairs. A value that begins with a double quote
// goes on to the next single one, with doubled ones inside standing for one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vexnumkr::qtsql {

struct ConnectionSettings {
  std::string driver;
  std::string database;
  std::string server;
  std::uint16_t port = 0;  ///< 0 is the engine's own.
  std::string user;
  std::string password;
  std::string options = {};  ///< For Qt's driver, as it writes them.

  friend bool operator==(const ConnectionSettings&, const ConnectionSettings&) = default;
};

/// Errors (3001): anything that is not of the form above, a key twice, Driver or Database missing
/// or empty. The texts never repeat a value or an unknown key: either may be a part of a password
/// that lacks its quotes.
ConnectionSettings parseConnectionString(std::string_view text);

/// A text that parses to `settings`; empty ones are left out.
std::string composeConnectionString(const ConnectionSettings& settings);

}  // namespace vexnumkr::qtsql
