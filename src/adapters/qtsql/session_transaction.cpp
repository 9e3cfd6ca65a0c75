// The transactions of a session, and what becomes of them when something fails.
#include <QSqlError>

#include "adapters/qtsql/failure.h"
#include "adapters/qtsql/session.h"

namespace vexnumkr::qtsql {

void Session::begin(std::int32_t isolation) {
  if (endedBy_) throw *endedBy_;
  if ((inTransaction_ || beginsLater_) && !engine_->guardsTransactions) throw transactionRuns();
  isolation_ = isolation;
  const bool mayHaveBeenLostBefore = database_.isOwned() && !inTransaction_;
  try {
    requireReady();
    requireNoOtherTransaction();
    beginNow();
  } catch (const Error&) {
    if (!isLost_ || !mayHaveBeenLostBefore) throw;
    beginsLater_ = true;  // If the server is still away now.
    requireReady();
  }
}

// Beginning a transaction would silently commit, or join, one that the host has begun.
void Session::requireNoOtherTransaction() {
  if (database_.isOwned() || engine_->guardsTransactions) return;
  if (engineInTransaction()) throw transactionRuns();
}

bool Session::engineInTransaction() {
  if (engine_->transactionProbe != nullptr) return succeeds(engine_->transactionProbe);
  const bool runs = query_->exec(QString::fromLatin1(engine_->transactionQuery)) &&
                    query_->next() && query_->value(0).toInt() != 0;
  failure_ = query_->lastError();
  query_->finish();
  return runs;
}

Session::Statements Session::beginStatements() const {
  return isolation_ == ado::isolated ? engine_->beginIsolated : engine_->begin;
}

// The rules come first: on MariaDB the isolation is for whatever is sent next.
void Session::beginNow() {
  learnRules();
  for (const char* const statement : beginStatements()) {
    run(QString::fromLatin1(statement));
    runRest();
  }
  inTransaction_ = true;
}

// What has been sent since the transaction ended is committed already, and the rest is not to be.
void Session::requireItsTransaction() {
  if (engineInTransaction()) return;
  if (failure_.isValid()) fail(failure_, failure_.nativeErrorCode());
  endedBy_ = transactionMissing();
  throw *endedBy_;
}

void Session::commit() {
  if (endedBy_) throw *endedBy_;
  if (!inTransaction_ && !engine_->guardsTransactions) throw transactionMissing();
  requireReady();
  if (engine_->recovery == Recovery::askEngine) requireItsTransaction();
  run(QString::fromLatin1(engine_->commit));
  runRest();
  inTransaction_ = false;
}

void Session::rollback() {
  if (!database_.isOwned() && !database_.isOpen()) throw connectionClosed();
  if (beginsLater_) {
    beginsLater_ = false;
    return;
  }
  if (!inTransaction_ && !engine_->guardsTransactions) throw transactionMissing();
  const bool hasEnded = endedBy_.has_value();
  const bool wasInTransaction = inTransaction_;
  endedBy_.reset();
  inTransaction_ = false;
  if (isLost_ || !database_.isOpen()) return;
  const bool isRolledBack = succeeds(engine_->rollback);
  if (isRolledBack) relearnRules();
  if (isRolledBack || hasEnded) return;  // In that case only where something of it was left.
  const QSqlError error = failure_;
  isLost_ = isGone(error);
  if (!isLost_ || !wasInTransaction) throw engineFailure(error);
}

// The roll-back has worked whatever becomes of this; the next statement tries again.
void Session::relearnRules() {
  try {
    learnRules();
  } catch (const Error&) {
  }
}

void Session::fail(const QSqlQuery& failed) {
  const QSqlError error = failed.lastError();
  fail(error, driver_.engineCode(failed, *engine_));
}

// Going back to the savepoint comes first in any case: an aborted transaction answers nothing.
void Session::fail(const QSqlError& error, const QString& engineCode) {
  const Error raised = engineFailure(error);
  isLost_ = driver_.isLost(error) || (database_.isOwned() && !database_.isOpen());
  if (inTransaction_ && !endedBy_ &&
      (isLost_ || !recovers() || engine_->endsTransaction(engineCode)))
    endedBy_ = raised;
  if (!inTransaction_ || endedBy_) isLost_ = isGone(error);
  throw raised;
}

// REQUIRES: no transaction that would notice being asked.
bool Session::isGone(const QSqlError& error) {
  return driver_.isLost(error) || (database_.isOwned() && !database_.isOpen()) ||
         (driver_.mayHideLoss && !succeeds("SELECT 1"));
}

bool Session::recovers() {
  switch (engine_->recovery) {
    case Recovery::secondBegin:
      // A second transaction can begin only where the first is gone.
      if (!succeeds(engine_->begin.front())) return true;
      succeeds(engine_->rollback);
      return false;
    case Recovery::askEngine:
      return engineInTransaction();
    case Recovery::savepoint:
      return succeeds(engine_->undo);
  }
  return false;
}

}  // namespace vexnumkr::qtsql
