// Connection strings kept in files.
#pragma once

#include <string>

namespace vexnumkr::app {

/// The connection string in the first line of `file`, without the white space around it.
///
/// Connection strings hold passwords and decide where data goes, so the file must be the user's
/// own, and none that others can read or write. What is no regular file (a pipe would block) and
/// what is larger than 64 KiB is refused as well. Error: UsageError, which says what to do.
std::string readConnectionFile(const std::string& file);

}  // namespace vexnumkr::app
