#include "app/process_list.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "app/connection_text.h"

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

void hide(char* text, const std::string& password) {
  if (password.empty()) return;
  for (char* at = std::strstr(text, password.c_str()); at != nullptr;
       at = std::strstr(at, password.c_str()))
    at = std::fill_n(at, password.size(), '*');
}

}  // namespace

void hidePasswords(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    char* const connection = connectionIn(argv[i], argv[i - 1] == option);
    if (connection == nullptr) continue;
    const std::string copy = connection;
    for (const std::string& password : passwordsIn(copy)) hide(connection, password);
  }
}

}  // namespace vexnumkr::app
