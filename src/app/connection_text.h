// Reading and changing connection strings.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexnumkr::app {

/// What encloses a value that holds semicolons.
enum class Enclosing {
  quotes,  ///< "value", with its double quotes doubled.
  braces,  ///< {value} as well, with its closing braces doubled, as in ODBC's connection strings.
};

/// A connection string as its `key=value` pairs. Keys are compared without regard to case. A value
/// that holds a semicolon or begins or ends with a blank stands in double quotes, in which a double
/// quote is doubled.
///
/// Reading never fails: what is no pair is left out here and refused by whoever opens the
/// connection.
class ConnectionText {
 public:
  explicit ConnectionText(std::string_view text, Enclosing enclosing = Enclosing::quotes);

  /// The value of `key`, empty when there is none.
  std::string value(std::string_view key) const;
  /// Replaces the value of `key`, or adds it behind the others.
  void set(std::string_view key, const std::string& value);
  std::string text() const;

 private:
  std::vector<std::pair<std::string, std::string>> pairs_;
};

/// The connection string of a SQLite database in `file`.
std::string sqliteConnectionText(const std::string& file);

/// The passwords in a connection string, those among the driver's options and of an ODBC connection
/// string in it included; values in quotes or braces also as they stand there. The longest come
/// first, so that whoever masks one after the other leaves no part of any.
std::vector<std::string> passwordsIn(std::string_view connectionText);

/// `message` with the passwords of `connectionText` masked, wherever they stand in it.
std::string withoutPassword(std::string message, std::string_view connectionText);

}  // namespace vexnumkr::app
