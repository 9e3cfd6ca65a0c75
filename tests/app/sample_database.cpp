#include "app/sample_database.h"

#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

#include <vexnumkr/adapters.h>
#include <vexnumkr/connection_string.h>

#include "app/sample/create_sample.h"

namespace vexnumkr::test {

namespace {

constexpr const char* connectionName = "second look";

std::string text(const QVariant& value) {
  return value.isNull() ? "NULL" : value.toString().toStdString();
}

std::vector<Row> query(const std::string& file, const std::string& statement) {
  std::vector<Row> rows;
  {
    QSqlDatabase database =
        QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QLatin1String(connectionName));
    database.setDatabaseName(QString::fromStdString(file));
    EXPECT_TRUE(database.open());
    QSqlQuery found(database);
    EXPECT_TRUE(found.exec(QString::fromStdString(statement)))
        << statement << ": " << found.lastError().text().toStdString();
    while (found.next()) {
      Row row;
      for (int column = 0; column < found.record().count(); ++column) {
        row.push_back(text(found.value(column)));
      }
      rows.push_back(row);
    }
  }
  QSqlDatabase::removeDatabase(QLatin1String(connectionName));
  return rows;
}

}  // namespace

std::vector<Row> rowsOf(const std::string& file, const std::string& select) {
  return query(file, select);
}

SampleDatabase::SampleDatabase() { app::createSampleFile(file()); }

std::string SampleDatabase::folder() const { return folder_.path().toStdString(); }

std::string SampleDatabase::file() const { return folder() + "/firma.db"; }

std::shared_ptr<Connection> SampleDatabase::connect() const {
  return openQtSqlConnection(sqliteConnectionString(file()));
}

void SampleDatabase::run(const std::string& statement) const { query(file(), statement); }

}  // namespace vexnumkr::test
