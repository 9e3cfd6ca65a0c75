#include "adapters/qtgrid/view/grid_colours.h"

#include <algorithm>
#include <cmath>

namespace vexnumkr {
namespace {

constexpr GridColour systemColourFlag = 0x80000000;
constexpr float flare = 0.05F;  // the light that a screen throws back, in the contrast formula
constexpr float restingShare = 0.22F;
constexpr float deepeningStep = 0.02F;

float linear(float channel) {
  return channel <= 0.04045F ? channel / 12.92F : std::pow((channel + 0.055F) / 1.055F, 2.4F);
}

float encoded(float light) {
  return light <= 0.0031308F ? light * 12.92F : 1.055F * std::pow(light, 1 / 2.4F) - 0.055F;
}

float luminance(const QColor& colour) {
  return 0.2126F * linear(colour.redF()) + 0.7152F * linear(colour.greenF()) +
         0.0722F * linear(colour.blueF());
}

// As exact as screens are, so that a colour equals what is painted with it.
QColor painted(float red, float green, float blue) {
  return QColor::fromRgb(QColor::fromRgbF(red, green, blue).rgb());
}

QColor dimmed(const QColor& colour, float share) {
  const auto channel = [share](float value) {
    return std::clamp(encoded(linear(value) * share), 0.0F, 1.0F);
  };
  return painted(channel(colour.redF()), channel(colour.greenF()), channel(colour.blueF()));
}

bool isDark(const QPalette& palette) {
  return luminance(palette.color(QPalette::Base)) < luminance(palette.color(QPalette::Text));
}

// See the head of grid_colours.h. A ground halfway between the palette's and white stays as it is.
QColor fitted(const QColor& ground, const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const float fromWhite = contrast(ground, Qt::white);
  if (!isDark(palette) || contrast(ground, base) <= fromWhite) return ground;
  const float wanted = (luminance(base) + flare) * fromWhite - flare;
  return dimmed(ground, wanted / luminance(ground));
}

// The usual text colour where it is legible, else black or white.
QColor legibleOn(const QColor& ground, const QColor& usual) {
  if (contrast(ground, usual) >= legibleContrast) return usual;
  const bool dark = contrast(ground, Qt::black) > contrast(ground, Qt::white);
  return dark ? QColor(Qt::black) : QColor(Qt::white);
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

}  // namespace

float contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + flare) / (darker + flare);
}

std::optional<CellColours> cellColours(GridColour background, const QPalette& palette) {
  if (background == gridDefaultColour) return std::nullopt;
  if ((background & systemColourFlag) != 0) return systemColours(background, palette);
  return onGround(QColor::fromRgb(background & 0xFFFFFF), palette.color(QPalette::Text), palette);
}

CellColours selectionColours(const QPalette& palette) {
  const QColor usual = palette.color(QPalette::Highlight);
  const QColor text = palette.color(QPalette::HighlightedText);
  const QColor deep = luminance(text) > luminance(usual) ? Qt::black : Qt::white;
  QColor ground = usual;
  for (float share = 0; contrast(ground, text) < legibleContrast && share < 1;) {
    share += deepeningStep;
    ground = blended(usual, deep, std::min(share, 1.0F));
  }
  return {ground, legibleOn(ground, text)};
}

CellColours restingSelectionColours(const QPalette& palette) {
  const QColor ground =
      blended(palette.color(QPalette::Base), palette.color(QPalette::Highlight), restingShare);
  return {ground, legibleOn(ground, palette.color(QPalette::Text))};
}

QColor blended(const QColor& ground, const QColor& ink, float share) {
  const auto channel = [share](float from, float to) { return from + (to - from) * share; };
  return painted(channel(ground.redF(), ink.redF()), channel(ground.greenF(), ink.greenF()),
                 channel(ground.blueF(), ink.blueF()));
}

}  // namespace vexnumkr
