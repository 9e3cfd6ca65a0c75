#include "adapters/qtsql/database_handle.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QUuid>
#include <QtSql/QSqlError>

#include "adapters/qtsql/failure.h"

namespace vexnumkr::qtsql {
namespace {

// Asked for here because Qt itself only prints a warning.
QString availableDriver(const Engine& engine) {
  if (QCoreApplication::instance() == nullptr)
    throw failure(failure_number::invalidConnection,
                  "Für eine Datenbankverbindung fehlt das Qt-Anwendungsobjekt.");
  const QString driver =
      QString::fromLatin1(engine.driver.data(), static_cast<qsizetype>(engine.driver.size()));
  if (!QSqlDatabase::isDriverAvailable(driver))
    throw failure(
        failure_number::invalidConnection,
        "Der Qt-Datenbanktreiber " + std::string(engine.driver) + " ist nicht installiert.");
  return driver;
}

QSqlDatabase newEntry(const Engine& engine) {
  const QString driver = availableDriver(engine);
  return QSqlDatabase::addDatabase(driver, QUuid::createUuid().toString());
}

}  // namespace

// Delegates, so that a failure to open removes the new entry again.
DatabaseHandle::DatabaseHandle(const Engine& engine, const ConnectionSettings& settings)
    : DatabaseHandle(newEntry(engine), true) {
  database_.setConnectOptions(QString::fromLatin1(engine.connectOptions));
  database_.setDatabaseName(engine.databaseName(settings.database));
  database_.setHostName(QString::fromStdString(settings.server));
  if (settings.port != 0) database_.setPort(settings.port);
  database_.setUserName(QString::fromStdString(settings.user));
  database_.setPassword(QString::fromStdString(settings.password));
  if (!database_.open()) throw engineFailure(database_.lastError());
}

DatabaseHandle::~DatabaseHandle() {
  if (!owned_) return;
  const QString name = database_.connectionName();
  database_.close();
  database_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(name);
}

}  // namespace vexnumkr::qtsql
