// What monitoring systems read: one line, by the convention of Nagios.
#pragma once

#include <string>

#include "cli/printable.h"

namespace vexnumkr::cli {

/// Without what ends the text of the line, or the line.
inline std::string plainText(std::string text) {
  for (char& c : text)
    if (isControl(c) || c == '|') c = ' ';
  return text;
}

/// Says what has kept the plugin from checking; goes with exit_status::unknown.
inline std::string unknownLine(const std::string& text) {
  return "NUMMERNKREISE UNKNOWN - " + plainText(text);
}

}  // namespace vexnumkr::cli
