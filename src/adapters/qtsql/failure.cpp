#include "adapters/qtsql/failure.h"

#include <QtSql/QSqlError>

namespace vexnumkr::qtsql {
namespace {

constexpr const char* source = "Qt SQL";

}  // namespace

Error failure(std::int32_t number, const std::string& text) { return Error(number, source, text); }

Error engineFailure(const QSqlError& error) {
  bool isNumber = false;
  const int code = error.nativeErrorCode().toInt(&isNumber);
  const QString text = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
  return failure(isNumber ? code : failure_number::unspecified, text.toStdString());
}

Error connectionClosed() {
  return failure(failure_number::objectClosed, "Die Datenbankverbindung ist geschlossen.");
}

Error connectionOpen() {
  return failure(failure_number::objectOpen, "Die Datenbankverbindung ist bereits geöffnet.");
}

Error recordsetClosed() {
  return failure(failure_number::objectClosed, "Die Datensatzgruppe ist geschlossen.");
}

Error recordsetOpen() {
  return failure(failure_number::objectOpen, "Die Datensatzgruppe ist bereits geöffnet.");
}

}  // namespace vexnumkr::qtsql
