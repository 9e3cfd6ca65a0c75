#include "adapters/qtsql/failure.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QStringList>

namespace vexnumkr::qtsql {
namespace {

constexpr const char* source = "Qt SQL";

// The values of PWD and Password in an ODBC connection string, where braces may enclose them; as
// they stand there, and without the doubling of closing braces.
QStringList passwordsIn(const QString& connectionString) {
  static const QRegularExpression pair(
      QStringLiteral("(?:^|;)\\s*(?:PWD|PASSWORD)\\s*=\\s*(?:\\{((?:[^}]|\\}\\})*)\\}|([^;]*))"),
      QRegularExpression::CaseInsensitiveOption);
  QStringList found;
  for (auto matches = pair.globalMatch(connectionString); matches.hasNext();) {
    const QRegularExpressionMatch match = matches.next();
    QString password = match.captured(1) + match.captured(2).trimmed();
    found << password << password.replace(QLatin1String("}}"), QLatin1String("}"));
  }
  return found;
}

}  // namespace

Error failure(std::int32_t number, const std::string& text) { return Error(number, source, text); }

Error engineFailure(const QSqlError& error) {
  bool isNumber = false;
  const int code = error.nativeErrorCode().toInt(&isNumber);
  const QString text = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
  return failure(isNumber ? code : failure_number::unspecified, text.trimmed().toStdString());
}

Error withoutPasswords(const Error& error, const QSqlDatabase& database) {
  QString text = QString::fromStdString(error.description());
  const QStringList secrets = passwordsIn(database.databaseName())
                              << passwordsIn(database.connectOptions()) << database.password();
  for (const QString& secret : secrets)
    if (!secret.isEmpty()) text.replace(secret, QLatin1String("***"));
  return failure(error.number(), text.toStdString());
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

Error transactionRuns() {
  return failure(failure_number::transactionRuns, "Es läuft bereits eine Transaktion.");
}

}  // namespace vexnumkr::qtsql
