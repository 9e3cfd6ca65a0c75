#include "adapters/qt/device_pixels.h"

#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace vexnumkr {
namespace {

constexpr int longestAddition = 3;

// Halves go up, also those that the transformations before have missed by a hair: what is painted
// row by row must not come out now so and now so.
constexpr qreal hair = 1e-6;

qreal nearest(qreal number) { return std::floor(number + 0.5 + hair); }

bool isWhole(qreal number) { return std::abs(number - std::round(number)) < 0.001; }

}  // namespace

qreal thinLine(const QPainter& painter) {
  const qreal ratio = painter.device()->devicePixelRatio();
  return std::max(1.0, std::floor(ratio)) / ratio;
}

QRectF onDevicePixels(const QPainter& painter, const QRectF& area) {
  const QTransform transform = painter.deviceTransform();
  const QRectF device = transform.mapRect(area);
  const QPointF topLeft(nearest(device.left()), nearest(device.top()));
  const QPointF end(nearest(device.right()), nearest(device.bottom()));
  return transform.inverted().mapRect(QRectF(topLeft, end));
}

void paintFrame(QPainter& painter, const QRectF& area, qreal thickness, const QColor& colour) {
  const QRectF frame = onDevicePixels(painter, area);
  const QRectF across(0, 0, frame.width(), thickness);
  const QRectF down(0, 0, thickness, frame.height());
  painter.fillRect(across.translated(frame.topLeft()), colour);
  painter.fillRect(across.translated(frame.left(), frame.bottom() - thickness), colour);
  painter.fillRect(down.translated(frame.topLeft()), colour);
  painter.fillRect(down.translated(frame.right() - thickness, frame.top()), colour);
}

int wholeDevicePixels(int length, qreal ratio) {
  for (int more = 0; more <= longestAddition; ++more) {
    if (isWhole((length + more) * ratio)) return length + more;
  }
  return length;
}

}  // namespace vexnumkr
