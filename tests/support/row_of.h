// Rows of the range table as tests write them.
#pragma once

#include <utility>

#include <vexnumkr/value.h>

#include "data/table/xarray.h"

namespace vexnumkr::test {

/// A row by its cells, which may be whatever a cell or a column of the database may hold. What is
/// not given stays as in a new row.
struct RowCells {
  Value Benutzer{};
  Value Buchungskreis{};
  Value Gruppe{};
  Value NSchl{};
  Value NBezeichnung{};
  Value StartWert{};
  Value AktuellerWert{};
  Value EndWert{};
  Value Aktiviert{};
  Value SortierIndex{};
  Value IstNSchlVon{};
  Value Maske{};

  /// The same with another cell in one column.
  RowCells with(Value RowCells::*column, Value cell) const {
    RowCells row = *this;
    row.*column = std::move(cell);
    return row;
  }
};

/// The common row of a standard range.
inline RowCells standardInvoice() {
  return {.Benutzer = "Alle Benutzer",
          .Buchungskreis = 0,
          .Gruppe = "Standard",
          .NSchl = "RE",
          .NBezeichnung = "Rechnung",
          .StartWert = 1,
          .AktuellerWert = 2,
          .EndWert = 9,
          .Aktiviert = true,
          .SortierIndex = 50,
          .Maske = "NN"};
}

/// A row for `table` with these cells. Errors: those of their conversions.
inline RangeRow rowOf(XArray& table, const RowCells& cells) {
  const auto text = [&](const Value& given) { return table.text(given.toText()); };
  const auto value = [&](const Value& given) -> Cell {
    if (given.isText()) return table.text(given.asText());
    return given.isEmpty() ? Cell() : Cell(given.toLong());
  };
  return {.Benutzer = text(cells.Benutzer),
          .Buchungskreis = cells.Buchungskreis.toLong(),
          .Gruppe = text(cells.Gruppe),
          .NSchl = text(cells.NSchl),
          .NBezeichnung = text(cells.NBezeichnung),
          .StartWert = value(cells.StartWert),
          .AktuellerWert = value(cells.AktuellerWert),
          .EndWert = value(cells.EndWert),
          .Aktiviert = cells.Aktiviert.toBoolean(),
          .SortierIndex = cells.SortierIndex.toLong(),
          .IstNSchlVon = text(cells.IstNSchlVon),
          .Maske = value(cells.Maske)};
}

}  // namespace vexnumkr::test
