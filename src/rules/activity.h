// The rule that every user can draw a number for every key.
#pragma once

#include "data/table/common_names.h"
#include "data/table/xarray.h"
#include "platform/reporter.h"

namespace vexnumkr::basAllgemein {

/// For every user but "Alle Benutzer": where none of the user's ranges of a number key is active,
/// the user's standard range of that key is switched on. The table is sorted by user, number key
/// and booking circle afterwards.
///
/// The first row of the following user closes the last key of the current user; when it carries the
/// same key, its activity counts for the current user, and the key is not closed. A key without a
/// standard row of that user: error 9. Failures are reported and end the routine.
void CheckActivity(XArray& table, const Users& users, Reporter& reporter);

}  // namespace vexnumkr::basAllgemein
