// What tells PostgreSQL's records apart.
#pragma once

#include "engines/engine.h"

namespace vexnumkr::engines {

/// As Engine::keys.
TableKeys postgresqlKeys(const Catalogue& ask, std::string_view table);

}  // namespace vexnumkr::engines
