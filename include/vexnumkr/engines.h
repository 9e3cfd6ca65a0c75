// The database engines, as hosts may have to tell them apart to make their tables.
//
// Nothing is guessed: what is not known to be one of the supported engines has no name here. Taken
// for another one, its texts would be quoted and its tables locked by rules that are not its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/export.h>

namespace vexnumkr {

class Connection;

/// The names of the supported engines: "postgresql", "mariadb", "sqlite". They are also the names
/// of the folders with their schemas (`share/vexnumkr/schema`), and stay as they are.
VEXNUMKR_API std::vector<std::string> engineNames();

/// The name of the engine that an open connection reaches, by whatever driver. It is asked, outside
/// of what the host does with it: an engine that has transactions stays in the one that runs.
/// Error: 3706 when it is none of the supported ones; nothing is ever taken for another.
VEXNUMKR_API std::string engineOf(Connection& connection);

/// The name of the engine that a native connection string names by its driver, or by ODBC's driver
/// in it; empty where it does not tell, as with an ODBC data source that is only named. Connects to
/// nothing and raises nothing, so it serves where the database is still to be made.
VEXNUMKR_API std::string engineNamedIn(std::string_view connectionString);

}  // namespace vexnumkr
