#include "engines/sqlite/location.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace vexnumkr::engines::sqlite_location {
namespace {

bool standsForItself(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("-._~/").find(c) != std::string_view::npos;
}

std::string percentEncoded(std::string_view path) {
  static constexpr std::string_view digits = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (standsForItself(c))
      encoded += c;
    else
      encoded.append({'%', digits[byte >> 4], digits[byte & 0xF]});
  }
  return encoded;
}

}  // namespace

// SQLite makes an empty database of a name that it does not find; with mode=rw a mistyped name
// fails.
std::string uriOf(const std::string& database) {
  if (database == ":memory:") return database;
  if (database.starts_with("file:")) {
    if (database.find("mode=") != std::string::npos) return database;
    return database + (database.find('?') == std::string::npos ? '?' : '&') + "mode=rw";
  }
  const std::filesystem::path file(std::u8string(database.begin(), database.end()));
  const std::u8string generic = file.generic_u8string();
  std::string path(generic.begin(), generic.end());
  if (file.is_absolute()) path.insert(0, path.starts_with('/') ? "//" : "///");
  return "file:" + percentEncoded(path) + "?mode=rw";
}

}  // namespace vexnumkr::engines::sqlite_location
