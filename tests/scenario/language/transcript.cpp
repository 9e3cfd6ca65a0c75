#include "scenario/language/transcript.h"

namespace vexnumkr::scenario {
namespace {

void appendPrinted(std::string& line, char c) {
  switch (c) {
    case '\r':
      line += "\\r";
      break;
    case '\n':
      line += "\\n";
      break;
    case '\\':
    case '|':
      line += '\\';
      [[fallthrough]];
    default:
      line += c;
  }
}

}  // namespace

std::string printedText(std::string_view text) {
  std::string line;
  for (const char c : text) appendPrinted(line, c);
  return line;
}

std::string printedFlag(bool flag) { return flag ? "True" : "False"; }

std::string printedValue(const Value& value) {
  if (value.isBoolean()) return printedFlag(value.asBoolean());
  return value.isNull() ? std::string() : printedText(value.toText());
}

std::string joined(const std::vector<std::string>& cells) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) line += (i == 0 ? "" : " | ") + cells[i];
  return line;
}

void Transcript::line(const std::string& text) {
  const std::lock_guard lock(mutex_);
  if (isClosed_) return;
  out_ << text << '\n' << std::flush;
}

void Transcript::failed(int line, const std::string& why) {
  this->line("failed: line " + std::to_string(line) + ": " + printedText(why));
  const std::lock_guard lock(mutex_);
  isClosed_ = true;
}

}  // namespace vexnumkr::scenario
