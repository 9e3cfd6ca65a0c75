// A company of any size, for looking at large tables.
#pragma once

#include "app/sample/company.h"

namespace vexnumkr::app {

/// Four booking circles, six document types and ten users for every five of `scale`: 40, 60 and 100
/// for 50. All of it belongs to order processing (ORB), every range is active for everybody and for
/// each user, so that there are some hundred times `scale` squared assignments.
/// REQUIRES: 1 <= scale <= 500.
SampleCompany scaledCompany(int scale);

/// The small company for 0, else a scaled one.
SampleCompany sampleCompany(int scale);

}  // namespace vexnumkr::app
