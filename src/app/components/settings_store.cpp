#include "app/components/settings_store.h"

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <optional>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/engines.h>
#include <vexnumkr/error.h>

#include "app/files.h"
#include "app/schema/schema.h"
#include "app/sql.h"

namespace vexnumkr::app {
namespace {

constexpr const char* standardUser = "Standard";

/// Whether a SQLite database name is that of a file, and not of memory or a URI.
bool isFileName(const std::string& database) {
  return !database.empty() && database != ":memory:" && database.rfind("file:", 0) != 0;
}

bool sameName(const std::string& a, const std::string& b) {
  return QString::fromStdString(a).compare(QString::fromStdString(b), Qt::CaseInsensitive) == 0;
}

/// The settings file that belongs to a connection, or empty where its database holds the settings.
/// The engine is the one that the string names, since only a string that names it has the file's
/// name, too: where the file of an ODBC data source lies is known to ODBC alone.
std::string ownFile(const std::string& connectionText) {
  const std::string driver = connectionValue(connectionText, "Driver");
  std::string database = connectionValue(connectionText, "Database");
  if (sameName(driver, "QODBC"))
    database = connectionValue(database, "Database", ConnectionSyntax::odbc);
  const bool isSqlite = engineNamedIn(connectionText) == "sqlite";
  return isSqlite && isFileName(database) ? settingsFile(database) : std::string();
}

struct Setting {
  std::string section;
  std::string key;
  std::string value;
};

std::optional<Setting> find(Connection& connection, const std::string& section,
                            const std::string& key, const std::string& profile,
                            const std::string& user) {
  std::optional<Setting> found;
  forEachRow(connection,
             "SELECT Bereich, Schluessel, Wert FROM Einstellungen WHERE Profil=" +
                 sqlText(profile) + " AND Benutzer=" + sqlText(user),
             [&](const Recordset& row) {
               Setting setting{textField(row, "Bereich"), textField(row, "Schluessel"),
                               textField(row, "Wert")};
               if (sameName(setting.section, section) && sameName(setting.key, key))
                 found = std::move(setting);
             });
  return found;
}

// Of a SQLite file that somebody else has locked.
constexpr std::int32_t busy = 5;

// A file that is locked has its table for all we know.
bool hasTable(Connection& connection) {
  try {
    execute(connection, "SELECT COUNT(*) AS Anzahl FROM Einstellungen");
    return true;
  } catch (const Error& error) {
    if (error.number() == busy) throw;
    return false;
  }
}

bool exists(const std::string& file) { return QFileInfo::exists(QString::fromStdString(file)); }

std::unique_ptr<Connection> openFile(Connection& host, const std::string& file) {
  auto connection = host.createConnection();
  connection->OnLockWait(host.ToldOfLockWait());
  connection->ConnectionString(sqliteConnectionString(file));
  connection->Open("", "", ado::unspecified);
  return connection;
}

}  // namespace

std::string settingsFile(const std::string& databaseFile) {
  const QFileInfo file(QString::fromStdString(databaseFile));
  QString name = file.completeBaseName() + QStringLiteral("-einstellungen");
  if (!file.suffix().isEmpty()) name += QLatin1Char('.') + file.suffix();
  return file.dir().filePath(name).toStdString();
}

void TableSettings::Init(std::int32_t, Connection& connection) {
  own_.reset();
  host_ = nullptr;
  file_ = ownFile(connection.ConnectionString());
  if (!file_.empty() && exists(file_)) {
    own_ = openFile(connection, file_);
    hasTable(*own_);  // a file that is locked is waited for once, and not for each setting
  }
  host_ = &connection;
}

Connection* TableSettings::stored() {
  if (host_ == nullptr) throw Error::objectNotSet();
  Connection* place = file_.empty() ? host_ : own_.get();
  return place != nullptr && hasTable(*place) ? place : nullptr;
}

Connection& TableSettings::prepared() {
  if (Connection* place = stored()) return *place;
  if (!file_.empty() && own_ == nullptr) {
    if (!exists(file_)) makeNewFile(file_);
    own_ = openFile(*host_, file_);
  }
  Connection& place = file_.empty() ? *host_ : *own_;
  if (!hasTable(place))
    for (const std::string& statement : settingsTableStatements(engineOf(place)))
      execute(place, statement);
  return place;
}

void TableSettings::GetSetting(const std::string& section, const std::string& key,
                               std::string& value, const std::string& profile,
                               const std::string& user, const std::string& defaultValue) {
  value = defaultValue;
  if (Connection* place = stored()) {
    if (const auto setting = find(*place, section, key, profile, user)) value = setting->value;
  }
}

void TableSettings::SaveSetting(const std::string& section, const std::string& key,
                                const std::string& value, const std::string& profile) {
  Connection& place = prepared();
  const auto setting = find(place, section, key, profile, standardUser);
  if (!setting) {
    execute(place,
            "INSERT INTO Einstellungen (Bereich, Schluessel, Profil, Benutzer, Wert) VALUES (" +
                sqlText(section) + ", " + sqlText(key) + ", " + sqlText(profile) + ", " +
                sqlText(standardUser) + ", " + sqlText(value) + ")");
    return;
  }
  execute(place, "UPDATE Einstellungen SET Wert=" + sqlText(value) + " WHERE Bereich=" +
                     sqlText(setting->section) + " AND Schluessel=" + sqlText(setting->key) +
                     " AND Profil=" + sqlText(profile) + " AND Benutzer=" + sqlText(standardUser));
}

}  // namespace vexnumkr::app
