// Scenario files: each command stands for its line, and words can be written so that they are read
// as they were.
#include <string>
#include <vector>

#include "fuzz/support/input.h"
#include "fuzz/support/property.h"
#include "scenario/language/chord.h"
#include "scenario/language/command_forms.h"
#include "scenario/language/script.h"
#include "scenario/language/words.h"

namespace vexnumkr::fuzz {
namespace {

using scenario::Command;

std::string lineOf(const std::string& file, int number) {
  std::size_t begin = 0;
  for (int line = 1; line < number; ++line) begin = file.find('\n', begin) + 1;
  return std::string(scenario::trimmed(file.substr(begin, file.find('\n', begin) - begin)));
}

void check(const Command& command) {
  const std::vector<Command> again = scenario::readScript(command.text);
  require(again.size() == 1, "a command's text is one command", {command.text});
  require(again[0].name == command.name && again[0].arguments == command.arguments,
          "a command's text says all of it", {command.text});
  for (std::size_t i = 0; i < command.arguments.size(); ++i)
    if (scenario::isNumberWord(command.arguments[i]))
      require(std::stoll(command.arguments[i]) == command.number(i), "a number is itself",
              {command.text});
}

void attackFile(const std::string& file) {
  try {
    int last = 0;
    for (const Command& command : scenario::readScript(file)) {
      require(command.line > last, "commands stand one behind the other", {file});
      last = command.line;
      require(command.text == lineOf(file, last), "a command is its line", {file, command.text});
      check(command);
    }
  } catch (const scenario::ScriptError& error) {
    require(error.line() >= 1 && std::string_view(error.what()) != "", "a mistake has its line",
            {file});
  }
}

std::string quoted(const std::string& word) {
  std::string text = "\"";
  for (const char c : word) {
    if (c == '"' || c == '\\') text += '\\';
    text += c == '\n' ? std::string("\\n") : std::string(1, c);
  }
  return text + '"';
}

void attackWords(Input& input) {
  std::vector<std::string> words;
  std::string line;
  while (!input.isAtEnd()) {
    words.push_back(input.text());
    line += quoted(words.back()) + (input.flag() ? " " : "\t ");
  }
  require(scenario::splitWords(line) == words, "quoted words are read as they were", {line});
}

void attackChord(const std::string& name) {
  const auto chord = scenario::readChord(name);
  if (!chord) return;
  require(!(chord->modifiers & ~(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)),
          "a chord has no other modifiers", {name});
  require(chord->text.size() <= 1, "a key types one character at most", {name});
}

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  Input input(data, size);
  switch (input.choice(3)) {
    case 0:
      attackFile(input.rest());
      break;
    case 1:
      attackWords(input);
      break;
    default:
      attackChord(input.rest());
  }
  return 0;
}
