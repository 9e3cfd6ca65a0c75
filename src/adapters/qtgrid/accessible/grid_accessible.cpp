#include "adapters/qtgrid/accessible/grid_accessible.h"

#include <QHeaderView>
#include <algorithm>

#include "adapters/qt/assistive_action.h"
#include "adapters/qtgrid/accessible/cell_accessible.h"
#include "adapters/qtgrid/accessible/header_accessible.h"
#include "adapters/qtgrid/accessible/picture_accessible.h"
#include "adapters/qtgrid/view/grid_view.h"

namespace vexnumkr {
namespace {

// Where the parts that are no cells are kept.
constexpr int headerRow = -1;
constexpr int pictureSection = -1;

void announce(QAccessibleInterface* part, const QAccessible::State& changed) {
  if (part == nullptr) return;
  QAccessibleStateChangeEvent event(part, changed);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

// Qt asks no factory for an object whose interface it has, so that nothing of the host's
// application has to be changed.
void makeAccessible(GridView& view) {
  QAccessible::registerAccessibleInterface(new GridAccessible(view));
}

GridAccessible::GridAccessible(GridView& view) : QAccessibleWidget(&view, QAccessible::Tree) {}

GridAccessible::~GridAccessible() { forgetParts(); }

GridView& GridAccessible::view() const { return *static_cast<GridView*>(widget()); }

void GridAccessible::forgetParts() {
  for (const QAccessible::Id id : std::as_const(parts_)) QAccessible::deleteAccessibleInterface(id);
  parts_.clear();
}

template <class Make>
QAccessibleInterface* GridAccessible::part(int item, int section, Make make) {
  QAccessible::Id& id = parts_[{item, section}];
  if (id == 0) id = QAccessible::registerAccessibleInterface(make());
  return QAccessible::accessibleInterface(id);
}

QAccessibleInterface* GridAccessible::header(int section) {
  if (section < 0 || section >= columnCount()) return nullptr;
  return part(headerRow, section, [&] { return new HeaderAccessible(*this, section); });
}

QAccessibleInterface* GridAccessible::cell(int item, int section) {
  if (!view().gridModel().indexOf(item, section).isValid()) return nullptr;
  return part(item, section, [&] { return new CellAccessible(*this, item, section); });
}

QAccessibleInterface* GridAccessible::picture(int item) {
  const GridModel& model = view().gridModel();
  if (!model.items().contains(item) || !model.checkState(item).isValid()) return nullptr;
  return part(item, pictureSection, [&] { return new PictureAccessible(*this, item); });
}

int GridAccessible::indexOfCell(int item, int section) const {
  const int row = view().rowOf(item);
  return row < 0 ? -1 : (row + 1) * columnCount() + section;
}

void* GridAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

int GridAccessible::partCount() const { return (rowCount() + 1) * columnCount(); }

int GridAccessible::childCount() const { return partCount() + (editorPlace() ? 1 : 0); }

// An open editor stands in the viewport, which is no child otherwise.
QAccessibleInterface* GridAccessible::editorPlace() const {
  if (view().focusProxy() == nullptr) return nullptr;
  return QAccessible::queryAccessibleInterface(view().viewport());
}

// Parts are made on demand, which no caller can tell from their having been there all the time.
QAccessibleInterface* GridAccessible::child(int index) const {
  if (index == partCount()) return editorPlace();
  if (index < 0 || index > partCount()) return nullptr;
  auto& self = const_cast<GridAccessible&>(*this);
  if (index < columnCount()) return self.header(index);
  return cellAt(index / columnCount() - 1, index % columnCount());
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const {
  if (child != nullptr && child == editorPlace()) return partCount();
  const auto* part = dynamic_cast<const GridPart*>(child);
  return part != nullptr && part->parent() == this ? part->indexInGrid() : -1;
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const {
  auto& self = const_cast<GridAccessible&>(*this);
  const QPoint point(x, y);
  const QWidget& headers = *view().header()->viewport();
  const QPoint inHeaders = headers.mapFromGlobal(point);
  if (headers.rect().contains(inHeaders)) {
    return self.header(view().header()->logicalIndexAt(inHeaders));
  }
  const QPoint inCells = view().viewport()->mapFromGlobal(point);
  if (!view().viewport()->rect().contains(inCells)) return nullptr;
  const QWidget* editor = view().focusProxy();
  if (editor != nullptr && editor->geometry().contains(inCells)) return editorPlace();
  const GridHit hit = view().hitTest(inCells);
  return self.cell(hit.item, view().gridModel().sectionOf(hit.column));
}

// The editor has the focus while it is open.
QAccessibleInterface* GridAccessible::focusChild() const {
  if (!view().hasFocus()) return nullptr;
  if (QWidget* editor = view().focusProxy()) return QAccessible::queryAccessibleInterface(editor);
  const QModelIndex current = view().currentIndex();
  if (!current.isValid()) return nullptr;
  return const_cast<GridAccessible&>(*this).cell(GridModel::itemOf(current), current.column());
}

int GridAccessible::itemAt(int row) const {
  const std::vector<int>& shown = view().shownItems();
  const bool exists = row >= 0 && row < static_cast<int>(shown.size());
  return exists ? shown[static_cast<std::size_t>(row)] : -1;
}

QAccessibleInterface* GridAccessible::cellAt(int row, int column) const {
  return const_cast<GridAccessible&>(*this).cell(itemAt(row), column);
}

int GridAccessible::selectedCellCount() const { return selectedRowCount() * columnCount(); }

QList<QAccessibleInterface*> GridAccessible::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  for (const int row : selectedRows()) {
    for (int column = 0; column < columnCount(); ++column) cells << cellAt(row, column);
  }
  return cells;
}

QString GridAccessible::columnDescription(int column) const {
  return view().gridModel().headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

QString GridAccessible::rowDescription(int row) const {
  const QAccessibleInterface* first = cellAt(row, 0);
  return first == nullptr ? QString() : first->text(QAccessible::Name);
}

int GridAccessible::selectedRowCount() const { return static_cast<int>(selectedRows().size()); }

int GridAccessible::columnCount() const { return view().gridModel().columnCount(); }

int GridAccessible::rowCount() const { return static_cast<int>(view().shownItems().size()); }

QList<int> GridAccessible::selectedRows() const {
  QList<int> rows;
  for (const QModelIndex& index : view().selectionModel()->selectedRows()) {
    const int row = view().rowOf(GridModel::itemOf(index));
    if (row >= 0) rows << row;
  }
  return rows;
}

bool GridAccessible::isRowSelected(int row) const { return selectedRows().contains(row); }

bool GridAccessible::selectRow(int row) {
  if (itemAt(row) < 0 || !takesAssistiveActions(view())) return false;
  view().choose(itemAt(row));
  return isRowSelected(row);
}

bool GridAccessible::unselectRow(int row) {
  if (!isRowSelected(row) || !takesAssistiveActions(view())) return false;
  view().selectItem(itemAt(row), false);
  return true;
}

// Cells are known by their place, so that changed contents leave them good.
void GridAccessible::modelChange(QAccessibleTableModelChangeEvent* event) {
  if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged) forgetParts();
}

void GridAccessible::expansionChanged(int item) {
  QAccessible::State changed;
  changed.expanded = true;
  changed.collapsed = true;
  announce(cell(item, 0), changed);
  QAccessibleTableModelChangeEvent rows(&view(), QAccessibleTableModelChangeEvent::ModelReset);
  QAccessible::updateAccessibility(&rows);
}

void GridAccessible::checkChanged(int item) {
  QAccessible::State changed;
  changed.checked = true;
  announce(cell(item, 0), changed);
  announce(picture(item), changed);
}

void GridAccessible::textChanged(int item, int section) {
  QAccessibleInterface* const changed = cell(item, section);
  QAccessibleEvent named(changed, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&named);
  if (section == 0) return;
  QAccessibleValueChangeEvent valued(changed, changed->text(QAccessible::Value));
  QAccessible::updateAccessibility(&valued);
}

void GridAccessible::focusMoved(int item, int section) {
  QAccessibleEvent event(cell(item, section), QAccessible::Focus);
  QAccessible::updateAccessibility(&event);
}

}  // namespace vexnumkr
