#include "adapters/qt/fonts.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "adapters/qt/text.h"

namespace vexnumkr {
namespace {

constexpr double pixelsPerPoint = 96.0 / 72.0;  // of the design resolution
constexpr double closestSpacing = 92;

int pixelSize(double points) {
  return std::max(1, static_cast<int>(std::lround(points * pixelsPerPoint)));
}

}  // namespace

// Forms name fonts of Windows. Where these are not installed others of the same widths stand in, so
// that captions fit their controls there, too.
void registerFontSubstitutes() {
  const QString liberation = QStringLiteral("Liberation Sans");
  const QString arial = QStringLiteral("Arial");
  QFont::insertSubstitutions(QStringLiteral("Tahoma"),
                             {liberation, arial, QStringLiteral("DejaVu Sans Condensed")});
  QFont::insertSubstitutions(QStringLiteral("MS Sans Serif"),
                             {QStringLiteral("Microsoft Sans Serif"), arial, liberation});
  QFont::insertSubstitutions(QStringLiteral("Arial Narrow"),
                             {QStringLiteral("Liberation Sans Narrow")});
}

QFont withFont(const QFont& current, const Font& font) {
  QFont result = current;
  if (!font.name.empty()) result.setFamilies({toQt(font.name)});
  if (font.size > 0) result.setPixelSize(pixelSize(font.size));
  result.setBold(font.bold);
  return result;
}

double pointSize(const QFont& font) {
  return font.pixelSize() > 0 ? font.pixelSize() / pixelsPerPoint : font.pointSizeF();
}

QFont formFont(const Font& font) {
  QFont base;
  base.setPixelSize(pixelSize(defaultFontSize));
  return withFont(base, font);
}

QFont fitted(QFont font, const QString& text, int width) {
  font.setLetterSpacing(QFont::PercentageSpacing, 100);
  const double wanted = QFontMetricsF(font).horizontalAdvance(text);
  if (wanted > width && width > 0) {
    font.setLetterSpacing(QFont::PercentageSpacing, std::max(closestSpacing, 100 * width / wanted));
  }
  return font;
}

}  // namespace vexnumkr
