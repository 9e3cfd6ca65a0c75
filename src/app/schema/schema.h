// The tables of the stand-alone host, as statements for a database engine.
//
// The definitions are in a folder per engine beside this file, for administrators to read and run;
// what an engine needs besides belongs there and nowhere else.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vexnumkr::app {

/// The statements that make the tables of the number ranges on the engine of that name (engines.h),
/// in the order to run them. Error: 3706 for any other name.
std::vector<std::string> rangeTableStatements(std::string_view engine);

/// The statements that make the settings table. Error as above.
std::vector<std::string> settingsTableStatements(std::string_view engine);

}  // namespace vexnumkr::app
