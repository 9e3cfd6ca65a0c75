#include "adapters/qtgrid/items/grid_items.h"

#include <algorithm>

#include <vexnumkr/error.h>

namespace vexnumkr {
namespace {

constexpr std::uint32_t numberFlag = 0x80000000U;
constexpr std::int32_t numberLimit = 1 << 30;

bool fitsCell(std::int32_t number) { return number >= -numberLimit && number < numberLimit; }

std::uint32_t cellOfNumber(std::int32_t number) {
  return numberFlag | static_cast<std::uint32_t>(number);
}

std::int32_t numberOfCell(std::uint32_t cell) {
  return static_cast<std::int32_t>(cell << 1) >> 1;  // takes the sign from bit 30
}

std::string decimalText(std::int32_t number) { return std::to_string(number); }

}  // namespace

int GridItems::append(std::string_view text) {
  const int item = count();
  cells_.resize(cells_.size() + static_cast<std::size_t>(columns_), GridTexts::emptyText);
  items_.push_back(Item{topCount()});
  tops_.push_back(item);
  if (!text.empty() && columns_ > 0) setText(item, 0, text);
  return item;
}

void GridItems::clear() {
  items_.clear();
  cells_.clear();
  tops_.clear();
  texts_.clear();
  styles_.clear();
}

const GridItems::Item& GridItems::at(int item) const {
  if (!contains(item)) throw Error::subscriptOutOfRange();
  return items_[static_cast<std::size_t>(item)];
}

GridItems::Item& GridItems::at(int item) {
  if (!contains(item)) throw Error::subscriptOutOfRange();
  return items_[static_cast<std::size_t>(item)];
}

std::size_t GridItems::cellAt(int item, int column) const {
  if (!contains(item) || !hasColumn(column)) throw Error::subscriptOutOfRange();
  return static_cast<std::size_t>(item) * static_cast<std::size_t>(columns_) +
         static_cast<std::size_t>(column);
}

int GridItems::level(int item) const { return at(item).level; }

void GridItems::setLevel(int item, int level) {
  if (level != 0 && level != 1) throw Error::invalidPropertyValue();
  Item& changed = at(item);
  if (changed.level == level) return;
  changed.level = static_cast<std::int16_t>(level);
  placeFrom(item);
}

void GridItems::placeFrom(int item) {
  tops_.erase(std::lower_bound(tops_.begin(), tops_.end(), item), tops_.end());
  for (int placed = item; placed < count(); ++placed) {
    const bool underGroup = at(placed).level > 0 && !tops_.empty() && at(tops_.back()).level == 0;
    if (!underGroup) tops_.push_back(placed);
    at(placed).topRow = topCount() - 1;
  }
}

std::string GridItems::text(int item, int column) const {
  return textOf(cells_[cellAt(item, column)]);
}

std::string GridItems::textOf(Cell cell) const {
  if ((cell & numberFlag) != 0) return decimalText(numberOfCell(cell));
  return std::string(texts_.text(cell));
}

bool GridItems::setCell(int item, int column, Cell value) {
  Cell& cell = cells_[cellAt(item, column)];
  const bool changes = cell != value;
  cell = value;
  return changes;
}

bool GridItems::setText(int item, int column, std::string_view text) {
  const std::size_t position = cellAt(item, column);
  // Neighbours often hold the same text: a comparison is cheaper than looking it up.
  if (item > 0) {
    const Cell above = cells_[position - static_cast<std::size_t>(columns_)];
    if ((above & numberFlag) == 0 && texts_.text(above) == text)
      return setCell(item, column, above);
  }
  return setCell(item, column, texts_.add(text));
}

bool GridItems::setNumber(int item, int column, std::int32_t number) {
  if (!fitsCell(number)) return setText(item, column, decimalText(number));
  return setCell(item, column, cellOfNumber(number));
}

PictureHandle GridItems::picture(int item) const { return at(item).picture; }

void GridItems::setPicture(int item, PictureHandle picture) { at(item).picture = picture; }

CellStyle GridItems::style(int item, int column) const {
  const std::size_t cell = cellAt(item, column);
  if (!at(item).styled) return {};
  const auto found = styles_.find(cell);
  return found == styles_.end() ? CellStyle{} : found->second;
}

void GridItems::setStyle(int item, int column, const CellStyle& style) {
  styles_[cellAt(item, column)] = style;
  at(item).styled = true;
}

template <class Matches>
int GridItems::findFirst(int start, int column, Matches matches) const {
  for (int item = std::max(start, 0); item < count(); ++item) {
    if (matches(text(item, column))) return item;
  }
  return -1;
}

int GridItems::find(int start, int column, std::string_view sought) const {
  if (!hasColumn(column)) throw Error::subscriptOutOfRange();
  const int equal =
      findFirst(start, column, [sought](const std::string& text) { return text == sought; });
  if (equal >= 0) return equal;
  return findFirst(start, column,
                   [sought](const std::string& text) { return text.starts_with(sought); });
}

int GridItems::topRowOf(int item) const { return at(item).topRow; }

int GridItems::childCount(int topRow) const {
  const int next = topRow + 1 < topCount() ? topItem(topRow + 1) : count();
  return next - topItem(topRow) - 1;
}

}  // namespace vexnumkr
