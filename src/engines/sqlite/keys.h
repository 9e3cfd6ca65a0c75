// What tells SQLite's records apart.
#pragma once

#include "engines/engine.h"

namespace vexnumkr::engines {

/// As Engine::keys.
TableKeys sqliteKeys(const Catalogue& ask, std::string_view table);

}  // namespace vexnumkr::engines
