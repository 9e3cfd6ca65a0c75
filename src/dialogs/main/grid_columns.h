// The columns of the main dialog's grid.
#pragma once

#include <cstdint>

#include "data/table/range_row.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

/// Those from Buchungskreis on are hidden and hold the row's identity.
namespace grid_column {
inline constexpr std::int16_t Beschreibung = 1;
inline constexpr std::int16_t Start = 2;
inline constexpr std::int16_t Aktuell = 3;
inline constexpr std::int16_t Ende = 4;
inline constexpr std::int16_t Maske = 5;
inline constexpr std::int16_t Buchungskreis = 6;
inline constexpr std::int16_t NSchl = 7;
inline constexpr std::int16_t NBezeichnung = 8;
inline constexpr std::int16_t SortierIndex = 9;
inline constexpr std::int16_t Type = 10;
inline constexpr std::int16_t IstNSchlVon = 11;
}  // namespace grid_column

/// What the column Type says. A placeholder says "Group" too, so that whatever leaves group items
/// alone leaves it alone.
inline constexpr const char* groupType = "Group";
inline constexpr const char* rangeType = "Pos";

/// What an item is by its column Type. Error 9 for one outside the list.
inline bool isGroup(const TreeGrid& grid, std::int32_t index) {
  return grid.List(index, grid_column::Type) == groupType;
}
inline bool isRange(const TreeGrid& grid, std::int32_t index) {
  return grid.List(index, grid_column::Type) == rangeType;
}

/// The value of a range that a column from Start to Maske shows.
inline ValueColumn valueShownIn(std::int16_t column) {
  if (column == grid_column::Start) return &RangeRow::StartWert;
  if (column == grid_column::Aktuell) return &RangeRow::AktuellerWert;
  if (column == grid_column::Ende) return &RangeRow::EndWert;
  return &RangeRow::Maske;
}

/// The column that shows a value of a range.
inline std::int16_t gridColumnOf(ValueColumn value) {
  if (value == &RangeRow::StartWert) return grid_column::Start;
  if (value == &RangeRow::AktuellerWert) return grid_column::Aktuell;
  if (value == &RangeRow::EndWert) return grid_column::Ende;
  return grid_column::Maske;
}

}  // namespace vexnumkr
