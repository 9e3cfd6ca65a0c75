// The component's own use of the host's connection.
#pragma once

#include <memory>

#include <vexnumkr/database.h>

namespace vexnumkr {

/// `connection` for the component: it, and everything made by it, executes none but the component's
/// own statements (see StatementShapes). Any other text is refused with an error before it reaches
/// the engine. The host's own use of its connection goes past this. Null for null.
std::unique_ptr<Connection> guardedConnection(std::shared_ptr<Connection> connection);

}  // namespace vexnumkr
