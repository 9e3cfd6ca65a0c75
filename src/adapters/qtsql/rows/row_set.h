// The rows that a statement found, read completely into memory.
#pragma once

#include <QSqlRecord>
#include <QVariant>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/qtsql/rows/packed_fields.h"

class QSqlQuery;

namespace vexnumkr::qtsql {

/// Rows and columns count from 0. A statement that finds nothing by nature has no columns.
class RowSet {
 public:
  RowSet() = default;
  /// Reads the rows of `query`, which has just been executed, or its further rows, but not more
  /// than `most`. `substituted` is called for each text with a substitute character in it, with its
  /// row and column, while its row is the query's.
  using Substituted = std::function<void(std::size_t row, std::size_t column)>;
  static constexpr std::size_t all = static_cast<std::size_t>(-1);
  explicit RowSet(QSqlQuery& query, const Substituted& substituted = {}, std::size_t most = all);

  std::size_t rowCount() const { return width_ == 0 ? 0 : fields_.size() / width_; }
  /// Without the hidden columns.
  std::size_t columnCount() const { return visible_; }
  /// Takes the last `count` columns out of the columns that are counted and found by name; they can
  /// still be read by their position.
  void hideLast(std::size_t count) { visible_ = width_ - count; }

  /// The first column of that name (UTF-8), without regard to case.
  std::optional<std::size_t> column(std::string_view name) const;
  QString columnName(std::size_t column) const;

  QVariant at(std::size_t row, std::size_t column) const {
    return fields_.at(row * width_ + column);
  }
  /// The same for the component. Error as for toValue.
  Value value(std::size_t row, std::size_t column) const {
    return fields_.value(row * width_ + column);
  }
  void set(std::size_t row, std::size_t column, const QVariant& field) {
    fields_.set(row * width_ + column, field);
  }

  /// The field is stored in a way that cannot be read: toValue then fails.
  void markUnreadable(std::size_t row, std::size_t column);
  /// Marks what differs from `whole`, the same rows read in another way.
  void markDifferences(const RowSet& whole);
  /// Whether a text is more than ASCII without question marks, which stand in for characters that
  /// an encoding lacks.
  bool mayLackCharacters() const;

 private:
  void readNames() const;

  std::optional<QSqlRecord> header_;  // Of those that have columns.
  std::size_t width_ = 0;
  std::size_t visible_ = 0;
  PackedFields fields_;
  mutable std::vector<std::string> names_;  // Filled when first asked for: most rows never are.
};

}  // namespace vexnumkr::qtsql
