// Special ranges: optional number keys that share another key's range and can be switched on.
#pragma once

#include "data/range_data.h"
#include "data/statement_source.h"
#include "platform/progress.h"
#include "platform/reporter.h"

namespace vexnumkr::basAllgemein {

/// Whether the origin has any special range. False after a failure, which is reported.
bool CheckSonderkreise(StatementSource& source, Reporter& reporter);

/// Adds the special ranges that are switched on and lacking to the range table, as standard range
/// of every user and in every booking circle, and removes the rows of those that are off. Running
/// it again changes nothing. Failures are reported.
void RefreshSGroups(const RangeData& data, StatementSource& source, Reporter& reporter,
                    Progress& progress);

}  // namespace vexnumkr::basAllgemein
