// What everybody sees of a program in the list of processes.
#pragma once

namespace vexnumkr::app {

/// Overwrites the passwords of connection strings in the arguments of main with asterisks, in
/// place, which is where the system reads them from. To be called when the arguments have been
/// read.
void hidePasswords(int argc, char** argv);

}  // namespace vexnumkr::app
