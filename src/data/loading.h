// Filling the range table from the database.
#pragma once

#include "data/range_data.h"
#include "data/statement_source.h"
#include "platform/progress.h"
#include "platform/reporter.h"

namespace vexnumkr::basAllgemein {

/// Reads all ranges, spreads every number key over every booking circle of the origin, and derives
/// each user's rows from the active common ones and the stored assignments. What must follow, where
/// it returns True, is the activity rule (CheckActivity).
///
/// Every range read, and the values of every common row, are known afterwards.
///
/// REQUIRES: the range table is empty. A NULL in a column that must have a value ends it: the
/// failure is reported, what was added stays, and it returns False.
bool LoadItems(const RangeData& data, StatementSource& source, Reporter& reporter,
               Progress& progress);

}  // namespace vexnumkr::basAllgemein
