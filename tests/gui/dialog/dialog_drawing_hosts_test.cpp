// Hosts issue numbers all day while an administrator works in the dialog. Nothing that the user
// sees, reads or corrects keeps them from it, and no number that they have told of is given away a
// second time.
#include "support/dialog_session.h"
#include "support/drawing_process.h"

namespace vexnumkr::test {
namespace {

constexpr int draws = 1000;
constexpr int fewDraws = 60;
constexpr int some = 2 * DrawingProcess::ahead;

class DialogDrawingHostsTest : public DialogSession {
 protected:
  /// Anna draws invoices from Nord, of which there are plenty.
  void SetUp() override {
    smallCompany("ORB");
    sql("UPDATE Nummernkreise SET EndWert = 999999 WHERE Buchungskreis = 1 AND NSchl = 'RE'");
    sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'RE', 'Anna', 'ORB'), (1, 'RE', 'ALL', "
        "'ORB')");
  }
  void open(DatabaseAccess access) {
    init(1);
    session().source().access(access);
  }
  DrawingProcess startDrawing(int count = fewDraws) {
    return {connectionString(), "Anna", "RE", count};
  }

  std::int32_t current() {
    return std::stoi(rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND "
                          "NSchl='RE'")
                         .at(0));
  }
  Lines offers() {
    return rows(
        "SELECT AktuellerWert, EndWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'");
  }

  /// Over the open cell of an item: offers of Nord are the item 2.
  void enter(std::int32_t item, std::int32_t column, const std::string& text) {
    click(item, column);
    type(text);
    key("Enter");
    key("Escape");
  }
  void save() {
    answer("yes");
    press("cmdOK");
  }
  static Box asked() { return {"Abfrage", "Sollen die Änderungen gespeichert werden?", 35}; }
  static Box conflict(const std::string& change) {
    return {"Abfrage",
            "Folgende Nummernkreise wurden inzwischen an anderer Stelle geändert:\r\n" + change +
                "\r\n\r\nSollen trotzdem Ihre Werte gespeichert werden?",
            36};
  }
};

TEST_F(DialogDrawingHostsTest, NoDrawnNumberLiesAboveTheStoredCurrentValue) {
  DrawingProcess host = startDrawing(draws);
  host.waitForMore(some);
  int end = 199;
  for (int saves = 0; !host.isDone(); ++saves) {
    open(saves % 2 == 0 ? DatabaseAccess::rowByRow : DatabaseAccess::inSets);
    show([&] {
      host.waitForMore(5 * some);
      enter(2, 4, std::to_string(++end));
      host.waitForMore(some);
      save();
      EXPECT_FALSE(isOpen());
      EXPECT_EQ(boxes(), Boxes{asked()});
    });
    EXPECT_GE(current(), host.last()) << "drawn before the save";
    EXPECT_EQ(offers(), Lines{"150 | " + std::to_string(end)});
  }
  EXPECT_GT(end, 202) << "several saves met it";
  host.waitForAll();
  EXPECT_EQ(host.last(), 2000 + draws) << "every number once, and none left out";
  EXPECT_EQ(current(), host.last());
}

/// However the database is asked, hosts must not notice any difference.
class DialogAndHostsTest : public DialogDrawingHostsTest,
                           public testing::WithParamInterface<DatabaseAccess> {
 protected:
  void SetUp() override {
    DialogDrawingHostsTest::SetUp();
    open(GetParam());
  }
};

// What was read may be as old as the special ranges, for which the saving connection was used.
TEST_P(DialogAndHostsTest, TheyGoOnWhileTheUserIsAskedAboutAConflict) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('BR', 'RE', 'Barrechnung', 0, 'ORB')");
  show([&] {
    expectDialog("frmSonderkreise", [&] { press("cmdCancel"); });
    press("cmdSonderkreise");
    enter(2, 4, "198");
    sql("UPDATE Nummernkreise SET AktuellerWert=160 WHERE Buchungskreis=1 AND NSchl='AN'");
    DrawingProcess host = startDrawing();
    answer("yes");
    answer("yes");
    whenBoxComes([&] {
      host.waitForMore(some);
      whenBoxComes([&] { host.waitForMore(some); });
    });
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{asked(), conflict("Angebot, Nord: Aktuell 150 -> 160")}));
    EXPECT_GE(current(), host.last()) << "drawn before the save";
    host.waitForAll();
    EXPECT_EQ(current(), host.last());
  });
  EXPECT_EQ(offers(), Lines{"150 | 198"}) << "the user's values";
}

// Both have changed the range: whoever draws from it meanwhile is not overwritten either.
TEST_P(DialogAndHostsTest, WhatIsDrawnWhileTheUserAnswersIsAskedAboutOnceMore) {
  show([&] {
    enter(6, 4, "999998");
    DrawingProcess first = startDrawing(1);
    first.waitForAll();
    answer("yes");
    answer("yes");
    whenBoxComes([&] { whenBoxComes([&] { startDrawing(1).waitForAll(); }); });
    press("cmdOK");
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{asked(), conflict("Rechnung, Nord: Aktuell 2000 -> 2001"),
                              errorBox(3023, "basAllgemein", "Save",
                                       "Der Nummernkreis Rechnung, Nord wurde soeben an anderer "
                                       "Stelle geändert. Bitte speichern Sie noch einmal.")}));
    EXPECT_EQ(current(), 2002);
    answer("yes");
    answer("no");
    press("cmdOK");
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{asked(), conflict("Rechnung, Nord: Aktuell 2001 -> 2002")}));
    EXPECT_EQ(values(6), "2000|2002|999999| ") << "whose values are stored";
    startDrawing(1).waitForAll();
    save();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{asked()});
  });
  EXPECT_EQ(current(), 2003);
}

TEST_P(DialogAndHostsTest, TheyGoOnWhileTheUserCorrectsAValue) {
  show([&] {
    DrawingProcess host = startDrawing();
    enter(2, 4, "99");
    for (const char* next : {"98", "198"}) {
      answer("yes");
      whenBoxComes([&] { whenBoxComes([&] { host.waitForMore(some); }); });
      press("cmdOK");
      EXPECT_EQ(boxes().size(), 2U) << "the question, and what is wrong";
      ASSERT_TRUE(isOpen());
      EXPECT_EQ(editor().substr(0, 3), "2/4");
      host.waitForMore(some);
      type(next);
    }
    save();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{asked()});
    EXPECT_GE(current(), host.last()) << "drawn before the save";
    host.waitForAll();
    EXPECT_EQ(current(), host.last());
  });
  EXPECT_EQ(offers(), Lines{"150 | 198"});
}

// A save that has failed holds nothing either, although another transaction has begun.
TEST_P(DialogAndHostsTest, TheyGoOnAfterAFailure) {
  show([&] {
    enter(2, 4, "198");
    DrawingProcess host = startDrawing();
    script().failCommit();
    save();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(boxes().size(), 2U) << "the question and the failure";
    host.waitForMore(some);
    save();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{asked()});
    EXPECT_GE(current(), host.last()) << "drawn before the save";
    host.waitForAll();
    EXPECT_EQ(current(), host.last());
  });
  EXPECT_EQ(offers(), Lines{"150 | 198"});
}

INSTANTIATE_TEST_SUITE_P(Access, DialogAndHostsTest,
                         testing::Values(DatabaseAccess::rowByRow, DatabaseAccess::inSets),
                         [](const auto& tested) {
                           return tested.param == DatabaseAccess::inSets ? "InSets" : "RowByRow";
                         });

}  // namespace
}  // namespace vexnumkr::test
