// The tables of the stand-alone host, as statements for a database engine.
//
// The definitions are in a folder per engine beside this file, for administrators to read and run;
// what an engine needs besides belongs there and nowhere else.
#pragma once

#include <string>
#include <vector>

namespace vexnumkr {
class Connection;
}

namespace vexnumkr::app {

enum class SchemaEngine { sqlite, postgresql, mariadb };

/// The engine that an open connection reaches, by whatever driver.
SchemaEngine schemaEngineOf(Connection& connection);

/// The statements that make the tables of the number ranges, in the order to run them.
std::vector<std::string> rangeTableStatements(SchemaEngine engine = SchemaEngine::sqlite);

/// The statements that make the settings table.
std::vector<std::string> settingsTableStatements(SchemaEngine engine = SchemaEngine::sqlite);

}  // namespace vexnumkr::app
