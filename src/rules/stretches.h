// Stretches of numbers that different owners have taken, and where they overlap.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace vexnumkr {

/// A number key in a booking circle: its ranges are the same range.
struct RangeIdentity {
  std::uint32_t key = 0;  ///< the text's number in its pool
  std::int32_t circle = 0;

  friend bool operator==(const RangeIdentity&, const RangeIdentity&) = default;
};

/// The numbers from `low` to `high` of one sequence, taken by the range in `row`.
struct Stretch {
  std::int32_t row = 0;
  std::uint32_t sequence = 0;  ///< counted from 0
  RangeIdentity owner;
  std::int32_t low = std::numeric_limits<std::int32_t>::min();
  std::int32_t high = std::numeric_limits<std::int32_t>::max();  ///< REQUIRES: not below `low`
};

/// The lowest row whose stretch has a number in common with one of the same sequence and another
/// owner. Costs what ordering the stretches costs.
std::optional<std::int32_t> firstOverlapping(const std::vector<Stretch>& stretches);

}  // namespace vexnumkr
