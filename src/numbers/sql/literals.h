// Values on their way into statement texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <vexnumkr/database.h>

namespace vexnumkr::numbers {

/// Writes values so that none can end its literal, whatever it contains.
class Literals {
 public:
  /// For an engine in whose texts a backslash has the meaning said.
  explicit Literals(bool backslashEscapes) : backslashEscapes_(backslashEscapes) {}
  explicit Literals(const Connection& connection) : Literals(connection.BackslashEscapes()) {}

  /// Between single quotes, those inside doubled, and backslashes where they would mean something.
  /// Error (5): a zero character, at which an engine would stop reading.
  std::string text(std::string_view value) const;
  static std::string number(std::int64_t value) { return std::to_string(value); }

 private:
  bool backslashEscapes_;
};

}  // namespace vexnumkr::numbers
