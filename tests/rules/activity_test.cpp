#include "rules/activity.h"

#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;
using Texts = std::vector<std::string>;

class ActivityTest : public test::CoreSession {
 protected:
  void range(const std::string& user, std::int32_t circle, const std::string& key,
             const Value& active) {
    row({.Benutzer = user,
         .Buchungskreis = circle,
         .Gruppe = "Gruppe",
         .NSchl = key,
         .NBezeichnung = "Bezeichnung",
         .StartWert = 1,
         .AktuellerWert = 1,
         .EndWert = 9,
         .Aktiviert = active,
         .SortierIndex = 1,
         .Maske = ""});
  }
  void noStandardRow() {
    EXPECT_EQ(boxes(), std::vector{errorBox(9, "basAllgemein", "CheckActivity",
                                            "Index außerhalb des gültigen Bereichs")});
  }
};

TEST_F(ActivityTest, WhereNothingIsActiveTheStandardRangeIsSwitchedOn) {
  start(1, {"Max"});
  range("Max", 0, "RE", false);
  range("Max", 1, "RE", false);
  range("Max", 0, "AN", false);
  range("Max", 2, "AN", false);
  CheckActivity();
  EXPECT_EQ(activity(),
            (Texts{"Max 0 AN True", "Max 2 AN False", "Max 0 RE True", "Max 1 RE False"}));
}

TEST_F(ActivityTest, AUserWithAnActiveCircleIsLeftAlone) {
  start(1, {"Max"});
  range("Max", 0, "RE", false);
  range("Max", 1, "RE", true);
  range("Max", 2, "RE", true);
  CheckActivity();
  EXPECT_EQ(activity(), (Texts{"Max 0 RE False", "Max 1 RE True", "Max 2 RE True"}));
}

TEST_F(ActivityTest, EveryUserIsCheckedAlone) {
  start(1, {"Anna", "Max"});
  range("Anna", 0, "AN", false);
  range("Anna", 1, "AN", true);
  range("Max", 0, "RE", false);
  range("Max", 1, "RE", false);
  CheckActivity();
  EXPECT_EQ(activity(),
            (Texts{"Anna 0 AN False", "Anna 1 AN True", "Max 0 RE True", "Max 1 RE False"}));
}

TEST_F(ActivityTest, CommonRowsAreNeverSwitchedOn) {
  start(1, {"Max"});
  range("Alle Benutzer", 0, "RE", false);
  range("Alle Benutzer", 1, "RE", false);
  range("Max", 0, "RE", false);
  CheckActivity();
  EXPECT_EQ(activity(),
            (Texts{"Alle Benutzer 0 RE False", "Alle Benutzer 1 RE False", "Max 0 RE True"}));
}

TEST_F(ActivityTest, UsersWhoAreNotListedAreLeftAlone) {
  start(1, {"Anna"});
  range("Gast", 0, "RE", false);
  CheckActivity();
  EXPECT_EQ(activity(), Texts{"Gast 0 RE False"});
}

TEST_F(ActivityTest, AUserWithoutRowsIsSkipped) {
  start(1, {"Anna", "Eva", "Max"});
  range("Anna", 0, "RE", false);
  range("Max", 0, "RE", false);
  CheckActivity();
  EXPECT_EQ(activity(), (Texts{"Anna 0 RE True", "Max 0 RE True"}));
}

TEST_F(ActivityTest, AnEmptyTableStaysEmpty) {
  start(1, {"Max"});
  CheckActivity();
  EXPECT_EQ(activity(), Texts{});
}

TEST_F(ActivityTest, TheFollowingUsersFirstRowClosesTheLastKey) {
  start(1, {"Anna", "Max"});
  range("Anna", 0, "RE", false);
  range("Max", 0, "VK", true);
  CheckActivity();
  EXPECT_EQ(activity(), (Texts{"Anna 0 RE True", "Max 0 VK True"}));
}

TEST_F(ActivityTest, TheFollowingUsersFirstRowCountsWhereItCarriesTheSameKey) {
  start(1, {"Anna", "Max"});
  range("Anna", 0, "RE", false);
  range("Max", 0, "RE", true);
  range("Max", 1, "RE", false);
  CheckActivity();
  EXPECT_EQ(activity(), (Texts{"Anna 0 RE False", "Max 0 RE True", "Max 1 RE False"}))
      << "Anna's key is not closed";
}

