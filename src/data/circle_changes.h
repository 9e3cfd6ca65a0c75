// Following a booking-circle list that the user has edited.
#pragma once

#include "data/range_data.h"
#include "data/statement_source.h"
#include "platform/progress.h"
#include "platform/reporter.h"

namespace vexnumkr::basAllgemein {

/// Brings the range table in line with the booking-circle list: new circles get the standard
/// ranges, renamed ones their caption, those that are gone lose their rows. Failures are reported.
/// True when rows were removed, which is a change to be saved.
bool RefreshInXArray(const RangeData& data, StatementSource& source, Reporter& reporter,
                     Progress& progress);

}  // namespace vexnumkr::basAllgemein
