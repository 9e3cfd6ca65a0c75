// What tells the records of a table apart.
#pragma once

#include <string_view>

#include "engines/engine.h"

namespace vexnumkr::qtsql {

class SqlSession;

/// Asks the session.
Catalogue catalogueOf(SqlSession& session);

/// Asks the session's engine about `table`, as Engine::keys. Errors: the engine's.
TableKeys keysOf(SqlSession& session, std::string_view table);

}  // namespace vexnumkr::qtsql
