// Reading back what was written, before it is committed.
#pragma once

#include <cstdint>
#include <vector>

#include <vexnumkr/database.h>

#include "data/table/xarray.h"

namespace vexnumkr {

/// Judges the records of the loading statement, and how many assignments of the origin are stored,
/// against the table that was written and the `others`, ranges that are none of it and were written
/// behind it. Blanks at the end of texts do not count, and a NULL text is an empty one; of several
/// common rows of one range the last counts; the host's keys "LM" and "AF" are passed over. Error
/// 3022 for the first range, in the table's order and then that of the others, that is not stored
/// exactly once with the ten values written, else for another number of assignments than active
/// rows.
void requireStoredAsWritten(const XArray& table, const std::vector<RangeRow>& others,
                            Recordset& records, std::int64_t assignments);

}  // namespace vexnumkr
