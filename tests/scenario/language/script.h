// Scenario files: their commands, and how a file is read into them.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vexnumkr::scenario {

/// One command of a scenario.
struct Command {
  int line = 0;      ///< in the file, from 1
  std::string text;  ///< the line, trimmed
  /// Which command it is: its fixed words, "show" or "fail statement" or "click picture".
  std::string name;
  /// The other words, checked: a number reads as a number, a chord as a chord.
  std::vector<std::string> arguments;

  const std::string& argument(std::size_t i) const { return arguments.at(i); }
  /// REQUIRES: the argument is a number by the command's form.
  std::int32_t number(std::size_t i) const;
};

/// A line that is no command; what() says why.
class ScriptError : public std::runtime_error {
 public:
  ScriptError(int line, const std::string& why) : std::runtime_error(why), line_(line) {}
  int line() const { return line_; }

 private:
  int line_;
};

/// Reads a whole file (UTF-8). Empty lines and lines that begin with # are skipped.
/// Error: ScriptError for the first line that cannot be read.
std::vector<Command> readScript(std::string_view file);

}  // namespace vexnumkr::scenario
