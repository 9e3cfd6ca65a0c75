// The colours of a grid's cells, all taken from or fitted to the palette.
#pragma once

#include <QColor>
#include <QPalette>
#include <optional>

#include "platform/tree_grid.h"

namespace vexnumkr {

struct CellColours {
  QColor background;
  QColor text;
};

/// The colours of a cell with a background of its own, its text legible on it; nothing for
/// gridDefaultColour and for system colours that have no counterpart.
std::optional<CellColours> cellColours(GridColour background, const QPalette& palette);

/// From `ground` towards `ink` by `share`, 0 to 1.
QColor blended(const QColor& ground, const QColor& ink, float share);

}  // namespace vexnumkr
