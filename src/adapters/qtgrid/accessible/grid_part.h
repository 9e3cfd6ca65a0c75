// What the parts of an accessible grid have in common.
#pragma once

#include <QAccessibleInterface>

#include "adapters/qtgrid/accessible/grid_accessible.h"
#include "adapters/qtgrid/view/grid_view.h"

namespace vexnumkr {

/// A part has no widget of its own. It belongs to Qt and is made and forgotten by its grid, which
/// outlives it.
class GridPart : public QAccessibleInterface {
 public:
  ~GridPart() override = default;
  GridPart(const GridPart&) = delete;
  GridPart& operator=(const GridPart&) = delete;

  /// Its place among the children of the grid.
  virtual int indexInGrid() const = 0;

  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return grid_.window(); }
  QAccessibleInterface* parent() const override { return &grid_; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}

 protected:
  explicit GridPart(GridAccessible& grid) : grid_(grid) {}

  GridAccessible& grid() const { return grid_; }
  GridView& view() const { return grid_.view(); }
  const GridModel& model() const { return view().gridModel(); }
  QString textOf(int item, int section) const;
  /// `area` of the viewport on the screen.
  QRect onScreen(const QRect& area) const;
  /// Whether actions may do anything now.
  bool takesActions() const;
  /// As a click of the left mouse button.
  void click(int item, int section, GridArea area, bool onArrow = false) const;

 private:
  GridAccessible& grid_;
};

}  // namespace vexnumkr
