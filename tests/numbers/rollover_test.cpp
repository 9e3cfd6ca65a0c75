// Turning the year without the dialog, and with it: the same ranges are stored.
#include <gtest/gtest.h>

#include <random>

#include <vexnumkr/adapters.h>
#include <vexnumkr/number_rollover.h>

#include "support/core_session.h"

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;
using numbers::RolloverPlan;

constexpr std::int32_t yes = 6;
constexpr const char* march2024 = "20240315";  // as the session has it

class RolloverTest : public CoreSession {
 protected:
  RolloverTest() {
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Werk', 'ORC')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'Handel', 'ORC')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (7, 'Fremd', 'ORB')");
    fill();
  }

  void fill() {
    sql("DELETE FROM Nummernkreise");
    range("0, 'AN', 'Angebot', 230000, 231234, 239999, 0, 10, NULL, 'J%%JNNNN'");
    range("0, 'RE', 'Rechnung', 1, 5, 99, -1, 20, '', NULL");
    range("1, 'RE', 'Rechnung', 1230000, 1230017, 1239999, -1, 20, '', ' 1JJNNNN '");
    range("2, 'RE', 'Rechnung', 2240000, 2240000, 2249999, -1, 20, '', '2JJNNNN'");
    range("2, 'AN', 'Angebot', 7, 8, 9, 0, 10, '', '2jjmmNN'");
    range("7, 'RE', 'Rechnung', 7230000, 7230000, 7239999, -1, 20, '', '7JJNNNN'");
    range("0, 'LM', 'Lager', 1, 1, 9, -1, 1, '', '8JJNNNN'");
  }
  void range(const std::string& values) {
    sql("INSERT INTO Nummernkreise VALUES (" + values + ")");
  }

  Texts stored(const std::string& where = "") {
    return select(
        "SELECT Buchungskreis, NSchl, StartWert, AktuellerWert, EndWert FROM Nummernkreise " +
        where + " ORDER BY Buchungskreis, NSchl");
  }
  RolloverPlan apply(numbers::Reissuing reissuing = numbers::Reissuing::refused) {
    const auto connection = openQtSqlConnection(connectionString());
    return numbers::applyRollover(*connection, 2, march2024, reissuing);
  }
  void draw(const std::string& where, int count) {
    sql("UPDATE Nummernkreise SET AktuellerWert = AktuellerWert + " + std::to_string(count) +
        " WHERE " + where);
  }
  RolloverPlan plan() {
    const auto connection = openQtSqlConnection(connectionString());
    return numbers::planRollover(numbers::readCompany(*connection, 2), march2024);
  }
  void pressTheButtonAndSave() {
    start(2, {"Anna"});
    LoadItems();
    session().beginTransaction();
    forms().answer(yes);
    EXPECT_TRUE(StartAutoNum());
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_TRUE(Save(false));
  }
};

TEST_F(RolloverTest, StoresWhatTheDialogsButtonStores) {
  const RolloverPlan done = apply();
  EXPECT_TRUE(done.isPossible());
  EXPECT_EQ(done.changes.size(), 3U);
  const Texts ours = stored();
  EXPECT_EQ(ours, (Texts{"0|AN|240000|240000|249999", "0|LM|1|1|9", "0|RE|1|5|99",
                         "1|RE|1240000|1240000|1249999", "2|AN|2240300|2240300|2240399",
                         "2|RE|2240000|2240000|2249999", "7|RE|7230000|7230000|7239999"}));
  fill();
  pressTheButtonAndSave();
  Texts dialogs;
  for (const std::string& row : stored())
    if (row != "1|AN|0|0|0") dialogs.push_back(row);  // it also stores what it shows empty
  EXPECT_EQ(dialogs, ours);
}

TEST_F(RolloverTest, StoresTheSameForRandomMasks) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const auto oneOf = [&](const Texts& choices) {
    return choices[std::uniform_int_distribution<std::size_t>(0, choices.size() - 1)(random)];
  };
  Texts ranges;
  for (const char* const key : {"AN", "LS", "RE"})
    for (int circle = 0; circle <= 2; ++circle) {
      const std::string first = std::to_string(circle + 1);  // so that circles do not overlap
      const std::string mask = oneOf({"", first + oneOf({"JJ", "jj", "J", "%%J", "JJMM", "5"}) +
                                              oneOf({"N", "NN", "nnn", "NNNN"})});
      const std::string number = first + "00";
      ranges.push_back(std::to_string(circle) + ", '" + key + "', 'Beleg', " + number + ", " +
                       number + ", " + first + "99, -1, 10, '', '" + mask + "'");
    }
  const auto fillRandomly = [&] {
    sql("DELETE FROM Nummernkreise");
    for (const std::string& values : ranges) range(values);
  };
  fillRandomly();
  const RolloverPlan done = apply();
  ASSERT_TRUE(done.isPossible());
  const Texts ours = stored();
  fillRandomly();
  pressTheButtonAndSave();
  EXPECT_EQ(stored(), ours);
}

