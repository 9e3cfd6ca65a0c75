#include "adapters/qtsql/opening/driver.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <algorithm>
#include <vector>

#include "adapters/qtsql/clients/odbc_state.h"
#include "adapters/qtsql/opening/driver_options.h"
#include "adapters/qtsql/opening/failure.h"
#include "platform/ascii_case.h"

namespace vexnumkr::qtsql {
namespace {

constexpr std::string_view odbc = "QODBC";

std::string supportedDrivers() {
  std::string names;
  for (const Engine* const engine : allEngines())
    for (const QtDriver& driver : engine->drivers) names.append(driver.name).append(", ");
  return names.append(odbc);
}

// What a driver has to be told stands in the string that opens it, so its engine is taken from the
// names there: that of the driver, of the data source, or all there is. Nothing is decided by that
// but one option; which engine it really is, it is asked as soon as it is open.
ConnectionSettings preparedForOdbc(ConnectionSettings settings) {
  const std::string name = connectionValue(settings.database, "Driver", ConnectionSyntax::odbc) +
                           connectionValue(settings.database, "DSN", ConnectionSyntax::odbc);
  const Engine* const engine = engineOfDriverName(name.empty() ? settings.database : name);
  if (engine != nullptr && engine->odbc)
    settings.database = engine->odbc->prepare(settings.database);
  return settings;
}

// Empty where the engine fails.
std::optional<std::string> firstText(const QSqlDatabase& database, const char* select) {
  QSqlQuery query(database);
  if (!query.exec(QString::fromLatin1(select)) || !query.next()) return std::nullopt;
  return query.value(0).toString().toStdString();
}

Error unsupported(const std::string& what, const std::vector<const Engine*>& supported) {
  return failure(error_number::unknownDriver, "Das Datenbanksystem hinter dem " + what +
                                                  " wird nicht unterstützt; möglich sind " +
                                                  engineTitles(supported) + ".");
}

// Statements may only go to an engine whose rules for literals and comments are known.
const Engine& engineBehindOdbc(const QSqlDatabase& database) {
  const Engine* const engine =
      engineThatAnswers([&](const char* select) { return firstText(database, select); });
  if (engine != nullptr && engine->odbc) return *engine;
  std::vector<const Engine*> supported;
  std::copy_if(allEngines().begin(), allEngines().end(), std::back_inserter(supported),
               [](const Engine* one) { return one->odbc.has_value(); });
  throw unsupported("ODBC-Treiber", supported);
}

}  // namespace

Driver driverOf(std::string_view name) {
  if (const EngineDriver found = engineOfQtDriver(name); found.engine != nullptr)
    return {found.driver->name, found.engine, found.driver};
  if (equalsWithoutCase(name, odbc)) return {odbc, nullptr, nullptr};
  throw failure(error_number::unknownDriver,
                "Der Datenbanktreiber \"" + std::string(name) +
                    "\" wird nicht unterstützt; möglich sind: " + supportedDrivers() + ".");
}

void configure(QSqlDatabase& database, const Driver& driver, const ConnectionSettings& settings) {
  requireKnownOptions(settings.options, driver);
  const ConnectionSettings prepared =
      driver.isOdbc() ? preparedForOdbc(settings) : driver.own->prepare(settings);
  database.setDatabaseName(QString::fromStdString(prepared.database));
  database.setHostName(QString::fromStdString(prepared.server));
  if (prepared.port != 0) database.setPort(prepared.port);
  database.setUserName(QString::fromStdString(prepared.user));
  database.setPassword(QString::fromStdString(prepared.password));
  database.setConnectOptions(QString::fromStdString(prepared.options));
}

const Engine& engineBehind(const QSqlDatabase& database, const Driver& driver) {
  if (driver.isOdbc()) return engineBehindOdbc(database);
  const Engine& engine = *driver.engine;
  if (engine.versionMark.empty()) return engine;
  QSqlQuery query(database);
  if (!query.exec(QString::fromLatin1(engine.versionQuery)) || !query.next())
    throw engineFailure(query.lastError(), engine, query.lastError().nativeErrorCode());
  if (query.value(0).toString().toStdString().find(engine.versionMark) == std::string::npos)
    throw unsupported("Treiber " + std::string(driver.name), {&engine});
  return engine;
}

QString engineCode(const QSqlQuery& failed, const Driver& driver, const Engine& engine) {
  const bool asksForState = driver.isOdbc() && engine.odbc && engine.odbc->usesSqlStates;
  return asksForState ? odbcState(failed) : failed.lastError().nativeErrorCode();
}

void requireSteadyConnection(const QSqlDatabase& database) {
  if (!database.connectOptions().contains(QLatin1String("MYSQL_OPT_RECONNECT"))) return;
  throw failure(error_number::unknownDriver,
                "Eine Datenbankverbindung, die sich von selbst neu verbindet "
                "(MYSQL_OPT_RECONNECT), kann keine Transaktion halten.");
}

}  // namespace vexnumkr::qtsql
