#include "adapters/qtsql/session/record_keys.h"

#include <QStringList>
#include <algorithm>

#include "adapters/qtsql/rows/field_value.h"
#include "adapters/qtsql/session/key_columns.h"
#include "adapters/qtsql/session/session.h"
#include "platform/ascii_case.h"

namespace vexnumkr::qtsql {
namespace {

bool isSameName(const QString& a, const QString& b) {
  return a.compare(b, Qt::CaseInsensitive) == 0;
}

QString inQuotes(const QString& name, QChar quote) {
  QString escaped = name;
  return quote + escaped.replace(quote, QString(2, quote)) + quote;
}

// The first row-number name that no column of the table has taken.
QString rowNumberName(const Engine& engine, const TableKeys& table) {
  for (const char* const name : engine.rowNumberNames)
    if (std::none_of(table.columns.begin(), table.columns.end(),
                     [&](const std::string& column) { return equalsWithoutCase(column, name); }))
      return QString::fromLatin1(name);
  return {};
}

}  // namespace

RecordKeys::RecordKeys(const Engine& engine, std::string_view table, std::vector<Key> keys)
    : table_(toQString(table)),
      equals_(QString::fromLatin1(engine.keyEquals)),
      quote_(QLatin1Char(engine.nameQuote)),
      keys_(std::move(keys)) {}

QString RecordKeys::quoted(const QString& name) const { return inQuotes(name, quote_); }

std::vector<RecordKeys> RecordKeys::candidates(SqlSession& session, std::string_view table) {
  const Engine& engine = session.engine();
  const TableKeys known = keysOf(session, table);
  std::vector<Key> keys;
  for (const std::string& column : known.unique) {
    const QString name = toQString(column);
    keys.push_back({name, inQuotes(name, QLatin1Char(engine.nameQuote))});
  }

  std::vector<RecordKeys> found;
  const QString rowNumber = rowNumberName(engine, known);
  if (!known.isRowNumber && !rowNumber.isEmpty()) {
    std::vector<Key> withNumber = {{QString(), rowNumber}};
    withNumber.insert(withNumber.end(), keys.begin(), keys.end());
    found.push_back(RecordKeys(engine, table, std::move(withNumber)));
  }
  if (!keys.empty()) found.push_back(RecordKeys(engine, table, std::move(keys)));
  return found;
}

QString RecordKeys::columnList() const {
  QStringList names;
  for (const Key& key : keys_) names << key.sql;
  return names.join(QLatin1String(", "));
}

// A primary key may hold NULL beside a row number; a row number is NULL where there is none.
bool RecordKeys::identify(const RowSet& rows, std::size_t row) const {
  return !rows.at(row, rows.columnCount()).isNull();
}

RecordKeys::Change RecordKeys::change(const RowSet& rows, std::size_t row,
                                      const std::vector<std::size_t>& columns) const {
  Change change;
  QStringList settings;
  for (const std::size_t column : columns) {
    settings << quoted(rows.columnName(column)) + QLatin1String(" = ?");
    change.values << rows.at(row, column);
  }
  QStringList conditions;
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    conditions << keys_[i].sql + equals_ + u'?';
    change.checkValues << rows.at(row, rows.columnCount() + i);
  }
  const QString where = QLatin1String(" WHERE ") + conditions.join(QLatin1String(" AND "));
  change.text = QLatin1String("UPDATE ") + table_ + QLatin1String(" SET ") +
                settings.join(QLatin1String(", ")) + where;
  change.values += change.checkValues;
  change.check = QLatin1String("SELECT COUNT(*) FROM ") + table_ + where;
  return change;
}

void RecordKeys::followChange(RowSet& rows, std::size_t row,
                              const std::vector<std::size_t>& columns) const {
  for (std::size_t i = 0; i < keys_.size(); ++i)
    for (const std::size_t column : columns)
      if (isSameName(rows.columnName(column), keys_[i].name))
        rows.set(row, rows.columnCount() + i, rows.at(row, column));
}

}  // namespace vexnumkr::qtsql
