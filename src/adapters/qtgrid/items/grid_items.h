// What a grid holds: its items with level, picture, cell texts and cell styles, and the two-level
// tree that they form. Knows nothing of widgets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "adapters/qtgrid/items/grid_texts.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

struct CellStyle {
  bool bold = false;
  GridColour background = gridDefaultColour;
};

/// Items are numbered from 0 in the order in which they were added. An item of level 1 stands under
/// the last item of level 0 before it; where there is none, it is a top item itself.
///
/// Cells are four bytes: numbers stand in them, texts are shared. Every position in the list and in
/// the tree is found in constant time.
///
/// Naming an item or a column that does not exist: error 9, and nothing changes.
class GridItems {
 public:
  explicit GridItems(int columns) : columns_(columns) {}

  int count() const { return static_cast<int>(items_.size()); }
  bool contains(int item) const { return item >= 0 && item < count(); }
  bool hasColumn(int column) const { return column >= 0 && column < columns_; }

  /// Adds an item of level 0 with `text` in column 0; returns its number.
  int append(std::string_view text);
  void clear();

  int level(int item) const;
  /// 0 or 1. Error 380 for any other level.
  void setLevel(int item, int level);

  std::string text(int item, int column) const;
  /// Whether the cell changes by it.
  bool setText(int item, int column, std::string_view text);
  bool setNumber(int item, int column, std::int32_t number);

  PictureHandle picture(int item) const;
  void setPicture(int item, PictureHandle picture);

  CellStyle style(int item, int column) const;
  void setStyle(int item, int column, const CellStyle& style);

  /// See TreeGrid::FindString. Only the column may be in error.
  int find(int start, int column, std::string_view text) const;

  // The tree. Top items are counted in rows of their own; children are counted from 0 below theirs.
  int topCount() const { return static_cast<int>(tops_.size()); }
  int topItem(int topRow) const { return tops_[static_cast<std::size_t>(topRow)]; }
  /// The row of the top item that the item stands under, or that it is.
  int topRowOf(int item) const;
  bool isTop(int item) const { return topItem(topRowOf(item)) == item; }
  int childCount(int topRow) const;

 private:
  using Cell = std::uint32_t;  // a number in 31 bits with the highest bit set, or the id of a text
  struct Item {
    std::int32_t topRow = 0;
    std::int16_t level = 0;
    bool styled = false;
    PictureHandle picture = noPicture;
  };

  const Item& at(int item) const;
  Item& at(int item);
  std::size_t cellAt(int item, int column) const;
  bool setCell(int item, int column, Cell value);
  std::string textOf(Cell cell) const;
  void placeFrom(int item);
  template <class Matches>
  int findFirst(int start, int column, Matches matches) const;

  int columns_;
  std::vector<Item> items_;
  std::vector<Cell> cells_;
  std::vector<std::int32_t> tops_;
  GridTexts texts_;
  std::unordered_map<std::size_t, CellStyle> styles_;  // by cell; few cells have one
};

}  // namespace vexnumkr
