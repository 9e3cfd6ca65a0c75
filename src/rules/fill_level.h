// How much of a range is used up.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/table/range_row.h"

namespace vexnumkr {

/// Counted in numbers behind the start: the current value is the last number given.
struct FillLevel {
  std::int64_t used = 0;
  std::int64_t capacity = 1;

  std::int64_t left() const { return capacity - used; }
  /// Rounded down, so that only a full range is at 100.
  std::int32_t percent() const { return static_cast<std::int32_t>(used * 100 / capacity); }
  bool isLow() const { return percent() >= 80; }
  bool isCritical() const { return percent() >= 95; }
};

/// Nothing for a range that breaks a rule by itself, and for values that do not convert.
std::optional<FillLevel> fillLevel(const RangeRow& row);

/// "noch 512 Nummern frei".
std::string freeNumbers(const FillLevel& level);

}  // namespace vexnumkr
