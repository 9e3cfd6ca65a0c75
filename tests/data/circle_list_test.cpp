#include "data/booking_circles.h"
#include "hosting/circle_administration.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;

class CircleListTest : public test::CoreSession {
 protected:
  template <class Wanted>
  auto lookedUp(const Wanted& wanted) {
    return basAllgemein::LookupBuchungskreis(session().Buchungskreise(), session().reporter(),
                                             wanted);
  }
  void SetUp() override {
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'Süd', 'ORB')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (3, 'West', 'ORC')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (4, 'Ohne', '')");
  }
};

TEST_F(CircleListTest, HoldsTheCirclesOfTheOrigin) {
  start(1);
  const BookingCircleList& list = session().Buchungskreise();
  EXPECT_EQ(BookingCircleList::Circles(list.begin(), list.end()),
            (BookingCircleList::Circles{{1, "Nord"}, {2, "Süd"}}));
}

TEST_F(CircleListTest, AnUnknownApplicationAsksForTheEmptyOrigin) {
  start(3);
  EXPECT_EQ(script().takeStatements().back(),
            "conn: SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise WHERE "
            "Herkunft=''");
  EXPECT_EQ(lookedUp(4), "Ohne");
}

TEST_F(CircleListTest, IsLookedUpInBothDirections) {
  start(1);
  EXPECT_EQ(lookedUp(2), "Süd");
  EXPECT_EQ(lookedUp(std::string("Nord")), 1);
  EXPECT_EQ(lookedUp(3), std::nullopt);
  EXPECT_EQ(lookedUp(std::string("nord")), std::nullopt);
}

TEST_F(CircleListTest, AnEmptyListHasNothing) {
  sql("DELETE FROM Nummernkreis_Buchungskreise");
  start(1);
  EXPECT_EQ(lookedUp(2), std::nullopt);
}

TEST_F(CircleListTest, AFailedStatementIsReportedAndKeepsTheList) {
  start(1);
  script().failStatement(1);
  RefreshCombo();
  EXPECT_EQ(boxes(),
            (std::vector{errorBox(4711, "basAllgemein", "RefreshCombo", "Absichtlicher Fehler")}));
  EXPECT_EQ(lookedUp(2), "Süd");
}

TEST_F(CircleListTest, TheAdministrationIsShownForTheOrigin) {
  start(1);
  EXPECT_TRUE(basAllgemein::CallBuchungskreise(session(), "ORB"));
  using Shown = std::vector<std::pair<std::string, std::int32_t>>;
  EXPECT_EQ(host().circleDialog.shown, (Shown{{"ORB", 27}}));
  EXPECT_EQ(host().circleDialog.connection, hostConnection());
  EXPECT_EQ(host().circleDialog.multiSelect, std::vector<bool>{false});
}

TEST_F(CircleListTest, AnAdministrationThatFailsIsReported) {
  start(1);
  host().circleDialog.whenShown = [](Connection&) { throw Error(5, "host", "kaputt"); };
  EXPECT_FALSE(basAllgemein::CallBuchungskreise(session(), "ORB"));
  EXPECT_EQ(boxes(), (std::vector{errorBox(5, "basAllgemein", "CallBuchungskreise", "kaputt")}));
}

}  // namespace
}  // namespace vexnumkr
