#include "adapters/qtgrid/view/grid_view.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>
#include <utility>

#include "adapters/qt/scroll_bar.h"
#include "adapters/qtgrid/view/grid_header.h"

namespace vexnumkr {

GridView::GridView(const std::vector<ColumnDescription>& columns, QWidget* parent)
    : QTreeView(parent),
      model_(new GridModel(columns, this)),
      delegate_(new GridDelegate(*model_, this)) {
  for (const ColumnDescription& column : columns) widths_.push_back(column.width);
  setUpLook();
  setHeader(new GridHeader(*model_, this));
  setItemDelegate(delegate_);
  setModel(model_);
  setUpHeader();
  followShownItems();
  connect(this, &QTreeView::collapsed, this, &GridView::adopt);
  connect(
      model_, &QAbstractItemModel::rowsMoved, this,
      [this](const QModelIndex&, int, int, const QModelIndex& group) { expandNewGroup(group); });
}

void GridView::setUpLook() {
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setUniformRowHeights(true);
  setExpandsOnDoubleClick(false);
  setAnimated(false);
  setIndentation(treeIndentation);
  setTabKeyNavigation(false);
  setVerticalScrollBar(new ScrollBar(Qt::Vertical));
  setHorizontalScrollBar(new ScrollBar(Qt::Horizontal));
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
}

void GridView::setUpHeader() {
  applyWidths();
  connect(header(), &QHeaderView::sectionResized, this,
          [this](int section, int, int width) { widthDragged(section, width); });
}

void GridView::setCurrentItem(int item) {
  const bool scrolls = hasAutoScroll();
  setAutoScroll(false);
  const QModelIndex index = model_->indexOf(item);
  if (index.isValid()) {
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  } else {
    selectionModel()->clear();
  }
  setAutoScroll(scrolls);
}

void GridView::restoreCurrentItem(int item) {
  const QSignalBlocker silence(selectionModel());
  setCurrentItem(item);
}

void GridView::selectItem(int item, bool selected) {
  const auto command =
      selected ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Deselect;
  selectionModel()->select(model_->indexOf(item), command | QItemSelectionModel::Rows);
}

void GridView::reveal(int item, std::optional<int> column) {
  executeDelayedItemsLayout();
  const QModelIndex index = model_->indexOf(item, column ? model_->sectionOf(*column) : 0);
  if (!index.isValid()) return;
  if (index.parent().isValid()) expand(index.parent());
  const int left = horizontalScrollBar()->value();
  if (index.row() == 0 && index.parent().isValid()) scrollTo(index.parent());  // its heading
  scrollTo(index);
  if (!column) horizontalScrollBar()->setValue(left);
}

std::optional<int> GridView::scrollPosition() const {
  if (revealAtLayout_) return std::nullopt;
  return scrollAtLayout_.value_or(verticalScrollBar()->value());
}

void GridView::scrollAtLayout(int position) {
  scrollAtLayout_ = position;
  revealAtLayout_.reset();
}

void GridView::revealAtLayout(int item) {
  if (item < 0) return scrollAtLayout(0);
  revealAtLayout_ = item;
  scrollAtLayout_.reset();
}

void GridView::revealGroup(int item) {
  const QModelIndex group = model_->indexOf(item);
  if (!group.isValid()) return;
  executeDelayedItemsLayout();
  expand(group);
  scrollTo(model_->index(model_->rowCount(group) - 1, 0, group));
  scrollTo(group);
}

void GridView::revealFound(int item, int covered) {
  if (hasChildren(item) && isOpen(item)) {
    revealGroup(item);
  } else {
    reveal(item);
  }
  const int hidden = covered - visualRect(model_->indexOf(item)).top();
  if (hidden > 0) verticalScrollBar()->setValue(verticalScrollBar()->value() - hidden);
}

void GridView::collapseAllGroups() {
  executeDelayedItemsLayout();
  collapseAll();
}

void GridView::toggle(int item) {
  const QModelIndex index = model_->indexOf(item);
  setExpanded(index, !isExpanded(index));
}

// The current item stays in sight: its group takes over when it is closed.
void GridView::adopt(const QModelIndex& collapsed) {
  if (currentIndex().isValid() && currentIndex().parent() == collapsed) {
    setCurrentItem(GridModel::itemOf(collapsed));
  }
}

void GridView::expandNewGroup(const QModelIndex& group) {
  if (group.isValid() && model_->rowCount(group) == 1) expand(group);
}

double GridView::widthOf(int gridColumn) const {
  return widths_[static_cast<std::size_t>(gridColumn)];
}

void GridView::setWidthOf(int gridColumn, double width) {
  widths_[static_cast<std::size_t>(gridColumn)] = std::max(width, 0.0);
  model_->setShown(gridColumn, width > 0);
  applyWidths();
  fitScrollBars();
}

void GridView::applyWidths() {
  const QScopedValueRollback<bool> setting(settingWidths_, true);
  for (int section = 1; section < model_->columnCount(); ++section) {
    const double width = widths_[static_cast<std::size_t>(model_->columnOf(section))];
    header()->resizeSection(section, static_cast<int>(std::lround(width)));
  }
  fitFirstSection();
}

void GridView::fitFirstSection() {
  if (model_->columnCount() == 0) return;
  const QScopedValueRollback<bool> setting(settingWidths_, true);
  const int others = header()->length() - header()->sectionSize(0);
  const double own = widths_[static_cast<std::size_t>(model_->columnOf(0))];
  const int left = viewport()->width() - others;
  header()->resizeSection(0, std::max(static_cast<int>(std::lround(own)), left));
  cellsMoved();
}

// At once, lest a scroll bar is seen that is not needed any more; the layout after a reset sees to
// it by itself, and knows where to scroll to.
void GridView::fitScrollBars() {
  if (!expandAtLayout_) updateGeometries();
}

void GridView::widthDragged(int section, int width) {
  if (!settingWidths_) {
    widths_[static_cast<std::size_t>(model_->columnOf(section))] = width;
    if (section > 0) fitFirstSection();
  }
  cellsMoved();
}

void GridView::reset() {
  QTreeView::reset();
  shownItems_.reset();
  expandAtLayout_ = true;
  if (header()->count() == model_->columnCount() && !settingWidths_) applyWidths();
}

void GridView::doItemsLayout() {
  if (expandAtLayout_) {
    expandAtLayout_ = false;
    expandAll();
    header()->doItemsLayout();
  } else {
    QTreeView::doItemsLayout();
  }
  if (scrollAtLayout_) verticalScrollBar()->setValue(*scrollAtLayout_);
  scrollAtLayout_.reset();
  if (const auto item = std::exchange(revealAtLayout_, std::nullopt)) reveal(*item);
  cellsMoved();
}

void GridView::rowsInserted(const QModelIndex& parent, int start, int end) {
  QTreeView::rowsInserted(parent, start, end);
  shownItems_.reset();
  expandNewGroup(parent);
}

void GridView::cellsMoved() {
  if (listener_ != nullptr) listener_->cellsMoved();
}

QRect GridView::cellRect(const QModelIndex& index) const {
  const QRect row = visualRect(index);
  if (!row.isValid()) return {};
  return {columnViewportPosition(index.column()), row.top(), header()->sectionSize(index.column()),
          row.height()};
}

QRect GridView::editorArea(int item, int column) const {
  const QModelIndex index = model_->indexOf(item, model_->sectionOf(column));
  const QRect cell = index.isValid() ? cellRect(index) : QRect();
  if (cell.isEmpty()) return {};
  const QRect text = delegate_->layout(index, cell, fontMetrics()).text;
  return cell.adjusted(text.left() - cell.left() - cellPadding, 0, 0, -1);
}

QRect GridView::involvedArea() const {
  QRect area;
  for (QModelIndex index = indexAt(QPoint(0, 0)); index.isValid(); index = indexBelow(index)) {
    const QRect row = visualRect(index);
    if (row.top() > viewport()->height()) break;
    if (noteOf(GridModel::itemOf(index), 0).involved)
      area |= QRect(0, row.top(), viewport()->width(), row.height());
  }
  return area;
}

GridHit GridView::hitTest(const QPoint& position) const {
  const QModelIndex index = indexAt(position);
  if (!index.isValid()) return {};
  const CellLayout parts = delegate_->layout(index, cellRect(index), fontMetrics());
  GridHit hit{GridModel::itemOf(index), model_->columnOf(index.column())};
  const int x = position.x();
  const int margin = cellPadding / 2;
  if (!parts.picture.isEmpty() && x >= parts.picture.left() - margin &&
      x <= parts.picture.right() + margin) {
    hit.area = GridArea::Picture;
  } else if (index.column() > 0 || x >= parts.text.left() - cellPadding) {
    hit.area = GridArea::Cell;
  } else {
    hit.onArrow = parts.branch.contains(position) && model_->hasChildren(model_->indexOf(hit.item));
  }
  return hit;
}

bool GridView::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && listener_ != nullptr &&
      listener_->keyPressed(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  // The height of rows depends on the screen's device pixels.
  if (event->type() == QEvent::ScreenChangeInternal) scheduleDelayedItemsLayout();
  const bool used = QTreeView::event(event);
  if (event->type() == QEvent::Paint && hasKeys()) paintFocus();
  return used;
}

// Where no item is current yet, the keys go to where they would lead from the top of the list;
// those that lead from one item to another by its side lead nowhere.
void GridView::enterByKey(int key) {
  const std::vector<int>& items = shownItems();
  if (items.empty()) return;
  switch (key) {
    case Qt::Key_Down:
    case Qt::Key_Home:
      return chooseByKey(items.front());
    case Qt::Key_End:
      return chooseByKey(items.back());
    case Qt::Key_PageDown: {
      const QModelIndex lowest = indexAt(QPoint(0, viewport()->height() - 1));
      return chooseByKey(lowest.isValid() ? GridModel::itemOf(lowest) : items.back());
    }
    default:
      return;
  }
}

void GridView::chooseByKey(int item) {
  setCurrentItem(item);
  reveal(item);
}

// Keys that do not move within the grid belong to the form: none searches, selects or edits here.
void GridView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Plus:
    case Qt::Key_Minus:
    case Qt::Key_Asterisk:
      return currentIndex().isValid() ? QTreeView::keyPressEvent(event) : enterByKey(event->key());
    default:
      if (event->matches(QKeySequence::Copy)) return QTreeView::keyPressEvent(event);
      event->ignore();
      searchByTyping(*event);
  }
}

