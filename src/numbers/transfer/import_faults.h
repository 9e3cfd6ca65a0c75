// Rows that are not to be stored.
#pragma once

#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/number_transfer.h>

#include "numbers/transfer/row_changes.h"

namespace vexnumkr::numbers {

/// Those of the rows that `changes` adds or changes, which belong to `wanted`. `after` is the
/// company as it is then; `connection` tells how long texts may be.
std::vector<ImportFault> importFaults(Connection& connection, const Company& wanted,
                                      const Company& after, const RowChanges& changes);

}  // namespace vexnumkr::numbers
