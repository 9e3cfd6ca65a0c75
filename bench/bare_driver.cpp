#include "bench/bare_driver.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <stdexcept>

#include "adapters/qtsql/opening/driver.h"

namespace vexnumkr::bench {

BareDriver::BareDriver(const std::string& connectionString)
    : BareDriver(parseConnectionString(connectionString)) {}

BareDriver::BareDriver(const ConnectionSettings& settings)
    : handle_(qtsql::driverOf(settings.driver), settings) {}

int BareDriver::run(const std::string& statement) {
  QSqlQuery query(database());
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
  QSqlQuery query(database());
  query.exec(QString::fromStdString(statement));
}

}  // namespace vexnumkr::bench
