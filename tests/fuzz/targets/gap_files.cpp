// Files of numbers: each line is a number, unreadable or empty, and none is lost.
#include <sstream>
#include <string>
#include <vector>

#include "cli/numbers_file.h"
#include "fuzz/support/input.h"
#include "fuzz/support/property.h"

namespace vexnumkr::fuzz {
namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t longest = 256;

std::string withoutBlanks(std::string line) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (!line.empty() && isBlank(line.back())) line.pop_back();
  while (!line.empty() && isBlank(line.front())) line.erase(0, 1);
  return line;
}

bool isNumber(const std::string& text) {
  const std::size_t first = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
  if (text.size() == first || text.find_first_not_of("0123456789", first) != std::string::npos)
    return false;
  std::string digits = text.substr(std::min(text.find_first_not_of('0', first), text.size()));
  const std::string limit = text[0] == '-' ? "2147483648" : "2147483647";
  return digits.size() < limit.size() || (digits.size() == limit.size() && digits <= limit);
}

// What is told of each line, in the words of the test below.
Lines expected(const std::string& content) {
  Lines told;
  std::istringstream in(content);
  std::string line;
  for (std::size_t at = 1; std::getline(in, line); ++at) {
    const bool hasMark = at == 1 && line.starts_with("\xEF\xBB\xBF");
    const std::string text = withoutBlanks(hasMark ? line.substr(3) : line);
    if (line.size() > longest || (!text.empty() && !isNumber(text)))
      told.push_back("unreadable " + std::to_string(at));
    else if (!text.empty())
      told.push_back("number " + std::to_string(std::stoll(text)));
  }
  return told;
}

Lines read(const std::string& content) {
  Lines told;
  std::istringstream in(content);
  cli::readNumbers(
      in,
      {.number = [&](std::int32_t number) { told.push_back("number " + std::to_string(number)); },
       .unreadable =
           [&](std::uint64_t line, const std::string& text) {
             require(text.size() <= longest, "what is told of a line is short", {text});
             told.push_back("unreadable " + std::to_string(line));
           },
       .progress = [](std::uint64_t) {}});
  return told;
}

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  Input input(data, size);
  const auto padding = static_cast<std::size_t>(input.number()) % 600;
  std::string content = input.rest();
  content.insert(std::min<std::size_t>(content.size(), 3), padding, input.flag() ? '0' : ' ');
  require(read(content) == expected(content), "every line is told once, and rightly", {content});
  return 0;
}
