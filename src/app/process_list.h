// What others see of a program's arguments: in the list of processes, and in messages that quote
// them.
#pragma once

#include <string>
#include <vector>

namespace vexnumkr::app {

/// Overwrites the passwords of connection strings in the arguments of main with asterisks, in
/// place, which is where the system reads them from. Any argument may be one: it may stand where
/// none belongs. To be called when the arguments have been read.
void hidePasswords(int argc, char** argv);

/// `text` with the passwords of connection strings in `arguments`, which are as main was given
/// them, as "***".
std::string withoutPasswordsOf(const std::vector<std::string>& arguments, std::string text);

}  // namespace vexnumkr::app
