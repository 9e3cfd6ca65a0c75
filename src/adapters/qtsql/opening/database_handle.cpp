#include "adapters/qtsql/opening/database_handle.h"

#include <QCoreApplication>
#include <QSqlError>
#include <QUuid>

#include "adapters/qtsql/opening/failure.h"

namespace vexnumkr::qtsql {
namespace {

// Asked for here because Qt itself only prints a warning.
QString availableDriver(const Driver& driver) {
  if (QCoreApplication::instance() == nullptr)
    throw failure(error_number::invalidConnection,
                  "Für eine Datenbankverbindung fehlt das Qt-Anwendungsobjekt.");
  const QString name =
      QString::fromLatin1(driver.name.data(), static_cast<qsizetype>(driver.name.size()));
  if (!QSqlDatabase::isDriverAvailable(name))
    throw failure(
        error_number::invalidConnection,
        "Der Qt-Datenbanktreiber " + std::string(driver.name) + " ist nicht installiert.");
  return name;
}

QSqlDatabase newEntry(const Driver& driver) {
  const QString name = availableDriver(driver);
  return QSqlDatabase::addDatabase(name, QUuid::createUuid().toString());
}

}  // namespace

// Delegates, so that a failure to open removes the new entry again.
DatabaseHandle::DatabaseHandle(const Driver& driver, const ConnectionSettings& settings)
    : DatabaseHandle(driver) {
  open(settings);
}

DatabaseHandle::DatabaseHandle(const Driver& driver) : DatabaseHandle(newEntry(driver), true) {
  driver_ = driver;
}

void DatabaseHandle::open(const ConnectionSettings& settings) {
  database_.close();
  configure(database_, driver_, settings);
  requireSteadyConnection(database_);
  if (database_.open()) return;
  const std::string_view title = driver_.isOdbc() ? "ODBC" : driver_.engine->title;
  const Error failed = withoutPasswords(openingFailure(database_.lastError(), title), database_);
  if (driver_.isOdbc() || !driver_.engine->opensFiles) throw failed;
  throw Error(failed.number(), failed.source(), failed.description() + ": " + settings.database);
}

DatabaseHandle::~DatabaseHandle() {
  if (!owned_) return;
  const QString name = database_.connectionName();
  database_.close();
  database_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(name);
}

}  // namespace vexnumkr::qtsql
