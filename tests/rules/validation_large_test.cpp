// Tables of a size at which comparing all pairs would not come to an end.
#include <algorithm>
#include <numeric>
#include <random>

#include "rules/validation.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

constexpr std::int32_t count = 100'000;

class LargeValidationTest : public test::CoreSession {
 protected:
  void SetUp() override { start(1); }

  void range(std::int32_t circle, const std::string& key, std::int32_t first, std::int32_t last) {
    row({.Benutzer = alleBenutzer,
         .Buchungskreis = circle,
         .Gruppe = "Kreis " + std::to_string(circle),
         .NSchl = key,
         .NBezeichnung = "Belegart " + key,
         .StartWert = first,
         .AktuellerWert = first,
         .EndWert = last,
         .Aktiviert = true,
         .SortierIndex = 1,
         .IstNSchlVon = "AN",
         .Maske = ""});
  }
  // The message of the first defect, or "".
  std::string check() {
    const Validity validity = basAllgemein::CheckValidity(table(), session().reporter());
    return validity.defect ? defectMessage(table(), *validity.defect) : "";
  }
};

TEST_F(LargeValidationTest, ManyRangesOfOneSequenceAreCheckedInTime) {
  std::vector<std::int32_t> places(count);
  std::iota(places.begin(), places.end(), 0);
  std::shuffle(places.begin(), places.end(), std::mt19937{1});
  for (std::int32_t i = 0; i < count; ++i) {
    const std::int32_t first = places[static_cast<std::size_t>(i)] * 10;
    range(i, "RE", first, first + 9);
  }
  EXPECT_EQ(check(), "");
}

TEST_F(LargeValidationTest, TheSameRangeManyTimesIsCheckedInTime) {
  for (std::int32_t i = 0; i < count; ++i) range(1, "RE", 10, 19);
  EXPECT_EQ(check(), "") << "a range does not overlap itself";
}

TEST_F(LargeValidationTest, AnOverlapOfTheLastTwoIsFoundInTime) {
  for (std::int32_t i = 0; i < count; ++i) range(i, "RE", i * 10, i * 10 + 9);
  table().setValue(count - 1, &RangeRow::StartWert, (count - 1) * 10 - 1);
  table().setValue(count - 1, &RangeRow::AktuellerWert, (count - 1) * 10 - 1);
  EXPECT_EQ(check(),
            "Bei der Belegart 'Belegart RE' überschneidet sich der "
            "Buchungskreis 'Kreis 99999' mit dem Buchungskreis "
            "'Kreis 99998'.");
}

TEST_F(LargeValidationTest, ADefectiveRangeThatIsNobodysPartnerIsFoundInTime) {
  for (std::int32_t i = 0; i < count; ++i) range(1, "RE", 10, 19);
  table().setValue(count - 1, &RangeRow::EndWert, 10);
  EXPECT_EQ(check(),
            "Der Endwert muss größer sein als der Startwert.\r\n"
            "(Belegart: Belegart RE, Buchungskreis: Kreis 1)");
}

}  // namespace
}  // namespace vexnumkr
