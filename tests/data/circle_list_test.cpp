#include "data/booking_circles.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using basAllgemein::LookupBuchungskreis;
using test::errorBox;

class CircleListTest : public test::CoreSession {
 protected:
  void SetUp() override {
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'Süd', 'ORB')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (3, 'West', 'ORC')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (4, 'Ohne', '')");
  }
};

TEST_F(CircleListTest, HoldsTheCirclesOfTheOrigin) {
  start(1);
  EXPECT_EQ(context().Buchungskreise().UpperBound(1), 1);
  EXPECT_EQ(context().Buchungskreise().get(1, 0), Value(2));
  EXPECT_EQ(context().Buchungskreise().get(1, 1), Value("Süd"));
}

TEST_F(CircleListTest, AnUnknownApplicationAsksForTheEmptyOrigin) {
  start(3);
  EXPECT_EQ(script().takeStatements().back(),
            "conn: SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise WHERE "
            "Herkunft=''");
  EXPECT_EQ(LookupBuchungskreis(context(), 1, 4), Value("Ohne"));
}

TEST_F(CircleListTest, IsLookedUpInBothDirections) {
  start(1);
  EXPECT_EQ(LookupBuchungskreis(context(), 1, 2), Value("Süd"));
  EXPECT_EQ(LookupBuchungskreis(context(), 0, "Nord"), Value(1));
  EXPECT_EQ(LookupBuchungskreis(context(), 1, 3), Value(-1));
  EXPECT_EQ(LookupBuchungskreis(context(), 0, "nord"), Value(-1));
}

TEST_F(CircleListTest, AnEmptyListHasNothing) {
  sql("DELETE FROM Nummernkreis_Buchungskreise");
  start(1);
  EXPECT_EQ(LookupBuchungskreis(context(), 1, 2), Value(-1));
}

TEST_F(CircleListTest, AFailedStatementIsReportedAndKeepsTheList) {
  start(1);
  script().failStatement(1);
  basAllgemein::RefreshCombo(context(), nullptr);
  EXPECT_EQ(boxes(),
            (std::vector{errorBox(4711, "basAllgemein", "RefreshCombo", "Absichtlicher Fehler")}));
  EXPECT_EQ(LookupBuchungskreis(context(), 1, 2), Value("Süd"));
}

TEST_F(CircleListTest, TheAdministrationIsShownForTheOrigin) {
  start(1);
  EXPECT_TRUE(basAllgemein::CallBuchungskreise(context(), "ORB"));
  using Shown = std::vector<std::pair<std::string, std::int32_t>>;
  EXPECT_EQ(host().circleDialog.shown, (Shown{{"ORB", 27}}));
  EXPECT_EQ(host().circleDialog.connection, hostConnection());
  EXPECT_EQ(host().circleDialog.multiSelect, std::vector<bool>{false});
}

TEST_F(CircleListTest, AnAdministrationThatFailsIsReported) {
  start(1);
  host().circleDialog.whenShown = [](Connection&) { throw Error(5, "host", "kaputt"); };
  EXPECT_FALSE(basAllgemein::CallBuchungskreise(context(), "ORB"));
  EXPECT_EQ(boxes(), (std::vector{errorBox(5, "basAllgemein", "CallBuchungskreise", "kaputt")}));
}

}  // namespace
}  // namespace vexnumkr
