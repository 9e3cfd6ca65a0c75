// Comparing names and keywords, whose letters are ASCII where their case does not count.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace vexnumkr {

inline char lowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string inLowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lowerCase);
  return result;
}

/// Equal but for the case of ASCII letters.
inline bool equalsWithoutCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lowerCase(x) == lowerCase(y); });
}

}  // namespace vexnumkr
