#include "scenario/language/script.h"

#include <QStringDecoder>
#include <charconv>

#include "scenario/language/command_forms.h"
#include "scenario/language/words.h"

namespace vexnumkr::scenario {
namespace {

bool isUtf8(std::string_view line) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString decoded = decoder(QByteArrayView(line.data(), static_cast<qsizetype>(line.size())));
  return !decoder.hasError();
}

Command readCommand(int line, std::string_view text) {
  Command command;
  command.line = line;
  command.text = text;
  try {
    if (!isUtf8(text)) throw WordError("not UTF-8");
    matchForm(command);
  } catch (const WordError& error) {
    throw ScriptError(line, error.what());
  }
  return command;
}

}  // namespace

std::int32_t Command::number(std::size_t i) const {
  const std::string& word = argument(i);
  std::int32_t number = 0;
  std::from_chars(word.data(), word.data() + word.size(), number);
  return number;
}

std::vector<Command> readScript(std::string_view file) {
  std::vector<Command> commands;
  for (int line = 1; !file.empty(); ++line) {
    const std::size_t end = std::min(file.find('\n'), file.size());
    const std::string_view text = trimmed(file.substr(0, end));
    if (!text.empty() && text[0] != '#') commands.push_back(readCommand(line, text));
    file.remove_prefix(std::min(end + 1, file.size()));
  }
  return commands;
}

}  // namespace vexnumkr::scenario
