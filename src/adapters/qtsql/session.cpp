#include "adapters/qtsql/session.h"

#include <QtSql/QSqlError>

#include "adapters/qtsql/failure.h"
#include "adapters/qtsql/field_value.h"

namespace vexnumkr::qtsql {

Session::Session(const Engine& engine, const ConnectionSettings& settings)
    : engine_(engine), database_(engine, settings), query_(database_.get()) {
  query_.setForwardOnly(true);
  for (const char* const statement : engine_.openingStatements) run(QString::fromLatin1(statement));
}

Session::Session(const Engine& engine, const QSqlDatabase& borrowed)
    : engine_(engine), database_(borrowed), query_(database_.get()) {
  query_.setForwardOnly(true);
}

Session::~Session() {
  if (inTransaction_ && !rolledBackBy_ && database_.isOpen())
    query_.exec(QString::fromLatin1(engine_.rollback));
}

Session::Outcome Session::execute(std::string_view text) {
  const Statement statement = gate_.pass(text);
  RowSet rows = run(toQString(statement.text));
  const std::size_t found = rows.rowCount();
  const bool counts = rows.columnCount() == 0 && statement.changesRows();
  return {std::move(rows), counts ? query_.numRowsAffected() : static_cast<std::int32_t>(found)};
}

Statement Session::passSelect(std::string_view text) {
  const Statement statement = gate_.pass(text);
  if (!statement.isSelect())
    throw failure(failure_number::invalidArgument, "Nur eine Abfrage kann geöffnet werden.");
  return statement;
}

RowSet Session::run(const QString& text) {
  requireUsable();
  if (!query_.exec(text)) fail(query_.lastError());
  if (!query_.isSelect()) return RowSet();
  RowSet rows(query_);
  if (query_.lastError().isValid()) fail(query_.lastError());
  return rows;
}

std::int32_t Session::change(const QString& text, const QVariantList& values) {
  requireUsable();
  QSqlQuery query(database_.get());
  if (!query.prepare(text)) fail(query.lastError());
  for (const QVariant& value : values) query.addBindValue(value);
  if (!query.exec()) fail(query.lastError());
  return query.numRowsAffected();
}

void Session::begin() {
  run(QString::fromLatin1(engine_.begin));
  inTransaction_ = true;
}

void Session::commit() {
  run(QString::fromLatin1(engine_.commit));
  inTransaction_ = false;
}

void Session::rollback() {
  requireOpen();
  inTransaction_ = false;
  if (rolledBackBy_)
    rolledBackBy_.reset();
  else
    run(QString::fromLatin1(engine_.rollback));
}

void Session::requireOpen() const {
  if (!database_.isOpen()) throw connectionClosed();
}

void Session::requireUsable() const {
  requireOpen();
  if (rolledBackBy_) throw *rolledBackBy_;
}

void Session::fail(const QSqlError& error) {
  const Error raised = engineFailure(error);
  if (inTransaction_ && engine_.failureMayRollBack && !transactionStillRuns())
    rolledBackBy_ = raised;
  throw raised;
}

// A second transaction can begin only where the first is gone.
bool Session::transactionStillRuns() {
  QSqlQuery probe(database_.get());
  if (!probe.exec(QString::fromLatin1(engine_.begin))) return true;
  probe.exec(QString::fromLatin1(engine_.rollback));
  return false;
}

}  // namespace vexnumkr::qtsql
