// Writing what differs from what is stored.
#pragma once

#include <vector>

#include "data/statement_source.h"
#include "platform/progress.h"
#include "rules/saving/stored_changes.h"

namespace vexnumkr {

/// What was written, besides the ranges of the table and the unknown ones.
struct WrittenInSets {
  /// Stored ranges that had to go, if any had; those that were written again are among them.
  std::vector<RangeId> removed;
  bool assignments = false;  ///< Whether any was removed or inserted.
};

/// Leaves the same rows as writeTable, and InsertIntoNummernkreise for each of the unknown ranges
/// after it, but touches only what is not stored like that: many rows with one statement where the
/// connection takes it. `underLock` is what is stored; nobody else may change it meanwhile. A step
/// of progress per row, and one that is left for the commit. Errors as writeTable.
///
/// What the engine may see otherwise than this comparison of texts (keys that are the same for it,
/// assignments that cannot be named) is written as writeTable would.
WrittenInSets writeDifferences(const XArray& table, const StoredRanges& underLock,
                               StatementSource& source, Progress& progress);

}  // namespace vexnumkr
