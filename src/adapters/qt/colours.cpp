#include "adapters/qt/colours.h"

#include <QApplication>
#include <algorithm>
#include <cmath>

namespace vexnumkr {
namespace {

constexpr float deepeningStep = 0.02F;
constexpr float flare = 0.05F;  // the light that a screen throws back, in the contrast formula

float linear(float channel) {
  return channel <= 0.04045F ? channel / 12.92F : std::pow((channel + 0.055F) / 1.055F, 2.4F);
}

float encoded(float light) {
  return light <= 0.0031308F ? light * 12.92F : 1.055F * std::pow(light, 1 / 2.4F) - 0.055F;
}

// As exact as screens are, so that a colour equals what is painted with it.
QColor painted(float red, float green, float blue) {
  return QColor::fromRgb(QColor::fromRgbF(red, green, blue).rgb());
}

}  // namespace

float luminance(const QColor& colour) {
  return 0.2126F * linear(colour.redF()) + 0.7152F * linear(colour.greenF()) +
         0.0722F * linear(colour.blueF());
}

float contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + flare) / (darker + flare);
}

float luminanceAgainst(const QColor& ground, float contrast) {
  return (luminance(ground) + flare) * contrast - flare;
}

QColor dimmed(const QColor& colour, float share) {
  const auto channel = [share](float value) {
    return std::clamp(encoded(linear(value) * share), 0.0F, 1.0F);
  };
  return painted(channel(colour.redF()), channel(colour.greenF()), channel(colour.blueF()));
}

QColor blended(const QColor& ground, const QColor& ink, float share) {
  const auto channel = [share](float from, float to) { return from + (to - from) * share; };
  return painted(channel(ground.redF(), ink.redF()), channel(ground.greenF(), ink.greenF()),
                 channel(ground.blueF(), ink.blueF()));
}

QColor legibleOn(const QColor& ground, const QColor& usual) {
  if (contrast(ground, usual) >= legibleContrast) return usual;
  const bool dark = contrast(ground, Qt::black) > contrast(ground, Qt::white);
  return dark ? QColor(Qt::black) : QColor(Qt::white);
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

QPalette storablePalette(const QPalette& palette) {
  QPalette usual = QApplication::palette();
  usual.setCurrentColorGroup(palette.currentColorGroup());
  for (const auto role :
       {QPalette::Window, QPalette::WindowText, QPalette::Base, QPalette::Text, QPalette::Button,
        QPalette::ButtonText, QPalette::Light, QPalette::Dark, QPalette::Mid, QPalette::Shadow})
    if (usual.brush(role) != palette.brush(role)) return palette;
  return usual;
}

}  // namespace vexnumkr
