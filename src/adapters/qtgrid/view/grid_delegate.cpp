#include "adapters/qtgrid/view/grid_delegate.h"

#include <QPainter>
#include <QWidget>

#include "adapters/qt/device_pixels.h"
#include "adapters/qt/picture_art.h"
#include "adapters/qtgrid/view/grid_colours.h"

namespace vexnumkr {
namespace {

constexpr qreal inertOpacity = 0.5;

void paintArrow(QPainter* painter, const QRect& area, const QStyleOptionViewItem& option) {
  if (!option.state.testFlag(QStyle::State_Children)) return;
  QStyleOption branch(option);
  branch.rect = area;
  branch.state &= ~QStyle::State_Sibling;
  const QStyle* style = option.widget->style();
  style->drawPrimitive(QStyle::PE_IndicatorBranch, &branch, painter, option.widget);
}

// The cell looks as if the colours were the grid's own.
void recolour(QStyleOptionViewItem& option, const CellColours& colours) {
  option.palette.setColor(QPalette::Text, colours.text);
  option.palette.setColor(QPalette::WindowText, colours.text);
}

void mute(QStyleOptionViewItem& option) {
  if (option.state.testFlag(QStyle::State_Selected)) return;
  const QColor text = option.palette.color(QPalette::Text);
  const QColor ground = option.palette.color(QPalette::Base);
  option.palette.setColor(QPalette::Text, mutedText(text, ground));
}

}  // namespace

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyleOptionViewItem cell(option);
  cell.font = cellFont(index, option.font);
  if (!option.state.testFlag(QStyle::State_Selected)) {
    if (const auto colours = cellColours(styleOf(index).background, option.palette)) {
      painter->fillRect(onDevicePixels(*painter, option.rect), colours->background);
      recolour(cell, *colours);
    }
  }
  if (isReadOnly(index)) mute(cell);
  const CellLayout parts = layout(index, option.rect, option.fontMetrics);
  if (index.column() == 0) paintArrow(painter, parts.branch, cell);
  if (!parts.picture.isEmpty()) {
    const int item = GridModel::itemOf(index);
    // The picture has a ground of its own and keeps the grid's colours on a selected row.
    paintPicture(*painter, parts.picture, pictureKind(model_.items().picture(item)),
                 option.widget->palette(), model_.isInert(item) ? inertOpacity : 1.0);
  }
  paintText(painter, parts.text, cell, index);
}

// Cells that could take entries, but do not in this view of the list.
bool GridDelegate::isReadOnly(const QModelIndex& index) const {
  return model_.isEditable(index.column()) && !model_.takesEntries(index.column());
}

void GridDelegate::paintText(QPainter* painter, const QRect& area,
                             const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QString text = textOf(index);
  if (text.isEmpty() || area.width() <= 0) return;
  const QFontMetrics metrics(option.font);
  if (metrics.horizontalAdvance(text) > area.width()) {
    text = metrics.elidedText(text, Qt::ElideRight, area.width());
  }
  painter->setFont(option.font);
  painter->setPen(option.palette.color(QPalette::Text));
  painter->drawText(area, static_cast<int>(model_.alignmentOf(index.column())) | Qt::TextSingleLine,
                    text);
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const qreal ratio = option.widget == nullptr ? 1 : option.widget->devicePixelRatioF();
  const int height = rowHeight(option.fontMetrics, ratio);
  const CellLayout parts = layout(index, QRect(0, 0, 0, height), option.fontMetrics);
  const int width = QFontMetrics(cellFont(index, option.font)).horizontalAdvance(textOf(index));
  return {parts.text.left() + width + cellPadding, height};
}

QFont GridDelegate::cellFont(const QModelIndex& index, const QFont& font) const {
  if (!styleOf(index).bold) return font;
  QFont bold(font);
  bold.setBold(true);
  return bold;
}

CellLayout GridDelegate::layout(const QModelIndex& index, const QRect& cell,
                                const QFontMetrics& metrics) const {
  const int item = GridModel::itemOf(index);
  const CellShape shape{index.column() == 0, index.parent().isValid() ? 1 : 0,
                        model_.items().picture(item) != noPicture,
                        model_.standsApart(index.column())};
  return layOutCell(cell, shape, metrics);
}

bool GridDelegate::fits(const QModelIndex& index, const QRect& cell, const QFont& font) const {
  const QFontMetrics metrics(cellFont(index, font));
  const QRect area = layout(index, cell, QFontMetrics(font)).text;
  return metrics.horizontalAdvance(textOf(index)) <= area.width();
}

CellStyle GridDelegate::styleOf(const QModelIndex& index) const {
  return model_.items().style(GridModel::itemOf(index), model_.columnOf(index.column()));
}

QString GridDelegate::textOf(const QModelIndex& index) const {
  return QString::fromStdString(
      model_.items().text(GridModel::itemOf(index), model_.columnOf(index.column())));
}

}  // namespace vexnumkr
