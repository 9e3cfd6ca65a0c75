#include "adapters/qtsql/engine.h"

#include <QtCore/QByteArray>
#include <QtCore/QDir>
#include <QtCore/QUrl>
#include <algorithm>
#include <array>
#include <filesystem>

#include <vexnumkr/database.h>

#include "adapters/qtsql/failure.h"

namespace vexnumkr::qtsql {
namespace {

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

// SQLite checks foreign keys only on connections that ask for it, and a schema that declares them
// means them.
constexpr std::array<const char*, 1> sqliteOpening = {"PRAGMA foreign_keys = ON"};

// Transactions are serializable whatever one asks for.
constexpr std::array<std::int32_t, 2> sqliteIsolation = {ado::unspecified, ado::isolated};

constexpr std::array<const char*, 3> sqliteRowNumbers = {"rowid", "_rowid_", "oid"};

constexpr std::array engines = {
    Engine{.driver = "QSQLITE",
           .connectOptions = "QSQLITE_BUSY_TIMEOUT=5000;QSQLITE_OPEN_URI",
           .databaseName = sqliteDatabaseName,
           .openingStatements = sqliteOpening,
           .begin = "BEGIN DEFERRED",
           .commit = "COMMIT",
           .rollback = "ROLLBACK",
           .isolationLevels = sqliteIsolation,
           .failureMayRollBack = true,
           .rowNumberNames = sqliteRowNumbers,
           .keyEquals = " IS ",
           .unknownName = 1},
};

std::string supportedDrivers() {
  std::string names;
  for (const Engine& engine : engines)
    names.append(names.empty() ? "" : ", ").append(engine.driver);
  return names;
}

QLatin1String latin1(std::string_view text) {
  return QLatin1String(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

const Engine& engineOf(std::string_view driver) {
  const QString name = QString::fromUtf8(driver.data(), static_cast<qsizetype>(driver.size()));
  const auto found = std::find_if(engines.begin(), engines.end(), [&](const Engine& engine) {
    return name.compare(latin1(engine.driver), Qt::CaseInsensitive) == 0;
  });
  if (found != engines.end()) return *found;
  throw failure(failure_number::unknownDriver,
                "Der Datenbanktreiber \"" + std::string(driver) +
                    "\" wird nicht unterstützt; möglich ist: " + supportedDrivers() + ".");
}

void requireIsolation(const Engine& engine, std::int32_t level) {
  const auto levels = engine.isolationLevels;
  if (std::find(levels.begin(), levels.end(), level) != levels.end()) return;
  throw failure(failure_number::notAvailable, "Die Isolationsstufe " + std::to_string(level) +
                                                  " gibt es bei diesem Datenbanksystem nicht.");
}

}  // namespace vexnumkr::qtsql
