// The range data of a session.
#pragma once

#include "data/booking_circles.h"
#include "data/table/common_names.h"
#include "data/table/xarray.h"

namespace vexnumkr {

/// The range table with what says who and what its rows are for; all borrowed.
struct RangeData {
  XArray& table;
  BookingCircleList& circles;
  const Users& users;
};

}  // namespace vexnumkr
