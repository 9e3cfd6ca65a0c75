#include "adapters/qtsql/session/connection.h"

#include <vexnumkr/adapters.h>
#include <vexnumkr/connection_string.h>

#include "adapters/qtsql/opening/driver.h"
#include "adapters/qtsql/opening/driver_options.h"
#include "adapters/qtsql/opening/failure.h"
#include "adapters/qtsql/session/command.h"
#include "adapters/qtsql/session/recordset.h"

namespace vexnumkr {
namespace qtsql {
namespace {

// All engines have this one.
void requireIsolation(std::int32_t level) {
  if (level == ado::unspecified || level == ado::repeatableRead || level == ado::isolated) return;
  throw failure(error_number::notAvailable,
                "Die Isolationsstufe " + std::to_string(level) + " gibt es nicht.");
}

Driver driverOfBorrowed(const QSqlDatabase& database) {
  if (!database.isOpen())
    throw failure(error_number::invalidConnection, "Die übergebene Datenbank ist nicht geöffnet.");
  requireSteadyConnection(database);
  return driverOf(database.driverName().toStdString());
}

std::string connectionStringOf(const QSqlDatabase& database, const Driver& driver) {
  ConnectionSettings settings;
  settings.driver = database.driverName().toStdString();
  settings.database = database.databaseName().toStdString();
  settings.server = database.hostName().toStdString();
  settings.port = static_cast<std::uint16_t>(std::max(database.port(), 0));
  settings.user = database.userName().toStdString();
  settings.password = database.password().toStdString();
  // How the host opens a file and waits for its locks is no matter of reaching it.
  if (driver.name != "QSQLITE")
    settings.options = withKnownOptions(database.connectOptions().toStdString(), driver);
  return composeConnectionString(settings);
}

}  // namespace

std::shared_ptr<SqlSession> SessionSlot::require() const {
  if (!session) throw connectionClosed();
  session->requireFree();
  return session;
}

std::unique_ptr<Recordset> SessionSlot::execute(const std::string& text,
                                                std::int32_t& recordsAffected) const {
  SqlSession::Outcome outcome = require()->execute(text);
  recordsAffected = outcome.recordsAffected;
  return std::make_unique<SqlRecordset>(std::move(outcome.rows));
}

SqlConnection::SqlConnection(const QSqlDatabase& borrowed) {
  const Driver driver = driverOfBorrowed(borrowed);
  connectionString_ = connectionStringOf(borrowed, driver);
  slot_->session = std::make_shared<SqlSession>(driver, borrowed);
}

SqlConnection::~SqlConnection() {
  if (slot_->session) slot_->session->giveUpWaiting();
}

void SqlConnection::ConnectionString(const std::string& text) {
  if (slot_->session) throw connectionOpen();
  connectionString_ = text;
}

void SqlConnection::IsolationLevel(std::int32_t level) {
  if (slot_->session) requireIsolation(level);
  isolationLevel_ = level;
}

void SqlConnection::CommandTimeout(std::int32_t seconds) {
  requireTimeout(seconds);
  if (slot_->session) slot_->require()->limit(seconds);
  commandTimeout_ = seconds;
}

void SqlConnection::ConnectionTimeout(std::int32_t seconds) { requireTimeout(seconds); }

void SqlConnection::Open(const std::string& user, const std::string& password,
                         std::int32_t /*options*/) {
  if (slot_->session) throw connectionOpen();
  ConnectionSettings settings = parseConnectionString(connectionString_);
  if (!user.empty()) settings.user = user;
  if (!password.empty()) settings.password = password;
  const Driver driver = driverOf(settings.driver);
  requireIsolation(isolationLevel_);
  const auto session = std::make_shared<SqlSession>(driver, settings, isolationLevel_,
                                                    commandTimeout_, serversOf(settings));
  session->onLockWait(told_);
  slot_->session = session;
}

std::shared_ptr<Servers> SqlConnection::serversOf(const ConnectionSettings& settings) {
  std::vector<ServerAddress> addresses = serverAddresses(settings);
  if (!servers_ || servers_->addresses() != addresses)
    servers_ = std::make_shared<Servers>(std::move(addresses));
  return servers_;
}

void SqlConnection::Close() {
  if (!slot_->session) throw connectionClosed();
  slot_->session->requireOwnThread();
  slot_->session->giveUpWaiting();
  slot_->session.reset();
}

std::unique_ptr<Recordset> SqlConnection::Execute(const std::string& text,
                                                  std::int32_t& recordsAffected) {
  return slot_->execute(text, recordsAffected);
}

bool SqlConnection::BackslashEscapes() const {
  return slot_->session && slot_->session->rules().backslashEscapes;
}

void SqlConnection::RequireTransactions(const std::vector<std::string>& tables) {
  slot_->require()->requireTransactions(tables);
}

void SqlConnection::LockTable(const std::string& table) { slot_->require()->lockTable(table); }

void SqlConnection::OnLockWait(LockWait* told) {
  told_ = told;
  if (slot_->session) slot_->session->onLockWait(told);
}

std::int32_t SqlConnection::TextLimit(const std::string& table, const std::string& column) {
  return slot_->require()->textLimit(table, column);
}

void SqlConnection::BeginTrans() { slot_->require()->begin(isolationLevel_); }

void SqlConnection::CommitTrans() { slot_->require()->commit(); }

void SqlConnection::RollbackTrans() { slot_->require()->rollback(); }

std::unique_ptr<Connection> SqlConnection::createConnection() {
  auto made = std::make_unique<SqlConnection>();
  made->servers_ = servers_;
  return made;
}

std::unique_ptr<Command> SqlConnection::createCommand() { return std::make_unique<SqlCommand>(); }

std::unique_ptr<Recordset> SqlConnection::createRecordset() {
  return std::make_unique<SqlRecordset>();
}

std::shared_ptr<SessionSlot> SqlConnection::slotOf(Connection& connection) {
  auto* const own = dynamic_cast<SqlConnection*>(&connection);
  if (own == nullptr)
    throw failure(error_number::invalidConnection,
                  "Die Datenbankverbindung gehört nicht zu diesem Datenbankadapter.");
  return own->slot_;
}

std::shared_ptr<SqlSession> SqlConnection::sessionOf(Connection& connection) {
  return slotOf(connection)->require();
}

void requireTimeout(std::int32_t seconds) {
  if (seconds < 0)
    throw failure(error_number::invalidArgument, "Eine Wartezeit kann nicht negativ sein.");
}

}  // namespace qtsql

std::unique_ptr<Connection> createQtSqlConnection() {
  return std::make_unique<qtsql::SqlConnection>();
}

std::shared_ptr<Connection> openQtSqlConnection(const std::string& connectionString) {
  std::shared_ptr<Connection> connection = createQtSqlConnection();
  connection->ConnectionString(connectionString);
  connection->Open({}, {}, ado::unspecified);
  return connection;
}

std::shared_ptr<Connection> borrowQtSqlConnection(const QSqlDatabase& database) {
  return std::make_shared<qtsql::SqlConnection>(database);
}

}  // namespace vexnumkr
