// How a command says that it cannot be carried out.
#pragma once

#include <stdexcept>

namespace vexnumkr::scenario {

/// Ends the scenario; what() says why.
class CannotDo : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace vexnumkr::scenario
