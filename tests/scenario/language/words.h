// Lines of a scenario taken apart into words.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vexnumkr::scenario {

/// What is wrong with the words of a line.
class WordError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// `line` without the blanks, tabs and the carriage return around it.
std::string_view trimmed(std::string_view line);

/// The words of `line`, which are separated by blanks. A word in double quotes may hold blanks or
/// nothing; in it, \" is a double quote, \\ a backslash and \n a line feed.
/// Error: WordError for a quote that is not closed or not followed by a blank, and for any other
/// backslash in a quoted word.
std::vector<std::string> splitWords(std::string_view line);

/// The first word of `line`, as it stands, and what follows it without the blanks between them.
struct FirstWord {
  std::string_view word;
  std::string_view rest;
};
FirstWord splitFirstWord(std::string_view line);

}  // namespace vexnumkr::scenario
