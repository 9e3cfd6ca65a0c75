#include "data/special_ranges.h"

#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;
using Texts = std::vector<std::string>;

class SpecialRangesTest : public test::CoreSession {
 protected:
  void special(const std::string& values) {
    sql("INSERT INTO Nummernkreis_Sonderkreise VALUES (" + values + ")");
  }
  void refresh() { RefreshSGroups(); }
};

TEST_F(SpecialRangesTest, WithoutAnyOfTheOriginNothingHappens) {
  special("'PF', 'RE', 'Proforma', -1, 'ORC'");
  start(1, {"Max"});
  row({.Benutzer = "Alle Benutzer", .Buchungskreis = 0, .Gruppe = "Standard", .NSchl = "RE"});
  EXPECT_FALSE(CheckSonderkreise());
  refresh();
  EXPECT_EQ(rows().size(), 1U);
}

TEST_F(SpecialRangesTest, AreThereWhetherTheyAreOnOrOff) {
  special("'PF', 'RE', 'Proforma', 0, 'ORB'");
  start(1);
  EXPECT_TRUE(CheckSonderkreise());
}

TEST_F(SpecialRangesTest, OneThatIsOnBecomesAStandardRangeOfEveryUserAndOneOfEveryCircle) {
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'North', 'ORC')");
  sql("INSERT INTO Nummernkreise VALUES (1, 'PF', 'Proforma', 10, 11, 19, -1, 5, 'RE', '1N')");
  special("'PF', 'RE', 'Proforma', -1, 'ORB'");
  start(1, {"Max"});
  refresh();
  EXPECT_EQ(rows(), (Texts{"Alle Benutzer|0|Standard|PF|Proforma|0|0|0|True|99999999|RE|",
                           "Max|0|Standard|PF|Proforma|0|0|0|True|99999999|RE|",
                           "Alle Benutzer|1|Nord|PF|Proforma|10|11|19|False|99999999|RE|"}));
  EXPECT_FALSE(session().blnChanged());
  const Texts before = rows();
  refresh();
  EXPECT_EQ(rows(), before) << "running it again changes nothing";
}

TEST_F(SpecialRangesTest, OneThatIsInTheTableIsNotAddedAgain) {
  special("'PF', 'RE', 'Proforma', -1, 'ORB'");
  start(1, {"Max"});
  row({.Benutzer = "Alle Benutzer",
       .Buchungskreis = 0,
       .Gruppe = "Standard",
       .NSchl = "PF",
       .NBezeichnung = "Proforma",
       .StartWert = 1,
       .AktuellerWert = 2,
       .EndWert = 9,
       .Aktiviert = true,
       .SortierIndex = 5,
       .IstNSchlVon = "RE",
       .Maske = "N"});
  refresh();
  EXPECT_EQ(rows(), Texts{"Alle Benutzer|0|Standard|PF|Proforma|1|2|9|True|5|RE|N"});
}

TEST_F(SpecialRangesTest, OneThatIsOffLosesAllItsRows) {
  special("'PF', 'RE', 'Proforma', 0, 'ORB'");
  start(1, {"Max"});
  row({.Benutzer = "Alle Benutzer", .Buchungskreis = 0, .Gruppe = "Standard", .NSchl = "PF"});
  row({.Benutzer = "Alle Benutzer", .Buchungskreis = 0, .Gruppe = "Standard", .NSchl = "RE"});
  row({.Benutzer = "Max", .Buchungskreis = 0, .Gruppe = "Standard", .NSchl = "PF"});
  row({.Benutzer = "Max", .Buchungskreis = 1, .Gruppe = "Nord", .NSchl = "PF"});
  refresh();
  EXPECT_EQ(activity(), Texts{"Alle Benutzer 0 RE False"});
  EXPECT_FALSE(session().blnChanged());
}

TEST_F(SpecialRangesTest, AreAppliedInTheOrderOfTheirKeys) {
  special("'ZZ', 'RE', 'Letzter', -1, 'ORB'");
  special("'AA', 'RE', 'Erster', -1, 'ORB'");
  start(1);
  refresh();
  EXPECT_EQ(activity(), (Texts{"Alle Benutzer 0 AA True", "Alle Benutzer 0 ZZ True"}));
}

TEST_F(SpecialRangesTest, NullInOneEndsTheRoutineAndKeepsTheOthers) {
  special("'AA', 'RE', 'Erster', -1, 'ORB'");
  special("'BB', 'RE', NULL, -1, 'ORB'");
  special("'CC', 'RE', 'Dritter', -1, 'ORB'");
  start(1);
  refresh();
  EXPECT_EQ(boxes(), (std::vector{errorBox(94, "basAllgemein", "RefreshSGroups",
                                           "Unzulässige Verwendung von Null")}));
  EXPECT_EQ(activity(), Texts{"Alle Benutzer 0 AA True"});
}

TEST_F(SpecialRangesTest, AFailedCountIsReportedAsNone) {
  special("'PF', 'RE', 'Proforma', -1, 'ORB'");
  start(1);
  script().failStatement(1);
  EXPECT_FALSE(CheckSonderkreise());
  EXPECT_EQ(
      boxes(),
      (std::vector{errorBox(4711, "basAllgemein", "CheckSonderkreise", "Absichtlicher Fehler")}));
}

}  // namespace
}  // namespace vexnumkr
