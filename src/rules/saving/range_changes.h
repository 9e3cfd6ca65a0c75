// What of the ranges has to be written so that the table is stored.
#pragma once

#include <vector>

#include "rules/saving/stored_changes.h"

namespace vexnumkr {

/// Ranges that are not mentioned are stored as they are to be.
struct RangeChanges {
  /// Stored ranges that saving row by row would remove and not write again, unless they belong to
  /// others: deletableRanges says which.
  std::vector<RangeId> leaving;
  std::vector<RangeRow> different;  ///< Stored otherwise.
  /// The columns in which one of these is stored otherwise, and what is between those.
  statement::RangeColumns differentColumns = {statement::RangeColumns::count, 0};
  std::vector<RangeRow> lacking;  ///< Not stored.
  /// Ranges of which only the database knows what they meet: the host's keys, and keys that it may
  /// take for others. To be inserted, else updated, one by one and in this order.
  std::vector<RangeRow> entangled;
};

/// Compares what is stored with the common rows of `table`, and behind them `others`, which are to
/// be stored too; of several rows of one range the last counts. Errors 6 and 13 for a value that
/// does not convert.
RangeChanges compareRanges(const XArray& table, const std::vector<RangeRow>& others,
                           const std::vector<StoredRecord>& stored);

}  // namespace vexnumkr
