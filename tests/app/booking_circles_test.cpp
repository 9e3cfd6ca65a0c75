#include "app/components/booking_circles.h"

#include <gtest/gtest.h>

#include <vexnumkr/error.h>

#include "app/sample_database.h"

namespace vexnumkr::app {
namespace {

using test::Row;

class Circles : public testing::Test {
 protected:
  std::vector<Row> rows() const {
    std::vector<Row> found;
    for (const BookingCircle& circle : circles_.read()) {
      found.push_back({std::to_string(circle.number), circle.description});
    }
    return found;
  }

  test::SampleDatabase database_;
  BookingCircles circles_{database_.connect(), "ORC"};
};

TEST_F(Circles, AreThoseOfTheOriginByNumber) {
  EXPECT_EQ(rows(),
            (std::vector<Row>{{"3", "Onlinehandel"}, {"11", "Ladenkasse"}, {"12", "Außendienst"}}));
}

TEST_F(Circles, AreAddedRenamedAndRemovedForTheirOriginAlone) {
  circles_.add({4, "Hofladen"});
  circles_.rename(3, "Webshop");
  circles_.remove(12);
  EXPECT_EQ(rows(), (std::vector<Row>{{"3", "Webshop"}, {"4", "Hofladen"}, {"11", "Ladenkasse"}}));
  EXPECT_EQ(database_.rows("SELECT Beschreibung FROM Nummernkreis_Buchungskreise WHERE "
                           "Herkunft='ORB' AND Buchungskreis IN (3, 4) ORDER BY Buchungskreis"),
            (std::vector<Row>{{"Onlinehandel"}, {"Werkstatt"}}));
}

TEST_F(Circles, TakeDescriptionsAsTheyAre) {
  const std::string description = "Harry's \"Laden\"; -- ä";
  circles_.add({7, description});
  circles_.rename(11, "O'Neill");
  EXPECT_EQ(
      rows(),
      (std::vector<Row>{
          {"3", "Onlinehandel"}, {"7", description}, {"11", "O'Neill"}, {"12", "Außendienst"}}));
}

TEST_F(Circles, WithoutADescriptionReadAsEmpty) {
  database_.run("UPDATE Nummernkreis_Buchungskreise SET Beschreibung = NULL");
  EXPECT_EQ(rows(), (std::vector<Row>{{"3", ""}, {"11", ""}, {"12", ""}}));
}

TEST_F(Circles, KnowTheirActiveKeys) {
  EXPECT_EQ(circles_.activeKeys(11), (std::vector<std::string>{"GU", "KB", "RE"}));
  database_.run("UPDATE Nummernkreise SET Aktiviert = 0 WHERE Buchungskreis = 11 AND NSchl = 'KB'");
  database_.run(
      "UPDATE Nummernkreise SET Aktiviert = NULL WHERE Buchungskreis = 11 AND NSchl = 'GU'");
  EXPECT_EQ(circles_.activeKeys(11), std::vector<std::string>{"RE"});
  EXPECT_EQ(circles_.activeKeys(99), std::vector<std::string>{});
}

TEST_F(Circles, PassOnTheEnginesFailures) {
  EXPECT_THROW(circles_.add({3, "Doppelt"}), Error);
  database_.run("DROP TABLE Nummernkreis_Buchungskreise");
  EXPECT_THROW(circles_.read(), Error);
}

const std::vector<BookingCircle> present = {{1, "Nord"}, {5, " Süd "}};

TEST(CircleNumbers, ArePlainPositiveNumbers) {
  EXPECT_EQ(circleNumber(" 7 "), 7);
  EXPECT_EQ(circleNumber("007"), 7);
  EXPECT_EQ(circleNumber("2147483647"), 2147483647);
  for (const char* text : {"", " ", "0", "-1", "+1", "1.5", "1,0", "1.000", "1e3", "zwei", "000"}) {
    EXPECT_EQ(circleNumber(text), 0) << text;
    EXPECT_EQ(refusedNumber(text, present), "Die Nummer muss eine ganze Zahl ab 1 sein.") << text;
  }
}

TEST(CircleNumbers, HaveAnUpperLimitThatIsNamed) {
  for (const char* text : {"2147483648", "9999999999", " 99999999999999999999 "}) {
    EXPECT_EQ(circleNumber(text), 0) << text;
    EXPECT_EQ(refusedNumber(text, present), "Die Nummer darf höchstens 2147483647 sein.") << text;
  }
}

TEST(CircleNumbers, AreGivenOnce) {
  EXPECT_EQ(refusedNumber("5", present), "Die Nummer 5 ist schon vergeben.");
  EXPECT_EQ(refusedNumber("2", present), "");
}

TEST(CircleNumbers, AreProposedBehindTheHighest) {
  EXPECT_EQ(proposedNumber(present), 6);
  EXPECT_EQ(proposedNumber({}), 1);
  EXPECT_EQ(proposedNumber({{-4, "alt"}}), 1);
  EXPECT_EQ(proposedNumber({{2147483647, "letzter"}}), 0);
}

TEST(CircleDescriptions, AreNeverEmpty) {
  EXPECT_EQ(refusedDescription("", 0, present), "Die Beschreibung darf nicht leer sein.");
  EXPECT_EQ(refusedDescription("   ", 0, present), "Die Beschreibung darf nicht leer sein.");
}

TEST(CircleDescriptions, AreNotTheNamesOfTheFilter) {
  for (const std::string name : {"Alle Buchungskreise", "Aktive Buchungskreise", "Standard"}) {
    const std::string refusal = "\"" + name +
                                "\" hat eine feste Bedeutung und kann keine "
                                "Beschreibung sein.";
    EXPECT_EQ(refusedDescription(name, 0, present), refusal);
    EXPECT_EQ(refusedDescription("  " + name + " ", 0, present), refusal);
  }
  std::string longest;
  for (int i = 0; i < 60; ++i) longest += "ü";
  EXPECT_EQ(refusedDescription(longest, 0, present), "");
  EXPECT_EQ(refusedDescription(longest + "x", 0, present),
            "Die Beschreibung darf höchstens 60 Zeichen haben, nicht 61.");
  EXPECT_EQ(refusedDescription("Standard 2", 0, present), "");
}

TEST(CircleDescriptions, AreGivenOnce) {
  EXPECT_EQ(refusedDescription("Nord", 0, present), "Der Buchungskreis 1 heißt schon so.");
  EXPECT_EQ(refusedDescription("Süd", 1, present), "Der Buchungskreis 5 heißt schon so.");
  EXPECT_EQ(refusedDescription("Nord", 1, present), "");
  EXPECT_EQ(refusedDescription("nord", 0, present), "");
}

}  // namespace
}  // namespace vexnumkr::app
