#include <gtest/gtest.h>

#include <vexnumkr/error.h>
#include <vexnumkr/number_masks.h>

#include "support/error_of.h"

namespace vexnumkr::numbers {
namespace {

using test::errorOf;

TEST(MasksTest, TheMonthOfAStartIsTheNearestOne) {
  EXPECT_EQ(monthOfStart("JJNN", 2600, "20261121"), "202611") << "the date's own month";
  EXPECT_EQ(monthOfStart("MMNN", 100, "20261121"), "202701") << "and not the one ten months ago";
  EXPECT_EQ(monthOfStart("JJNN", 2500, "20261121"), "202512");
  EXPECT_EQ(monthOfStart("JJNN", 5, "20261121"), "");
  EXPECT_EQ(monthOfStart("x", 5, "20261121"), "");
}

TEST(MasksTest, AYearHasFourDigitsAlsoWhereFiftyBackAreBeforeTheFirst) {
  EXPECT_EQ(monthOfStart("JJJJNN", 100, "00200101"), "000112");
  EXPECT_EQ(monthOfStart("JJJJNN", 999800, "99990101"), "999812");
  EXPECT_EQ(monthOfStart("JJJJNN", 1234500, "00200101"), "");
  EXPECT_EQ(monthOfStart("JJJJNN", 1234500, "99991231"), "");
}

TEST(MasksTest, WhatIsNoDateIsRefused) {
  for (const char* const date : {"", "2026", "20261", "20260021", "20261321", "2026-11", "ä2611"})
    EXPECT_EQ(errorOf([&] { monthOfStart("JJNN", 2600, date); }), error_number::typeMismatch)
        << date;
}

}  // namespace
}  // namespace vexnumkr::numbers
