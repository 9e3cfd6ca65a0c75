#include "adapters/qtgrid/view/grid_header.h"

#include <QPainter>

#include "adapters/qt/colours.h"
#include "adapters/qtgrid/view/cell_layout.h"

namespace vexnumkr {

GridHeader::GridHeader(const GridModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), model_(model) {
  setSectionsMovable(false);
  setSectionsClickable(false);
  setHighlightSections(false);
  setStretchLastSection(false);
  setMinimumSectionSize(2 * treeIndentation);
}

QSize GridHeader::sizeHint() const {
  return {length(), rowHeight(fontMetrics(), devicePixelRatioF())};
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  QStyleOptionHeaderV2 option;
  initStyleOption(&option);
  initStyleOptionForIndex(&option, section);
  option.rect = rect;
  option.palette = storablePalette(option.palette);
  painter->save();
  style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);
  const int left = cellPadding + (model_.standsApart(section) ? apartPadding : 0);
  const QRect area = rect.adjusted(left, 0, -cellPadding, 0);
  const QString text = fontMetrics().elidedText(option.text, Qt::ElideRight, area.width());
  painter->setFont(font());
  painter->setPen(option.palette.color(QPalette::ButtonText));
  painter->drawText(area, static_cast<int>(option.textAlignment) | Qt::TextSingleLine, text);
  painter->restore();
}

}  // namespace vexnumkr
