#include "data/sql/statement_shapes.h"

#include <gtest/gtest.h>

#include <string>

#include "data/sql/statements.h"

namespace vexnumkr {
namespace {

class StatementShapesTest : public ::testing::Test {
 protected:
  bool isOwn(const std::string& text, bool backslashEscapes = false) {
    return shapes_.isOwn(text, backslashEscapes);
  }
  bool isOwnWithDescription(const std::string& description) {
    statement::Range range;
    range.NBezeichnung = description;
    return isOwn(statement::insertRange(range));
  }

 private:
  StatementShapes shapes_;
};

TEST_F(StatementShapesTest, EveryStatementOfTheComponentIsItsOwnWhateverItsValues) {
  for (const char* value :
       {"", "ORB", "größer", "a;b", "-- x", "/* y */", "\"", "a''b", "1", "\n"}) {
    for (const std::int32_t number : {0, 7, -7, -2147483647 - 1}) {
      const statement::Range range{number, value,       value,  number, number,
                                   number, number == 7, number, value,  value};
      for (const std::string& text :
           {statement::users(), statement::ranges(), statement::bookingCircles(value),
            statement::assignment(number, value, value, value), statement::specialRangeCount(value),
            statement::specialRangesByKey(value), statement::specialRangesByDescription(value),
            statement::otherOriginsOfCircle(number, value), statement::storedRange(value, number),
            statement::deleteRanges(value), statement::deleteAssignments(value),
            statement::insertRange(range), statement::updateRange(range),
            statement::insertAssignment(number, value, value, value)})
        EXPECT_TRUE(isOwn(text)) << text;
    }
  }
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

TEST_F(StatementShapesTest, ASecondStatementIsRefusedAlsoBeforeAnOpenLiteral) {
  EXPECT_FALSE(isOwnWithDescription("x'); DELETE FROM tblUser; SELECT ('', '"));
}

TEST_F(StatementShapesTest, AnOpenLiteralIsLeftToTheEngineToRefuse) {
  EXPECT_TRUE(isOwnWithDescription("O'Neill"));
}

TEST_F(StatementShapesTest, ABackslashBeforeTheQuoteIsRefusedWhereItHidesIt) {
  statement::Range range;
  range.NBezeichnung = "x\\";
  range.Maske = ", 0, 0, 0, 0, 0, '', '') -- ";
  const std::string text = statement::insertRange(range);
  EXPECT_TRUE(isOwn(text, false));
  EXPECT_FALSE(isOwn(text, true));
  range.NBezeichnung = "x\\\\";
  EXPECT_TRUE(isOwn(statement::insertRange(range), true));
}

TEST_F(StatementShapesTest, NothingHidesBetweenTheLiterals) {
  statement::Range range;
  range.NBezeichnung = "x' /*! evil ";
  range.Maske = " */, 1, 2, 3, -1, 5, '', 'z";
  EXPECT_FALSE(isOwn(statement::insertRange(range)));
  range.NBezeichnung = "x'\n, 1, 2, 3, -1, 5, '', 'z') -- ";
  EXPECT_FALSE(isOwn(statement::insertRange(range)));
}

TEST_F(StatementShapesTest, AnOpenLiteralHasToBeOpenForEveryEngine) {
  statement::Range range;
  range.IstNSchlVon = "x' || $$";
  range.Maske = "$$ || ', ";
  EXPECT_FALSE(isOwn(statement::insertRange(range)));
  for (const char* value :
       {"x' || E", "x' #", "x' `", "x' || \"", "x' [", "x' /* ", "x' 1e", "a' \\"})
    EXPECT_FALSE(isOwnWithDescription(value)) << value;
}

TEST_F(StatementShapesTest, LongValuesMakeNoDifference) {
  EXPECT_TRUE(isOwnWithDescription(std::string(1 << 20, 'x')));
  EXPECT_TRUE(isOwnWithDescription(std::string(1 << 20, '\'')));
  EXPECT_FALSE(isOwnWithDescription(std::string(1 << 20, 'x') + "' || '"));
}

}  // namespace
}  // namespace vexnumkr
