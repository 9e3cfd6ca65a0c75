// The range data of a session.
#pragma once

#include "data/booking_circles.h"
#include "data/stored/range_values.h"
#include "data/table/common_names.h"
#include "data/table/xarray.h"

namespace vexnumkr {

/// The range table with what says who and what its rows are for, and what is known of the stored
/// ranges; all borrowed.
struct RangeData {
  XArray& table;
  BookingCircleList& circles;
  const Users& users;
  KnownRanges& known;
};

}  // namespace vexnumkr
