// The numbers that a numbering mask stands for at a date.
//
// A mask is the shape of a number, read from its end: digits stand for themselves, "N" for each
// digit, "J" and "M" for the next digit of the year and month, also from the end; "%" leaves out a
// digit of the year. So "3JJNNNN" is 3260000 to 3269999 in 2026. Letters count in both cases, and
// everything else is passed over. Plain computation: no thread rule.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <vexnumkr/export.h>

namespace vexnumkr::numbers {

/// The lowest and the highest number of a mask's shape; as a range's `StartWert`, which counts as
/// issued, and `EndWert`.
struct MaskNumbers {
  std::int32_t low = 0;
  std::int32_t high = 0;

  /// The numbers that a range with these values can issue.
  std::int64_t capacity() const { return std::int64_t{high} - low; }
  friend bool operator==(const MaskNumbers&, const MaskNumbers&) = default;
};

/// As the dialog's "Automatisch" reads `mask` at `date` ("yyyymmdd"); nothing for a blank mask.
/// Errors: 13 for a mask without digits, 6 for numbers beyond 32 bits.
VEXNUMKR_API std::optional<MaskNumbers> maskNumbers(std::string_view mask, std::string_view date);

/// Whether the numbers of `mask` change with the year or the month, so that its range has to be
/// given new values then. Takes any text.
VEXNUMKR_API bool isDated(std::string_view mask);

/// The month ("yyyymm") nearest to `date` at which the mask's lowest number is `start`: the one of
/// `date` itself where that is so, otherwise up to fifty years before or behind it. Empty where
/// there is none, or where the mask cannot be read. Error: 13 for a `date` that is none.
VEXNUMKR_API std::string monthOfStart(std::string_view mask, std::int32_t start,
                                      std::string_view date);

}  // namespace vexnumkr::numbers
