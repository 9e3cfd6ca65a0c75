// Transactions of the number library's own.
#pragma once

#include <functional>

#include <vexnumkr/database.h>
#include <vexnumkr/error.h>

namespace vexnumkr::numbers {

/// How a transaction ends when its work has been done.
enum class Ending { commit, rollBack };

/// Runs `work` in a transaction on `connection`, at the engine's own isolation: a conditional
/// change needs no more, and nobody is refused for what others have read. Rolled back when `work`
/// or the commit fails, whose error is passed on. The connection's isolation is as before then.
///
/// REQUIRES: no transaction runs on `connection`.
void inTransaction(Connection& connection, Ending ending, const std::function<void()>& work);

/// Runs `attempt` until it does not fail because of a lock, at most ten times; each waits for the
/// lock as long as the adapter does. Errors: of the last attempt.
void whileLocked(const std::function<void()>& attempt);

}  // namespace vexnumkr::numbers
