// Texts of the database on their way to a terminal.
#pragma once

#include <algorithm>
#include <string>

namespace vexnumkr::cli {

/// Whether it is one of the characters of ASCII that show nothing.
inline bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }

/// Without what a terminal would take for orders, or a line of output for its end.
inline std::string printable(std::string text) {
  std::replace_if(text.begin(), text.end(), isControl, '?');
  return text;
}

}  // namespace vexnumkr::cli
