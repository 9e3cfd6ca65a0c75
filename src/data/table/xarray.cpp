#include "data/table/xarray.h"

#include <algorithm>
#include <array>

#include <vexnumkr/error.h>

namespace vexnumkr {
namespace {

constexpr std::array<std::size_t, 3> keyColumns{0, 1, 3};  // what RangeIndex looks rows up by

bool isKeyColumn(std::size_t column) {
  return std::find(keyColumns.begin(), keyColumns.end(), column) != keyColumns.end();
}

}  // namespace

XArray::XArray() : texts_(std::make_shared<TextPool>()) {}

XArray XArray::withColumns(std::int32_t lastColumn) {
  XArray table;
  table.ReDim(0, 0, 0, lastColumn);
  table.DeleteRows(0);
  return table;
}

void XArray::ReDim(std::int32_t rowLow, std::int32_t rowHigh, std::int32_t columnLow,
                   std::int32_t columnHigh) {
  if (rowHigh < rowLow - 1 || columnHigh < columnLow - 1) throw Error::subscriptOutOfRange();
  rowLow_ = rowLow;
  columnLow_ = columnLow;
  rows_ = RowStore(static_cast<std::size_t>(columnHigh - columnLow + 1));
  rows_.append(static_cast<std::size_t>(rowHigh - rowLow + 1));
  live_.reset(rows_.rows());
  index_.clear();
  forgetOrder();
}

std::int32_t XArray::LowerBound(std::int32_t dimension) const {
  if (dimension == 1) return rowLow_;
  if (dimension == 2) return columnLow_;
  throw Error::subscriptOutOfRange();
}

std::int32_t XArray::UpperBound(std::int32_t dimension) const {
  if (dimension == 1) return rowLow_ + static_cast<std::int32_t>(live_.count()) - 1;
  if (dimension == 2) return columnLow_ + static_cast<std::int32_t>(rows_.columns()) - 1;
  throw Error::subscriptOutOfRange();
}

void XArray::DeleteRows(std::int32_t row, std::int32_t count) {
  if (count < 0 || row < rowLow_ || row > UpperBound(1) - count + 1)
    throw Error::subscriptOutOfRange();
  for (std::int32_t i = 0; i < count; ++i) live_.remove(slotOf(row));
  if (live_.count() == 0) compact();
}

void XArray::AppendRows(std::int32_t count) {
  if (count < 0) throw Error::subscriptOutOfRange();
  if (!live_.allLive()) compact();
  rows_.append(static_cast<std::size_t>(count));
  live_.append(static_cast<std::size_t>(count));
  forgetOrder();
}

// Stores the remaining rows without the removed ones between them.
void XArray::compact() {
  std::vector<std::uint32_t> slots;
  slots.reserve(live_.count());
  for (std::size_t slot = 0; slot < rows_.rows(); ++slot)
    if (live_.isLive(slot)) slots.push_back(static_cast<std::uint32_t>(slot));
  rows_ = rows_.select(slots);
  live_.reset(rows_.rows());
  index_.clear();
}

std::size_t XArray::slotOf(std::int32_t row) const {
  if (row < rowLow_ || row > UpperBound(1)) throw Error::subscriptOutOfRange();
  return live_.slotAt(static_cast<std::size_t>(row - rowLow_));
}

std::size_t XArray::columnOffset(std::int32_t column) const {
  if (column < columnLow_ || column > UpperBound(2)) throw Error::subscriptOutOfRange();
  return static_cast<std::size_t>(column - columnLow_);
}

std::int32_t XArray::rowOf(std::size_t slot) const {
  return rowLow_ + static_cast<std::int32_t>(live_.positionOf(slot));
}

TableRow XArray::at(std::int32_t row) const {
  return {rows_.row(slotOf(row)), rows_.columns(), columnLow_, *texts_};
}

Cell XArray::cellOf(const Value& value) {
  if (value.isText()) return Cell::ofText(texts_->add(value.asText()));
  if (value.isLong()) return Cell::ofLong(value.asLong());
  if (value.isBoolean()) return {Cell::Kind::Boolean, value.asBoolean() ? 1U : 0U};
  if (value.isNull()) return {Cell::Kind::Null, 0};
  return {};
}

void XArray::set(std::int32_t row, std::int32_t column, const Value& value) {
  const std::size_t slot = slotOf(row);
  const std::size_t offset = columnOffset(column);
  const Cell content = cellOf(value);
  Cell& target = rows_.row(slot)[offset];
  if (target == content) return;
  const bool indexed = isKeyColumn(offset) && slot < index_.indexedRows();
  if (indexed) index_.unlink(rows_, slot);
  target = content;
  if (indexed) index_.link(rows_, slot);
  const auto sortsBy = [column](const SortKey& key) { return key.column == column; };
  if (std::any_of(order_.begin(), order_.end(), sortsBy)) forgetOrder();
}

std::int32_t XArray::FindRow(
    std::span<const std::pair<std::int32_t, std::string_view>> cells) const {
  std::vector<std::pair<std::size_t, Cell>> wanted;
  for (const auto& [column, text] : cells) {
    const auto known = texts_->find(text);
    if (!known) return -1;
    wanted.emplace_back(columnOffset(column), Cell::ofText(*known));
  }
  for (std::size_t slot = 0; slot < rows_.rows(); ++slot) {
    const Cell* row = rows_.row(slot);
    const auto matches = [row](const auto& each) { return row[each.first] == each.second; };
    if (live_.isLive(slot) && std::all_of(wanted.begin(), wanted.end(), matches))
      return rowOf(slot);
  }
  return -1;
}

std::int32_t XArray::Find(std::int32_t startRow, std::int32_t column, const Value& value) const {
  const std::size_t offset = columnOffset(column);
  if (startRow < rowLow_) throw Error::subscriptOutOfRange();
  if (startRow > UpperBound(1)) return -1;
  Cell wanted;
  if (value.isText()) {
    const auto known = texts_->find(value.asText());
    if (!known) return -1;
    wanted = Cell::ofText(*known);
    if (!order_.empty() && order_[0] == SortKey{column, true, Comparison::Text})
      return findSorted(startRow, offset, *known);
  } else if (value.isLong()) {
    wanted = Cell::ofLong(value.asLong());
  } else if (value.isBoolean()) {
    wanted = {Cell::Kind::Boolean, value.asBoolean() ? 1U : 0U};
  } else {
    return -1;  // nothing equals nothing, or Null
  }
  for (std::size_t slot = slotOf(startRow); slot < rows_.rows(); ++slot)
    if (live_.isLive(slot) && rows_.row(slot)[offset] == wanted) return rowOf(slot);
  return -1;
}

// In a table sorted by that column's texts: the first row from `startRow` on that holds `text`.
std::int32_t XArray::findSorted(std::int32_t startRow, std::size_t column, TextId text) const {
  const std::string& wanted = texts_->text(text);
  const auto isBefore = [&](std::int32_t row) {
    const Cell& content = rows_.row(slotOf(row))[column];
    return content.isText() ? texts_->text(content.textId()) < wanted
                            : toText(row, columnLow_ + static_cast<std::int32_t>(column)) < wanted;
  };
  std::int32_t low = startRow;
  std::int32_t high = UpperBound(1) + 1;
  while (low < high) {
    const std::int32_t middle = low + (high - low) / 2;
    if (isBefore(middle))
      low = middle + 1;
    else
      high = middle;
  }
  // Numbers and empty cells sort among the texts that they convert to, and are no match themselves.
  for (; low <= UpperBound(1); ++low) {
    const Cell& content = rows_.row(slotOf(low))[column];
    if (content == Cell::ofText(text)) return low;
    if (content.isText()) return -1;
  }
  return -1;
}

void XArray::QuickSort(std::int32_t rowLow, std::int32_t rowHigh, std::span<const SortKey> keys) {
  for (const SortKey& key : keys) columnOffset(key.column);
  if (rowHigh < rowLow) return;
  const bool whole = rowLow == rowLow_ && rowHigh == UpperBound(1);
  if (whole && !order_.empty() &&
      std::equal(keys.begin(), keys.end(), order_.begin(), order_.end()))
    return;
  if (!live_.allLive()) compact();
  const std::size_t first = slotOf(rowLow);
  const std::size_t last = slotOf(rowHigh) + 1;
  std::vector<SortKey> offsetKeys(keys.begin(), keys.end());
  for (SortKey& key : offsetKeys) key.column -= columnLow_;
  const auto sorted = sortedSlots(rows_, *texts_, first, last, offsetKeys);
  if (!std::is_sorted(sorted.begin(), sorted.end())) {
    std::vector<std::uint32_t> slots(rows_.rows());
    for (std::size_t slot = 0; slot < slots.size(); ++slot)
      slots[slot] =
          slot >= first && slot < last ? sorted[slot - first] : static_cast<std::uint32_t>(slot);
    rows_ = rows_.select(slots);
    index_.clear();
    forgetOrder();
  }
  if (whole) order_.assign(keys.begin(), keys.end());
}

RangeIndex& XArray::index() const {
  index_.extend(rows_);
  return index_;
}

std::int32_t XArray::findRange(std::string_view user, std::int32_t circle,
                               std::string_view numberKey) const {
  if (rows_.columns() <= keyColumns[2]) throw Error::subscriptOutOfRange();
  const auto userId = texts_->find(user);
  if (!userId) return -1;
  auto found = index().first(rows_, live_, {*userId, circle, emptyTextId});
  if (const auto keyId = texts_->find(numberKey)) {
    const auto exact = index().first(rows_, live_, {*userId, circle, *keyId});
    if (exact && (!found || *exact < *found)) found = exact;
  }
  return found ? rowOf(*found) : -1;
}

std::vector<std::int32_t> XArray::rangeRows(std::string_view user, std::int32_t circle,
                                            std::string_view numberKey) const {
  std::vector<std::int32_t> rows;
  if (rows_.columns() <= keyColumns[2]) throw Error::subscriptOutOfRange();
  const auto userId = texts_->find(user);
  const auto keyId = texts_->find(numberKey);
  if (!userId || !keyId) return rows;
  for (const std::size_t slot : index().all(rows_, live_, {*userId, circle, *keyId})) {
    // A cell that was never set has no number key, so it holds no empty one either.
    if (rows_.row(slot)[keyColumns[2]].isText()) rows.push_back(rowOf(slot));
  }
  return rows;
}

void XArray::copyFrom(const XArray& source) {
  if (&source == this) return;
  RowStore rows = source.rows_.copy();
  texts_ = source.texts_;
  rows_ = std::move(rows);
  live_ = source.live_;
  rowLow_ = source.rowLow_;
  columnLow_ = source.columnLow_;
  order_ = source.order_;
  index_.clear();
}

}  // namespace vexnumkr
