#include "bench/bare_driver.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>
#include <QVariant>
#include <stdexcept>

namespace vexnumkr::bench {

BareDriver::BareDriver(const std::string& file)
    : name_(QUuid::createUuid().toString()),
      database_(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name_)) {
  database_.setDatabaseName(QString::fromStdString(file));
  if (!database_.open()) throw std::runtime_error(database_.lastError().text().toStdString());
}

BareDriver::~BareDriver() {
  database_.close();
  database_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(name_);
}

int BareDriver::run(const std::string& statement) {
  QSqlQuery query(database_);
  query.setForwardOnly(true);
  if (!query.exec(QString::fromStdString(statement)))
    throw std::runtime_error(query.lastError().text().toStdString() + ": " + statement);
  const int columns = query.isSelect() ? query.record().count() : 0;
  int rows = 0;
  for (; query.next(); ++rows)
    for (int column = 0; column < columns; ++column) static_cast<void>(query.value(column));
  return rows;
}

void BareDriver::tryToRun(const std::string& statement) {
  QSqlQuery query(database_);
  query.exec(QString::fromStdString(statement));
}

}  // namespace vexnumkr::bench
