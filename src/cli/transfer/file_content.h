// Reading a file that the command line names.
#pragma once

#include <string>

namespace vexnumkr::cli {

/// All of it, or of standard input for "-". Error: UsageError.
std::string contentOf(const std::string& file);

}  // namespace vexnumkr::cli