TEST_F(RolloverTest, PlanningChangesNothing) {
  const Texts before = stored();
  const RolloverPlan planned = plan();
  ASSERT_EQ(planned.changes.size(), 3U);
  EXPECT_EQ(planned.changes[0].range.key, "AN");
  EXPECT_EQ(planned.changes[0].range.current, 231234);
  EXPECT_EQ(planned.changes[0].numbers, (numbers::MaskNumbers{240000, 249999}));
  EXPECT_EQ(stored(), before);
}

TEST_F(RolloverTest, DoingItTwiceDoesNoHarm) {
  apply();
  const Texts once = stored();
  EXPECT_TRUE(apply().changes.empty());
  EXPECT_EQ(stored(), once);
}

TEST_F(RolloverTest, WhatIsDrawnAfterwardsIsNotIssuedAgain) {
  apply();
  draw("Buchungskreis = 1 AND NSchl = 'RE'", 17);
  draw("Buchungskreis = 2 AND NSchl = 'AN'", 99);
  const Texts before = stored();
  const RolloverPlan refused = apply();
  EXPECT_FALSE(refused.isPossible());
  ASSERT_EQ(refused.changes.size(), 2U);
  EXPECT_EQ(refused.changes[0].reissued, (numbers::Interval{2240301, 2240399}));
  EXPECT_EQ(refused.changes[1].reissued, (numbers::Interval{1240001, 1240017}));
  EXPECT_EQ(stored(), before);
}

TEST_F(RolloverTest, AMaskWithoutAYearIsNotBegunAgain) {
  sql("UPDATE Nummernkreise SET Maske = '123NNNN' WHERE Buchungskreis = 1 AND NSchl = 'RE'");
  const Texts before = stored();
  const RolloverPlan refused = apply();
  EXPECT_FALSE(refused.isPossible());
  ASSERT_EQ(refused.changes.size(), 3U);
  EXPECT_EQ(refused.changes[2].reissued, (numbers::Interval{1230001, 1230017}));
  EXPECT_FALSE(refused.changes[0].reissued);
  EXPECT_EQ(stored(), before);
}

TEST_F(RolloverTest, WhereNumbersMayBeIssuedAgainItStoresWhatTheButtonStores) {
  apply();
  draw("Buchungskreis = 1 AND NSchl = 'RE'", 17);
  EXPECT_TRUE(apply(numbers::Reissuing::allowed).isPossible());
  const Texts ours = stored("WHERE SortierIndex = 20");
  EXPECT_EQ(ours[1], "1|RE|1240000|1240000|1249999");
  draw("Buchungskreis = 1 AND NSchl = 'RE'", 17);
  pressTheButtonAndSave();
  EXPECT_EQ(stored("WHERE SortierIndex = 20"), ours);
}

TEST_F(RolloverTest, AllMasksThatFailAreToldAndNothingIsStored) {
  sql("UPDATE Nummernkreise SET Maske = 'RE-' WHERE Buchungskreis = 1");
  sql("UPDATE Nummernkreise SET Maske = 'NNNNNNNNNN' WHERE Buchungskreis = 2 AND NSchl = 'AN'");
  const Texts before = stored();
  const RolloverPlan refused = apply();
  ASSERT_EQ(refused.failures.size(), 2U);
  EXPECT_EQ(refused.failures[0].text,
            "Angebot (AN), Handel: Die Maske \"NNNNNNNNNN\" ergibt keine Nummern (Überlauf).");
  EXPECT_EQ(refused.failures[1].range.circle, 1);
  EXPECT_EQ(stored(), before);
}

TEST_F(RolloverTest, WhatWouldBreakARuleIsToldAndNothingIsStored) {
  sql("UPDATE Nummernkreise SET Maske = '2JJNNNN' WHERE Buchungskreis = 1");
  sql("UPDATE Nummernkreise SET Maske = 'JJJJ' WHERE Buchungskreis = 0 AND NSchl = 'AN'");
  const Texts before = stored();
  const RolloverPlan refused = apply();
  ASSERT_EQ(refused.broken.size(), 2U);
  EXPECT_EQ(refused.broken[0].kind, numbers::FindingKind::endNotAboveStart);
  EXPECT_EQ(refused.broken[1].kind, numbers::FindingKind::overlapsOtherCircle);
  EXPECT_EQ(stored(), before);
}

}  // namespace
}  // namespace vexnumkr::test
