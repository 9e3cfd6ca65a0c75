#include "data/table/live_rows.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace vexnumkr
