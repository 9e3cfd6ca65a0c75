// Which record of a table each row of a select is, and how to change exactly that record.
#pragma once

#include <QString>
#include <QVariant>
#include <string_view>
#include <vector>

#include "adapters/qtsql/rows/row_set.h"
#include "engines/engine.h"

namespace vexnumkr::qtsql {

class SqlSession;

/// Columns that tell a table's records apart. They stand in the rows behind the select's own
/// columns, hidden.
class RecordKeys {
 public:
  /// All that could identify the records of `table` (as a statement names it), the best first: the
  /// engine's built-in row number with the primary key, then the primary key alone. The two
  /// together also notice when the number of a deleted record has gone to another one. Whether the
  /// table does have the row number shows only when it is selected.
  static std::vector<RecordKeys> candidates(SqlSession& session, std::string_view table);

  /// The key columns, for a select.
  QString columnList() const;
  std::size_t count() const { return keys_.size(); }

  /// False for a row that is no record of its own, such as a view's.
  bool identify(const RowSet& rows, std::size_t row) const;

  struct Change {
    QString text;  ///< With a `?` for each of the values.
    QVariantList values;
    QString check;  ///< Counts the records that it concerns.
    QVariantList checkValues;
  };

  /// Sets the fields `columns` of the record of `row` to what `rows` holds. REQUIRES: identify.
  Change change(const RowSet& rows, std::size_t row, const std::vector<std::size_t>& columns) const;

  /// To be called after that: a record whose key was changed is known by its new one from now on.
  void followChange(RowSet& rows, std::size_t row, const std::vector<std::size_t>& columns) const;

 private:
  struct Key {
    QString name;  ///< As the table spells it; empty for the row number.
    QString sql;   ///< As statements name it.
  };

  RecordKeys(const Engine& engine, std::string_view table, std::vector<Key> keys);
  QString quoted(const QString& name) const;

  QString table_;
  QString equals_;
  QChar quote_;
  std::vector<Key> keys_;
};

}  // namespace vexnumkr::qtsql
