// Drawing numbers: whose range, which number, and what is said when there is none.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include <vexnumkr/number_check.h>
#include <vexnumkr/numbers.h>

#include "numbers/numbers_database.h"

namespace vexnumkr::test {
namespace {

using numbers::Draw;
using numbers::DrawError;
using numbers::DrawFailure;
using numbers::DrawRequest;

class DrawTest : public NumbersDatabase {
 protected:
  DrawTest() {
    circle(1, "Werk");
    circle(2, "Handel");
    circle(7, "Ausland", "ORC");
    range(1, "RE", 100, 100, 199);
    range(2, "RE", 200, 250, 299);
    range(0, "RE", 1, 1, 99);
  }

  DrawRequest request(const std::string& user, const std::string& key = "RE") {
    return {.application = 1, .user = user, .key = key};
  }
  std::int32_t drawn(const DrawRequest& asked) {
    const Draw draw = numbers::draw(connection(), asked);
    EXPECT_EQ(draw.last - draw.first, asked.count - 1);
    return draw.first;
  }
  /// The failure of a draw, which has to leave every range as it was.
  std::optional<DrawError> refused(const DrawRequest& asked) {
    const std::string select =
        "SELECT AktuellerWert FROM Nummernkreise ORDER BY Buchungskreis, NSchl";
    const auto before = rows(select, {"AktuellerWert"});
    try {
      numbers::draw(connection(), asked);
    } catch (const DrawError& error) {
      EXPECT_EQ(rows(select, {"AktuellerWert"}), before);
      return error;
    }
    ADD_FAILURE() << "a number was drawn";
    return std::nullopt;
  }
  bool drawsAnything(const DrawRequest& asked) {
    try {
      numbers::tryDraw(connection(), asked);
      return true;
    } catch (const DrawError&) {
      return false;
    }
  }
  /// Whether the check has something to say of the range of `key` in circle 1 or its assignments.
  static bool findsAnything(const numbers::Company& company, const std::string& key) {
    const auto findings = numbers::check(company, {.date = "20261121"}).findings;
    return std::any_of(findings.begin(), findings.end(), [&](const numbers::Finding& finding) {
      return finding.circle == 1 && finding.key == key;
    });
  }
  DrawFailure failureOf(const DrawRequest& asked) {
    const auto error = refused(asked);
    return error ? error->failure() : DrawFailure{};
  }
};

TEST_F(DrawTest, TheUsersRangeIssuesOneNumberAfterTheOther) {
  assign("Anna", 2, "RE");
  EXPECT_EQ(drawn(request("Anna")), 251);
  EXPECT_EQ(drawn(request("Anna")), 252);
  EXPECT_EQ(current(2, "RE"), 252);
  EXPECT_EQ(current(1, "RE"), 100);
}

TEST_F(DrawTest, WhoHasNoAssignmentDrawsFromTheCommonOne) {
  assign("ALL", 1, "RE");
  assign("Anna", 2, "RE");
  EXPECT_EQ(drawn(request("Max")), 101);
  EXPECT_EQ(drawn(request("Anna")), 251);
  EXPECT_EQ(drawn(request("ALL")), 102);
}

TEST_F(DrawTest, TheStandardCircleNeedsNoListing) {
  assign("Anna", 0, "RE");
  sql("UPDATE Nummernkreise SET Aktiviert = 0 WHERE Buchungskreis = 0");
  EXPECT_EQ(drawn(request("Anna")), 2);
}

TEST_F(DrawTest, SeveralNumbersComeTogetherOrNotAtAll) {
  assign("Anna", 1, "RE");
  DrawRequest asked = request("Anna");
  asked.count = 99;
  const Draw draw = numbers::draw(connection(), asked);
  EXPECT_EQ(draw.first, 101);
  EXPECT_EQ(draw.last, 199);
  EXPECT_EQ(failureOf(asked), DrawFailure::exhausted);
}

TEST_F(DrawTest, TheEndIsToldBeforeItIsThere) {
  assign("Anna", 1, "RE");
  DrawRequest asked = request("Anna");
  asked.count = 90;
  EXPECT_FALSE(numbers::draw(connection(), asked).isInLastTenth(189));
  asked.count = 1;
  const Draw near = numbers::draw(connection(), asked);
  EXPECT_EQ(near.first, 191);
  EXPECT_TRUE(near.isInLastTenth(191));
  EXPECT_EQ(near.left(191), 8);
  EXPECT_FALSE(near.isLast(191));
  asked.count = 8;
  const Draw end = numbers::draw(connection(), asked);
  EXPECT_TRUE(end.isLast(end.last));
  const auto error = refused(request("Anna"));
  ASSERT_TRUE(error);
  EXPECT_EQ(error->description(),
            "Der Nummernkreis \"RE\" im Buchungskreis 1 ist erschöpft: Die letzte Nummer 199 ist "
            "vergeben.");
}

TEST_F(DrawTest, ASpecialRangeDrawsFromTheKeyThatItShares) {
  range(2, "RX", 0, 0, 0, {.sharedKey = "RE"});
  assign("Anna", 2, "RX");
  const Draw draw = numbers::draw(connection(), request("Anna", "RX"));
  EXPECT_EQ(draw.first, 251);
  EXPECT_EQ(draw.key, "RE");
  EXPECT_EQ(draw.circle, 2);
  EXPECT_EQ(current(2, "RX"), 0);
  sql("DELETE FROM Nummernkreise WHERE NSchl = 'RE' AND Buchungskreis = 2");
  EXPECT_EQ(failureOf(request("Anna", "RX")), DrawFailure::rangeMissing);
}

TEST_F(DrawTest, SeveralCirclesHaveToBeToldApart) {
  assign("ALL", 2, "RE");
  assign("ALL", 1, "RE");
  assign("ALL", 1, "RE");
  const auto error = refused(request("Anna"));
  ASSERT_TRUE(error);
  EXPECT_EQ(error->failure(), DrawFailure::ambiguous);
  EXPECT_EQ(error->circles(), (std::vector<std::int32_t>{1, 2}));
  DrawRequest asked = request("Anna");
  asked.circle = 2;
  EXPECT_EQ(drawn(asked), 251);
  asked.circle = 3;
  EXPECT_EQ(failureOf(asked), DrawFailure::notAssigned);
}

TEST_F(DrawTest, OneActiveRangeAmongOthersIsTheOne) {
  assign("Anna", 1, "LS");
  assign("Anna", 2, "LS");
  assign("ALL", 2, "LS");
  range(1, "LS", 10, 10, 19, {.active = false});
  EXPECT_EQ(failureOf(request("Anna", "LS")), DrawFailure::rangeInactive);
  range(2, "LS", 20, 20, 29);
  EXPECT_EQ(drawn(request("Anna", "LS")), 21);
  sql("UPDATE Nummernkreise SET Aktiviert = -1 WHERE NSchl = 'LS'");
  EXPECT_EQ(failureOf(request("Anna", "LS")), DrawFailure::ambiguous);
}

TEST_F(DrawTest, ASpecialRangeThatIsSwitchedOffIssuesNothing) {
  range(1, "PF", 1000, 1000, 1999, {.sharedKey = "RE"});
  special("PF", "RE", true);
  special("RE", "XX", false, "ORC");  // one of the other application
  assign("Anna", 1, "PF");
  EXPECT_EQ(drawn(request("Anna", "PF")), 101);
  sql("UPDATE Nummernkreis_Sonderkreise SET Aktiviert = 0");
  const auto error = refused(request("Anna", "PF"));
  ASSERT_TRUE(error);
  EXPECT_EQ(error->failure(), DrawFailure::rangeInactive);
  EXPECT_STREQ(error->what(),
               "Der Nummernkreis \"PF\" im Buchungskreis 1 ist zugeordnet, aber sein Sonderkreis "
               "ist ausgeschaltet.");
}

TEST_F(DrawTest, NothingIsDrawnByWayOfARangeThatNobodyUses) {
  range(1, "PF", 1000, 1000, 1999, {.sharedKey = "RE"});
  assign("Anna", 1, "PF");
  sql("UPDATE Nummernkreise SET Aktiviert = 0 WHERE Buchungskreis = 1 AND NSchl = 'RE'");
  EXPECT_EQ(failureOf(request("Anna", "PF")), DrawFailure::rangeInactive);
  assign("Anna", 2, "PF");
  range(2, "PF", 2000, 2000, 2999, {.sharedKey = "RE"});
  EXPECT_EQ(drawn(request("Anna", "PF")), 251) << "the other one is ready";
  sql("DELETE FROM Nummernkreise WHERE NSchl = 'RE'");
  EXPECT_EQ(failureOf(request("Anna", "PF")), DrawFailure::rangeMissing);
}

// Every state that a range, the one whose numbers it draws and its special range can be in.
TEST_F(DrawTest, TheCheckWarnsOfWhatADrawRefuses) {
  user("Anna");
  assign("Anna", 1, "PF");
  special("PF", "RE", true);
  for (int state = 0; state < 32; ++state) {
    const bool isActive = (state & 1) != 0;
    const bool isOn = (state & 2) != 0;
    const bool isShared = (state & 4) != 0;
    const bool isThere = (state & 8) != 0;
    const bool isSharedActive = (state & 16) != 0;
    sql("DELETE FROM Nummernkreise WHERE Buchungskreis = 1");
    range(1, "PF", 1000, 1000, 1999, {.active = isActive, .sharedKey = isShared ? "RE" : ""});
    if (isThere) range(1, "RE", 100, 100, 199, {.active = isSharedActive});
    sql(std::string("UPDATE Nummernkreis_Sonderkreise SET Aktiviert = ") + (isOn ? "-1" : "0"));
    const auto company = numbers::readCompany(connection(), 1);
    const bool isDrawn = drawsAnything(request("Anna", "PF"));
    EXPECT_EQ(isDrawn, !findsAnything(company, "PF")) << state;
    EXPECT_EQ(isDrawn, isActive && isOn && (!isShared || (isThere && isSharedActive))) << state;
  }
}

TEST_F(DrawTest, AssignmentsThatDoNotCountAreNone) {
  EXPECT_EQ(failureOf(request("Anna")), DrawFailure::notAssigned);
  assign("Anna", 1, "RE", "ORC");
  assign("anna", 1, "RE");
  assign("Anna", 1, "re");
  assign("Anna", 7, "RE");  // a circle of the other application
  EXPECT_EQ(failureOf(request("Anna")), DrawFailure::notAssigned);
}

TEST_F(DrawTest, TheOtherApplicationHasItsOwnAssignments) {
  range(7, "RE", 700, 700, 799);
  assign("Anna", 1, "RE");
  assign("Anna", 7, "RE", "ORC");
  DrawRequest asked = request("Anna");
  asked.application = 2;
  EXPECT_EQ(drawn(asked), 701);
}

TEST_F(DrawTest, MissingInactiveAndBrokenRangesAreToldApart) {
  assign("Anna", 1, "LS");
  EXPECT_EQ(failureOf(request("Anna", "LS")), DrawFailure::rangeMissing);
  range(1, "LS", 1, 1, 9, {.active = false});
  EXPECT_EQ(failureOf(request("Anna", "LS")), DrawFailure::rangeInactive);
  sql("UPDATE Nummernkreise SET Aktiviert = -1, AktuellerWert = 0 WHERE NSchl = 'LS'");
  EXPECT_EQ(failureOf(request("Anna", "LS")), DrawFailure::rangeBroken);
  sql("UPDATE Nummernkreise SET AktuellerWert = 10 WHERE NSchl = 'LS'");
  EXPECT_EQ(failureOf(request("Anna", "LS")), DrawFailure::rangeBroken);
  sql("UPDATE Nummernkreise SET AktuellerWert = NULL WHERE NSchl = 'LS'");
  EXPECT_EQ(failureOf(request("Anna", "LS")), DrawFailure::rangeBroken);
}

TEST_F(DrawTest, TheLargestAndTheSmallestNumbersAreNumbersToo) {
  range(1, "MX", 2147483000, 2147483646, 2147483647);
  range(1, "MN", -2147483647 - 1, -2147483647 - 1, -2147483647);
  assign("Anna", 1, "MX");
  assign("Anna", 1, "MN");
  EXPECT_EQ(drawn(request("Anna", "MX")), 2147483647);
  EXPECT_EQ(failureOf(request("Anna", "MX")), DrawFailure::exhausted);
  DrawRequest asked = request("Anna", "MN");
  asked.count = 2147483647;
  EXPECT_EQ(failureOf(asked), DrawFailure::exhausted);
  EXPECT_EQ(drawn(request("Anna", "MN")), -2147483647);
}

TEST_F(DrawTest, WhatCannotBeAnsweredIsSaidAtOnce) {
  DrawRequest asked = request("Anna");
  asked.application = 3;
  const auto numberOf = [&] {
    try {
      numbers::draw(connection(), asked);
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  };
  EXPECT_EQ(numberOf(), 5);
  asked = request("");
  EXPECT_EQ(numberOf(), 5);
  asked = request("Anna", "");
  EXPECT_EQ(numberOf(), 5);
  asked = request("Anna");
  asked.count = 0;
  EXPECT_EQ(numberOf(), 5);
}

TEST_F(DrawTest, ATrialIssuesNothing) {
  assign("Anna", 1, "RE");
  EXPECT_EQ(numbers::tryDraw(connection(), request("Anna")).first, 101);
  EXPECT_EQ(numbers::tryDraw(connection(), request("Anna")).first, 101);
  EXPECT_EQ(current(1, "RE"), 100);
}

TEST_F(DrawTest, ARolledBackDocumentGivesItsNumberBack) {
  assign("Anna", 1, "RE");
  connection().BeginTrans();
  EXPECT_EQ(numbers::drawInTransaction(connection(), request("Anna")).first, 101);
  EXPECT_EQ(numbers::drawInTransaction(connection(), request("Anna")).first, 102);
  connection().RollbackTrans();
  EXPECT_EQ(current(1, "RE"), 100);
  connection().BeginTrans();
  EXPECT_EQ(numbers::drawInTransaction(connection(), request("Anna")).first, 101);
  connection().CommitTrans();
  EXPECT_EQ(current(1, "RE"), 101);
}

TEST_F(DrawTest, ARefusedDrawLeavesTheHostsTransactionAlone) {
  assign("Anna", 1, "RE");
  connection().BeginTrans();
  numbers::drawInTransaction(connection(), request("Anna"));
  EXPECT_THROW(numbers::drawInTransaction(connection(), request("Max")), DrawError);
  connection().CommitTrans();
  EXPECT_EQ(current(1, "RE"), 101);
}

TEST_F(DrawTest, TheConnectionsIsolationIsAsBefore) {
  assign("Anna", 1, "RE");
  connection().IsolationLevel(ado::isolated);
  EXPECT_EQ(drawn(request("Anna")), 101);
  EXPECT_EQ(connection().IsolationLevel(), ado::isolated);
}

TEST_F(DrawTest, ValuesStayValues) {
  const std::vector<std::string> nasty = {
      "'",           "''", "\\", "\\'", "'; DELETE FROM Nummernkreise; --",
      "' OR '1'='1", "$$", "/*", "\" `"};
  for (const std::string& value : nasty) {
    SCOPED_TRACE(value);
    EXPECT_EQ(failureOf(request(value)), DrawFailure::notAssigned);
    EXPECT_EQ(failureOf(request("Anna", value)), DrawFailure::notAssigned);
  }
  assign("O'Neill", 1, "RE");
  EXPECT_EQ(drawn(request("O'Neill")), 101);
}

}  // namespace
}  // namespace vexnumkr::test
