#include "numbers/transaction.h"

#include <vexnumkr/number_company.h>

#include "engines/engines.h"

namespace vexnumkr::numbers {
namespace {

// Another isolation as long as this lives.
class Isolation {
 public:
  Isolation(Connection& connection, std::int32_t level)
      : connection_(connection), before_(connection.IsolationLevel()) {
    if (before_ != level) connection_.IsolationLevel(level);
  }
  ~Isolation() {
    try {
      if (connection_.IsolationLevel() != before_) connection_.IsolationLevel(before_);
    } catch (const Error&) {  // then it is as the engine has it
    }
  }
  Isolation(const Isolation&) = delete;
  Isolation& operator=(const Isolation&) = delete;

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

// Whether a transaction that reads one moment has begun. What keeps it from that on a connection of
// the host's own is no reason to read nothing.
bool beginsReading(Connection& connection) {
  try {
    const Isolation isolation(connection, ado::repeatableRead);
    connection.BeginTrans();
    return true;
  } catch (const Error& error) {
    if (error.number() != error_number::notAvailable) throw;
    return false;
  }
}

}  // namespace

void readAtOneMoment(Connection& connection, const std::function<void()>& work) {
  if (!beginsReading(connection)) return work();
  try {
    work();
  } catch (...) {
    rollBackQuietly(connection);
    throw;
  }
  connection.RollbackTrans();
}

void inTransaction(Connection& connection, Ending ending, const std::function<void()>& work) {
  const Isolation isolation(connection, ado::unspecified);
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
