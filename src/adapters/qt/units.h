// Twips, the unit of the form descriptions, and device-independent pixels.
#pragma once

#include <QRect>
#include <cstdint>

#include "platform/forms.h"

namespace vexnumkr {

inline constexpr std::int32_t twipsPerPixel = 15;

/// The nearest whole pixel.
constexpr int toPixels(std::int32_t twips) {
  const std::int32_t half = twips < 0 ? -twipsPerPixel / 2 : twipsPerPixel / 2;
  return (twips + half) / twipsPerPixel;
}

constexpr std::int32_t toTwips(int pixels) { return pixels * twipsPerPixel; }

/// Each edge goes to its nearest pixel, so that what touches in twips touches in pixels, and what
/// lies inside of something stays inside. Widths and heights below zero count as zero.
constexpr QRect toPixels(const Rect& rect) {
  const int left = toPixels(rect.left);
  const int top = toPixels(rect.top);
  return QRect(left, top, qMax(0, toPixels(rect.left + rect.width) - left),
               qMax(0, toPixels(rect.top + rect.height) - top));
}

}  // namespace vexnumkr
