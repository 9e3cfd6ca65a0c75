#include "support/fresh_database.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <vexnumkr/connection_string.h>

#include "adapters/qtsql/session/database_handle.h"

namespace vexnumkr::test {
namespace {

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

std::string serverFolder(const std::string& engine) {
  std::ifstream file(environment("VEXNUMKR_TEST_SERVERS"));
  std::string folder;
  if (!std::getline(file, folder)) throw std::runtime_error("there are no test servers");
  return folder + (engine == "mariadb" ? "/mariadb" : "/postgresql");
}

std::string makeFile(const QTemporaryDir& folder) {
  const QString path = folder.filePath(QStringLiteral("firma.db"));
  QFile(path).open(QIODevice::WriteOnly);
  return path.toStdString();
}

// Lower case, so that it needs no quotes anywhere.
std::string newName() { return "test_" + QUuid::createUuid().toString(QUuid::Id128).toStdString(); }

}  // namespace

std::string engineUnderTest() {
  const std::string engine = environment("VEXNUMKR_TEST_ENGINE");
  return engine.empty() ? "sqlite" : engine;
}

FreshDatabase::FreshDatabase(const std::string& engine)
    : engine_(engine), name_(isOnServer() ? newName() : makeFile(folder_)) {
  if (isPostgresql()) administer("CREATE DATABASE " + name_);
  if (engine_ == "mariadb")
    administer("CREATE DATABASE " + name_ + " CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin");
  connectionString_ = compose(isPostgresql() ? "vexnumkr" : isOnServer() ? "root" : "", name_);
}

FreshDatabase::~FreshDatabase() {
  try {
    if (isOnServer())
      administer("DROP DATABASE " + name_ + (isPostgresql() ? " WITH (FORCE)" : ""));
  } catch (const std::exception&) {
    // The server is gone, and its files with it.
  }
}

bool FreshDatabase::isOnServer() const { return isPostgresql() || engine_ == "mariadb"; }

std::string FreshDatabase::schema() const { return engine_.substr(engine_.find('-') + 1); }

std::string FreshDatabase::connectionString(const std::string& user,
                                            const std::string& password) const {
  ConnectionSettings settings = parseConnectionString(compose(user, name_));
  settings.password = password;
  return composeConnectionString(settings);
}

std::string FreshDatabase::compose(const std::string& user, const std::string& database) const {
  ConnectionSettings settings;
  settings.user = user;
  settings.database = database;
  if (engine_ == "sqlite") {
    settings.driver = "QSQLITE";
  } else if (engine_ == "postgresql") {
    settings.driver = "QPSQL";
    settings.server = serverFolder(engine_);
  } else if (engine_ == "mariadb") {
    settings.driver = "QMYSQL";
    settings.server = serverFolder(engine_) + "/socket";
  } else if (engine_ == "odbc-postgresql") {
    settings.driver = "QODBC";
    settings.database = "DRIVER={PostgreSQL Unicode};Servername=" + serverFolder(engine_) +
                        ";Port=5432;Database=" + database;
  } else if (engine_ == "odbc-sqlite") {
    settings.driver = "QODBC";
    settings.database = "DRIVER={SQLite3};Database=" + database + ";NoCreat=1";
  } else {
    throw std::runtime_error("no engine is called " + engine_);
  }
  return composeConnectionString(settings);
}

void FreshDatabase::administer(const std::string& statement) const {
  const bool onPostgresql = isPostgresql();
  ConnectionSettings settings;
  settings.driver = onPostgresql ? "QPSQL" : "QMYSQL";
  settings.server = serverFolder(engine_) + (onPostgresql ? "" : "/socket");
  settings.database = onPostgresql ? "postgres" : "mysql";
  settings.user = onPostgresql ? "vexnumkr" : "root";
  const qtsql::DatabaseHandle server(qtsql::driverOf(settings.driver), settings);
  QSqlQuery query(server.get());
  if (!query.exec(QString::fromStdString(statement)))
    throw std::runtime_error(query.lastError().text().toStdString());
}

}  // namespace vexnumkr::test
