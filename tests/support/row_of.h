// Rows of the range table as tests write them.
#pragma once

#include <vector>

#include <vexnumkr/value.h>

#include "data/table/xarray.h"

namespace vexnumkr::test {

/// A row for `table` with these cells, in column order; the rest stays as in a new row.
inline RangeRow rowOf(XArray& table, const std::vector<Value>& cells) {
  const auto cell = [&](std::size_t column) {
    return column < cells.size() ? cells[column] : Value();
  };
  const auto text = [&](std::size_t column) { return table.text(cell(column).toText()); };
  const auto value = [&](std::size_t column) -> Cell {
    const Value given = cell(column);
    if (given.isText()) return table.text(given.asText());
    return given.isEmpty() ? Cell() : Cell(given.toLong());
  };
  return {.Benutzer = text(0),
          .Buchungskreis = cell(1).toLong(),
          .Gruppe = text(2),
          .NSchl = text(3),
          .NBezeichnung = text(4),
          .StartWert = value(5),
          .AktuellerWert = value(6),
          .EndWert = value(7),
          .Aktiviert = cell(8).toBoolean(),
          .SortierIndex = cell(9).toLong(),
          .IstNSchlVon = text(10),
          .Maske = value(11)};
}

}  // namespace vexnumkr::test
