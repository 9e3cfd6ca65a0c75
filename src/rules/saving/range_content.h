// What a range holds besides its identity, as it is stored and as it is written.
#pragma once

#include <array>
#include <optional>

#include <vexnumkr/database.h>

#include "data/sql/set_statements.h"
#include "data/stored/range_values.h"
#include "data/table/xarray.h"

namespace vexnumkr {

/// The values of the columns, in their order. Equal is what is the same to the last blank, so that
/// writing it again would change nothing.
using RangeContent = std::array<Value, statement::RangeColumns::count>;

/// What saving writes for the row. Errors 6 and 13 for a value that does not convert.
RangeContent writtenContent(const RangeRow& row);

/// What a record holds; nothing where a value cannot be read.
std::optional<RangeContent> storedContent(const Recordset& record);

/// The columns in which they are different, and what is between those.
/// REQUIRES: they are different.
statement::RangeColumns differentColumns(const RangeContent& a, const RangeContent& b);

/// A stored range.
struct StoredRecord {
  RangeId range;
  std::optional<RangeContent> content;
};

}  // namespace vexnumkr
