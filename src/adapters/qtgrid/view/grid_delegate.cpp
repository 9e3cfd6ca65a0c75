#include "adapters/qtgrid/view/grid_delegate.h"

#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "adapters/qt/colours.h"
#include "adapters/qt/device_pixels.h"
#include "adapters/qt/picture_art.h"
#include "adapters/qtgrid/view/grid_colours.h"

namespace vexnumkr {
namespace {

constexpr qreal inertOpacity = 0.5;
constexpr int barHeight = 2;
constexpr int barDistance = 1;  // from the rule below the row
constexpr float trackOpacity = 0.2F;
constexpr int cornerEdge = 7;

void paintArrow(QPainter* painter, const QRect& area, const QStyleOptionViewItem& option) {
  if (!option.state.testFlag(QStyle::State_Children)) return;
  QStyleOption branch(option);
  branch.palette = storablePalette(option.palette);
  branch.rect = area;
  branch.state &= ~QStyle::State_Sibling;
  const QStyle* style = option.widget->style();
  style->drawPrimitive(QStyle::PE_IndicatorBranch, &branch, painter, option.widget);
}

// A faint track shows where full would be.
void paintBar(QPainter* painter, const QRect& track, const QColor& colour, const CellFill& fill) {
  QColor faint = colour;
  faint.setAlphaF(trackOpacity);
  painter->fillRect(onDevicePixels(*painter, track), faint);
  const qreal share = std::clamp(fill.thousandths, 0, 1000) / 1000.0;
  const QRectF filled(track.left(), track.top(), track.width() * share, track.height());
  painter->fillRect(onDevicePixels(*painter, filled), colour);
}

void paintCorner(QPainter* painter, const QRect& cell, const QColor& colour) {
  const QPointF corner = QRectF(cell).topRight();
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(colour);
  painter->drawPolygon(
      QPolygonF({corner, corner - QPointF(cornerEdge, 0), corner + QPointF(0, cornerEdge)}));
  painter->restore();
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

void GridDelegate::paintCell(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index, const CellNote& note) const {
  QStyleOptionViewItem cell(option);
  cell.font = cellFont(index, option.font);
  if (!option.state.testFlag(QStyle::State_Selected)) {
    const auto own = cellColours(styleOf(index).background, option.palette);
    if (const auto colours = note.involved ? involvedColours(option.palette) : own) {
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
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const QColor ink = option.palette.color(QPalette::Text);
  paintNote(painter, option.rect, option.widget->palette(), selected ? ink : QColor(), note);
}

// On a selected row both are in the colour of its text, which is legible there: `selectedText`.
void GridDelegate::paintNote(QPainter* painter, const QRect& cell, const QPalette& palette,
                             const QColor& selectedText, const CellNote& note) const {
  const auto colour = [&](const QColor& usual) {
    return selectedText.isValid() ? selectedText : usual;
  };
  if (note.fill) {
    const QRect track(cell.left() + cellPadding, cell.bottom() - barHeight - barDistance,
                      cell.width() - 2 * cellPadding, barHeight);
    paintBar(painter, track, colour(fillColour(note.fill->stage, palette)), *note.fill);
  }
  if (note.changed) paintCorner(painter, cell, colour(changedColour(palette)));
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
