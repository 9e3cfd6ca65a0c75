// The one reader of connection strings: everything else about them is built on it.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/connection_string.h>

namespace vexnumkr {

/// The keys of a native connection string.
inline constexpr std::array<std::string_view, 7> nativeKeys = {
    "Driver", "Database", "Server", "Port", "UID", "PWD", "Options"};

/// What stands between two semicolons of a connection string. Positions count in its text.
struct ConnectionEntry {
  std::string_view key;  ///< Without blanks around it; all of the entry where there is no sign.
  bool hasSign = false;  ///< Whether there is a `=`, so that it is a pair.
  std::string value;     ///< Without the marks around it.
  std::vector<std::size_t> places;  ///< Where each character of the value stands.
  std::size_t begin = 0;            ///< The entry without blanks, or the value with its marks.
  std::size_t end = 0;
  bool isClosed = true;  ///< False where a double quote lacks the one that closes it.
  bool hasMore = false;  ///< Whether something follows the closing mark; then it is no mark.
};

/// Reads one entry after the other. Every step takes at least one character of the text.
class ConnectionEntries {
 public:
  ConnectionEntries(std::string_view text, ConnectionSyntax syntax)
      : text_(text), syntax_(syntax) {}

  /// Reads the next entry that is not blank; false at the end.
  bool next(ConnectionEntry& entry);

 private:
  std::size_t skip(std::string_view characters, std::size_t from) const;
  std::size_t find(char c, std::size_t from) const;
  char closingMark(std::size_t at) const;
  void readValue(ConnectionEntry& entry);
  bool readEnclosed(ConnectionEntry& entry, char closing);
  void readPlain(ConnectionEntry& entry);

  std::string_view text_;
  ConnectionSyntax syntax_;
  std::size_t at_ = 0;  // Never behind the end.
};

}  // namespace vexnumkr