TEST_F(ActivityTest, WithTheSameKeyAndNothingActiveTheKeyIsNotClosedEither) {
  start(1, {"Anna", "Max"});
  range("Anna", 0, "RE", false);
  range("Max", 0, "RE", false);
  range("Max", 1, "RE", true);
  CheckActivity();
  EXPECT_EQ(activity(), (Texts{"Anna 0 RE False", "Max 0 RE False", "Max 1 RE True"}));
}

TEST_F(ActivityTest, TheLastRowOfTheTableClosesAKeyOfTheUserBefore) {
  start(1, {"Anna"});
  range("Anna", 0, "RE", false);
  range("Max", 1, "RE", false);
  CheckActivity();
  EXPECT_EQ(activity(), (Texts{"Anna 0 RE True", "Max 1 RE False"}))
      << "the row is the following user's first and the table's last at once";
}

TEST_F(ActivityTest, AnotherUsersKeyInTheLastRowIsLookedForUnderThisUser) {
  start(1, {"Anna"});
  range("Anna", 0, "AN", true);
  range("Max", 1, "RE", false);
  CheckActivity();
  noStandardRow();
  EXPECT_EQ(activity(), (Texts{"Anna 0 AN True", "Max 1 RE False"}));
}

TEST_F(ActivityTest, AKeyWithoutStandardRowIsReportedAndEndsTheRoutine) {
  start(1, {"Anna", "Max"});
  range("Anna", 0, "AN", false);
  range("Anna", 1, "RE", false);
  range("Anna", 0, "VK", false);
  range("Max", 0, "ZZ", false);
  CheckActivity();
  noStandardRow();
  EXPECT_EQ(activity(),
            (Texts{"Anna 0 AN True", "Anna 1 RE False", "Anna 0 VK False", "Max 0 ZZ False"}))
      << "keys before it are done, those behind it and the next users are not";
}

TEST_F(ActivityTest, AStandardRowWithoutKeyStandsForEveryKey) {
  start(1, {"Max"});
  range("Max", 0, "", true);
  range("Max", 1, "RE", false);
  range("Max", 0, "RE", false);
  CheckActivity();
  EXPECT_EQ(activity(), (Texts{"Max 0  True", "Max 0 RE False", "Max 1 RE False"}))
      << "it is found first, so it is the row that is switched on";
}

TEST_F(ActivityTest, UsersAreCheckedInTheOrderOfTheList) {
  start(1, {"Max", "Anna"});
  range("Anna", 0, "RE", false);
  range("Max", 1, "VK", false);
  CheckActivity();
  noStandardRow();
  EXPECT_EQ(activity(), (Texts{"Anna 0 RE False", "Max 1 VK False"})) << "Max comes first";
}

TEST_F(ActivityTest, LeavesTheTableSortedByUserKeyAndCircle) {
  start(1, {"Max"});
  range("Max", 10, "RE", true);
  range("Max", 9, "RE", true);
  range("Max", 0, "re", true);
  range("Alle Benutzer", 3, "RE", true);
  range("Max", 0, "AN", true);
  range("max", 0, "AN", true);
  CheckActivity();
  EXPECT_EQ(activity(), (Texts{"Alle Benutzer 3 RE True", "Max 0 AN True", "Max 9 RE True",
                               "Max 10 RE True", "Max 0 re True", "max 0 AN True"}));
}

TEST_F(ActivityTest, SortsAlsoWhereThereAreNoUsers) {
  start(1);
  range("Alle Benutzer", 1, "RE", false);
  range("Alle Benutzer", 0, "RE", false);
  range("Alle Benutzer", 0, "AN", false);
  CheckActivity();
  EXPECT_EQ(activity(), (Texts{"Alle Benutzer 0 AN False", "Alle Benutzer 0 RE False",
                               "Alle Benutzer 1 RE False"}));
}

TEST_F(ActivityTest, TheChangedFlagIsNotTouched) {
  start(1, {"Max"});
  range("Max", 0, "RE", false);
  CheckActivity();
  EXPECT_FALSE(session().blnChanged());
  session().blnChanged(true);
  CheckActivity();
  EXPECT_TRUE(session().blnChanged());
}

TEST_F(ActivityTest, WithoutUserListItIsReported) {
  CheckActivity();
  EXPECT_EQ(boxes(), std::vector{errorBox(91, "basAllgemein", "CheckActivity",
                                          "Objektvariable nicht festgelegt")});
}

}  // namespace
}  // namespace vexnumkr
