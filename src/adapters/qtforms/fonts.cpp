#include "adapters/qtforms/fonts.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "adapters/qtforms/text.h"

namespace vexnumkr::qtforms {
namespace {

constexpr double designDotsPerInch = 96;
constexpr double pointsPerInch = 72;
constexpr double closestSpacing = 92;

int pixelSize(double points) {
  return std::max(1, static_cast<int>(std::lround(points * designDotsPerInch / pointsPerInch)));
}

}  // namespace

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

}  // namespace vexnumkr::qtforms
