// A row of the range table: the one form of a range from the recordset to the grid and back into
// a statement.
#pragma once

#include <array>
#include <cstdint>

#include <vexnumkr/value.h>

#include "data/table/cell.h"
#include "data/table/common_names.h"
#include "data/table/text_pool.h"

namespace vexnumkr {

/// One range of a booking circle and number key, for one user. The common rows ("Alle Benutzer")
/// hold the ranges as they are stored; a user's rows say by `Aktiviert` which of them the user
/// draws from, and carry the values along.
///
/// The texts are borrowed from the pool of the table that the row is for (XArray::text).
struct RangeRow {
  Text Benutzer;
  std::int32_t Buchungskreis = 0;  ///< 0 = the standard range of the number key
  Text Gruppe;                     ///< the description of the booking circle, or "Standard"
  Text NSchl;
  Text NBezeichnung;
  Cell StartWert;
  Cell AktuellerWert;
  Cell EndWert;
  bool Aktiviert = false;
  std::int32_t SortierIndex = 0;
  Text IstNSchlVon;  ///< the key whose range this one shares, "" if none
  Cell Maske;        ///< a text; 0 in rows that the database does not have yet

  bool isCommon() const { return Benutzer == alleBenutzer; }
  bool isStandard() const { return Buchungskreis == 0; }

  /// The key of the sequence that the range draws from: ranges of one sequence must not overlap.
  Text sequence() const { return IstNSchlVon.empty() ? NSchl : IstNSchlVon; }

  /// The columns in their order, as those show them who show the table as it is.
  std::array<Value, 12> columns() const;
};

/// The columns that users edit.
using ValueColumn = Cell RangeRow::*;

}  // namespace vexnumkr
