// The failures of the number library itself.
#pragma once

#include <cstdint>
#include <string>

#include <vexnumkr/error.h>

namespace vexnumkr::numbers {

/// The number of errors for calls that cannot be answered, whatever the database holds.
inline constexpr std::int32_t invalidCallNumber = 5;

/// The number of errors for ranges that somebody else has changed at this moment.
inline constexpr std::int32_t changedMeanwhile = 3023;

inline Error invalidCall(const std::string& description) {
  return Error(invalidCallNumber, "vexnumkr", description);
}

}  // namespace vexnumkr::numbers
