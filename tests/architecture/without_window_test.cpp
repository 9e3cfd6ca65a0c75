// Data and rules do their whole work for whoever has no window: this program is linked with them
// and the standard library alone, and sees no form, no grid and no toolkit.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/loading.h"
#include "data/special_ranges.h"
#include "rules/activity.h"
#include "rules/mask_numbering.h"
#include "rules/saving/saving.h"
#include "rules/validation.h"
#include "support/row_of.h"

#if defined(QT_CORE_LIB) || defined(QT_VERSION)
#error "the core is to be built without a toolkit"
#endif

namespace vexnumkr {
namespace {

class Failures final : public Reporter {
 public:
  void failed(const Procedure& procedure, const Error& failure) noexcept override {
    told.push_back(procedure.name + (": " + failure.description()));
  }
  std::vector<std::string> told;
};

TEST(WithoutWindowTest, RangesAreNumberedCheckedAndToldApart) {
  XArray table = XArray::created();
  for (const char* key : {"AN", "RE"})
    table.append(test::rowOf(table, {.Benutzer = alleBenutzer,
                                     .Buchungskreis = 0,
                                     .Gruppe = standardGroup,
                                     .NSchl = key,
                                     .NBezeichnung = "Beleg",
                                     .StartWert = 1,
                                     .AktuellerWert = 1,
                                     .EndWert = 9,
                                     .Aktiviert = true,
                                     .SortierIndex = 1,
                                     .Maske = "JJNN"}));
  Failures failures;
  Progress progress(nullptr);
  EXPECT_TRUE(numberFromMasks(table, "20260315", progress));
  EXPECT_EQ(table.at(1).EndWert.toLong(), 2699);
  EXPECT_TRUE(basAllgemein::CheckValidity(table, failures).holds);
  table.setValue(1, &RangeRow::EndWert, 0);
  const Validity validity = basAllgemein::CheckValidity(table, failures);
  ASSERT_TRUE(validity.defect);
  EXPECT_EQ(defectMessage(table, *validity.defect),
            "Der Endwert muss größer sein als der Startwert.\r\n"
            "(Belegart: Beleg, Buchungskreis: Standard)");
  EXPECT_EQ(failures.told, std::vector<std::string>{});
}

TEST(WithoutWindowTest, WhatIsNotThereIsReportedNotShown) {
  XArray table;
  BookingCircleList circles;
  const Users users{alleBenutzer};
  KnownRanges known;
  StatementSource source;
  Failures failures;
  Progress progress(nullptr);
  EXPECT_FALSE(basAllgemein::LoadItems({table, circles, users, known}, source, failures, progress));
  EXPECT_FALSE(basAllgemein::CheckSonderkreise(source, failures));
  basAllgemein::CheckActivity(table, users, failures);
  const std::string notThere = "Objektvariable nicht festgelegt";
  EXPECT_EQ(failures.told, (std::vector{"LoadItems: " + notThere, "CheckSonderkreise: " + notThere,
                                        "CheckActivity: " + notThere}));
}

}  // namespace
}  // namespace vexnumkr
