// Numbers of databases as values: the one rule for every adapter.
#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include <vexnumkr/value.h>

namespace vexnumkr {

/// A number where it fits into 32 bits, else its digits as a text, which overflows when converted.
template <typename Integer>
Value integerValue(Integer number) {
  if (std::in_range<std::int32_t>(number)) return static_cast<std::int32_t>(number);
  return std::to_string(number);
}

/// A number where it is whole and fits into 32 bits, else the text that Value's conversions read:
/// its digits without an exponent, with a comma.
template <typename Real>
Value realValue(Real number) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double exact = number;
  if (exact >= Limits::min() && exact <= Limits::max() && std::trunc(exact) == exact)
    return static_cast<std::int32_t>(exact);
  // The longest double has 309 places before or 341 behind the point.
  std::array<char, 512> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed);
  std::string text(digits.begin(), end.ptr);
  if (const std::size_t point = text.find('.'); point != std::string::npos) text[point] = ',';
  return text;
}

}  // namespace vexnumkr
