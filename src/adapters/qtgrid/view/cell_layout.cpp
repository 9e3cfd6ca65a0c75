#include "adapters/qtgrid/view/cell_layout.h"

#include <QFontMetrics>
#include <algorithm>

#include "adapters/qt/device_pixels.h"
#include "adapters/qt/picture_art.h"

namespace vexnumkr {
namespace {

constexpr int verticalPadding = 4;
constexpr int treeGap = 2;
constexpr int ruleSpace = 1;

}  // namespace

int pictureEdge(const QFontMetrics& metrics) {
  return std::max(pictureSize, metrics.ascent() + metrics.descent() / 2);
}

int rowHeight(const QFontMetrics& metrics, qreal devicePixelRatio) {
  const int height = std::max(metrics.height(), pictureEdge(metrics)) + 2 * verticalPadding;
  return wholeDevicePixels(height, devicePixelRatio);
}

CellLayout layOutCell(const QRect& cell, const CellShape& shape, const QFontMetrics& metrics) {
  const QRect inside = cell.adjusted(0, 0, 0, -ruleSpace);
  CellLayout layout{cell, {}, {}, inside.adjusted(cellPadding, 0, -cellPadding, 0)};
  if (shape.apart) layout.text.setLeft(layout.text.left() + apartPadding);
  if (!shape.first) return layout;
  layout.branch = QRect(inside.left() + 1, inside.top(), treeIndentation, inside.height());
  layout.text.setLeft(layout.branch.right() + 1 + treeGap + shape.depth * childIndentation);
  if (!shape.hasPicture) return layout;
  const int edge = pictureEdge(metrics);
  layout.picture =
      QRect(layout.text.left(), inside.top() + (inside.height() - edge) / 2, edge, edge);
  layout.text.setLeft(layout.picture.right() + 1 + cellPadding);
  return layout;
}

}  // namespace vexnumkr
