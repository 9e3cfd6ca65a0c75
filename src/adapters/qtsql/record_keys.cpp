#include "adapters/qtsql/record_keys.h"

#include <QtCore/QStringList>
#include <QtSql/QSqlDriver>
#include <QtSql/QSqlField>
#include <QtSql/QSqlIndex>
#include <QtSql/QSqlRecord>
#include <algorithm>

#include "adapters/qtsql/field_value.h"

namespace vexnumkr::qtsql {
namespace {

bool isSameName(const QString& a, const QString& b) {
  return a.compare(b, Qt::CaseInsensitive) == 0;
}

QString quoted(const QString& name) {
  QString escaped = name;
  return u'"' + escaped.replace(u'"', QLatin1String("\"\"")) + u'"';
}

bool hasColumn(const QSqlRecord& columns, const QString& name) {
  for (int i = 0; i < columns.count(); ++i)
    if (isSameName(columns.fieldName(i), name)) return true;
  return false;
}

// The first row-number name that no column of the table has taken.
QString rowNumberName(const Engine& engine, const QSqlRecord& columns) {
  for (const char* const name : engine.rowNumberNames)
    if (!hasColumn(columns, QString::fromLatin1(name))) return QString::fromLatin1(name);
  return {};
}

}  // namespace

RecordKeys::RecordKeys(const Engine& engine, std::string_view table, std::vector<Key> keys)
    : table_(toQString(table)),
      equals_(QString::fromLatin1(engine.keyEquals)),
      keys_(std::move(keys)) {}

std::vector<RecordKeys> RecordKeys::candidates(const Engine& engine, const QSqlDatabase& database,
                                               std::string_view table) {
  const QString name = toQString(table);
  const QSqlIndex primary = database.primaryIndex(name);
  std::vector<Key> keys;
  for (int i = 0; i < primary.count(); ++i)
    keys.push_back({primary.fieldName(i), quoted(primary.fieldName(i))});
  // An automatic key is the row number under a name of its own, and may be changed.
  const bool isAutomatic = primary.count() == 1 && primary.field(0).isAutoValue();

  std::vector<RecordKeys> found;
  const QString rowNumber = rowNumberName(engine, database.record(name));
  if (!isAutomatic && !rowNumber.isEmpty()) {
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
    change.values << rows.at(row, rows.columnCount() + i);
  }
  change.text = QLatin1String("UPDATE ") + table_ + QLatin1String(" SET ") +
                settings.join(QLatin1String(", ")) + QLatin1String(" WHERE ") +
                conditions.join(QLatin1String(" AND "));
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
