// Paints the cells of a grid.
#pragma once

#include <QStyledItemDelegate>

#include "adapters/qtgrid/items/grid_model.h"
#include "adapters/qtgrid/view/cell_layout.h"

namespace vexnumkr {

/// Paints a cell into the whole of option.rect, the space of the tree included: its own background,
/// the arrow of a group, the item's picture, the text and what the cell's note says: a bar along
/// the lower edge for how full a range is, a corner for what has changed, a tint. The selection
/// behind it and the rule over its lower edge are the view's. A selected cell shows no background
/// of its own.
class GridDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  GridDelegate(const GridModel& model, QObject* parent)
      : QStyledItemDelegate(parent), model_(model) {}

  void paintCell(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                 const CellNote& note) const;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  /// `font` is the grid's; the cell's may be bold.
  QFont cellFont(const QModelIndex& index, const QFont& font) const;
  CellLayout layout(const QModelIndex& index, const QRect& cell, const QFontMetrics& metrics) const;
  /// Whether the cell's text fits into its place.
  bool fits(const QModelIndex& index, const QRect& cell, const QFont& font) const;

 private:
  bool isReadOnly(const QModelIndex& index) const;
  CellStyle styleOf(const QModelIndex& index) const;
  QString textOf(const QModelIndex& index) const;
  void paintNote(QPainter* painter, const QRect& cell, const QPalette& palette, const QColor& text,
                 const CellNote& note) const;
  void paintText(QPainter* painter, const QRect& area, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const;

  const GridModel& model_;
};

}  // namespace vexnumkr
