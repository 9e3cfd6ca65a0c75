// Rows of the host's tables as the library has them.
#pragma once

#include <vexnumkr/database.h>
#include <vexnumkr/number_company.h>

namespace vexnumkr::numbers {

/// The current row, whose fields are called as those of the table. Errors: 3265 for a field that is
/// missing; 13 and 6 for a number that is none.
Range rangeIn(const Recordset& row);
Circle circleIn(const Recordset& row);
Assignment assignmentIn(const Recordset& row);
SpecialRange specialRangeIn(const Recordset& row);

}  // namespace vexnumkr::numbers
