// Connection strings kept in files.
#pragma once

#include <string>

namespace vexnumkr::app {

/// The connection string in the first line of `file`. A file that others than its owner can read is
/// refused: connection strings hold passwords. Error: UsageError.
std::string readConnectionFile(const std::string& file);

}  // namespace vexnumkr::app
