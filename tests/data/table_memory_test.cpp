// What the range table of a large company takes. Built without sanitizers, whose bookkeeping would
// hide it.
#include <gtest/gtest.h>

#include <string>

#include "data/table/xarray.h"
#include "support/heap_in_use.h"

namespace vexnumkr::test {
namespace {

// 100 users, 40 booking circles and 62 keys: every user times every range of a large company.
TEST(TableMemoryTest, TheTableOfALargeCompanyTakesLittleMemory) {
  constexpr std::int32_t wantedRows = 250'000;
  const long before = heapInUse();
  XArray table = XArray::created();
  for (std::int32_t i = 0; i < wantedRows; ++i) {
    const std::string user = std::to_string(i / 2500);
    const std::string circle = std::to_string(i % 40);
    const std::string key = std::to_string(i % 2500 / 40);
    table.append({.Benutzer = table.text("Benutzer " + user),
                  .Buchungskreis = i % 40,
                  .Gruppe = table.text("Buchungskreis Nummer " + circle),
                  .NSchl = table.text("K" + key),
                  .NBezeichnung = table.text("Bezeichnung der Belegart " + key),
                  .StartWert = i * 5,
                  .AktuellerWert = i * 6,
                  .EndWert = i * 7,
                  .Aktiviert = i % 2 == 0,
                  .SortierIndex = i % 2500 / 40,
                  .IstNSchlVon = {},
                  .Maske = table.text("JJ" + circle + "NNNN")});
  }
  ASSERT_EQ(table.findRange("Benutzer 99", 39, "K61"), 249'959);
  const long taken = heapInUse() - before;
  RecordProperty("bytes", static_cast<int>(taken));
  EXPECT_LT(taken, 60L * 1024 * 1024);
}

}  // namespace
}  // namespace vexnumkr::test
