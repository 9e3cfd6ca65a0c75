// The stand-alone host as a program: what main does with its arguments.
#pragma once

#include <string>
#include <vector>

namespace vexnumkr::app {

/// The program's exit statuses.
namespace exit_status {
inline constexpr int done = 0;
inline constexpr int failed = 1;
inline constexpr int wrongUsage = 2;
}  // namespace exit_status

/// Runs the host with the arguments of main and returns its exit status. What it has to say to its
/// user goes to standard output, and what went wrong to standard error, without passwords.
int runHost(int argc, char** argv);

}  // namespace vexnumkr::app
