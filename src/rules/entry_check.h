// What an entry would break while it is still being made.
#pragma once

#include <optional>
#include <string>

#include "data/table/xarray.h"

namespace vexnumkr {

/// What speaks against an entry, in words for the user.
struct EntryDefect {
  std::string text;
  std::optional<RangeRow> partner;  ///< the range that it would overlap
};

/// What `text` in that column (not Maske) of the range would break: it is no number of 32 bits, or
/// the active common range would break a rule by it. Other ranges count as they are, those that
/// break a rule themselves do not count. Of a range that has no end yet, only the entry itself is
/// looked at: its numbers are just being given.
///
/// Costs a pass over the table.
std::optional<EntryDefect> entryDefect(const XArray& table, const RangeRow& range,
                                       ValueColumn column, const std::string& text);

/// What a mask would give on `date`, "→ 3260000 bis 3269999", or what keeps it from that; nothing
/// for an empty mask.
struct MaskPreview {
  std::string text;
  bool fails = false;
};
MaskPreview maskPreview(const std::string& mask, const std::string& date);

}  // namespace vexnumkr
