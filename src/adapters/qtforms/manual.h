// The users' manual, where it is installed.
#pragma once

namespace vexnumkr::qtforms {

/// Opens the manual in the program that the user reads such pages with. Does nothing where it is
/// not installed: on Windows in the folder "handbuch" beside the library file, elsewhere as HTML
/// with the documentation.
void openManual();

}  // namespace vexnumkr::qtforms
