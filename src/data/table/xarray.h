// The two-dimensional table of cells that the dialog works on: the range table and the
// booking-circle list are of this kind.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <vexnumkr/value.h>

#include "data/table/live_rows.h"
#include "data/table/range_index.h"
#include "data/table/row_sort.h"
#include "data/table/row_store.h"
#include "data/table/table_row.h"
#include "data/table/text_pool.h"

namespace vexnumkr {

/// Rows are numbered without gaps. A table without rows has an upper row bound one less than the
/// lower one. Reading or writing outside the bounds: error 9; the table is unchanged then.
///
/// Built for tables of a large company (every user times every range): a cell takes eight bytes, a
/// range is found by its key and removed without a scan, and sorting what is sorted costs nothing.
/// Appending after removals costs one pass over the table, Find and FindRow one up to the match.
class XArray {
 public:
  XArray();

  /// A table without rows, with columns 0 to `lastColumn`.
  static XArray withColumns(std::int32_t lastColumn);

  /// Sets the bounds of both dimensions; every cell is empty afterwards.
  void ReDim(std::int32_t rowLow, std::int32_t rowHigh, std::int32_t columnLow,
             std::int32_t columnHigh);

  /// `dimension` 1 is the row, 2 the column. Error 9 for others.
  std::int32_t LowerBound(std::int32_t dimension) const;
  std::int32_t UpperBound(std::int32_t dimension) const;

  /// Removes `count` rows from `row` on; later rows move up. Error 9 unless all of them exist.
  void DeleteRows(std::int32_t row, std::int32_t count = 1);
  /// Adds empty rows at the end.
  void AppendRows(std::int32_t count = 1);

  TableRow at(std::int32_t row) const;
  void set(std::int32_t row, std::int32_t column, const Value& value);

  // Of a single cell, as TableRow has them.
  Value get(std::int32_t row, std::int32_t column) const { return at(row).get(column); }
  bool isNull(std::int32_t row, std::int32_t column) const { return at(row).isNull(column); }
  std::int32_t toLong(std::int32_t row, std::int32_t column) const {
    return at(row).toLong(column);
  }
  bool toBoolean(std::int32_t row, std::int32_t column) const { return at(row).toBoolean(column); }
  std::string toText(std::int32_t row, std::int32_t column) const { return at(row).toText(column); }
  TextId toTextId(std::int32_t row, std::int32_t column) const { return at(row).toTextId(column); }
  bool equals(std::int32_t row, std::int32_t column, std::string_view text) const {
    return at(row).equals(column, text);
  }

  const std::string& text(TextId id) const { return texts_->text(id); }
  /// The number of `text` in the table's pool, or nothing when no cell ever held it.
  std::optional<TextId> textId(std::string_view text) const { return texts_->find(text); }

  /// The first row at or after `startRow` whose cell equals `value`, or -1. A start behind the last
  /// row finds nothing; one before the first: error 9.
  std::int32_t Find(std::int32_t startRow, std::int32_t column, const Value& value) const;

  /// The first row that holds exactly these texts in these columns, or -1.
  std::int32_t FindRow(std::span<const std::pair<std::int32_t, std::string_view>> cells) const;

  /// Sorts the rows `rowLow` to `rowHigh` in place; stable. Nothing moves when it fails (see
  /// sortedSlots for the errors).
  void QuickSort(std::int32_t rowLow, std::int32_t rowHigh, std::span<const SortKey> keys);

  /// The first row with that booking circle in column 1, that user in column 0 and, in column 3,
  /// that number key or nothing; -1 when there is none. The same row that a scan would find.
  std::int32_t findRange(std::string_view user, std::int32_t circle,
                         std::string_view numberKey) const;
  /// All rows with exactly that user, booking circle and number key, in ascending order.
  std::vector<std::int32_t> rangeRows(std::string_view user, std::int32_t circle,
                                      std::string_view numberKey) const;

  /// Becomes a snapshot of `source`: its bounds and every cell.
  void copyFrom(const XArray& source);

 private:
  Cell cellOf(const Value& value);
  std::size_t slotOf(std::int32_t row) const;
  std::size_t columnOffset(std::int32_t column) const;
  std::int32_t rowOf(std::size_t slot) const;
  void compact();
  void forgetOrder() { order_.clear(); }
  std::int32_t findSorted(std::int32_t startRow, std::size_t column, TextId text) const;
  RangeIndex& index() const;

  std::shared_ptr<TextPool> texts_;
  RowStore rows_;
  LiveRows live_;
  std::int32_t rowLow_ = 0;
  std::int32_t columnLow_ = 0;
  // The keys that the whole table is known to be sorted by; empty when it may not be.
  std::vector<SortKey> order_;
  mutable RangeIndex index_;  // a cache: filled by the first search after a change
};

}  // namespace vexnumkr
