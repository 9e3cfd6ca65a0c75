// The processor's floating-point exceptions, which some hosts have switched on.
#pragma once

#include <float.h>

namespace vexnumkr::server {

/// As long as it lives, dividing by zero and the like yield values instead of ending the program:
/// drawing relies on that. Afterwards the host's setting holds again.
class MaskedFloatingPoint {
 public:
  MaskedFloatingPoint() : before_(_controlfp(0, 0)) { _controlfp(_MCW_EM, _MCW_EM); }
  ~MaskedFloatingPoint() { _controlfp(before_, _MCW_EM); }
  MaskedFloatingPoint(const MaskedFloatingPoint&) = delete;
  MaskedFloatingPoint& operator=(const MaskedFloatingPoint&) = delete;

 private:
  const unsigned int before_;
};

}  // namespace vexnumkr::server
