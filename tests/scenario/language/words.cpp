#include "scenario/language/words.h"

namespace vexnumkr::scenario {
namespace {

constexpr std::string_view blanks = " \t";

char unescaped(char c) {
  if (c == 'n') return '\n';
  if (c == '"' || c == '\\') return c;
  throw WordError("\\" + std::string(1, c) + " means nothing in a quoted word");
}

// Takes a quoted word off the front of `line`.
std::string takeQuoted(std::string_view& line) {
  std::string word;
  std::size_t i = 1;
  for (; i < line.size() && line[i] != '"'; ++i) {
    if (line[i] == '\\' && i + 1 < line.size())
      word += unescaped(line[++i]);
    else
      word += line[i];
  }
  if (i >= line.size()) throw WordError("a quoted word is not closed");
  line.remove_prefix(i + 1);
  if (!line.empty() && blanks.find(line.front()) == std::string_view::npos)
    throw WordError("a quoted word is followed by more text");
  return word;
}

std::string takePlain(std::string_view& line) {
  const FirstWord split = splitFirstWord(line);
  line = split.rest;
  return std::string(split.word);
}

}  // namespace

std::string_view trimmed(std::string_view line) {
  constexpr std::string_view around = " \t\r";
  const std::size_t first = line.find_first_not_of(around);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(around) - first + 1);
}

std::vector<std::string> splitWords(std::string_view line) {
  std::vector<std::string> words;
  for (line = trimmed(line); !line.empty(); line = trimmed(line))
    words.push_back(line.front() == '"' ? takeQuoted(line) : takePlain(line));
  return words;
}

FirstWord splitFirstWord(std::string_view line) {
  const std::size_t end = line.find_first_of(blanks);
  if (end == std::string_view::npos) return {line, {}};
  return {line.substr(0, end), trimmed(line.substr(end))};
}

}  // namespace vexnumkr::scenario
