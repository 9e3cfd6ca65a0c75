// Reading back what was written, before it is committed.
#pragma once

#include <cstdint>
#include <vector>

#include <vexnumkr/database.h>

#include "data/stored/range_values.h"
#include "data/table/xarray.h"

namespace vexnumkr {

/// What a save has written or removed besides the ranges of the table.
struct BesidesTheTable {
  std::vector<RangeRow> others;  ///< Ranges that were written behind it.
  /// Ranges that it had to remove; those that it has written again count as written.
  std::vector<RangeId> removed;
};

/// Judges the records of the loading statement against the table that was written and what was done
/// `besides`. Blanks at the end of texts do not count, and a NULL text is an empty one; of several
/// common rows of one range the last counts; the host's keys "LM" and "AF" are passed over. Error
/// 3022 for the first range, in the table's order and then that of the others, that is not stored
/// exactly once with the ten values written, else for one that was removed and is stored.
void requireRangesAsWritten(const XArray& table, const BesidesTheTable& besides,
                            Recordset& records);

/// Error 3022 for another number of stored assignments than active rows.
void requireAssignmentCount(const XArray& table, std::int64_t assignments);

/// Judges the records of statement::assignments, in which blanks at the end of texts do not count.
/// Error 3022 where they are not one for each active row.
void requireAssignmentsAsWritten(const XArray& table, Recordset& records);

}  // namespace vexnumkr
