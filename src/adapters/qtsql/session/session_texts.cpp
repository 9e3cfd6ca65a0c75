// What a session does so that no text is read with substitutes for characters in it.
#include "adapters/qtsql/clients/postgresql_client.h"
#include "adapters/qtsql/session/session.h"

namespace vexnumkr::qtsql {

// Reads the rows of the query that was just run by `text`.
RowSet SqlSession::readRows(const QString& text) {
  std::vector<std::pair<std::size_t, std::size_t>> substituted;
  const bool asksPostgresql = engine_->name == "postgresql" && !driver_.isOdbc();
  RowSet rows(*query_, [&](std::size_t row, std::size_t column) {
    if (!asksPostgresql || !isReadableOnPostgresql(*query_, static_cast<int>(column)))
      substituted.emplace_back(row, column);
  });
  const bool canBeReadAgain = text.startsWith(QLatin1String("SELECT"), Qt::CaseInsensitive);
  if (sqlite_ && canBeReadAgain && !substituted.empty()) {
    substituted.clear();
    sqlite_->forEachUnreadable(text.toStdString(), [&](std::size_t row, std::size_t column) {
      if (row < rows.rowCount()) substituted.emplace_back(row, column);
    });
  }
  if (lackingEncoding_.empty() && !isWholeByItself())
    for (const auto& [row, column] : substituted) rows.markUnreadable(row, column);
  if (!lackingEncoding_.empty() && canBeReadAgain && rows.mayLackCharacters())
    markUnreadable(rows, text);
  return rows;
}

// Where the engine checks what it stores and Qt has it sent in UTF-8, a substitute character is
// what somebody has stored.
bool SqlSession::isWholeByItself() const { return engine_->name == "mariadb" && !driver_.isOdbc(); }

// Reads the same once more in an encoding that has all characters.
void SqlSession::markUnreadable(RowSet& rows, const QString& text) {
  query_->finish();
  QSqlQuery other(database_.get());
  other.setForwardOnly(true);
  const auto setEncoding = [&](const std::string& encoding) {
    return other.exec(QString::fromStdString(engine_->setEncoding(encoding)));
  };
  if (!setEncoding(engine_->wholeEncoding)) fail(other);
  const bool isRead = other.exec(text);
  const RowSet whole = isRead ? RowSet(other) : RowSet();
  const QSqlError error = other.lastError();
  setEncoding(lackingEncoding_);
  if (!isRead) fail(error, error.nativeErrorCode());
  rows.markDifferences(whole);
}

}  // namespace vexnumkr::qtsql
