// Finding the first broken rule among the ranges of a table.
#pragma once

#include <cstdint>
#include <optional>

#include "data/table/xarray.h"

namespace vexnumkr {

enum class BrokenRule {
  EndNotAboveStart,
  CurrentOutsideRange,
  OverlapsOtherCircle,  ///< the same number key in two booking circles
  OverlapsOtherKey      ///< two number keys that share a sequence
};

/// A broken rule: by the range in `row`, which for an overlap overlaps the one in `otherRow`.
struct RangeDefect {
  BrokenRule rule;
  std::int32_t row = 0;
  std::int32_t otherRow = 0;

  friend bool operator==(const RangeDefect&, const RangeDefect&) = default;
};

/// The rule that a range breaks by itself. Errors 6 and 13 for a value that does not convert, in
/// the order in which they are compared: end, start, current.
std::optional<BrokenRule> ruleBrokenBy(const RangeRow& row);

/// Whether two ranges that keep the rules themselves have a number in common.
bool overlap(const RangeRow& a, const RangeRow& b);

/// Finds the defect that a plain pair of loops would find first. For each active common row i in
/// the table's order: its own values; then for each row j in the table's order that is active,
/// common, of the same sequence and of another number key or booking circle: the values of j, then
/// the overlap of j with i. Errors 6 and 13 for a value that does not convert, when the loops would
/// come across it before any defect.
///
/// Costs n log n: the loops are run for the one range at which they stop.
std::optional<RangeDefect> firstDefect(const XArray& table);

}  // namespace vexnumkr
