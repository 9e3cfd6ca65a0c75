// The component's own use of the host's connection.
#pragma once

#include <memory>

#include <vexnumkr/database.h>

namespace vexnumkr {

/// A connection that can be shut. What the host makes and hands back must be there: error 91 where
/// it is null.
class GuardedConnection : public Connection {
 public:
  /// Takes back the transaction that was begun on this and has not ended, ignoring its failure; not
  /// before the member of the host's that is running has returned. From now on whatever would reach
  /// the host's objects raises error 91, but for closing them.
  virtual void shut() noexcept = 0;
};

/// `connection` for the component: it, and everything made by it, executes none but the component's
/// own statements (see StatementShapes). Any other text is refused with an error before it reaches
/// the engine. The host's own use of its connection goes past this. Null for null.
std::unique_ptr<GuardedConnection> guardedConnection(std::shared_ptr<Connection> connection);

}  // namespace vexnumkr
