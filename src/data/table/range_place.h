// Where a range is, for messages about it.
#pragma once

#include <string>

#include "data/table/range_row.h"

namespace vexnumkr {

/// A line of its own for the end of a message (German): the names that the dialog shows for the
/// range's document type and booking circle.
inline std::string placeOf(const RangeRow& range) {
  return "\r\n(Belegart: " + range.NBezeichnung.str() + ", Buchungskreis: " + range.Gruppe.str() +
         ")";
}

}  // namespace vexnumkr
