// The colours of a grid's cells, all taken from or fitted to the palette.
//
// The dialogs name their colours for white paper. A palette is dark where its text is lighter than
// its ground; there a light ground would glare, and is replaced by the shade that stands out from
// the palette's ground as much as the light one does from white, in the same tint. The grid's items
// keep the colour that they were given.
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

/// The contrast that makes a text legible (level AA of the WCAG).
inline constexpr float legibleContrast = 4.5F;

/// The contrast of two colours, from 1 to 21, as the WCAG reckons it.
float contrast(const QColor& one, const QColor& other);

/// The colours of a cell with a background of its own, its text legible on it; nothing for
/// gridDefaultColour and for system colours that have no counterpart.
std::optional<CellColours> cellColours(GridColour background, const QPalette& palette);

/// The palette's colours of what is selected, the background deepened as far as the text needs to
/// be legible.
CellColours selectionColours(const QPalette& palette);
/// A tint of them, for a selection in something that the keys do not go to.
CellColours restingSelectionColours(const QPalette& palette);

/// From `ground` towards `ink` by `share`, 0 to 1.
QColor blended(const QColor& ground, const QColor& ink, float share);

}  // namespace vexnumkr
