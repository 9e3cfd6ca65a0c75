// The record of the calls that the stand-ins have received.
#pragma once

#include <string>

namespace vexnumkr::standins {

/// Appends a line to the file that the environment variable VEXNUMKR_CALL_LOG names, at once, so
/// that others may read it while the host runs. Without the variable nothing is kept.
void logCall(const std::string& line);

}  // namespace vexnumkr::standins
