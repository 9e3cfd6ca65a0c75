#include "data/sql/statement_shapes.h"

#include <gtest/gtest.h>

#include <string>

#include "data/sql/set_statements.h"
#include "data/sql/statements.h"

namespace vexnumkr {
namespace {

class StatementShapesTest : public ::testing::Test {
 protected:
  bool isOwn(const std::string& text, bool backslashEscapes = false) {
    return shapes_.isOwn(text, backslashEscapes);
  }
  bool isOwnWithDescription(const std::string& description) {
    return isOwn(statement::insertRange(range(description)));
  }
  RangeRow range(const std::string& description, const std::string& mask = "",
                 const std::string& sharedWith = "") {
    RangeRow row;
    row.NBezeichnung = texts_.add(description);
    row.IstNSchlVon = texts_.add(sharedWith);
    row.Maske = texts_.add(mask);
    return row;
  }

 private:
  TextPool texts_;
  StatementShapes shapes_;
};

TEST_F(StatementShapesTest, EveryStatementOfTheComponentIsItsOwnWhateverItsValues) {
  for (const char* value : {"", "ORB", "größer", "a;b", "-- x", "/* y */", "\"", "1", "\n", "\\"}) {
    for (const std::int32_t number : {0, 7, -7, -2147483647 - 1}) {
      RangeRow row = range(value, value, value);
      row.NSchl = row.NBezeichnung;
      row.Buchungskreis = row.SortierIndex = number;
      row.StartWert = row.AktuellerWert = row.EndWert = number;
      row.Aktiviert = number == 7;
      for (const std::string& text :
           {statement::users(), statement::ranges(), statement::bookingCircles(value),
            statement::assignment(number, value, value, value), statement::specialRangeCount(value),
            statement::specialRangesByKey(value), statement::specialRangesByDescription(value),
            statement::otherOriginsOfCircle(number, value), statement::storedRange(value, number),
            statement::deleteRanges(value), statement::deleteAssignments(value),
            statement::insertRange(row), statement::updateRange(row),
            statement::insertAssignment(number, value, value, value)})
        EXPECT_TRUE(isOwn(text)) << text;
    }
  }
}

TEST_F(StatementShapesTest, StatementsOfManyRowsAreItsOwnHoweverManyTheyAre) {
  std::vector<RangeRow> ranges;
  std::vector<statement::KeysOfCircle> keys;
  std::vector<statement::UsersOfRange> users;
  for (std::int32_t i = 0; i < 30; ++i) {
    RangeRow row = range("größer; -- x", "J\"N", "/* y */");
    row.NSchl = range("K" + std::to_string(i)).NBezeichnung;
    row.Buchungskreis = row.StartWert == Cell() ? i / 4 - 2 : 0;
    row.StartWert = -i;
    ranges.push_back(row);
    keys.push_back({-i, std::vector<std::string_view>(static_cast<std::size_t>(i % 3 + 1), "A")});
    users.push_back(
        {-i, "K", std::vector<std::string_view>(static_cast<std::size_t>(i % 3 + 1), "B")});
    for (const std::string& text :
         {statement::removeRanges(keys), statement::insertRanges(ranges),
          statement::updateRanges(ranges, {}), statement::updateRanges(ranges, {0, 3}),
          statement::updateRanges(ranges, {7, 8}), statement::updateRanges(ranges, {2, 6}),
          statement::removeAssignments(users, "ORB"), statement::insertAssignments(users, "ORB"),
          statement::removeRange(-i, "K"), statement::removeAssignment(-i, "K", "U", "ORB"),
          statement::assignments("ORB"), statement::wholeAssignments("ORB"),
          statement::sharedRanges("ORB"), statement::deletableRanges("ORC")})
      EXPECT_TRUE(isOwn(text)) << text;
  }
  EXPECT_FALSE(isOwn(statement::insertRanges(ranges) + " , ('K' , 1)"));
  EXPECT_FALSE(isOwn(statement::removeRanges(keys) + " OR 1=1"));
  EXPECT_FALSE(isOwn(statement::removeRanges(keys) + " OR Buchungskreis=1"));
  EXPECT_FALSE(isOwn(statement::updateRanges(ranges, {0, 3}) + " OR Buchungskreis=1"));
}

// Nothing that a value adds to the statement of one row makes it one of many rows.
TEST_F(StatementShapesTest, AStatementOfOneRowDoesNotBecomeOneOfMany) {
  for (const char* value :
       {"x','ORB'), (1, 'RE', 'y", "x' , 'ORB') , ('ORB' , 1 , 'RE' , 'y",
        "x' OR Buchungskreis=1 AND NSchl IN ('y') OR Buchungskreis=1 AND NSchl='y",
        "x') OR Buchungskreis=1 AND NSchl IN ('y", "x' , 'y"}) {
    EXPECT_FALSE(isOwn(statement::insertAssignment(1, "RE", value, "ORB"))) << value;
    EXPECT_FALSE(isOwn(statement::removeAssignment(1, "RE", value, "ORB"))) << value;
    EXPECT_FALSE(isOwn(statement::removeRange(1, value))) << value;
    EXPECT_FALSE(statement::isPlain(value));
  }
  EXPECT_FALSE(statement::isPlain("x\\"));
  EXPECT_TRUE(statement::isPlain("Größe \"1\"; -- /*"));
}

TEST_F(StatementShapesTest, OtherStatementsAreNot) {
  for (const char* text : {"", ";", "DELETE FROM Nummernkreise", "DROP TABLE tblUser", "SELECT 1",
                           "select strUserName_PK FROM tblUser ORDER BY strUserName_PK",
                           "SELECT strUserName_PK FROM tblUser ORDER BY strUserName_PK;",
                           "SELECT strUserName_PK FROM tblUser ORDER BY strUserName_PK -- more",
                           "SELECT strUserName_PK FROM tblUser ORDER BY strUserName_PK DESC",
                           "SELECT strUserName_PK FROM [tblUser] ORDER BY strUserName_PK"})
    EXPECT_FALSE(isOwn(text)) << text;
}

TEST_F(StatementShapesTest, AValueThatGivesItsStatementAnotherShapeIsRefused) {
  for (const char* value :
       {"x', 1, 2, 3, 0, 0, '', '') -- ", "x' || (SELECT strUserName_PK FROM tblUser) || 'y",
        "x', (SELECT 1), '", "x' OR '1'='1", "x'; DELETE FROM tblUser; --",
        "x'); DELETE FROM tblUser; SELECT ('", "x') UNION SELECT ('", "x'/*", "' '",
        "x', 0, 0, 0, 0, 0, '', ''), (1, 'RE', 'y"})
    EXPECT_FALSE(isOwnWithDescription(value)) << value;
}

// Each value alone leaves its statement in shape; the two quotes between them make one text of
// both.
TEST_F(StatementShapesTest, TwoValuesDoNotRunIntoOne) {
  RangeRow row = range("Rechnung", "x'");
  row.NSchl = range(" WHERE Buchungskreis=5 AND NSchl='D").NBezeichnung;
  EXPECT_FALSE(isOwn(statement::updateRange(row)));
  EXPECT_FALSE(isOwnWithDescription("NN''NN"));
  EXPECT_FALSE(isOwnWithDescription("''"));
}

TEST_F(StatementShapesTest, ASecondStatementIsRefusedAlsoBeforeAnOpenLiteral) {
  EXPECT_FALSE(isOwnWithDescription("x'); DELETE FROM tblUser; SELECT ('', '"));
}

TEST_F(StatementShapesTest, AnOpenLiteralIsLeftToTheEngineToRefuse) {
  EXPECT_TRUE(isOwnWithDescription("O'Neill"));
}

TEST_F(StatementShapesTest, ABackslashBeforeTheQuoteIsRefusedWhereItHidesIt) {
  const std::string hidden = ", 0, 0, 0, 0, 0, 0, 0) -- ";
  const std::string text = statement::insertRange(range("x\\", hidden));
  EXPECT_TRUE(isOwn(text, false));
  EXPECT_FALSE(isOwn(text, true));
  EXPECT_FALSE(isOwn(statement::insertRange(range("x\\\\", hidden)), true))
      << "nor one that is escaped itself: what is stored would not be what was typed";
}

TEST_F(StatementShapesTest, NothingHidesBetweenTheLiterals) {
  const std::string mask = " */, 1, 2, 3, -1, 5, '', 'z";
  EXPECT_FALSE(isOwn(statement::insertRange(range("x' /*! evil ", mask))));
  EXPECT_FALSE(isOwn(statement::insertRange(range("x'\n, 1, 2, 3, -1, 5, '', 'z') -- ", mask))));
}

TEST_F(StatementShapesTest, AnOpenLiteralHasToBeOpenForEveryEngine) {
  EXPECT_FALSE(isOwn(statement::insertRange(range("", "$$ || ', ", "x' || $$"))));
  for (const char* value :
       {"x' || E", "x' #", "x' `", "x' || \"", "x' [", "x' /* ", "x' 1e", "a' \\"})
    EXPECT_FALSE(isOwnWithDescription(value)) << value;
}

TEST_F(StatementShapesTest, LongValuesMakeNoDifference) {
  EXPECT_TRUE(isOwnWithDescription(std::string(1 << 20, 'x')));
  EXPECT_FALSE(isOwnWithDescription(std::string(1 << 20, '\'')));
  EXPECT_FALSE(isOwnWithDescription(std::string(1 << 20, 'x') + "' || '"));
}

}  // namespace
}  // namespace vexnumkr
