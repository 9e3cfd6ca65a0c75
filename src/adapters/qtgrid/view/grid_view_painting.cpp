// How a grid's rows look, and its tool tips.
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "adapters/qtgrid/plain_text.h"
#include "adapters/qtgrid/view/grid_colours.h"
#include "adapters/qtgrid/view/grid_view.h"

namespace vexnumkr {
namespace {

constexpr float ruleStrength = 0.12F;
constexpr float restingSelection = 0.22F;

}  // namespace

// Whether keys go to the grid itself and not to an editor in it. The full colour of the selection
// says so; else a tint is enough.
bool GridView::hasKeys() const { return focusProxy() == nullptr && hasFocus(); }

void GridView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
  if (!index.isValid()) return;
  const bool selected = selectionModel()->isSelected(index);
  QStyleOptionViewItem row(option);
  row.widget = this;
  row.font = font();
  row.fontMetrics = fontMetrics();
  row.state.setFlag(QStyle::State_Selected, selected);
  paintGround(painter, option.rect, selected);
  if (selected && hasKeys()) {
    const QColor text = palette().color(QPalette::HighlightedText);
    row.palette.setColor(QPalette::Text, text);
    row.palette.setColor(QPalette::WindowText, text);
  }
  paintCells(painter, row, index);
}

void GridView::paintGround(QPainter* painter, const QRect& row, bool selected) const {
  const QColor base = palette().color(QPalette::Base);
  if (selected) {
    const QColor highlight = palette().color(QPalette::Highlight);
    painter->fillRect(row, hasKeys() ? highlight : blended(base, highlight, restingSelection));
  }
  const QColor rule = blended(base, palette().color(QPalette::Text), ruleStrength);
  painter->fillRect(QRect(row.left(), row.bottom(), row.width(), 1), rule);
}

void GridView::paintCells(QPainter* painter, const QStyleOptionViewItem& row,
                          const QModelIndex& index) const {
  QStyleOptionViewItem cell(row);
  for (int section = 0; section < header()->count(); ++section) {
    cell.rect = QRect(columnViewportPosition(section), row.rect.top(),
                      header()->sectionSize(section), row.rect.height() - 1);
    if (cell.rect.right() < 0 || cell.rect.left() > viewport()->width()) continue;
    delegate_->paint(painter, cell, index.siblingAtColumn(section));
  }
}

bool GridView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) return showToolTip(*static_cast<QHelpEvent*>(event));
  return QTreeView::viewportEvent(event);
}

bool GridView::showToolTip(const QHelpEvent& event) {
  const QModelIndex index = indexAt(event.pos());
  QString text = toolTip();
  QRect area;
  if (index.isValid() && listener_ != nullptr) {
    area = cellRect(index);
    const bool fits = delegate_->fits(index, area, font());
    const QString proposal = fits ? QString() : index.data().toString();
    const QString wanted = listener_->toolTip(model_->columnOf(index.column()), proposal);
    if (!wanted.isEmpty()) text = asPlainToolTip(wanted);
  }
  if (text.isEmpty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(event.globalPos(), text, viewport(), area);
  }
  return true;
}

}  // namespace vexnumkr
