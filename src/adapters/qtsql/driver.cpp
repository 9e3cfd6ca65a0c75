#include "adapters/qtsql/driver.h"

#include <QByteArray>
#include <QDir>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QUrl>
#include <algorithm>
#include <array>
#include <filesystem>

#include "adapters/qtsql/failure.h"
#include "adapters/qtsql/odbc_state.h"

namespace vexnumkr::qtsql {
namespace {

void configureServer(QSqlDatabase& database, const ConnectionSettings& settings) {
  database.setDatabaseName(QString::fromStdString(settings.database));
  database.setHostName(QString::fromStdString(settings.server));
  if (settings.port != 0) database.setPort(settings.port);
  database.setUserName(QString::fromStdString(settings.user));
  database.setPassword(QString::fromStdString(settings.password));
  database.setConnectOptions(QString::fromStdString(settings.options));
}

// Plainly named, a missing file would be created by opening it; only a URI can forbid that.
QString sqliteDatabaseName(const std::string& database) {
  const QString name = QString::fromStdString(database);
  if (name == QLatin1String(":memory:")) return name;
  if (name.startsWith(QLatin1String("file:"))) {
    if (name.contains(QLatin1String("mode="))) return name;
    return name + (name.contains(u'?') ? u'&' : u'?') + QLatin1String("mode=rw");
  }
  QString path = QDir::fromNativeSeparators(name);
  if (std::filesystem::path(name.toStdU16String()).is_absolute())
    path.prepend(path.startsWith(u'/') ? QLatin1String("//") : QLatin1String("///"));
  const QByteArray encoded = QUrl::toPercentEncoding(path, QByteArrayLiteral("/"));
  return QLatin1String("file:") + QString::fromLatin1(encoded) + QLatin1String("?mode=rw");
}

QString withOption(const QString& options, const QString& option) {
  return options.isEmpty() ? option : options + u';' + option;
}

void configureSqlite(QSqlDatabase& database, const ConnectionSettings& settings) {
  configureServer(database, settings);
  database.setDatabaseName(sqliteDatabaseName(settings.database));
  database.setConnectOptions(withOption(
      database.connectOptions(), QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000;QSQLITE_OPEN_URI")));
}

// Changes are counted by the rows found, as everywhere else. A server that is named by a path is
// reached through the socket of that name.
void configureMariadb(QSqlDatabase& database, const ConnectionSettings& settings) {
  configureServer(database, settings);
  QString options = withOption(database.connectOptions(), QStringLiteral("CLIENT_FOUND_ROWS=1"));
  if (settings.server.starts_with('/')) {
    options = withOption(options, QLatin1String("UNIX_SOCKET=") + database.hostName());
    database.setHostName({});
  }
  database.setConnectOptions(options);
}

// PostgreSQL's ODBC driver has savepoints of its own, which fail where a text cannot be read at
// all, and take the transaction along; with "-0" it leaves that to this adapter.
void configureOdbc(QSqlDatabase& database, const ConnectionSettings& settings) {
  configureServer(database, settings);
  const QString name = database.databaseName();
  const auto names = [&](const char* word) {
    return name.contains(QLatin1String(word), Qt::CaseInsensitive);
  };
  if ((names("psqlodbc") || names("PostgreSQL")) && !names("Protocol="))
    database.setDatabaseName(withOption(name, QStringLiteral("Protocol=7.4-0")));
}

const Engine& sqliteAlways(const QSqlDatabase& /*database*/) { return sqlite; }
const Engine& postgresqlAlways(const QSqlDatabase& /*database*/) { return postgresql; }
const Engine& mariadbAlways(const QSqlDatabase& /*database*/) { return mariadb; }

bool isSqliteBehindOdbc(const QSqlDatabase& database) {
  return database.driver()->dbmsType() == QSqlDriver::UnknownDbms &&
         QSqlQuery(database).exec(QStringLiteral("SELECT sqlite_version()"));
}

// Statements may only go to an engine whose rules for literals and comments are known.
const Engine& engineBehindOdbc(const QSqlDatabase& database) {
  if (database.driver()->dbmsType() == QSqlDriver::PostgreSQL) return postgresql;
  if (isSqliteBehindOdbc(database)) return sqlite;
  throw failure(failure_number::unknownDriver,
                "Das Datenbanksystem hinter dem ODBC-Treiber wird nicht unterstützt; möglich sind "
                "PostgreSQL und SQLite.");
}

QString nativeCode(const QSqlQuery& failed, const Engine& /*engine*/) {
  return failed.lastError().nativeErrorCode();
}

QString odbcCode(const QSqlQuery& failed, const Engine& engine) {
  return &engine == &postgresql ? odbcState(failed) : nativeCode(failed, engine);
}

bool neverLost(const QSqlError& /*error*/) { return false; }

// Classes 08 and 57P are about the connection; without any code the server has not answered.
bool isLostPostgresql(const QSqlError& error) {
  const QString code = error.nativeErrorCode();
  return code.isEmpty() || code.startsWith(QLatin1String("08")) ||
         code.startsWith(QLatin1String("57P"));
}

bool isLostMariadb(const QSqlError& error) {
  static constexpr std::array codes = {1053, 1152, 1158, 1159, 1160, 1161, 1184,
                                       1927, 2001, 2002, 2003, 2006, 2013, 2055};
  return std::find(codes.begin(), codes.end(), error.nativeErrorCode().toInt()) != codes.end();
}

// Debian's ODBC driver for SQLite has none of ODBC's functions for wide characters.
constexpr std::array drivers = {
    Driver{"QSQLITE", configureSqlite, sqliteAlways, nativeCode, neverLost, false, nullptr},
    Driver{"QPSQL", configureServer, postgresqlAlways, nativeCode, isLostPostgresql, false,
           nullptr},
    Driver{"QMYSQL", configureMariadb, mariadbAlways, nativeCode, isLostMariadb, false, nullptr},
    Driver{"QMARIADB", configureMariadb, mariadbAlways, nativeCode, isLostMariadb, false, nullptr},
    Driver{"QODBC", configureOdbc, engineBehindOdbc, odbcCode, neverLost, true, &sqlite},
};

std::string supportedDrivers() {
  std::string names;
  for (const Driver& driver : drivers) names.append(names.empty() ? "" : ", ").append(driver.name);
  return names;
}

QLatin1String latin1(std::string_view text) {
  return QLatin1String(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

const Driver& driverOf(std::string_view name) {
  const QString wanted = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
  const auto found = std::find_if(drivers.begin(), drivers.end(), [&](const Driver& driver) {
    return wanted.compare(latin1(driver.name), Qt::CaseInsensitive) == 0;
  });
  if (found != drivers.end()) return *found;
  throw failure(failure_number::unknownDriver,
                "Der Datenbanktreiber \"" + std::string(name) +
                    "\" wird nicht unterstützt; möglich sind: " + supportedDrivers() + ".");
}

void requireSteadyConnection(const QSqlDatabase& database) {
  if (!database.connectOptions().contains(QLatin1String("MYSQL_OPT_RECONNECT"))) return;
  throw failure(failure_number::unknownDriver,
                "Eine Datenbankverbindung, die sich von selbst neu verbindet "
                "(MYSQL_OPT_RECONNECT), kann keine Transaktion halten.");
}

}  // namespace vexnumkr::qtsql
