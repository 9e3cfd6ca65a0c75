#include "scenario/language/command_forms.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <vector>

#include "scenario/language/chord.h"
#include "scenario/language/words.h"

namespace vexnumkr::scenario {
namespace {

// Small letters stand for themselves. ITEM, COLUMN, INDEX, N, WIDTH, HEIGHT and COUNT are numbers,
// CHORD is a key, ANSWERS one answer or more, REST the rest of the line as it stands; every other
// word in capitals is any word.
constexpr std::array forms = {
    "sql REST",
    "application N",
    "user NAME",
    "date TEXT",
    "access rows",
    "access sets",
    "init",
    "show",
    "answer ANSWERS",
    "press CONTROL",
    "select COMBO TEXT",
    "key CHORD",
    "type TEXT",
    "click ITEM COLUMN",
    "click ITEM picture",
    "rightclick ITEM COLUMN",
    "goto ITEM",
    "tick LIST INDEX",
    "choose PAIR INDEX",
    "close",
    "resize WIDTH HEIGHT",
    "host buchungskreise REST",
    "grid",
    "editor",
    "controls",
    "combo COMBO",
    "checklist LIST",
    "options",
    "tooltip CONTROL",
    "tooltip cell ITEM COLUMN",
    "table",
    "circles",
    "database",
    "statements",
    "screenshot FILE",
    "release",
    "fail statement COUNT",
    "fail commit",
    "fail connect",
    "fail component NAME",
};

bool isLiteral(const std::string& word) { return word[0] >= 'a' && word[0] <= 'z'; }

bool isOneOf(const std::string& word, std::initializer_list<const char*> names) {
  return std::find(names.begin(), names.end(), word) != names.end();
}

void check(const std::string& placeholder, const std::string& word) {
  if (isOneOf(placeholder, {"ITEM", "COLUMN", "INDEX", "N", "WIDTH", "HEIGHT", "COUNT"})) {
    if (!isNumberWord(word)) throw WordError("'" + word + "' is no number");
    if (placeholder == "COUNT" && (word[0] == '-' || word.find_first_not_of('0') == word.npos))
      throw WordError("the next statement is number 1");
  } else if (placeholder == "CHORD") {
    if (!readChord(word)) throw WordError("'" + word + "' is no key");
  } else if (placeholder == "ANSWERS") {
    if (!isOneOf(word, {"ok", "yes", "no", "cancel"}))
      throw WordError("'" + word + "' is no answer");
  }
}

// A form taken apart, ready to be compared with the words of a line.
class Form {
 public:
  explicit Form(const char* text) : words_(splitWords(text)) {}

  bool isFor(std::string_view commandWord) const { return words_[0] == commandWord; }

  std::string name() const {
    std::string name;
    for (const std::string& word : words_)
      if (isLiteral(word)) name += (name.empty() ? "" : " ") + word;
    return name;
  }

  // Whether the words, as many as the form has, begin as the form does up to `rest`.
  bool takesRest() const { return words_.back() == "REST"; }
  std::size_t literalsBeforeRest() const { return words_.size() - 1; }
  const std::string& word(std::size_t i) const { return words_[i]; }

  bool fits(const std::vector<std::string>& words) const {
    const bool isList = words_.back() == "ANSWERS";
    if (isList ? words.size() < words_.size() : words.size() != words_.size()) return false;
    for (std::size_t i = 0; i < words_.size(); ++i)
      if (isLiteral(words_[i]) && words_[i] != words[i]) return false;
    return true;
  }

  std::vector<std::string> arguments(const std::vector<std::string>& words) const {
    std::vector<std::string> arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
      const std::string& expected = words_[std::min(i, words_.size() - 1)];
      if (isLiteral(expected)) continue;
      check(expected, words[i]);
      arguments.push_back(words[i]);
    }
    return arguments;
  }

 private:
  std::vector<std::string> words_;
};

std::vector<Form> formsOf(std::string_view commandWord) {
  std::vector<Form> found;
  for (const char* text : forms) {
    const Form form(text);
    if (form.isFor(commandWord)) found.push_back(form);
  }
  return found;
}

std::string expectation(std::string_view commandWord) {
  std::string text;
  for (const char* form : forms)
    if (Form(form).isFor(commandWord))
      text += (text.empty() ? "expected: " : " or: ") + std::string(form);
  return text;
}

// The text behind the fixed words of a form that takes the rest of the line; empty where the line
// does not begin with them.
std::string_view restBehind(const Form& form, std::string_view text) {
  for (std::size_t i = 0; i < form.literalsBeforeRest(); ++i) {
    const FirstWord split = splitFirstWord(text);
    if (split.word != form.word(i)) return {};
    text = split.rest;
  }
  return text;
}

bool matchRest(const Form& form, Command& command) {
  const std::string_view rest = restBehind(form, command.text);
  if (rest.empty()) return false;
  command.arguments = {std::string(rest)};
  return true;
}

// More fixed words win: `tooltip cell 1 2` asks for a cell, `click 3 picture` for a picture.
bool matchWords(const Form& form, const std::vector<std::string>& words, Command& command) {
  if (!form.fits(words)) return false;
  command.arguments = form.arguments(words);
  return true;
}

}  // namespace

bool isNumberWord(std::string_view word) {
  std::int32_t number = 0;
  const char* end = word.data() + word.size();
  const auto result = std::from_chars(word.data(), end, number);
  return result.ec == std::errc() && result.ptr == end;
}

void matchForm(Command& command) {
  const std::string commandWord(splitFirstWord(command.text).word);
  std::vector<Form> candidates = formsOf(commandWord);
  if (candidates.empty()) throw WordError("unknown command '" + commandWord + "'");
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Form& a, const Form& b) { return a.name().size() > b.name().size(); });
  for (const Form& form : candidates) {
    const bool matches = form.takesRest() ? matchRest(form, command)
                                          : matchWords(form, splitWords(command.text), command);
    if (!matches) continue;
    command.name = form.name();
    return;
  }
  throw WordError(expectation(commandWord));
}

}  // namespace vexnumkr::scenario
