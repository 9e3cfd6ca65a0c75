#include "data/table/live_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace vexnumkr {
namespace {

TEST(LiveRowsTest, PositionsAreSlotsWhileNothingIsRemoved) {
  LiveRows rows;
  rows.reset(3);
  EXPECT_TRUE(rows.allLive());
  EXPECT_EQ(rows.slotAt(2), 2U);
  EXPECT_EQ(rows.positionOf(1), 1U);
}

TEST(LiveRowsTest, AgreesWithAPlainListOfSlots) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  for (const std::size_t size : {1U, 63U, 64U, 65U, 128U, 1000U}) {
    LiveRows rows;
    rows.reset(size / 2);
    rows.append(size - size / 2);
    std::vector<std::size_t> slots(size);
    for (std::size_t i = 0; i < size; ++i) slots[i] = i;
    while (!slots.empty()) {
      const std::size_t position = random() % slots.size();
      rows.remove(slots[position]);
      slots.erase(slots.begin() + static_cast<std::ptrdiff_t>(position));
      ASSERT_EQ(rows.count(), slots.size());
      if (slots.empty()) break;
      const std::size_t probe = random() % slots.size();
      ASSERT_EQ(rows.slotAt(probe), slots[probe]);
      ASSERT_EQ(rows.positionOf(slots[probe]), probe);
      ASSERT_TRUE(rows.isLive(slots[probe]));
    }
  }
}

TEST(LiveRowsTest, AWalkMeetsEveryRowThatIsLeft) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  for (const std::size_t size : {64U, 65U, 128U, 1000U}) {
    LiveRows rows;
    rows.reset(size);
    std::vector<std::size_t> slots(size);
    for (std::size_t i = 0; i < size; ++i) slots[i] = i;
    while (slots.size() > 1) {
      const std::size_t count = 1 + random() % std::min<std::size_t>(slots.size() - 1, 100);
      for (std::size_t removed = 0; removed < count; ++removed) {
        const std::size_t position = random() % slots.size();
        rows.remove(slots[position]);
        slots.erase(slots.begin() + static_cast<std::ptrdiff_t>(position));
      }
      for (std::size_t i = 0; i < slots.size(); ++i) {
        ASSERT_EQ(rows.slotAt(i), slots[i]);
        ASSERT_EQ(rows.slotAt(i), slots[i]) << "asked again";
      }
      ASSERT_EQ(rows.slotAt(0), slots[0]) << "and from the first again";
    }
    rows.reset(size);
    rows.remove(0);
    ASSERT_EQ(rows.slotAt(0), 1U) << "nothing is remembered of what was before";
  }
}

}  // namespace
}  // namespace vexnumkr
