// A range as a record of the loading statement has it.
#pragma once

#include <vexnumkr/database.h>

#include "data/table/xarray.h"

namespace vexnumkr {

/// The common row for `table` of the record, without a caption, active as it is stored. NULL reads
/// as nothing in the columns that may be NULL. Error 94 for a NULL in another column, 6 and 13 for
/// what is no number.
RangeRow storedRange(const Recordset& record, XArray& table);

}  // namespace vexnumkr
