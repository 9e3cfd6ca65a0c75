// The widget of a grid: shows a grid model, turns clicks and keys into what they mean.
#pragma once

#include <QTreeView>
#include <optional>
#include <vector>

#include "adapters/qtgrid/items/grid_model.h"
#include "adapters/qtgrid/view/grid_delegate.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

class GridAnnouncer;

/// What lies under a point of the grid. `item` is -1 where there is none.
struct GridHit {
  int item = -1;
  int column = 0;
  GridArea area = GridArea::Other;
  bool onArrow = false;
};

/// Who decides what clicks, keys and tool tips lead to.
class GridViewListener {
 public:
  virtual ~GridViewListener() = default;
  virtual void pressed(const GridHit& hit, Qt::MouseButton button) = 0;
  /// Whether the key is used up; otherwise it is the view's.
  virtual bool keyPressed(const QKeyEvent& event) = 0;
  virtual void currentItemChanged(int item) = 0;
  /// The text for a cell's tool tip, given the proposed one; empty for none.
  virtual QString toolTip(int column, const QString& proposal) = 0;
  /// Cells may stand elsewhere now.
  virtual void cellsMoved() = 0;
  /// What a cell shows besides its text.
  virtual CellNote noteOf(int item, int column) = 0;
  /// The commands for the current item are wanted, at a position on the screen.
  virtual void menuWanted(const QPoint& position) = 0;

 protected:
  GridViewListener() = default;
  GridViewListener(const GridViewListener&) = default;
  GridViewListener& operator=(const GridViewListener&) = default;
};

/// After a reset of the model every group is expanded, at the next layout. The first section takes
/// the width that the others leave, but never less than its own.
class GridView : public QTreeView {
  Q_OBJECT

 public:
  GridView(const std::vector<ColumnDescription>& columns, QWidget* parent);

  GridModel& gridModel() { return *model_; }
  /// Null for nobody; borrowed.
  void listen(GridViewListener* listener) { listener_ = listener; }

  /// Makes the item current and selected without scrolling; -1 for none.
  void setCurrentItem(int item);
  /// The same after a reset, without a word and without laying out: all is painted anew anyway.
  void restoreCurrentItem(int item);
  void selectItem(int item, bool selected);
  /// Expands the item's group and scrolls as little as it takes to show the item, or the cell when
  /// a column is given; the first of a group brings the group into sight too.
  void reveal(int item, std::optional<int> column = std::nullopt);
  /// Where the list is scrolled to, or will be; nothing while that depends on an item to be shown.
  std::optional<int> scrollPosition() const;
  /// Scrolls at the next layout: to that position, or until the item is shown; -1 shows the top.
  void scrollAtLayout(int position);
  void revealAtLayout(int item);
  /// Expands the group and scrolls as little as it takes to show it with its items.
  void revealGroup(int item);
  /// Scrolls to an item that was looked for, a group that is open with its items; where there is
  /// more above, not into the topmost `covered` pixels.
  void revealFound(int item, int covered = 0);
  void collapseAllGroups();
  void toggle(int item);

  /// A grid column's own width, which fitting the first section leaves alone; 0 hides the column.
  double widthOf(int gridColumn) const;
  void setWidthOf(int gridColumn, double width);

  /// Where the text of a cell stands in the viewport; empty for a cell that is not shown. It may
  /// lie outside of what is seen.
  QRect editorArea(int item, int column) const;
  GridHit hitTest(const QPoint& position) const;
  /// The rows in the viewport that stand against the entry being made; empty for none.
  QRect involvedArea() const;

  // What assistive technology asks for. Rows are counted among the items that are shown, those in
  // closed groups left out; sections are those of the model.
  const std::vector<int>& shownItems();
  /// -1 for an item that is not shown.
  int rowOf(int item);
  bool hasChildren(int item) const;
  bool isOpen(int item);
  /// In the viewport; empty for what is not shown.
  QRect cellArea(int item, int section);
  QRect pictureArea(int item);
  /// The header of the cell's column, the item and its group, separated by commas.
  QString pathOf(int item, int section) const;
  /// The tool tip of a column where the grid itself proposes none.
  QString toolTipOf(int section) const;
  /// What a cell shows besides its text.
  CellNote noteOf(int item, int section) const;
  bool takesEntries(int section) const;
  void acceptEntries(bool accepts);
  void acceptChoices(bool accepts);
  /// Whether keys go to the grid itself and not to an editor in it.
  bool hasKeys() const;
  /// As a click of the left mouse button.
  void click(const GridHit& hit);
  /// Makes the item current as a click beside its cells does.
  void choose(int item);
  /// Tells that the current item has the focus.
  void announceCurrent();

  void doItemsLayout() override;
  void reset() override;
  void rowsInserted(const QModelIndex& parent, int start, int end) override;
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles = {}) override;

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void updateGeometries() override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

 private:
  void setUpLook();
  void setUpHeader();
  void enterByKey(int key);
  void tellPressed(const QMouseEvent& event);
  void searchByTyping(const QKeyEvent& event);
  void chooseByKey(int item);
  void adopt(const QModelIndex& collapsed);
  void expandNewGroup(const QModelIndex& group);
  void widthDragged(int section, int width);
  void applyWidths();
  void fitFirstSection();
  void fitScrollBars();
  void cellsMoved();
  bool showCellToolTip(const QHelpEvent& event);
  QRect cellRect(const QModelIndex& index) const;
  void followShownItems();
  GridAnnouncer* announcer();
  void paintFocus();
  void paintRule(QPainter* painter, const QRect& row) const;
  void paintCells(QPainter* painter, const QStyleOptionViewItem& row,
                  const QModelIndex& index) const;

  GridModel* model_;        // owned by this widget, as every QObject child
  GridDelegate* delegate_;  // likewise
  GridViewListener* listener_ = nullptr;
  std::vector<double> widths_;                  // by grid column
  std::optional<std::vector<int>> shownItems_;  // once somebody has asked
  bool settingWidths_ = false;
  bool expandAtLayout_ = false;
  std::optional<int> scrollAtLayout_;
  std::optional<int> revealAtLayout_;
};

}  // namespace vexnumkr
