// The pixels of the device that a painter paints on, which at a fractional scale are not those that
// widgets count in.
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace vexnumkr {

/// The thickness of a thin line, in the painter's units: whole device pixels, so that all such
/// lines look alike.
qreal thinLine(const QPainter& painter);

/// `area` with its edges moved to the nearest device pixels. REQUIRES: the painter neither rotates
/// nor shears.
QRectF onDevicePixels(const QPainter& painter, const QRectF& area);

/// Fills a frame of `thickness` along the inner edges of `area`: a thin pen would lose edges at
/// fractional device pixel ratios.
void paintFrame(QPainter& painter, const QRectF& area, qreal thickness, const QColor& colour);

/// `length` made longer, by at most 3, so that at this device pixel ratio it is a whole number of
/// device pixels; as it is where that takes more.
int wholeDevicePixels(int length, qreal ratio);

}  // namespace vexnumkr
