// What assistive technology asks a grid for, and what it is told.
#include <QAccessible>
#include <QHeaderView>
#include <algorithm>

#include "adapters/qtgrid/view/grid_announcer.h"
#include "adapters/qtgrid/view/grid_view.h"

namespace vexnumkr {

// The interface that assistive technology has of this widget; null while nobody listens.
GridAnnouncer* GridView::announcer() {
  if (!QAccessible::isActive()) return nullptr;
  return dynamic_cast<GridAnnouncer*>(QAccessible::queryAccessibleInterface(this));
}

void GridView::followShownItems() {
  const auto changed = [this](const QModelIndex& group) {
    shownItems_.reset();
    if (auto* told = announcer()) told->expansionChanged(GridModel::itemOf(group));
  };
  connect(this, &QTreeView::expanded, this, changed);
  connect(this, &QTreeView::collapsed, this, changed);
  connect(model_, &QAbstractItemModel::rowsMoved, this, [this] { shownItems_.reset(); });
}

const std::vector<int>& GridView::shownItems() {
  executeDelayedItemsLayout();
  if (shownItems_) return *shownItems_;
  std::vector<int> items;
  for (int item = 0; item < model_->items().count(); ++item) {
    const QModelIndex group = model_->indexOf(item).parent();
    if (!group.isValid() || isExpanded(group)) items.push_back(item);
  }
  return shownItems_.emplace(std::move(items));
}

int GridView::rowOf(int item) {
  const std::vector<int>& items = shownItems();
  const auto found = std::lower_bound(items.begin(), items.end(), item);
  if (found == items.end() || *found != item) return -1;
  return static_cast<int>(found - items.begin());
}

bool GridView::hasChildren(int item) const { return model_->hasChildren(model_->indexOf(item)); }

bool GridView::isOpen(int item) {
  executeDelayedItemsLayout();
  return isExpanded(model_->indexOf(item));
}

QRect GridView::cellArea(int item, int section) {
  executeDelayedItemsLayout();
  return cellRect(model_->indexOf(item, section));
}

QRect GridView::pictureArea(int item) {
  const QRect cell = cellArea(item, 0);
  return cell.isEmpty() ? cell
                        : delegate_->layout(model_->indexOf(item), cell, fontMetrics()).picture;
}

QString GridView::pathOf(int item, int section) const {
  QStringList path{model_->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString()};
  for (QModelIndex at = model_->indexOf(item); at.isValid(); at = at.parent()) {
    path << at.data().toString();
  }
  return path.join(QStringLiteral(", "));
}

QString GridView::toolTipOf(int section) const {
  if (listener_ == nullptr) return {};
  return listener_->toolTip(model_->columnOf(section), QString());
}

CellNote GridView::noteOf(int item, int section) const {
  return listener_ == nullptr ? CellNote() : listener_->noteOf(item, model_->columnOf(section));
}

bool GridView::takesEntries(int section) const { return model_->takesEntries(section); }

void GridView::acceptEntries(bool accepts) {
  model_->acceptEntries(accepts);
  viewport()->update();
}

void GridView::acceptChoices(bool accepts) {
  model_->acceptChoices(accepts);
  viewport()->update();
}

void GridView::click(const GridHit& hit) {
  if (listener_ != nullptr) listener_->pressed(hit, Qt::LeftButton);
}

void GridView::choose(int item) { click({item, model_->columnOf(0), GridArea::Other, false}); }

void GridView::announceCurrent() {
  if (!hasKeys() || !currentIndex().isValid()) return;
  if (auto* told = announcer()) {
    told->focusMoved(GridModel::itemOf(currentIndex()), currentIndex().column());
  }
}

void GridView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                           const QList<int>& roles) {
  QTreeView::dataChanged(topLeft, bottomRight, roles);
  viewport()->update();  // what cells show besides their texts follows from those of others
  GridAnnouncer* const told = announcer();
  if (told == nullptr) return;
  const int item = GridModel::itemOf(topLeft);
  if (roles.contains(Qt::CheckStateRole)) told->checkChanged(item);
  if (roles.contains(Qt::DisplayRole)) told->textChanged(item, topLeft.column());
}

}  // namespace vexnumkr
