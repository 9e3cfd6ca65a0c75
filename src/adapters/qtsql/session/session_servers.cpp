// How a session finds the server that it works on.
#include "adapters/qtsql/opening/failure.h"
#include "adapters/qtsql/session/key_columns.h"
#include "adapters/qtsql/session/session.h"

namespace vexnumkr::qtsql {

// A single server is taken as it is, so that who only reads may name a standby.
void SqlSession::connect() {
  if (!servers_->areSeveral()) return openAt(0);
  std::string reasons;
  const std::size_t used = servers_->inUse();
  for (const std::size_t server : servers_->inOrder()) {
    try {
      openAt(server);
      server_ = server;
      servers_->use(server);
      return requireWritable();
    } catch (const Error& error) {
      servers_->use(used);  // Others may be well there.
      reasons += "\r\n" + servers_->name(server) + ": " + error.description();
    }
  }
  isLost_ = true;
  query_.reset();
  database_.close();
  throw failure(error_number::invalidConnection,
                "Keiner der Datenbankserver nimmt zurzeit Änderungen an. Bitte versuchen Sie es in "
                "einer Minute noch einmal; bleibt es dabei, verständigen Sie die "
                "Datenbankadministration." +
                    reasons);
}

ConnectionSettings SqlSession::settingsOf(std::size_t server) const {
  ConnectionSettings one = settings_;
  one.server = servers_->addresses()[server].server;
  one.port = servers_->addresses()[server].port;
  // What is said twice, the last one holds.
  if (servers_->areSeveral() && !driver_.isOdbc())
    one.options = std::string(driver_.own->patience) + ';' + settings_.options;
  return one;
}

void SqlSession::openAt(std::size_t server) {
  query_.reset();
  sqlite_.reset();
  isLost_ = true;
  database_.open(settingsOf(server));
  // What is behind an ODBC source, its address does not tell.
  if (driver_.isOdbc() || servers_->engineAt(server) != driver_.engine)
    servers_->engineAt(server, engineBehind(database_.get(), driver_));
  engine_ = servers_->engineAt(server);
  try {
    prepare();
  } catch (const Error&) {
    isLost_ = true;  // It lacks what it was to be told first.
    throw;
  }
  isLost_ = false;
}

void SqlSession::requireWritable() {
  if (engine_->unwritable == nullptr) return;
  const std::string reason = engine_->unwritable(catalogueOf(*this));
  if (!reason.empty()) throw failure(error_number::invalidConnection, reason);
}

// A borrowed connection is the host's to open again.
void SqlSession::reconnect() {
  if (database_.isOwned()) return connect();
  isLost_ = false;
  prepare();
}

// Never in the middle of a transaction.
bool SqlSession::isLeftBehind() const {
  return database_.isOwned() && !inTransaction_ && servers_->areSeveral() &&
         server_ != servers_->inUse();
}

// As far as the failure tells; ODBC drivers have codes of their own.
bool SqlSession::isLost(const QSqlError& error) const {
  if (driver_.isOdbc()) return false;
  const std::string code = error.nativeErrorCode().toStdString();
  const bool othersMayTake =
      database_.isOwned() && servers_->areSeveral() && engine_->unwritable != nullptr;
  return engine_->isLost(code) || (othersMayTake && engine_->isUnwritable(code));
}

}  // namespace vexnumkr::qtsql
