// How a grid's rows look, and its tool tips.
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <algorithm>

#include "adapters/qt/device_pixels.h"
#include "adapters/qt/text.h"
#include "adapters/qt/tool_tips.h"
#include "adapters/qtgrid/view/grid_colours.h"
#include "adapters/qtgrid/view/grid_view.h"

namespace vexnumkr {
namespace {

constexpr float ruleStrength = 0.12F;

}  // namespace

bool GridView::hasKeys() const { return focusProxy() == nullptr && hasFocus(); }

// In place of the frame that the style draws, so that nothing of the content is covered.
void GridView::paintFocus() {
  QPainter painter(this);
  const QColor colour = selectionColours(palette()).background;
  paintFrame(painter, frameRect(), std::max<qreal>(frameWidth(), thinLine(painter)), colour);
}

void GridView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
  if (!index.isValid()) return;
  const bool selected = selectionModel()->isSelected(index);
  QStyleOptionViewItem row(option);
  row.widget = this;
  row.font = font();
  row.fontMetrics = fontMetrics();
  row.state.setFlag(QStyle::State_Selected, selected);
  if (selected) {
    // The full colour says that keys go here; else a tint is enough.
    const CellColours colours =
        hasKeys() ? selectionColours(palette()) : restingSelectionColours(palette());
    painter->fillRect(onDevicePixels(*painter, option.rect), colours.background);
    row.palette.setColor(QPalette::Text, colours.text);
    row.palette.setColor(QPalette::WindowText, colours.text);
  }
  paintCells(painter, row, index);
  paintRule(painter, option.rect);
}

// The rule takes the last device pixels of its row, so that all rules are of one kind and equally
// far apart.
void GridView::paintRule(QPainter* painter, const QRect& row) const {
  QRectF area = onDevicePixels(*painter, row);
  area.setTop(area.bottom() - thinLine(*painter));
  const QColor base = palette().color(QPalette::Base);
  painter->fillRect(area, blended(base, palette().color(QPalette::Text), ruleStrength));
}

void GridView::paintCells(QPainter* painter, const QStyleOptionViewItem& row,
                          const QModelIndex& index) const {
  QStyleOptionViewItem cell(row);
  for (int section = 0; section < header()->count(); ++section) {
    cell.rect = QRect(columnViewportPosition(section), row.rect.top(),
                      header()->sectionSize(section), row.rect.height());
    if (cell.rect.right() < 0 || cell.rect.left() > viewport()->width()) continue;
    delegate_->paintCell(painter, cell, index.siblingAtColumn(section),
                         noteOf(GridModel::itemOf(index), section));
  }
}

bool GridView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) return showCellToolTip(*static_cast<QHelpEvent*>(event));
  return QTreeView::viewportEvent(event);
}

bool GridView::showCellToolTip(const QHelpEvent& event) {
  const QModelIndex index = indexAt(event.pos());
  QString text = toolTip();
  QRect area;
  if (index.isValid() && listener_ != nullptr) {
    area = cellRect(index);
    const bool fits = delegate_->fits(index, area, font());
    const QString proposal = fits ? QString() : index.data().toString();
    const QString wanted = listener_->toolTip(model_->columnOf(index.column()), proposal);
    if (!wanted.isEmpty()) text = wanted;
    const QString note = toQt(noteOf(GridModel::itemOf(index), index.column()).text);
    if (!note.isEmpty()) text = text.isEmpty() ? note : note + QStringLiteral("\n\n") + text;
  }
  showToolTip(event, text, *viewport(), area);
  return true;
}

}  // namespace vexnumkr
