// The header of a grid's column as assistive technology sees it.
#pragma once

#include "adapters/qtgrid/accessible/grid_part.h"

namespace vexnumkr {

class HeaderAccessible final : public GridPart {
 public:
  HeaderAccessible(GridAccessible& grid, int section) : GridPart(grid), section_(section) {}

  int indexInGrid() const override { return grid().indexOfHeader(section_); }
  bool isValid() const override;
  QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
  QAccessible::State state() const override;
  QString text(QAccessible::Text kind) const override;
  QRect rect() const override;

 private:
  int section_;
};

}  // namespace vexnumkr
