// The failures of the number library itself.
#pragma once

#include <string>

#include <vexnumkr/error.h>

namespace vexnumkr::numbers {

/// A call that cannot be answered, whatever the database holds.
inline Error invalidCall(const std::string& description) {
  return Error(error_number::invalidCall, "vexnumkr", description);
}

}  // namespace vexnumkr::numbers
