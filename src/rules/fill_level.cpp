#include "rules/fill_level.h"

#include <vexnumkr/error.h>

#include "rules/range_check.h"

namespace vexnumkr {

std::optional<FillLevel> fillLevel(const RangeRow& row) {
  try {
    if (ruleBrokenBy(row)) return std::nullopt;
    const std::int64_t start = row.StartWert.toLong();
    return FillLevel{row.AktuellerWert.toLong() - start, row.EndWert.toLong() - start};
  } catch (const Error&) {  // it is no number
    return std::nullopt;
  }
}

std::string freeNumbers(const FillLevel& level) {
  if (level.left() == 0) return "keine Nummer mehr frei";
  return "noch " + std::to_string(level.left()) +
         (level.left() == 1 ? " Nummer frei" : " Nummern frei");
}

}  // namespace vexnumkr
