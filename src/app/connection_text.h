// Reading and changing connection strings.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexnumkr::host {

/// A connection string as its `key=value` pairs. Keys are compared without regard to case. A value
/// that holds a semicolon or begins or ends with a blank stands in double quotes, in which a double
/// quote is doubled.
///
/// Reading never fails: what is no pair is left out here and refused by whoever opens the
/// connection.
class ConnectionText {
 public:
  explicit ConnectionText(std::string_view text);

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

/// The passwords in a connection string, those of an ODBC connection string in it included; values
/// in quotes also as they stand there.
std::vector<std::string> passwordsIn(std::string_view connectionText);

/// `message` with the passwords of `connectionText` masked, wherever they stand in it.
std::string withoutPassword(std::string message, std::string_view connectionText);

}  // namespace vexnumkr::host
