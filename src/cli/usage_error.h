// Calls that the program cannot answer.
#pragma once

#include <stdexcept>

namespace vexnumkr::cli {

/// A command line that asks for nothing that the program can do, or names a file that is not as it
/// should be. The text is for the caller (German).
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace vexnumkr::cli
