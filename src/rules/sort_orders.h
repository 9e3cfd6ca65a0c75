// The orders in which the rules walk the range table.
#pragma once

#include <array>
#include <span>

#include "data/table/columns.h"
#include "data/table/xarray.h"

namespace vexnumkr {

/// User, place in the display, number key, booking circle: the order of checking, numbering and
/// saving.
inline constexpr std::array displayOrder{SortKey{column::Benutzer, true, Comparison::Text},
                                         SortKey{column::SortierIndex, true, Comparison::Number},
                                         SortKey{column::NSchl, true, Comparison::Text},
                                         SortKey{column::Buchungskreis, true, Comparison::Number}};

/// User, number key, booking circle: the order of the tree, with each key's standard range first.
inline constexpr std::array treeOrder{SortKey{column::Benutzer, true, Comparison::Text},
                                      SortKey{column::NSchl, true, Comparison::Text},
                                      SortKey{column::Buchungskreis, true, Comparison::Number}};

/// Sorts all rows.
inline void sortRows(XArray& table, std::span<const SortKey> keys) {
  table.QuickSort(table.LowerBound(1), table.UpperBound(1), keys);
}

}  // namespace vexnumkr
