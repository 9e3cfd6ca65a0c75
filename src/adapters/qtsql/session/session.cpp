#include "adapters/qtsql/session/session.h"

#include <algorithm>
#include <string>

#include "adapters/qtsql/clients/mariadb_client.h"
#include "adapters/qtsql/opening/failure.h"
#include "adapters/qtsql/rows/eight_bit_text.h"
#include "adapters/qtsql/rows/field_value.h"

namespace vexnumkr::qtsql {
namespace {

// What goes along with a text must not end up inside a literal of it.
bool takesAppendix(const Statement& statement) { return statement.tokens.back().isClosed; }

// One that tells of a table waits for locks like a select.
bool isSetting(const QString& text) {
  return text.startsWith(QLatin1String("PRAGMA"), Qt::CaseInsensitive) &&
         !text.contains(QLatin1String("table_info("), Qt::CaseInsensitive);
}

void requireSendable(const Statement& statement, const Engine& engine) {
  if (engine.unsendable == nullptr) return;
  if (const std::string_view reason = engine.unsendable(statement); !reason.empty())
    throw failure(error_number::invalidArgument, std::string(reason));
}

}  // namespace

SqlSession::SqlSession(const Driver& driver, const ConnectionSettings& settings,
                       std::int32_t isolation, std::int32_t seconds,
                       std::shared_ptr<Servers> servers)
    : thread_(QThread::currentThreadId()),
      driver_(driver),
      settings_(settings),
      servers_(servers ? std::move(servers) : std::make_shared<Servers>(serverAddresses(settings))),
      database_(driver),
      sessionIsolation_(isolation),
      limit_(seconds) {
  connect();
}

SqlSession::SqlSession(const Driver& driver, const QSqlDatabase& borrowed)
    : thread_(QThread::currentThreadId()),
      driver_(driver),
      database_(borrowed),
      engine_(&engineBehind(borrowed, driver)) {
  prepare();
}

SqlSession::~SqlSession() {
  if (inTransaction_ && !isLost_ && database_.isOpen()) succeeds(engine_->rollback);
}

void SqlSession::renewQuery() {
  query_.emplace(database_.get());
  query_->setForwardOnly(driver_.own == nullptr || !driver_.own->isQuickerWhole);
}

// What is not read forward only stays with the query until the next statement.
void SqlSession::letGo(std::size_t rows) {
  constexpr std::size_t many = 1000;  // Less is not worth a new one.
  if (rows > many && !query_->isForwardOnly()) renewQuery();
}

// Nothing of a borrowed connection is changed.
void SqlSession::prepare() {
  renewQuery();
  usualWait_.reset();
  if (engine_->name == "sqlite" && !driver_.isOdbc()) sqlite_ = SqliteClient::of(database_.get());
  learnRules(database_.isOwned() ? prepareOwned() : std::string());
}

// Over a network a text is a round trip, so for the drivers of servers this is what the next one
// begins with.
std::string SqlSession::prepareOwned() {
  std::vector<std::string> statements(engine_->openingStatements.begin(),
                                      engine_->openingStatements.end());
  if (sessionIsolation_ == ado::isolated && engine_->isolateSession != nullptr)
    statements.emplace_back(engine_->isolateSession);
  if (limit_ != 0) statements.push_back(engine_->limit(limit_));
  const bool takesAll = !driver_.isOdbc() && !engine_->opensFiles;
  std::string text;
  for (const std::string& statement : statements) {
    if (takesAll)
      text += statement + "; ";
    else
      runAll(statement);
  }
  return text;
}

void SqlSession::requireOwnThread() const {
  if (QThread::currentThreadId() != thread_)
    throw failure(error_number::invalidCall,
                  "Die Datenbankverbindung gehört zu einem anderen Thread.");
}

void SqlSession::requireFree() const {
  requireOwnThread();
  if (isWaiting_)
    throw failure(error_number::invalidCall,
                  "Die Datenbankverbindung wartet gerade auf eine Sperre.");
}

void SqlSession::limit(std::int32_t seconds) {
  if (seconds == limit_) return;
  limit_ = seconds;
  if (!database_.isOwned() || !database_.isOpen() || isLost_ || endedBy_) return;
  runAll(engine_->limit(seconds));
}

// Until they are known, nothing is sent.
void SqlSession::learnRules(const std::string& before) {
  knowsRules_ = false;
  std::string mode;
  if (engine_->lexicalMode != nullptr)
    mode = runAll(before + engine_->lexicalMode).at(0, 0).toString().toStdString();
  rules_ = engine_->rules(mode);
  if (engine_->lackingEncoding != nullptr) lackingEncoding_ = engine_->lackingEncoding(mode);
  knowsRules_ = true;
}

SqlSession::Outcome SqlSession::execute(std::string_view text) {
  requireReady();
  Statement statement = gate_.pass(text, rules_);
  requireSendable(statement, *engine_);
  onlyReads_ = statement.onlyReads();
  if (!onlyReads_ && beginsLater_) {
    beginBeforeChanging();
    statement = gate_.pass(text, rules_);  // The rules may be others by now.
  }
  const bool movesOn =
      inTransaction_ && engine_->recovery == Recovery::savepoint && !statement.onlyReads();
  const bool together = movesOn && takesAppendix(statement);
  QString sql = textOf(statement);
  // In a line of its own, which the engine's messages about the statement leave out.
  if (together) sql += QLatin1String("\n; ") + QLatin1String(engine_->afterChange);
  RowSet rows = run(sql);
  const std::size_t found = rows.rowCount();
  const bool counts = rows.columnCount() == 0 && statement.changesRows();
  const auto affected = counts ? rowsAffected(statement) : static_cast<std::int32_t>(found);
  if (movesOn && !together) run(QString::fromLatin1(engine_->afterChange));
  if (movesOn) runRest();
  letGo(found);
  if (statement.startsWith("SET")) learnRules();
  return {std::move(rows), affected};
}

Statement SqlSession::passSelect(std::string_view text) {
  requireReady();
  const Statement statement = gate_.pass(text, rules_);
  if (!statement.isSelect())
    throw failure(error_number::invalidArgument, "Nur eine Abfrage kann geöffnet werden.");
  return statement;
}

RowSet SqlSession::read(const Statement& statement) { return read(textOf(statement)); }

RowSet SqlSession::read(const QString& text) {
  requireReady();
  onlyReads_ = true;
  RowSet rows = run(text);
  letGo(rows.rowCount());
  return rows;
}

// A host may have opened a database of MariaDB so that it counts the rows changed only.
std::int32_t SqlSession::rowsAffected(const Statement& statement) {
  const std::int32_t changed = query_->numRowsAffected();
  if (database_.isOwned() || engine_->name != "mariadb" || !statement.startsWith("UPDATE"))
    return changed;
  constexpr std::int32_t unknown = -1;
  return rowsFoundOnMariadb(database_.get()).value_or(changed == 0 ? unknown : changed);
}

RowSet SqlSession::run(const QString& text) {
  const bool settles = isSetting(text);
  const auto attempt = [&] { return query_->exec(text); };
  if (!(settles ? attempt() : patiently(attempt))) fail(*query_);
  if (settles) usualWait_.reset();
  if (!query_->isSelect()) return RowSet();
  RowSet rows = readRows(text);
  if (query_->lastError().isValid()) fail(*query_);
  return rows;
}

RowSet SqlSession::runAll(const std::string& text) {
  const QString sent = QString::fromStdString(text);
  RowSet rows = run(sent);
  while (query_->nextResult())
    if (query_->isSelect()) rows = readRows(sent);
  if (query_->lastError().isValid()) fail(*query_);
  return rows;
}

// What else a text of the adapter's own consists of.
void SqlSession::runRest() {
  while (query_->nextResult()) {
  }
  if (query_->lastError().isValid()) fail(*query_);
}

bool SqlSession::succeeds(const char* text) {
  bool done = query_->exec(QString::fromLatin1(text));
  while (done && query_->nextResult()) {
  }
  failure_ = query_->lastError();
  query_->finish();
  return done && !failure_.isValid();
}

std::int32_t SqlSession::change(const QString& text, const QVariantList& values) {
  requireReady();
  std::int32_t changed = 0;
  onlyReads_ = false;
  beginBeforeChanging();
  {
    QSqlQuery query(database_.get());
    if (!patiently([&] { return query.prepare(text); })) fail(query);
    for (const QVariant& value : values) query.addBindValue(value);
    if (!patiently([&] { return query.exec(); })) fail(query);
    changed = query.numRowsAffected();
  }
  if (inTransaction_ && engine_->recovery == Recovery::savepoint) {
    run(QString::fromLatin1(engine_->afterChange));
    runRest();
  }
  return changed;
}

std::int32_t SqlSession::count(const QString& text, const QVariantList& values) {
  requireReady();
  QSqlQuery query(database_.get());
  query.setForwardOnly(true);
  if (!patiently([&] { return query.prepare(text); })) fail(query);
  for (const QVariant& value : values) query.addBindValue(value);
  if (!patiently([&] { return query.exec(); }) || !query.next()) fail(query);
  return query.value(0).toInt();
}

std::int32_t SqlSession::textLimit(const std::string& table, const std::string& column) {
  const RowSet found = read(QString::fromStdString(engine_->textLimit(table, column)));
  return found.rowCount() == 0 ? 0 : std::max(found.at(0, 0).toInt(), 0);
}

bool SqlSession::takesEightBits() const {
  return driver_.isOdbc() && engine_->odbc->hasEightBitText;
}

QString SqlSession::textOf(const Statement& statement) const {
  return takesEightBits() ? toQString(inAscii(statement)) : toQString(statement.text);
}

void SqlSession::requireReady() {
  if (endedBy_) throw *endedBy_;
  if (!database_.isOpen()) {
    if (!database_.isOwned()) throw connectionClosed();
    isLost_ = true;
  }
  if (isLost_ || isLeftBehind()) reconnect();
  if (!knowsRules_) learnRules();
}

}  // namespace vexnumkr::qtsql
