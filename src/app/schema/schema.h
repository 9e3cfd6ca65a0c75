// The tables of the stand-alone host, as statements for a database engine.
//
// The definitions are written once, in ranges.sql and settings.sql beside this file, in the SQL
// that all engines share; what an engine needs besides belongs here and nowhere else.
#pragma once

#include <string>
#include <vector>

namespace vexnumkr::host {

/// The statements that make the tables of the number ranges, in the order to run them.
std::vector<std::string> rangeTableStatements();

/// The statements that make the settings table.
std::vector<std::string> settingsTableStatements();

}  // namespace vexnumkr::host
