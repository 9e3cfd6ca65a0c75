// Reading a file that the command line names.
#pragma once

#include <string>

namespace vexnumkr::cli {

/// All of it, or of standard input for "-". Error: UsageError, also for more than 256 MiB: what has
/// no end is not read to it.
std::string contentOf(const std::string& file);

}  // namespace vexnumkr::cli
