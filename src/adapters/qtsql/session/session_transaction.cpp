// The transactions of a session, and what becomes of them when something fails.
#include <QSqlError>

#include "adapters/qtsql/opening/failure.h"
#include "adapters/qtsql/session/session.h"
#include "engines/transactional_tables.h"

namespace vexnumkr::qtsql {

void SqlSession::begin(std::int32_t isolation) {
  if (endedBy_) throw *endedBy_;
  if (beginsLater_ || (inTransaction_ && !engine_->guardsTransactions)) throw transactionRuns();
  isolation_ = isolation;
  onlyReads_ = false;
  anew([&] {
    requireReady();
    requireSameFile();
    requireNone();
    learnRules();
    // What reads one moment has to be there before the first select.
    if (isolation_ == ado::repeatableRead) beginNow(engine_->beginReading);
  });
  beginsLater_ = isolation_ != ado::repeatableRead;
}

// Whoever knows that it is lost has just tried to open it again.
bool SqlSession::mayBeLostUnnoticed() const {
  return database_.isOwned() && database_.isOpen() && !inTransaction_ && !isLost_;
}

// An engine that refuses a second transaction is asked for one, which locks nothing by itself.
void SqlSession::requireNone() {
  if (!engine_->guardsTransactions) return requireNoOtherTransaction();
  run(QString::fromLatin1(engine_->begin.front()));
  run(QString::fromLatin1(engine_->rollback));
}

// Beginning a transaction would silently commit, or join, one that the host has begun.
void SqlSession::requireNoOtherTransaction() {
  if (database_.isOwned() || engine_->guardsTransactions) return;
  if (engineInTransaction()) throw transactionRuns();
}

bool SqlSession::engineInTransaction() {
  if (engine_->transactionProbe != nullptr) return succeeds(engine_->transactionProbe);
  const bool runs = query_->exec(QString::fromLatin1(engine_->transactionQuery)) &&
                    query_->next() && query_->value(0).toInt() != 0;
  failure_ = query_->lastError();
  query_->finish();
  return runs;
}

Statements SqlSession::beginStatements() const {
  if (isolation_ != ado::isolated) return engine_->begin;
  return locksLater_ ? engine_->beginBeforeLocking : engine_->beginIsolated;
}

// The rules come first: on MariaDB the isolation is for whatever is sent next. Nobody else changes
// those of an own connection.
void SqlSession::beginNow(Statements statements) {
  if (!database_.isOwned()) learnRules();
  for (const char* const statement : statements) {
    run(QString::fromLatin1(statement));
    runRest();
  }
  inTransaction_ = true;
  beginsLater_ = false;
}

void SqlSession::beginBeforeChanging() {
  if (beginsLater_) beginNow(beginStatements());
}

// What a save writes into a file that has lost its name nobody will ever see.
void SqlSession::requireSameFile() {
  if (!sqlite_ || !sqlite_->hasMoved()) return;
  const Error moved(
      failure_number::fileMoved, std::string(engine_->title),
      "Die Datenbankdatei wurde inzwischen gelöscht, umbenannt oder ersetzt. Es wird "
      "nichts gespeichert. Bitte schließen Sie die Anwendung und öffnen Sie sie neu.");
  if (inTransaction_) endedBy_ = moved;
  throw moved;
}

// On a connection that others use as well, one that the engine knows of would be theirs.
void SqlSession::requireOneOfItsOwn() const {
  if (inTransaction_ || (engine_->guardsTransactions && database_.isOwned())) return;
  throw transactionMissing();
}

// What has been sent since the transaction ended is committed already, and the rest is not to be.
void SqlSession::requireItsTransaction() {
  if (engineInTransaction()) return;
  if (failure_.isValid()) fail(failure_, failure_.nativeErrorCode());
  endedBy_ = transactionMissing();
  throw *endedBy_;
}

void SqlSession::commit() {
  if (endedBy_) throw *endedBy_;
  if (!beginsLater_) requireOneOfItsOwn();
  requireReady();
  if (beginsLater_) {
    beginsLater_ = false;
    return;
  }
  onlyReads_ = false;
  if (engine_->recovery == Recovery::askEngine) requireItsTransaction();
  requireSameFile();
  run(QString::fromLatin1(engine_->commit));
  runRest();
  inTransaction_ = false;
}

void SqlSession::requireTransactions(const std::vector<std::string>& tables) {
  locksLater_ = true;
  const std::string select = selectWithoutTransactions(*engine_, tables);
  if (select.empty()) return;
  requireReady();
  const RowSet found = anew([&] { return read(QString::fromStdString(select)); });
  if (found.rowCount() == 0) return;
  const auto text = [&](std::size_t column) {
    return found.at(0, column).toString().toStdString();
  };
  throw knowsNoTransactions({text(0), text(1), text(2)}, adapterName);
}

void SqlSession::lockTable(const std::string& table) {
  if (endedBy_) throw *endedBy_;
  if (!inTransaction_ && !beginsLater_) throw transactionMissing();
  onlyReads_ = false;
  requireReady();
  requireSameFile();
  if (beginsLater_) beginNow(engine_->beginForWriting);
  if (engine_->lockTable == nullptr) return;
  std::string text = engine_->lockTable(table);
  // Going back to a savepoint before it would give up the lock.
  if (engine_->recovery == Recovery::savepoint) text.append("; ").append(engine_->afterChange);
  runAll(text);
}

void SqlSession::rollback() {
  if (!database_.isOwned() && !database_.isOpen()) throw connectionClosed();
  if (beginsLater_) {
    beginsLater_ = false;
    return;
  }
  requireOneOfItsOwn();
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
  if (!isLost_ || !wasInTransaction) throw engineFailure(error, *engine_, error.nativeErrorCode());
}

// The roll-back has worked whatever becomes of this; the next statement tries again.
void SqlSession::relearnRules() {
  try {
    learnRules();
    // Where it was set in the transaction, it went with it.
    if (limit_ != 0 && database_.isOwned()) runAll(engine_->limit(limit_));
  } catch (const Error&) {
  }
}

void SqlSession::fail(const QSqlQuery& failed) {
  const QSqlError error = failed.lastError();
  fail(error, engineCode(failed, driver_, *engine_));
}

// Going back to the savepoint comes first in any case: an aborted transaction answers nothing.
void SqlSession::fail(const QSqlError& error, const QString& engineCode) {
  const bool isUnreadable = onlyReads_ && engine_->isUnreadable(engineCode.toStdString());
  const Error raised = isUnreadable ? unreadableText() : engineFailure(error, *engine_, engineCode);
  isLost_ = isLost(error) || (database_.isOwned() && !database_.isOpen());
  failure_ = QSqlError();
  if (inTransaction_ && !endedBy_ &&
      (isLost_ || !recovers() ||
       (!isUnreadable && engine_->endsTransaction(engineCode.toStdString()))))
    endedBy_ = whatHasEnded(raised);
  if (!inTransaction_ || endedBy_) isLost_ = isGone(error);
  throw raised;
}

// On a cluster a commit elsewhere may have ended the transaction while a statement failed for a
// reason of its own: the engine says so when it is asked.
Error SqlSession::whatHasEnded(const Error& raised) const {
  if (engine_->recovery != Recovery::askEngine || !failure_.isValid()) return raised;
  return engineFailure(failure_, *engine_, failure_.nativeErrorCode());
}

// REQUIRES: no transaction that would notice being asked.
bool SqlSession::isGone(const QSqlError& error) {
  return isLost(error) || (database_.isOwned() && !database_.isOpen()) ||
         (driver_.isOdbc() && !succeeds("SELECT 1"));
}

bool SqlSession::recovers() {
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
