// A grid as assistive technology sees it: a tree with a table of named columns.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

#include "adapters/qtgrid/view/grid_announcer.h"

namespace vexnumkr {

class GridView;

/// Lets assistive technology see `view` as a grid. REQUIRES: not done before.
void makeAccessible(GridView& view);

/// The children are the headers and then the cells, row by row, in the order in which Qt's own item
/// views number them in their events. Rows are those that are shown: children of collapsed groups
/// are none. While a cell is edited, one more child follows, in which the editor stands.
///
/// Belongs to Qt, which deletes it with its view. Its parts are made when they are asked for, and
/// are good until the structure of the list changes.
class GridAccessible final : public QAccessibleWidget,
                             public QAccessibleTableInterface,
                             public GridAnnouncer {
 public:
  explicit GridAccessible(GridView& view);
  ~GridAccessible() override;
  GridAccessible(const GridAccessible&) = delete;
  GridAccessible& operator=(const GridAccessible&) = delete;

  GridView& view() const;

  // The parts; null for those that do not exist.
  QAccessibleInterface* header(int section);
  QAccessibleInterface* cell(int item, int section);
  /// What an item's check box or option button says.
  QAccessibleInterface* picture(int item);
  /// The place of a part among the children.
  int indexOfHeader(int section) const { return section; }
  int indexOfCell(int item, int section) const;

  void* interface_cast(QAccessible::InterfaceType type) override;
  QAccessible::Role role() const override { return QAccessible::Tree; }
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int column) const override;
  int selectedCellCount() const override;
  QList<QAccessibleInterface*> selectedCells() const override;
  QString columnDescription(int column) const override;
  QString rowDescription(int row) const override;
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override;
  int columnCount() const override;
  int rowCount() const override;
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override;
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int row) const override;
  bool selectRow(int row) override;
  bool selectColumn(int) override { return false; }
  bool unselectRow(int row) override;
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent* event) override;

  void expansionChanged(int item) override;
  void checkChanged(int item) override;
  void textChanged(int item, int section) override;
  void focusMoved(int item, int section) override;

 private:
  template <class Make>
  QAccessibleInterface* part(int item, int section, Make make);
  int itemAt(int row) const;
  int partCount() const;
  QAccessibleInterface* editorPlace() const;
  void forgetParts();

  QHash<QPair<int, int>, QAccessible::Id> parts_;  // by item and section
};

}  // namespace vexnumkr
