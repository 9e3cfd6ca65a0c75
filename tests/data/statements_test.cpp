// Hosts' databases see exactly these texts.
#include "data/sql/statements.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/error_of.h"
#include "support/row_of.h"

namespace vexnumkr::statement {
namespace {

TEST(StatementsTest, Users) {
  EXPECT_EQ(users(), "SELECT strUserName_PK FROM tblUser ORDER BY strUserName_PK");
}

TEST(StatementsTest, Ranges) {
  EXPECT_EQ(ranges(),
            "SELECT NSchl, NBezeichnung, Buchungskreis, StartWert, AktuellerWert, EndWert, "
            "Aktiviert, SortierIndex, IstNSchlVon, Maske FROM Nummernkreise WHERE NSchl <> 'LM' "
            "AND NSchl <> 'AF' ORDER BY SortierIndex");
}

TEST(StatementsTest, BookingCircles) {
  EXPECT_EQ(bookingCircles("ORB"),
            "SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise WHERE "
            "Herkunft='ORB'");
}

TEST(StatementsTest, Assignment) {
  EXPECT_EQ(assignment(-3, "RE", "Max", "ORC"),
            "SELECT * FROM Nummernkreis_Zuordnung WHERE Buchungskreis=-3 AND NSchl='RE' AND "
            "Benutzer='Max' AND Herkunft='ORC'");
}

TEST(StatementsTest, SpecialRanges) {
  EXPECT_EQ(specialRangeCount("ORB"),
            "SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Sonderkreise WHERE Herkunft='ORB'");
  EXPECT_EQ(specialRangesByKey("ORB"),
            "SELECT U_NSchl, NSchl, NBezeichnung, Aktiviert FROM Nummernkreis_Sonderkreise WHERE "
            "Herkunft='ORB' ORDER BY U_NSchl");
  EXPECT_EQ(specialRangesByDescription(""),
            "SELECT U_NSchl, NSchl, NBezeichnung, Aktiviert FROM Nummernkreis_Sonderkreise WHERE "
            "Herkunft='' ORDER BY NBezeichnung");
}

TEST(StatementsTest, SharedCircles) {
  EXPECT_EQ(otherOriginsOfCircle(3, "ORB"),
            "SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Buchungskreise WHERE Buchungskreis=3 AND "
            "Herkunft <> 'ORB'");
  EXPECT_EQ(storedRange("RE", 3),
            "SELECT * FROM Nummernkreise WHERE NSchl='RE' AND Buchungskreis=3");
}

TEST(StatementsTest, Deletes) {
  EXPECT_EQ(deleteRanges("ORC"),
            "DELETE FROM Nummernkreise WHERE NOT EXISTS (SELECT * FROM Nummernkreis_Buchungskreise "
            "WHERE Nummernkreise.Buchungskreis = Nummernkreis_Buchungskreise.Buchungskreis AND "
            "Herkunft='ORC') AND NSchl <> 'LM' AND NSchl <> 'AF' AND (Buchungskreis <> 0 OR "
            "(IstNSchlVon <> '' AND IstNSchlVon IS NOT NULL))");
  EXPECT_EQ(deleteAssignments("ORB"), "DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft='ORB'");
}

class RangeStatementsTest : public ::testing::Test {
 protected:
  XArray table_ = XArray::created();
  RangeRow range_ = test::rowOf(table_, {.Benutzer = "Alle Benutzer",
                                         .Buchungskreis = 1,
                                         .Gruppe = "Nord",
                                         .NSchl = "RE",
                                         .NBezeichnung = "Rechnung",
                                         .StartWert = -5,
                                         .AktuellerWert = " 7 ",
                                         .EndWert = std::numeric_limits<std::int32_t>::min(),
                                         .Aktiviert = true,
                                         .SortierIndex = 50,
                                         .IstNSchlVon = "AN",
                                         .Maske = "JJNNN"});
};

TEST_F(RangeStatementsTest, Insert) {
  EXPECT_EQ(insertRange(range_),
            "INSERT INTO Nummernkreise (Buchungskreis, NSchl, NBezeichnung, StartWert, "
            "AktuellerWert, EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske) VALUES (1, 'RE', "
            "'Rechnung', -5, 7, -2147483648, -1, 50, 'AN', 'JJNNN')");
}

TEST_F(RangeStatementsTest, Update) {
  range_.Aktiviert = false;
  EXPECT_EQ(updateRange(range_),
            "UPDATE Nummernkreise SET NBezeichnung='Rechnung', StartWert=-5, AktuellerWert=7, "
            "EndWert=-2147483648, Aktiviert=0, SortierIndex=50, IstNSchlVon='AN', Maske='JJNNN' "
            "WHERE Buchungskreis=1 AND NSchl='RE'");
}

TEST_F(RangeStatementsTest, AValueThatIsNoNumberIsError13) {
  range_.EndWert = table_.text("zehn");
  EXPECT_EQ(test::errorOf([this] { insertRange(range_); }), 13);
  EXPECT_EQ(test::errorOf([this] { updateRange(range_); }), 13);
}

TEST(StatementsTest, InsertAssignmentHasNoBlankBeforeTheOrigin) {
  EXPECT_EQ(insertAssignment(2, "RE", "ALL", "ORB"),
            "INSERT INTO Nummernkreis_Zuordnung (Buchungskreis, NSchl, Benutzer, Herkunft) VALUES "
            "(2, 'RE', 'ALL','ORB')");
}

TEST(StatementsTest, TextsStandAsTheyAre) {
  EXPECT_EQ(insertAssignment(0, "R'E", "", "ORB"),
            "INSERT INTO Nummernkreis_Zuordnung (Buchungskreis, NSchl, Benutzer, Herkunft) VALUES "
            "(0, 'R'E', '','ORB')");
}

}  // namespace
}  // namespace vexnumkr::statement
