// Fonts of the dialogs on whatever fonts the machine has.
#pragma once

#include <QFont>

#include "platform/forms.h"

namespace vexnumkr {

/// The size, in points, of a font that says nothing else.
inline constexpr double defaultFontSize = 8.25;

/// Names metric-compatible substitutes for the fonts that the dialogs ask for by name, for machines
/// without them. A font still reports the name that was asked for.
void registerFontSubstitutes();

/// `font` on top of `current`: an empty name keeps the family, no size keeps the size. Sizes are
/// pixels of the design resolution, so that texts fit controls whatever the screen says of itself.
QFont withFont(const QFont& current, const Font& font);

/// The size of `font` in points, as Font has it.
double pointSize(const QFont& font);

/// The font that a form begins with.
QFont formFont(const Font& font);

/// `font` with its letters so much closer, at most 8 %, that `text` fits into `width` pixels; as it
/// is where the text fits.
QFont fitted(QFont font, const QString& text, int width);

}  // namespace vexnumkr
