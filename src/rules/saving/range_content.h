// What a range holds besides its identity, as it is stored and as it is written.
#pragma once

#include <array>
#include <optional>

#include <vexnumkr/database.h>

#include "data/stored/range_values.h"
#include "data/table/xarray.h"

namespace vexnumkr {

/// Description, the three numbers, active or not, sort index, the key whose range it shares, mask.
/// Equal is what is the same to the last blank, so that writing it again would change nothing.
using RangeContent = std::array<Value, 8>;

/// What saving writes for the row. Errors 6 and 13 for a value that does not convert.
RangeContent writtenContent(const RangeRow& row);

/// What a record holds; nothing where a value cannot be read.
std::optional<RangeContent> storedContent(const Recordset& record);

/// Whether nothing but the three numbers is different.
bool differInNumbersOnly(RangeContent a, const RangeContent& b);

/// A stored range.
struct StoredRecord {
  RangeId range;
  std::optional<RangeContent> content;
};

}  // namespace vexnumkr
