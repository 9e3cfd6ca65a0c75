// One row of a table, for whoever reads several of its cells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

#include "data/table/cell.h"
#include "data/table/text_pool.h"

namespace vexnumkr {

/// Finds the row once instead of once per cell. Columns are named as the table names them; one
/// outside its bounds: error 9. Borrows the cells: valid until the table gets, loses or sorts rows.
class TableRow {
 public:
  TableRow(const Cell* cells, std::size_t columns, std::int32_t columnLow, TextPool& texts)
      : cells_(cells), columns_(columns), columnLow_(columnLow), texts_(texts) {}

  Value get(std::int32_t column) const;
  bool isNull(std::int32_t column) const { return cell(column).kind == Cell::Kind::Null; }

  /// The cell converted, with the errors of Value's conversions.
  std::int32_t toLong(std::int32_t column) const {
    const Cell& content = cell(column);
    return content.isLong() ? content.number() : get(column).toLong();
  }
  bool toBoolean(std::int32_t column) const {
    const Cell& content = cell(column);
    return content.kind == Cell::Kind::Boolean ? content.bits != 0 : get(column).toBoolean();
  }
  std::string toText(std::int32_t column) const { return get(column).toText(); }
  /// The converted text by its number in the table's pool: equal texts have equal numbers, and ""
  /// has emptyTextId.
  TextId toTextId(std::int32_t column) const {
    const Cell& content = cell(column);
    return content.isText() ? content.textId() : texts_.add(toText(column));
  }

  /// Whether the cell holds this text, where a cell that was never set counts as an empty text;
  /// false for a cell of another kind.
  bool equals(std::int32_t column, std::string_view text) const;
  /// The same for a text of the table's pool, for many rows.
  bool equals(std::int32_t column, TextId text) const {
    const Cell& content = cell(column);
    if (content.kind == Cell::Kind::Empty) return text == emptyTextId;
    return content == Cell::ofText(text);
  }

 private:
  const Cell& cell(std::int32_t column) const {
    // A column below the first one wraps to a number above the last.
    const auto offset = static_cast<std::size_t>(std::int64_t{column} - columnLow_);
    if (offset >= columns_) throw Error::subscriptOutOfRange();
    return cells_[offset];
  }

  const Cell* cells_;
  std::size_t columns_;
  std::int32_t columnLow_;
  TextPool& texts_;
};

}  // namespace vexnumkr
