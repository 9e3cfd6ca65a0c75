#include "numbers/transaction.h"

#include "engines/engines.h"

namespace vexnumkr::numbers {
namespace {

class EngineIsolation {
 public:
  explicit EngineIsolation(Connection& connection)
      : connection_(connection), before_(connection.IsolationLevel()) {
    if (before_ != ado::unspecified) connection_.IsolationLevel(ado::unspecified);
  }
  ~EngineIsolation() {
    try {
      if (before_ != ado::unspecified) connection_.IsolationLevel(before_);
    } catch (const Error&) {  // then it is as the engine has it
    }
  }
  EngineIsolation(const EngineIsolation&) = delete;
  EngineIsolation& operator=(const EngineIsolation&) = delete;

 private:
  Connection& connection_;
  std::int32_t before_;
};

// What has failed before is of more interest than this.
void rollBackQuietly(Connection& connection) {
  try {
    connection.RollbackTrans();
  } catch (const Error&) {
  }
}

}  // namespace

void inTransaction(Connection& connection, Ending ending, const std::function<void()>& work) {
  const EngineIsolation isolation(connection);
  connection.BeginTrans();
  try {
    work();
    if (ending == Ending::commit) connection.CommitTrans();
  } catch (...) {
    rollBackQuietly(connection);
    throw;
  }
  if (ending == Ending::rollBack) connection.RollbackTrans();
}

void whileLocked(const std::function<void()>& attempt) {
  constexpr int attempts = 10;
  for (int left = attempts - 1; left > 0; --left) {
    try {
      return attempt();
    } catch (const Error& error) {
      if (!meansLocked(error)) throw;
    }
  }
  attempt();
}

}  // namespace vexnumkr::numbers
