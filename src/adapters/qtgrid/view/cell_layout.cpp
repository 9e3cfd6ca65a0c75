#include "adapters/qtgrid/view/cell_layout.h"

#include <QFontMetrics>
#include <algorithm>

#include "adapters/qtgrid/picture_art.h"

namespace vexnumkr {
namespace {

constexpr int verticalPadding = 4;
constexpr int treeGap = 2;

}  // namespace

int pictureEdge(const QFontMetrics& metrics) {
  return std::max(pictureSize, metrics.ascent() + metrics.descent() / 2);
}

int rowHeight(const QFontMetrics& metrics) {
  return std::max(metrics.height(), pictureEdge(metrics)) + 2 * verticalPadding;
}

CellLayout layOutCell(const QRect& cell, const CellShape& shape, const QFontMetrics& metrics) {
  CellLayout layout{cell, {}, {}, cell.adjusted(cellPadding, 0, -cellPadding, 0)};
  if (!shape.first) return layout;
  layout.branch = QRect(cell.left() + 1, cell.top(), treeIndentation, cell.height());
  layout.text.setLeft(layout.branch.right() + 1 + treeGap + shape.depth * childIndentation);
  if (!shape.hasPicture) return layout;
  const int edge = pictureEdge(metrics);
  layout.picture = QRect(layout.text.left(), cell.top() + (cell.height() - edge) / 2, edge, edge);
  layout.text.setLeft(layout.picture.right() + 1 + cellPadding);
  return layout;
}

}  // namespace vexnumkr
