#include <gtest/gtest.h>

#include "adapters/qt/units.h"

namespace vexnumkr {
namespace {

TEST(UnitsTest, LengthsGoToTheNearestPixel) {
  EXPECT_EQ(toPixels(0), 0);
  EXPECT_EQ(toPixels(7), 0);
  EXPECT_EQ(toPixels(8), 1);
  EXPECT_EQ(toPixels(-7), 0);
  EXPECT_EQ(toPixels(-8), -1);
  EXPECT_EQ(toTwips(3), 45);
}

TEST(UnitsTest, WhatTouchesInTwipsTouchesInPixels) {
  for (std::int32_t left = 0; left < 30; ++left) {
    const QRect first = toPixels(Rect{left, 0, 100, 300});
    const QRect second = toPixels(Rect{left + 100, 0, 100, 300});
    EXPECT_EQ(first.right() + 1, second.left()) << left;
  }
}

TEST(UnitsTest, WhatLiesInsideOfSomethingStaysInside) {
  const QRect frame = toPixels(Rect{0, 0, 1507, 1507});
  for (std::int32_t left = 0; left < 30; ++left) {
    EXPECT_TRUE(frame.contains(toPixels(Rect{left, left, 1507 - left, 1507 - left}))) << left;
  }
}

TEST(UnitsTest, NothingIsSmallerThanNothing) {
  EXPECT_EQ(toPixels(Rect{30, 45, -300, -15}), QRect(2, 3, 0, 0));
}

}  // namespace
}  // namespace vexnumkr