// To the next shown item that begins with what is typed quickly, round the end of the list.
void GridView::searchByTyping(const QKeyEvent& event) {
  const QString text = event.text();
  const bool isText = !text.isEmpty() && text.front().isPrint() && !text.front().isSpace();
  const auto others = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  if (!isText || others != Qt::NoModifier) return;
  keyboardSearch(text);
  if (currentIndex().isValid()) revealFound(GridModel::itemOf(currentIndex()));
}

// Leaves out the base class, which would choose a current item.
void GridView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  update();
  viewport()->update();
  // Behind the news that the grid has the focus, which Qt spreads after this.
  QMetaObject::invokeMethod(this, &GridView::announceCurrent, Qt::QueuedConnection);
}

void GridView::focusOutEvent(QFocusEvent* event) {
  QTreeView::focusOutEvent(event);
  update();
}

void GridView::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() == Qt::LeftButton) tellPressed(*event);
}

void GridView::tellPressed(const QMouseEvent& event) {
  const GridHit hit = hitTest(event.position().toPoint());
  if (listener_ == nullptr) return;
  listener_->pressed(hit, event.button());
  const bool isCurrent = hit.item >= 0 && currentIndex() == model_->indexOf(hit.item);
  if (event.button() == Qt::RightButton && isCurrent && listener_ != nullptr)
    listener_->menuWanted(event.globalPosition().toPoint());
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void GridView::mouseMoveEvent(QMouseEvent* event) { event->accept(); }

// The other buttons count when they are released: a message box that answers the click could not
// be worked while one of them is held down.
void GridView::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  const bool inside = viewport()->rect().contains(event->position().toPoint());
  if (event->button() != Qt::LeftButton && inside) tellPressed(*event);
}

// The mouse's wish for a menu is part of its click; this is the keyboard's.
void GridView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() != QContextMenuEvent::Keyboard || !currentIndex().isValid()) return;
  const QRect place = cellRect(currentIndex()).intersected(viewport()->rect());
  if (listener_ != nullptr) listener_->menuWanted(viewport()->mapToGlobal(place.bottomLeft()));
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  fitFirstSection();
  fitScrollBars();
}

void GridView::showEvent(QShowEvent* event) {
  QTreeView::showEvent(event);
  if (currentIndex().isValid() && !scrollAtLayout_) scrollTo(currentIndex());
}

void GridView::scrollContentsBy(int dx, int dy) {
  QTreeView::scrollContentsBy(dx, dy);
  cellsMoved();
}

void GridView::updateGeometries() {
  QTreeView::updateGeometries();
  cellsMoved();
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  // Leaves out the class between, which would tell of a focus that may be in the editor.
  QAbstractItemView::currentChanged(current, previous);
  announceCurrent();
  if (listener_ == nullptr) return;
  listener_->currentItemChanged(current.isValid() ? GridModel::itemOf(current) : -1);
}

}  // namespace vexnumkr
