#include "adapters/qtsql/key_columns.h"

#include <map>
#include <utility>

#include "adapters/qtsql/field_value.h"

namespace vexnumkr::qtsql {
namespace {

// A cell of a row of a catalogue, whose column names are ASCII.
QVariant cell(const RowSet& rows, std::size_t row, std::string_view column) {
  return rows.at(row, rows.column(column).value());
}

// "schema.table_info(table)", or without the schema.
QString tableInfo(std::string_view table) {
  std::vector<Token> names;
  tokenise(table, {}, names);
  const bool hasSchema = names.size() == 3;
  const QString schema = hasSchema ? toQString(names.front().text) + u'.' : QString();
  return schema + QLatin1String("table_info(") + toQString(names.back().text) + u')';
}

TableKeys sqliteKeys(Session& session, std::string_view table) {
  const RowSet rows = session.read(QLatin1String("PRAGMA ") + tableInfo(table));
  TableKeys keys;
  std::map<int, std::size_t> positions;  // In the key, and their rows.
  for (std::size_t row = 0; row < rows.rowCount(); ++row) {
    keys.columns << cell(rows, row, "name").toString();
    if (const int position = cell(rows, row, "pk").toInt(); position > 0)
      positions.emplace(position, row);
  }
  for (const auto& [position, row] : positions) keys.unique << keys.columns[static_cast<int>(row)];
  keys.isRowNumber =
      positions.size() == 1 && cell(rows, positions.begin()->second, "type")
                                       .toString()
                                       .compare(QLatin1String("INTEGER"), Qt::CaseInsensitive) == 0;
  return keys;
}

// The primary key goes before other unique indexes, in which no column may be NULL.
TableKeys postgresqlKeys(Session& session, std::string_view table) {
  QString name = toQString(table);
  name.replace(u'\\', QLatin1String("\\\\")).replace(u'\'', QLatin1String("''"));
  const RowSet rows = session.read(
      QLatin1String("SELECT a.attname FROM (SELECT indrelid, "
                    "(indkey::int2[])[0:indnkeyatts - 1] AS columns FROM pg_index "
                    "WHERE indrelid = to_regclass(E'") +
      name +
      QLatin1String("') AND indisunique AND indisvalid AND indpred IS NULL AND indexprs IS NULL "
                    "AND NOT EXISTS (SELECT 1 FROM pg_attribute n WHERE n.attrelid = indrelid "
                    "AND n.attnum = ANY (indkey) AND NOT n.attnotnull) "
                    "ORDER BY indisprimary DESC, indexrelid LIMIT 1) i "
                    "JOIN pg_attribute a ON a.attrelid = i.indrelid "
                    "AND a.attnum = ANY (i.columns) ORDER BY a.attnum"));
  TableKeys keys;
  for (std::size_t row = 0; row < rows.rowCount(); ++row) keys.unique << rows.at(row, 0).toString();
  return keys;
}

// An index over a part of a text, or that may hold NULL, identifies nothing.
TableKeys mariadbKeys(Session& session, std::string_view table) {
  const RowSet rows = session.read(QLatin1String("SHOW INDEX FROM ") + toQString(table));
  std::map<std::pair<bool, QString>, QStringList> indexes;  // The primary key comes first.
  for (std::size_t row = 0; row < rows.rowCount(); ++row) {
    const QString index = cell(rows, row, "Key_name").toString();
    const bool identifies = cell(rows, row, "Non_unique").toInt() == 0 &&
                            cell(rows, row, "Null").toString() != QLatin1String("YES") &&
                            cell(rows, row, "Sub_part").isNull();
    QStringList& columns = indexes[{index != QLatin1String("PRIMARY"), index}];
    columns << (identifies ? cell(rows, row, "Column_name").toString() : QString());
  }
  for (const auto& [index, columns] : indexes)
    if (!columns.contains(QString())) return {.unique = columns, .columns = {}};
  return {};
}

}  // namespace

TableKeys keysOf(Session& session, std::string_view table) {
  switch (session.engine().dialect) {
    case Dialect::postgresql:
      return postgresqlKeys(session, table);
    case Dialect::mariadb:
      return mariadbKeys(session, table);
    case Dialect::sqlite:
      break;
  }
  return sqliteKeys(session, table);
}

}  // namespace vexnumkr::qtsql
