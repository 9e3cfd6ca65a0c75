// Files that the host makes.
#pragma once

#include <string>

namespace vexnumkr::app {

/// Makes the empty file `file`. Errors: 58 when there is one of that name, 75 when it cannot be
/// made.
void makeNewFile(const std::string& file);

}  // namespace vexnumkr::app
