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

#include "adapters/qt/colours.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

/// The colours of a cell with a background of its own, its text legible on it; nothing for
/// gridDefaultColour and for system colours that have no counterpart.
std::optional<CellColours> cellColours(GridColour background, const QPalette& palette);

/// What speaks against something; stands out from the palette's ground as graphics have to.
QColor warningColour(const QPalette& palette);
/// The bar of a range that is so full, likewise.
QColor fillColour(FillStage stage, const QPalette& palette);
/// The mark of a value that is other than stored, likewise.
QColor changedColour(const QPalette& palette);
/// The colours of an item that stands against an entry.
CellColours involvedColours(const QPalette& palette);

/// `text` closer to the `ground` that it stands on, as far as it stays legible.
QColor mutedText(const QColor& text, const QColor& ground);

/// A tint of selectionColours, for a selection in something that the keys do not go to.
CellColours restingSelectionColours(const QPalette& palette);

}  // namespace vexnumkr
