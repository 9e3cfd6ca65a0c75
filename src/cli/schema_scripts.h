// Which engine's definitions of the tables are meant.
#pragma once

#include <string>
#include <vector>

#include <vexnumkr/database.h>

#include "app/schema/schema.h"

namespace vexnumkr::cli {

/// Error: UsageError for an engine that there is none of, with those that there are.
const app::SchemaScripts& schemaScripts(const std::string& engine);

/// The names of the engines, ascending.
std::vector<std::string> schemaEngines();

/// Those of the engine that an open connection reaches. Error: 3706 when it is no supported one.
const app::SchemaScripts& schemaScriptsFor(Connection& connection);

}  // namespace vexnumkr::cli
