// A cell of a grid as assistive technology sees it.
#pragma once

#include "adapters/qtgrid/accessible/grid_part.h"

namespace vexnumkr {

/// The first cell of a row stands for the whole item: it has the item's level, is expanded or
/// collapsed, is checked as its picture says, and tells the row's values in its description, since
/// the keys move between rows and not between cells. Its child is the picture.
///
/// Actions are those of the mouse: a press expands or collapses a group, chooses an option button
/// and opens the editor of a cell that takes entries; a check box is toggled. While the mouse could
/// not reach the grid, under a message box or during work, they do nothing.
class CellAccessible final : public GridPart,
                             public QAccessibleTableCellInterface,
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
                             public QAccessibleAttributesInterface,
#endif
                             public QAccessibleActionInterface {
 public:
  CellAccessible(GridAccessible& grid, int item, int section)
      : GridPart(grid), item_(item), section_(section) {}

  int indexInGrid() const override { return grid().indexOfCell(item_, section_); }

  bool isValid() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  QString text(QAccessible::Text kind) const override;
  QRect rect() const override;
  QAccessibleInterface* child(int index) const override;
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;

  bool isSelected() const override;
  QList<QAccessibleInterface*> columnHeaderCells() const override;
  QList<QAccessibleInterface*> rowHeaderCells() const override;
  int columnIndex() const override { return section_; }
  int rowIndex() const override;
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return &grid(); }

  QStringList actionNames() const override;
  QString localizedActionName(const QString& name) const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& name) const override;

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QList<QAccessible::Attribute> attributeKeys() const override;
  QVariant attributeValue(QAccessible::Attribute key) const override;
#endif

 private:
  bool isFirst() const { return section_ == 0; }
  bool isGroup() const;
  /// From 1.
  int level() const;
  QString description() const;
  QAccessibleInterface* picture() const;
  void addItemState(QAccessible::State& state) const;

  int item_;
  int section_;
};

}  // namespace vexnumkr
