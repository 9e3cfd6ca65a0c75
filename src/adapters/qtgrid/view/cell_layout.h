// Where things stand in a cell: the one truth that painting, clicks and the editor share.
#pragma once

#include <QRect>

class QFontMetrics;

namespace vexnumkr {

/// The parts of a cell. Those that it does not have are empty; `branch` is where the arrow of a
/// group stands. The lowest pixel of a cell is left to the rule below its row.
struct CellLayout {
  QRect cell;
  QRect branch;
  QRect picture;
  QRect text;
};

struct CellShape {
  bool first = false;  ///< whether it stands in the first section, with the tree
  int depth = 0;       ///< in the tree, from 0
  bool hasPicture = false;
  bool apart = false;  ///< whether texts to the left end where its own begin
};

/// The space to the left and right of a cell's text.
inline constexpr int cellPadding = 5;
/// What a left-aligned column that stands behind a right-aligned one leaves in addition.
inline constexpr int apartPadding = 8;
/// The space of a group's arrow, which every item leaves.
inline constexpr int treeIndentation = 15;
/// By how much further a child is indented than its group.
inline constexpr int childIndentation = 8;

int pictureEdge(const QFontMetrics& metrics);
/// A row of whole device pixels, where the ratio allows it: only then do all rows look alike.
int rowHeight(const QFontMetrics& metrics, qreal devicePixelRatio);
CellLayout layOutCell(const QRect& cell, const CellShape& shape, const QFontMetrics& metrics);

}  // namespace vexnumkr
