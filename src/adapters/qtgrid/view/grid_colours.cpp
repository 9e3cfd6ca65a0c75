#include "adapters/qtgrid/view/grid_colours.h"

namespace vexnumkr {
namespace {

constexpr GridColour systemColourFlag = 0x80000000;
constexpr float restingShare = 0.22F;
constexpr float mutedShare = 0.45F;
constexpr float deepeningStep = 0.02F;
constexpr float involvedShare = 0.16F;
constexpr float plentyShare = 0.4F;
constexpr QColor red(200, 30, 30);
constexpr QColor yellow(240, 180, 0);

bool isDark(const QPalette& palette) {
  return luminance(palette.color(QPalette::Base)) < luminance(palette.color(QPalette::Text));
}

// See the head of grid_colours.h. A ground halfway between the palette's and white stays as it is.
QColor fitted(const QColor& ground, const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const float fromWhite = contrast(ground, Qt::white);
  if (!isDark(palette) || contrast(ground, base) <= fromWhite) return ground;
  return dimmed(ground, luminanceAgainst(base, fromWhite) / luminance(ground));
}

CellColours onGround(const QColor& ground, const QColor& text, const QPalette& palette) {
  const QColor shade = fitted(ground, palette);
  return {shade, legibleOn(shade, text)};
}

CellColours systemColours(QPalette::ColorRole background, QPalette::ColorRole text,
                          const QPalette& palette) {
  return onGround(palette.color(background), palette.color(text), palette);
}

// The system colours by their numbers.
std::optional<CellColours> systemColours(GridColour colour, const QPalette& palette) {
  switch (colour & ~systemColourFlag) {
    case 5:
      return systemColours(QPalette::Base, QPalette::Text, palette);
    case 13:
      return selectionColours(palette);
    case 15:
      return systemColours(QPalette::Button, QPalette::ButtonText, palette);
    case 24:
      return systemColours(QPalette::ToolTipBase, QPalette::ToolTipText, palette);
    default:
      return std::nullopt;
  }
}

// In the same tint, as much darker or lighter as it takes to be seen on the palette's ground.
QColor standingOut(const QColor& colour, const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor away = isDark(palette) ? Qt::white : Qt::black;
  for (float share = 0; share < 1; share += deepeningStep) {
    const QColor deepened = blended(colour, away, share);
    if (contrast(deepened, base) >= visibleContrast) return deepened;
  }
  return away;
}

}  // namespace

QColor warningColour(const QPalette& palette) { return standingOut(red, palette); }

QColor fillColour(FillStage stage, const QPalette& palette) {
  switch (stage) {
    case FillStage::Low:
      return standingOut(yellow, palette);
    case FillStage::Critical:
      return warningColour(palette);
    case FillStage::Plenty:
      break;
  }
  return standingOut(
      blended(palette.color(QPalette::Base), palette.color(QPalette::Text), plentyShare), palette);
}

QColor changedColour(const QPalette& palette) {
  return standingOut(palette.color(QPalette::Highlight), palette);
}

CellColours involvedColours(const QPalette& palette) {
  const QColor ground =
      blended(palette.color(QPalette::Base), warningColour(palette), involvedShare);
  return {ground, legibleOn(ground, palette.color(QPalette::Text))};
}

std::optional<CellColours> cellColours(GridColour background, const QPalette& palette) {
  if (background == gridDefaultColour) return std::nullopt;
  if ((background & systemColourFlag) != 0) return systemColours(background, palette);
  return onGround(QColor::fromRgb(background & 0xFFFFFF), palette.color(QPalette::Text), palette);
}

QColor mutedText(const QColor& text, const QColor& ground) {
  for (float share = mutedShare; share > 0; share -= deepeningStep) {
    const QColor muted = blended(text, ground, share);
    if (contrast(muted, ground) >= legibleContrast) return muted;
  }
  return text;
}

CellColours restingSelectionColours(const QPalette& palette) {
  const QColor ground =
      blended(palette.color(QPalette::Base), palette.color(QPalette::Highlight), restingShare);
  return {ground, legibleOn(ground, palette.color(QPalette::Text))};
}

}  // namespace vexnumkr
