#include "adapters/qtgrid/view/grid_colours.h"

namespace vexnumkr {
namespace {

constexpr GridColour systemColourFlag = 0x80000000;
constexpr float middleGrey = 0.5F;

CellColours systemColours(QPalette::ColorRole background, QPalette::ColorRole text,
                          const QPalette& palette) {
  return {palette.color(background), palette.color(text)};
}

// The system colours by their numbers.
std::optional<CellColours> systemColours(GridColour colour, const QPalette& palette) {
  switch (colour & ~systemColourFlag) {
    case 5:
      return systemColours(QPalette::Base, QPalette::Text, palette);
    case 13:
      return systemColours(QPalette::Highlight, QPalette::HighlightedText, palette);
    case 15:
      return systemColours(QPalette::Button, QPalette::ButtonText, palette);
    case 24:
      return systemColours(QPalette::ToolTipBase, QPalette::ToolTipText, palette);
    default:
      return std::nullopt;
  }
}

float luminance(const QColor& colour) {
  return 0.299F * colour.redF() + 0.587F * colour.greenF() + 0.114F * colour.blueF();
}

// The palette's own text colour where it stands out, else black or white.
QColor legibleOn(const QColor& ground, const QPalette& palette) {
  const QColor usual = palette.color(QPalette::Text);
  const bool lightGround = luminance(ground) > middleGrey;
  if (lightGround != (luminance(usual) > middleGrey)) return usual;
  return lightGround ? QColor(Qt::black) : QColor(Qt::white);
}

}  // namespace

std::optional<CellColours> cellColours(GridColour background, const QPalette& palette) {
  if (background == gridDefaultColour) return std::nullopt;
  if ((background & systemColourFlag) != 0) return systemColours(background, palette);
  const QColor ground = QColor::fromRgb(background & 0xFFFFFF);
  return CellColours{ground, legibleOn(ground, palette)};
}

QColor blended(const QColor& ground, const QColor& ink, float share) {
  return QColor::fromRgbF(ground.redF() + (ink.redF() - ground.redF()) * share,
                          ground.greenF() + (ink.greenF() - ground.greenF()) * share,
                          ground.blueF() + (ink.blueF() - ground.blueF()) * share);
}

}  // namespace vexnumkr
