// Numbers that a range would issue once more.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include <vexnumkr/number_company.h>
#include <vexnumkr/number_gaps.h>

namespace vexnumkr::numbers {

/// The numbers that `range` has issued and would issue again with `current` and `end` as its
/// values: from those above its `StartWert` up to its `AktuellerWert`, those above `current` up to
/// `end`. Nothing where there are none, or where the range lacks a value.
inline std::optional<Interval> reissued(const Range& range, std::int32_t current,
                                        std::int32_t end) {
  if (!range.start || !range.current) return std::nullopt;
  const std::int32_t below = std::max(*range.start, current);
  const std::int32_t last = std::min(*range.current, end);
  if (below >= last) return std::nullopt;
  return Interval{below + 1, last};
}

}  // namespace vexnumkr::numbers
