// The range table: what the dialog works on between loading and saving.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "data/table/live_rows.h"
#include "data/table/range_row.h"
#include "data/table/row_finder.h"
#include "data/table/row_order.h"
#include "data/table/text_pool.h"

namespace vexnumkr {

/// Rows are numbered from 0 without gaps and are a range: `for (const RangeRow& row : table)`.
/// Reading or writing a row that does not exist: error 9; the table is unchanged then. Before it
/// is created and after it was released, whatever uses it: error 91.
///
/// Built for tables of a large company (every user times every range): a row takes 88 bytes, a
/// range is found by its key and removed without a scan, and sorting what is sorted costs nothing.
/// Appending after removals costs one pass over the table, the other searches one up to the match.
/// Appending moves no row, so a row can be read while others are appended; removing and sorting
/// end that.
class XArray {
 public:
  class Iterator;

  XArray() = default;
  /// A table that exists, without rows.
  static XArray created();

  void create();
  void release();
  bool exists() const { return content_ != nullptr; }

  std::int32_t size() const;
  bool empty() const { return size() == 0; }
  Iterator begin() const;
  Iterator end() const;

  /// The row at that position.
  const RangeRow& at(std::int32_t row) const;
  /// The text for a row of this table, which need not exist yet.
  Text text(std::string_view text) { return texts_->add(text); }
  /// The same where a row of this table may hold the text, else nothing.
  std::optional<Text> knownText(std::string_view text) const;

  void append(const RangeRow& row);
  /// Later rows move up.
  void remove(std::int32_t row);

  void setValue(std::int32_t row, ValueColumn column, const Value& value);
  void setNumber(std::int32_t row, ValueColumn column, std::int32_t number);
  void setGruppe(std::int32_t row, std::string_view caption);
  void setAktiviert(std::int32_t row, bool active);

  /// Sorts all rows in place; stable.
  void sort(RowOrder order);

  // Searches: the position of the first row that fits, or -1.

  /// The first row of that user and booking circle whose number key is `numberKey` or empty: a row
  /// without a key stands for all of them.
  std::int32_t findRange(std::string_view user, std::int32_t circle,
                         std::string_view numberKey) const;
  std::int32_t findUser(std::string_view user) const;
  std::int32_t findCircle(std::int32_t circle, std::int32_t from = 0) const;
  std::int32_t findNumberKey(std::string_view numberKey, std::int32_t from = 0) const;
  /// By the caption instead of the booking circle.
  std::int32_t findCaption(std::string_view user, std::string_view caption,
                           std::string_view numberKey) const;
  /// All rows with exactly that user, booking circle and number key, in ascending order.
  std::vector<std::int32_t> rangeRows(std::string_view user, std::int32_t circle,
                                      std::string_view numberKey) const;

  /// Becomes a snapshot of `source`; later changes to either do not affect the other.
  void copyFrom(const XArray& source);

 private:
  // Everything that comes and goes with the table; the finder borrows from its neighbours.
  struct Content {
    std::deque<RangeRow> rows;  // removed ones included, until rows are appended or sorted
    LiveRows live;
    RowOrder order = RowOrder::none;  // what the table is known to be sorted by
    std::optional<RowFinder> finder;  // made by the first search after rows have moved

    void place(std::deque<RangeRow> moved);
    void compact();
  };

  Content& content() const;
  RowFinder& finder() const;
  RangeRow& rowAt(std::int32_t row);
  std::size_t slotOf(std::int32_t row) const;
  std::int32_t rowOf(std::size_t slot) const;
  template <class Fits>
  std::int32_t findIf(std::int32_t from, const Fits& fits) const;

  std::shared_ptr<TextPool> texts_ = std::make_shared<TextPool>();
  std::unique_ptr<Content> content_;
};

/// Walks the rows that are there, in order.
class XArray::Iterator {
 public:
  using value_type = RangeRow;
  using reference = const RangeRow&;
  using pointer = const RangeRow*;
  using difference_type = std::ptrdiff_t;
  using iterator_category = std::forward_iterator_tag;

  Iterator() = default;
  Iterator(std::deque<RangeRow>::const_iterator row, const LiveRows& live, std::size_t slot,
           std::size_t end)
      : row_(row), live_(&live), slot_(slot), end_(end) {
    skipRemoved();
  }

  reference operator*() const { return *row_; }
  pointer operator->() const { return &*row_; }
  Iterator& operator++() {
    advance();
    skipRemoved();
    return *this;
  }
  Iterator operator++(int) {
    Iterator before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const Iterator& a, const Iterator& b) { return a.slot_ == b.slot_; }

 private:
  void advance() {
    ++row_;
    ++slot_;
  }
  void skipRemoved() {
    while (slot_ < end_ && !live_->isLive(slot_)) advance();
  }

  std::deque<RangeRow>::const_iterator row_;
  const LiveRows* live_ = nullptr;
  std::size_t slot_ = 0;
  std::size_t end_ = 0;
};

}  // namespace vexnumkr
