// What the range table of a large company takes. Built without sanitizers, whose bookkeeping would
// hide it.
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstddef>
#include <string>

#include "data/table/xarray.h"

namespace vexnumkr {
namespace {

// 100 users, 40 booking circles and 62 keys: every user times every range of a large company.
TEST(TableMemoryTest, TheTableOfALargeCompanyTakesLittleMemory) {
  const auto inUse = [] {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
  };
  constexpr std::int32_t wantedRows = 250'000;
  const std::size_t before = inUse();
  XArray table = XArray::withColumns(11);
  for (std::int32_t row = 0; row < wantedRows; ++row) {
    const std::int32_t user = row / 2500;
    const std::int32_t circle = row % 40;
    const std::int32_t key = row % 2500 / 40;
    table.AppendRows();
    table.set(row, 0, "Benutzer " + std::to_string(user));
    table.set(row, 1, circle);
    table.set(row, 2, "Buchungskreis Nummer " + std::to_string(circle));
    table.set(row, 3, "K" + std::to_string(key));
    table.set(row, 4, "Bezeichnung der Belegart " + std::to_string(key));
    for (std::int32_t value = 5; value <= 7; ++value) table.set(row, value, row * value);
    table.set(row, 8, row % 2 == 0);
    table.set(row, 9, key);
    table.set(row, 10, "");
    table.set(row, 11, "JJ" + std::to_string(circle) + "NNNN");
  }
  ASSERT_EQ(table.findRange("Benutzer 99", 39, "K61"), 249'959);
  const std::size_t taken = inUse() - before;
  RecordProperty("bytes", static_cast<int>(taken));
  EXPECT_LT(taken, std::size_t{60} * 1024 * 1024);
}

}  // namespace
}  // namespace vexnumkr
