// The program from its arguments to its exit status.
#pragma once

namespace vexnumkr::cli {

/// Reads the arguments, runs the command that they name, and reports what fails on standard error.
int runProgram(int argc, char** argv);

}  // namespace vexnumkr::cli
