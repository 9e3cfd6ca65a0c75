// Colours as the eye tells them apart.
#pragma once

#include <QColor>
#include <QPalette>

namespace vexnumkr {

/// The contrast that makes a text legible (level AA of the WCAG).
inline constexpr float legibleContrast = 4.5F;

/// The contrast that makes graphics visible (level AA of the WCAG).
inline constexpr float visibleContrast = 3.0F;

/// How much light a colour gives, from 0 for black to 1 for white.
float luminance(const QColor& colour);

/// The contrast of two colours, from 1 to 21, as the WCAG reckons it.
float contrast(const QColor& one, const QColor& other);

/// The luminance that has this contrast to the darker `ground`; it may lie above that of white.
float luminanceAgainst(const QColor& ground, float contrast);

/// `colour` in the same tint with `share` times its light, as screens show it.
QColor dimmed(const QColor& colour, float share);

/// From `ground` towards `ink` by `share`, 0 to 1, as screens show it.
QColor blended(const QColor& ground, const QColor& ink, float share);

/// `usual` where it is legible on `ground`, else black or white.
QColor legibleOn(const QColor& ground, const QColor& usual);

struct CellColours {
  QColor background;
  QColor text;
};

/// The palette's colours of what is selected, the background deepened as far as the text needs to
/// be legible.
CellColours selectionColours(const QPalette& palette);

/// For what shows no selection: the application's palette where `palette` looks the same, else that
/// one. Styles store what they have drawn by the identity of the palette: those that each window
/// makes for itself would fill the store of the whole application with pictures that are never used
/// again.
QPalette storablePalette(const QPalette& palette);

}  // namespace vexnumkr
