#include "adapters/qtsql/opening/failure.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>

#include <vexnumkr/connection_string.h>

#include "engines/engine.h"

namespace vexnumkr::qtsql {
namespace {

Error databaseFailure(const QSqlError& error, std::string source, const QString& code) {
  bool isNumber = false;
  const int number = error.nativeErrorCode().toInt(&isNumber);
  if (!code.isEmpty() && (!isNumber || code.toInt() != number))
    source.append(" ").append(code.toStdString());
  const QString text = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
  return Error(isNumber ? number : failure_number::unspecified, source,
               text.trimmed().toStdString());
}

}  // namespace

Error failure(std::int32_t number, const std::string& text) {
  return Error(number, adapterName, text);
}

Error engineFailure(const QSqlError& error, const Engine& engine, const QString& code) {
  const Error failed = databaseFailure(error, std::string(engine.title), code);
  const std::string_view advice = engine.advice(code.toStdString());
  if (advice.empty()) return failed;
  return Error(failed.number(), failed.source(),
               failed.description() + "\r\n" + std::string(advice));
}

Error openingFailure(const QSqlError& error, std::string_view title) {
  return databaseFailure(error, std::string(title), error.nativeErrorCode());
}

Error withoutPasswords(const Error& error, const QSqlDatabase& database) {
  ConnectionSettings settings;
  settings.database = database.databaseName().toStdString();
  settings.password = database.password().toStdString();
  settings.options = database.connectOptions().toStdString();
  return Error(error.number(), error.source(),
               vexnumkr::withoutPasswords(error.description(), composeConnectionString(settings)));
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

Error transactionMissing() {
  return failure(failure_number::noTransaction, "Es läuft keine Transaktion.");
}

Error unreadableText() {
  return failure(error_number::unreadableText, "Ein Text ist nicht lesbar gespeichert.");
}

Error transactionRuns() {
  return failure(failure_number::transactionRuns, "Es läuft bereits eine Transaktion.");
}

}  // namespace vexnumkr::qtsql
