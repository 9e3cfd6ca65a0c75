#include "contract/sqlite/sqlite_database.h"

#include <QFile>
#include <QSqlQuery>
#include <QUuid>

#include <vexnumkr/adapters.h>

namespace vexnumkr::test {

SqliteFile::SqliteFile(const std::string& name)
    : path_(folder_.path() + u'/' + QString::fromStdString(name)) {
  QFile file(path_);
  if (!file.open(QIODevice::NewOnly)) ADD_FAILURE() << "cannot create " << path();
}

std::string SqliteFile::connectionString() const { return "Driver=QSQLITE;Database=" + path(); }

std::shared_ptr<Connection> SqliteFile::open() const {
  return openQtSqlConnection(connectionString());
}

HostDatabase::HostDatabase(const std::string& path, const char* options)
    : database_(
          QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QUuid::createUuid().toString())) {
  database_.setDatabaseName(QString::fromStdString(path));
  database_.setConnectOptions(QString::fromLatin1(options));
  EXPECT_TRUE(database_.open());
}

HostDatabase::~HostDatabase() {
  const QString name = database_.connectionName();
  database_.close();
  database_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(name);
}

bool HostDatabase::run(const char* text) {
  return QSqlQuery(database_).exec(QString::fromUtf8(text));
}

std::vector<int> HostDatabase::numbers(const char* select) {
  std::vector<int> found;
  QSqlQuery query(database_);
  EXPECT_TRUE(query.exec(QString::fromUtf8(select)));
  while (query.next()) found.push_back(query.value(0).toInt());
  return found;
}

Implementation sqliteImplementation(const std::string& name, SqliteTestDatabase::Connect connect) {
  return {name, [connect] { return std::make_unique<SqliteTestDatabase>(connect); },
          EngineNumbers{.syntaxError = 1, .unknownTable = 1, .duplicateKey = 1555}};
}

}  // namespace vexnumkr::test
