// Twips, the unit of the form descriptions, and device-independent pixels.
#pragma once

#include <QRect>
#include <cstdint>

#include "platform/forms.h"

namespace vexnumkr::qtforms {

inline constexpr std::int32_t twipsPerPixel = 15;

/// The nearest whole pixel.
constexpr int toPixels(std::int32_t twips) {
  const std::int32_t half = twips < 0 ? -twipsPerPixel / 2 : twipsPerPixel / 2;
  return (twips + half) / twipsPerPixel;
}

constexpr std::int32_t toTwips(int pixels) { return pixels * twipsPerPixel; }

/// Widths and heights below zero count as zero.
inline QRect toPixels(const Rect& rect) {
  return QRect(toPixels(rect.left), toPixels(rect.top), qMax(0, toPixels(rect.width)),
               qMax(0, toPixels(rect.height)));
}

}  // namespace vexnumkr::qtforms
