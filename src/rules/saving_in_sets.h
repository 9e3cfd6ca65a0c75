// Writing what differs from what is stored.
#pragma once

#include "data/statement_source.h"
#include "platform/progress.h"
#include "rules/stored_changes.h"

namespace vexnumkr {

/// Leaves the same rows as writeTable, and InsertIntoNummernkreise for each of the unknown ranges
/// after it, but touches only what is not stored like that: many rows with one statement where the
/// connection takes it. `underLock` is what is stored; nobody else may change it meanwhile. A step
/// of progress per row, and one that is left for the commit. Errors as writeTable.
///
/// What the engine may see otherwise than this comparison of texts (keys that are the same for it,
/// assignments that cannot be named) is written as writeTable would.
void writeDifferences(const XArray& table, const StoredRanges& underLock, StatementSource& source,
                      Progress& progress);

}  // namespace vexnumkr
