// Texts of the database on their way to a terminal.
#pragma once

#include <algorithm>
#include <string>

namespace vexnumkr::cli {

/// Without what a terminal would take for orders, or a line of output for its end.
inline std::string printable(std::string text) {
  std::replace_if(
      text.begin(), text.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }, '?');
  return text;
}

}  // namespace vexnumkr::cli
