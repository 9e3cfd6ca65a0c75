// The orders that the range table is sorted by.
#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "data/table/range_row.h"

namespace vexnumkr {

enum class RowOrder {
  none,
  display,       ///< User, place in the display, number key, circle: checking, numbering, saving.
  tree,          ///< User, number key, circle: each key's standard range comes first.
  circleAndKey,  ///< Circle, number key: the order in which users get their rows.
};

/// The positions of `rows` in that order; stable. Texts compare by code point, numbers as such.
///
/// Joins the keys of a row into one number and sorts those by their digits, which takes an eighth
/// of the time of std::stable_sort over the rows: the rules sort before all else they do.
std::vector<std::uint32_t> sortedPositions(const std::deque<RangeRow>& rows, RowOrder order);

}  // namespace vexnumkr
