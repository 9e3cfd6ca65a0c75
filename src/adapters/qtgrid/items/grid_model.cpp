#include "adapters/qtgrid/items/grid_model.h"

#include <algorithm>

#include <vexnumkr/error.h>

#include "adapters/qt/picture_art.h"

namespace vexnumkr {

GridModel::GridModel(const std::vector<ColumnDescription>& columns, QObject* parent)
    : QAbstractItemModel(parent), columns_(columns), items_(static_cast<int>(columns.size())) {
  for (std::size_t column = 1; column < columns_.size(); ++column) {
    if (columns_[column].width > 0) shown_.push_back(static_cast<int>(column));
  }
}

int GridModel::append(std::string_view text) {
  if (updateDepth_ > 0) {
    announceReset();
    return items_.append(text);
  }
  beginInsertRows({}, items_.topCount(), items_.topCount());
  const int item = items_.append(text);
  endInsertRows();
  return item;
}

void GridModel::clear() {
  beginUpdate();
  announceReset();
  items_.clear();
  endUpdate();
}

void GridModel::setLevel(int item, int level) {
  if (items_.level(item) == level) return;
  if (level != 0 && level != 1) throw Error::invalidPropertyValue();
  if (updateDepth_ == 0 && level == 1 && item == items_.count() - 1) {
    moveLastUnderGroup();
    return;
  }
  beginUpdate();
  announceReset();
  items_.setLevel(item, level);
  endUpdate();
}

// The one move that building a list item by item outside of an update needs; every other change of
// levels resets the model.
void GridModel::moveLastUnderGroup() {
  const int item = items_.count() - 1;
  const int topRow = items_.topCount() - 1;
  const int groupRow = topRow - 1;
  if (groupRow < 0 || items_.level(items_.topItem(groupRow)) != 0) {
    items_.setLevel(item, 1);
    return;
  }
  beginMoveRows({}, topRow, topRow, indexOf(items_.topItem(groupRow)), items_.childCount(groupRow));
  items_.setLevel(item, 1);
  endMoveRows();
}

void GridModel::setText(int item, int column, std::string_view text) {
  if (items_.setText(item, column, text)) cellChanged(item, column, Change::Text);
}

void GridModel::setNumber(int item, int column, std::int32_t number) {
  if (items_.setNumber(item, column, number)) cellChanged(item, column, Change::Text);
}

void GridModel::setPicture(int item, PictureHandle picture) {
  if (items_.picture(item) == picture) return;
  items_.setPicture(item, picture);
  if (!shown_.empty()) cellChanged(item, columnOf(0), Change::Picture);
}

void GridModel::setStyle(int item, int column, const CellStyle& style) {
  items_.setStyle(item, column, style);
  cellChanged(item, column, Change::Style);
}

void GridModel::setShown(int column, bool shown) {
  if (shown == (sectionOf(column) >= 0)) return;
  beginUpdate();
  announceReset();
  if (shown) {
    shown_.insert(std::lower_bound(shown_.begin(), shown_.end(), column), column);
  } else {
    shown_.erase(std::find(shown_.begin(), shown_.end(), column));
  }
  endUpdate();
}

void GridModel::beginUpdate() { ++updateDepth_; }

bool GridModel::endUpdate() {
  if (--updateDepth_ > 0) return false;
  const bool resets = resetting_;
  if (resets) {
    resetting_ = false;
    endResetModel();
  } else if (firstChanged_ >= 0) {
    signalChangedRows();
  }
  firstChanged_ = lastChanged_ = -1;
  return resets;
}

void GridModel::announceReset() {
  if (resetting_) return;
  beginResetModel();
  resetting_ = true;
}

QList<int> GridModel::rolesOf(Change change) {
  switch (change) {
    case Change::Text:
      return {Qt::DisplayRole, Qt::AccessibleTextRole};
    case Change::Picture:
      return {Qt::DecorationRole, Qt::CheckStateRole, Qt::AccessibleDescriptionRole};
    case Change::Style:
      return {Qt::FontRole, Qt::BackgroundRole};
  }
  return {};
}

void GridModel::cellChanged(int item, int column, Change change) {
  if (resetting_) return;
  if (updateDepth_ > 0) {
    firstChanged_ = firstChanged_ < 0 ? item : std::min(firstChanged_, item);
    lastChanged_ = std::max(lastChanged_, item);
    return;
  }
  const QModelIndex index = indexOf(item, sectionOf(column));
  if (index.isValid()) Q_EMIT dataChanged(index, index, rolesOf(change));
}

// One signal per group: the range of a signal has one parent.
void GridModel::signalChangedRows() {
  const int lastSection = columnCount() - 1;
  if (lastSection < 0) return;
  for (int item = firstChanged_; item <= lastChanged_;) {
    const int topRow = items_.topRowOf(item);
    const int last =
        items_.isTop(item)
            ? item
            : std::min(lastChanged_, items_.topItem(topRow) + items_.childCount(topRow));
    Q_EMIT dataChanged(indexOf(item, 0), indexOf(last, lastSection));
    item = last + 1;
  }
}

QModelIndex GridModel::indexOf(int item, int section) const {
  if (resetting_ || !items_.contains(item) || section < 0 || section >= columnCount()) return {};
  const int topRow = items_.topRowOf(item);
  const int row = items_.isTop(item) ? topRow : item - items_.topItem(topRow) - 1;
  return createIndex(row, section, static_cast<quintptr>(item));
}

int GridModel::sectionOf(int column) const {
  const auto found = std::find(shown_.begin(), shown_.end(), column);
  return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

Qt::Alignment GridModel::alignmentOf(int section) const {
  const auto& column = columns_[static_cast<std::size_t>(columnOf(section))];
  return Qt::AlignVCenter | (column.alignment == Alignment::Right ? Qt::AlignRight : Qt::AlignLeft);
}

bool GridModel::standsApart(int section) const {
  return section > 0 && alignmentOf(section).testFlag(Qt::AlignLeft) &&
         alignmentOf(section - 1).testFlag(Qt::AlignRight);
}

bool GridModel::isEditable(int section) const {
  return columns_[static_cast<std::size_t>(columnOf(section))].editable;
}

// Views may still hold indexes of an earlier state while the model is being refilled.
bool GridModel::knows(const QModelIndex& index) const {
  return !resetting_ && index.isValid() && items_.contains(itemOf(index)) &&
         index.column() < columnCount();
}

QModelIndex GridModel::index(int row, int section, const QModelIndex& parent) const {
  if (!hasIndex(row, section, parent)) return {};
  const int item = parent.isValid() ? itemOf(parent) + 1 + row : items_.topItem(row);
  return createIndex(row, section, static_cast<quintptr>(item));
}

QModelIndex GridModel::parent(const QModelIndex& child) const {
  if (!knows(child) || items_.isTop(itemOf(child))) return {};
  const int topRow = items_.topRowOf(itemOf(child));
  return createIndex(topRow, 0, static_cast<quintptr>(items_.topItem(topRow)));
}

int GridModel::rowCount(const QModelIndex& parent) const {
  if (resetting_) return 0;
  if (!parent.isValid()) return items_.topCount();
  if (!knows(parent) || parent.column() != 0 || !items_.isTop(itemOf(parent))) return 0;
  return items_.childCount(items_.topRowOf(itemOf(parent)));
}

int GridModel::columnCount(const QModelIndex&) const { return static_cast<int>(shown_.size()); }

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!knows(index)) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  const int item = itemOf(index);
  if (items_.level(item) > 0) flags |= Qt::ItemNeverHasChildren;
  if (index.column() == 0 && checkState(item).isValid()) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!knows(index)) return {};
  const int item = itemOf(index);
  switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
      return QString::fromStdString(items_.text(item, columnOf(index.column())));
    case Qt::TextAlignmentRole:
      return static_cast<int>(alignmentOf(index.column()));
    case Qt::CheckStateRole:
      return index.column() == 0 ? checkState(item) : QVariant();
    case Qt::AccessibleDescriptionRole:
      return index.column() == 0 ? pictureText(item) : QString();
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
      return QString::fromStdString(columns_[static_cast<std::size_t>(columnOf(section))].header);
    case Qt::TextAlignmentRole:
      return static_cast<int>(alignmentOf(section));
    default:
      return {};
  }
}

QVariant GridModel::checkState(int item) const {
  switch (pictureKind(items_.picture(item))) {
    case PictureKind::CheckedBox:
    case PictureKind::OptionOn:
      return Qt::Checked;
    case PictureKind::UncheckedBox:
    case PictureKind::OptionOff:
      return Qt::Unchecked;
    default:
      return {};
  }
}

bool GridModel::isInert(int item) const {
  const PictureKind kind = pictureKind(items_.picture(item));
  return !acceptsChoices_ && (kind == PictureKind::OptionOn || kind == PictureKind::OptionOff);
}

QString GridModel::pictureText(int item) const {
  switch (pictureKind(items_.picture(item))) {
    case PictureKind::CheckedBox:
      return QStringLiteral("aktiviert");
    case PictureKind::UncheckedBox:
      return QStringLiteral("nicht aktiviert");
    case PictureKind::OptionOn:
      return QStringLiteral("ausgewählt");
    case PictureKind::OptionOff:
      return QStringLiteral("nicht ausgewählt");
    case PictureKind::NotFound:
      return QStringLiteral("keine Zuordnung");
    default:
      return {};
  }
}

}  // namespace vexnumkr
