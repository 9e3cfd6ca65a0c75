// Files and folders that the host makes.
#pragma once

#include <string>

namespace vexnumkr::app {

/// Makes the empty file `file`. Errors: 58 when there is one of that name, 75 when it cannot be
/// made.
void makeNewFile(const std::string& file);

/// Makes `folder` and those above it; one that is there already stays as it is. Error 75 when it
/// cannot be made.
void makeFolder(const std::string& folder);

}  // namespace vexnumkr::app
