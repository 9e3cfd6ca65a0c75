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
};

/// Finds the defect that a plain pair of loops would find first: for each active common row i in
/// the table's order, its own values, then for each row j in the table's order that draws on the
/// same sequence with another number key or booking circle, the values of j, then the overlap of j
/// with i. Errors 6, 13 and 94 for a value that does not convert, when the loops would come across
/// it before any defect.
///
/// The sequence of a row is its `IstNSchlVon`, or its `NSchl` where that is empty or Null. Costs
/// n log n: only sequences in which something is wrong are gone through pair by pair.
std::optional<RangeDefect> firstDefect(const XArray& table);

}  // namespace vexnumkr
