#include "app/process_list.h"

#include <algorithm>
#include <string_view>

#include <vexnumkr/connection_string.h>

namespace vexnumkr::app {
namespace {

constexpr std::string_view option = "--connection";

/// The connection string that begins here, if one does.
char* connectionIn(char* argument, bool behindOption) {
  if (behindOption) return argument;
  const std::string_view text = argument;
  const bool hasValue = text.starts_with(option) && text.substr(option.size()).starts_with('=');
  return hasValue ? argument + option.size() + 1 : nullptr;
}

}  // namespace

void hidePasswords(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    char* const connection = connectionIn(argv[i], argv[i - 1] == option);
    if (connection == nullptr) continue;
    for (const TextRange& range : passwordRanges(connection))
      std::fill(connection + range.begin, connection + range.end, '*');
  }
}

}  // namespace vexnumkr::app
