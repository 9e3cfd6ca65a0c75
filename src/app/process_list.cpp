#include "app/process_list.h"

#include <algorithm>
#include <string_view>

#include <vexnumkr/connection_string.h>

namespace vexnumkr::app {
namespace {

// Behind "--option=", and without that the whole argument.
std::size_t valueBegin(std::string_view argument) {
  if (!argument.starts_with("--")) return 0;
  const std::size_t sign = argument.find('=');
  return sign == std::string_view::npos ? 0 : sign + 1;
}

}  // namespace

void hidePasswords(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    char* const value = argv[i] + valueBegin(argv[i]);
    for (const TextRange& range : passwordRanges(value))
      std::fill(value + range.begin, value + range.end, '*');
  }
}

std::string withoutPasswordsOf(const std::vector<std::string>& arguments, std::string text) {
  for (const std::string& argument : arguments)
    text = withoutPasswords(text, std::string_view(argument).substr(valueBegin(argument)));
  return text;
}

}  // namespace vexnumkr::app
