#include "rules/fill_level.h"

#include <gtest/gtest.h>

#include <limits>

namespace vexnumkr {
namespace {

RangeRow range(std::int32_t start, std::int32_t current, std::int32_t end) {
  RangeRow row;
  row.StartWert = start;
  row.AktuellerWert = current;
  row.EndWert = end;
  return row;
}

TEST(FillLevelTest, CountsWhatIsLeftBehindTheCurrentValue) {
  const auto level = fillLevel(range(100, 150, 200));
  ASSERT_TRUE(level);
  EXPECT_EQ(level->percent(), 50);
  EXPECT_EQ(freeNumbers(*level), "noch 50 Nummern frei");
  EXPECT_EQ(freeNumbers(*fillLevel(range(1, 98, 99))), "noch 1 Nummer frei");
  EXPECT_EQ(freeNumbers(*fillLevel(range(1, 99, 99))), "keine Nummer mehr frei");
}

TEST(FillLevelTest, IsLowFromFourFifthsAndCriticalFromNineteenTwentieths) {
  EXPECT_FALSE(fillLevel(range(0, 799, 1000))->isLow());
  EXPECT_TRUE(fillLevel(range(0, 800, 1000))->isLow());
  EXPECT_FALSE(fillLevel(range(0, 949, 1000))->isCritical());
  EXPECT_TRUE(fillLevel(range(0, 950, 1000))->isCritical());
  EXPECT_EQ(fillLevel(range(0, 999, 1000))->percent(), 99);
}

TEST(FillLevelTest, TheWidestRangeHasALevelToo) {
  constexpr auto low = std::numeric_limits<std::int32_t>::min();
  constexpr auto high = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(fillLevel(range(low, low, high))->left(), 4294967295);
  EXPECT_EQ(fillLevel(range(low, high, high))->percent(), 100);
}

TEST(FillLevelTest, RangesThatBreakARuleHaveNone) {
  EXPECT_FALSE(fillLevel(range(0, 0, 0)));
  EXPECT_FALSE(fillLevel(range(5, 4, 9)));
  EXPECT_FALSE(fillLevel(range(5, 10, 9)));
}

}  // namespace
}  // namespace vexnumkr
