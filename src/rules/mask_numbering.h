// Numbering ranges from their masks.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "data/table/xarray.h"
#include "platform/progress.h"

namespace vexnumkr {

/// The lowest and the highest number text of a mask's shape.
struct MaskTexts {
  std::string low;
  std::string high;
};

/// Walks the mask from right to left: digits stand for themselves, "N" for 0 to 9, "J" and "M" for
/// the next digit, from the right, of the year and month of `date` ("yyyymmdd"), "%" passes over a
/// digit of the year; anything else is ignored. After the last digit of the year or month the first
/// from the right follows again. Letters count in both cases.
MaskTexts readMask(std::string_view mask, std::string_view date);

/// The numbers that a mask gives to a range.
struct MaskBounds {
  std::int32_t low = 0;
  std::int32_t high = 0;

  friend bool operator==(const MaskBounds&, const MaskBounds&) = default;
};

/// Nothing for a mask that is empty but for blanks around it. Errors: 13 for a mask without digits,
/// 6 for a number beyond 32 bits.
std::optional<MaskBounds> maskBounds(std::string_view mask, std::string_view date);

/// Gives every range with a mask, whoever's it is and active or not, the lowest number of its mask
/// as start and current value and the highest as end value. The table is sorted for display
/// afterwards. True when a row was written. Errors of maskBounds, with the range named behind their
/// texts; no row is written then. One step of progress per row.
bool numberFromMasks(XArray& table, const std::string& date, Progress& progress);

}  // namespace vexnumkr
