// How the main dialog closes, and what becomes of its transaction.
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

const Box saveQuestion{"Abfrage", "Sollen die Änderungen gespeichert werden?", 35};

class DialogClosingTest : public DialogSession {
 protected:
  /// Opens the dialog and enters 160 as the current value of offers of Nord.
  void inChangedCompany(std::int32_t application, const std::function<void()>& steps) {
    inCompany(application, [&] {
      click(2, grid_column::Aktuell);
      type("160");
      key("Enter");
      ASSERT_TRUE(changed());
      statements();
      steps();
    });
  }
  std::string storedValue() {
    const Lines stored =
        rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'");
    return stored.size() == 1 ? stored[0] : "none";
  }
  const Lines onlyRollback{"conn: ROLLBACK"};
};

TEST_F(DialogClosingTest, WithoutAChangeEveryWayRollsBackWithoutAsking) {
  const std::vector<std::function<void()>> ways = {[&] { press("cmdOK"); },
                                                   [&] { press("cmdCancel"); },
                                                   [&] { closeWindow(); },
                                                   [&] { key("F9"); },
                                                   [&] { key("F10"); },
                                                   [&] { key("Escape"); },
                                                   [&] {
                                                     control("sftNummernkreise").setFocus();
                                                     key("Enter");
                                                   }};
  smallCompany("ORC");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
  for (const std::int32_t application : {1, 2, 3}) {
    init(application);
    for (std::size_t way = 0; way < ways.size(); ++way) {
      if (application == 3 && (way == 3 || way == 4)) continue;  // no circles, so no users
      show([&] {
        statements();
        ways[way]();
        EXPECT_FALSE(isOpen()) << way;
        EXPECT_EQ(statements(), onlyRollback) << way;
        if (isOpen()) press("cmdCancel");
      });
    }
  }
}

TEST_F(DialogClosingTest, OkOfApplication2SavesWithoutAsking) {
  inChangedCompany(2, [&] {
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
    const Lines sent = statements();
    ASSERT_GT(sent.size(), 5U);
    EXPECT_EQ(sent[0].find("work: SELECT NSchl, "), 0U) << "what others have stored, unlocked";
    EXPECT_EQ(sent[1].find("conn: SELECT NSchl, "), 0U) << "the same under lock";
    EXPECT_EQ(sent[2].find("conn: DELETE FROM Nummernkreise WHERE NOT EXISTS"), 0U);
    const Lines end(sent.end() - 3, sent.end());
    EXPECT_EQ(end[0], sent[1]) << "what has been stored now";
    EXPECT_EQ(end[1],
              "conn: SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Zuordnung WHERE Herkunft='ORC'");
    EXPECT_EQ(end[2], "conn: COMMIT");
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "conn: BEGIN"), 0);
  });
  EXPECT_EQ(storedValue(), "160");
}

TEST_F(DialogClosingTest, OkOfApplication1AsksFirst) {
  inChangedCompany(1, [&] {
    answer("yes");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{saveQuestion});
    EXPECT_EQ(statements().back(), "conn: COMMIT");
  });
  EXPECT_EQ(storedValue(), "160");
}

TEST_F(DialogClosingTest, NoDiscards) {
  inChangedCompany(1, [&] {
    answer("no");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{saveQuestion});
    EXPECT_EQ(statements(), onlyRollback);
  });
  EXPECT_EQ(storedValue(), "150");
}

TEST_F(DialogClosingTest, CancelInTheQuestionKeepsTheDialogAndItsTransaction) {
  inChangedCompany(1, [&] {
    answer("cancel");
    press("cmdOK");
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes(), Boxes{saveQuestion});
    EXPECT_EQ(statements(), Lines{});
    EXPECT_TRUE(changed());
    answer("yes");
    press("cmdOK");
    EXPECT_EQ(boxes(), Boxes{saveQuestion});
    EXPECT_EQ(statements().back(), "conn: COMMIT");
  });
}

TEST_F(DialogClosingTest, TheCloseButtonAlwaysAsks) {
  inChangedCompany(2, [&] {
    answer("cancel");
    closeWindow();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes(), Boxes{saveQuestion});
    EXPECT_EQ(statements(), Lines{});
    answer("yes");
    closeWindow();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{saveQuestion});
    EXPECT_EQ(statements().back(), "conn: COMMIT");
  });
  EXPECT_EQ(storedValue(), "160");
}

TEST_F(DialogClosingTest, CancelNeverAsks) {
  inChangedCompany(1, [&] {
    press("cmdCancel");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(statements(), onlyRollback);
  });
  EXPECT_EQ(storedValue(), "150");
}

TEST_F(DialogClosingTest, F9IsOkAndF10IsCancel) {
  inChangedCompany(1, [&] {
    answer("cancel");
    key("F9");
    EXPECT_EQ(boxes(), Boxes{saveQuestion});
    EXPECT_TRUE(isOpen());
    key("Shift+F10");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(statements(), onlyRollback);
  });
}

// Whoever cannot be asked has not agreed to saving.
TEST_F(DialogClosingTest, OtherApplicationsAreNotAskedAndDiscard) {
  inChangedCompany(3, [&] {
    closeWindow();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(statements(), onlyRollback);
  });
  EXPECT_EQ(storedValue(), "150");
}

TEST_F(DialogClosingTest, SavingWritesEveryRangeAndEveryActiveRow) {
  inChangedCompany(2, [&] {
    clickPicture(3);
    press("cmdOK");
  });
  EXPECT_EQ(rows("SELECT Buchungskreis, NSchl, StartWert, AktuellerWert, EndWert, Aktiviert, Maske "
                 "FROM Nummernkreise ORDER BY NSchl, Buchungskreis"),
            (Lines{"0 | AN | 1 | 5 | 99 | -1 | ", "1 | AN | 100 | 160 | 199 | -1 | JNN",
                   "2 | AN | 200 | 200 | 299 | -1 | ", "0 | RE | 1000 | 1500 | 1999 | -1 | ",
                   "1 | RE | 2000 | 2000 | 2999 | -1 | ", "2 | RE | 0 | 0 | 0 | 0 | 0"}));
  EXPECT_EQ(rows("SELECT Benutzer, Buchungskreis, NSchl FROM Nummernkreis_Zuordnung "
                 "WHERE Herkunft='ORC' ORDER BY Benutzer, NSchl, Buchungskreis"),
            (Lines{"ALL | 0 | AN", "ALL | 1 | AN", "ALL | 2 | AN", "ALL | 0 | RE", "ALL | 1 | RE",
                   "Anna | 0 | AN", "Anna | 0 | RE", "Max | 1 | AN", "Max | 0 | RE"}));
}

TEST_F(DialogClosingTest, WhatWasSavedIsThereTheNextTime) {
  inChangedCompany(2, [&] { press("cmdOK"); });
  show([&] {
    EXPECT_EQ(values(2), "100|160|199|JNN");
    EXPECT_FALSE(changed());
    press("cmdCancel");
  });
}

TEST_F(DialogClosingTest, AFailedStatementRollsBackAndBeginsAnew) {
  const std::pair<std::size_t, const char*> failing[] = {
      {1, "work: SELECT NSchl, "},
      {2, "conn: SELECT NSchl, "},
      {3, "conn: DELETE FROM Nummernkreise WHERE NOT EXISTS"},
      {4, "conn: DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft='ORC'"},
      {21, "conn: SELECT NSchl, "},
      {22, "conn: SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Zuordnung"}};
  inChangedCompany(2, [&] {
    for (const auto& [place, text] : failing) {
      SCOPED_TRACE(place);
      script().failStatement(static_cast<int>(place));
      press("cmdOK");
      ASSERT_TRUE(isOpen());
      EXPECT_EQ(boxes(), (Boxes{errorBox(4711, "basAllgemein", "Save", deliberateErrorText)}));
      const Lines sent = statements();
      ASSERT_EQ(sent.size(), place + 2);
      EXPECT_EQ(sent[place - 1].find(text), 0U) << sent[place - 1];
      EXPECT_TRUE(sent[place - 1].ends_with(" !failed"));
      EXPECT_EQ((Lines{sent[place], sent[place + 1]}), (Lines{"conn: ROLLBACK", "conn: BEGIN"}));
      EXPECT_EQ(cell(2, grid_column::Aktuell), "160");
      EXPECT_TRUE(changed());
      EXPECT_EQ(storedValue(), "150");
    }
    press("cmdOK");  // the next attempt works
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(storedValue(), "160");
}

TEST_F(DialogClosingTest, AFailedCommitRollsBackAndBeginsAnew) {
  inChangedCompany(2, [&] {
    script().failCommit();
    press("cmdOK");
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{errorBox(4711, "basAllgemein", "Save", deliberateErrorText)}));
    const Lines sent = statements();
    EXPECT_EQ((Lines{sent.end() - 3, sent.end()}),
              (Lines{"conn: COMMIT !failed", "conn: ROLLBACK", "conn: BEGIN"}));
    press("cmdCancel");
  });
  EXPECT_EQ(storedValue(), "150");
}

TEST_F(DialogClosingTest, ARollbackThatFailsOnCancelIsReportedAndTheWindowCloses) {
  inChangedCompany(2, [&] {
    realConnection(*session().sharedConn()).RollbackTrans();
    press("cmdCancel");
    EXPECT_FALSE(isOpen());
    const Boxes raised = boxes();
    ASSERT_EQ(raised.size(), 1U);
    EXPECT_EQ(raised[0].prompt.find("frmNummernkreise\r\nForm_QueryUnload: "), 0U);
    EXPECT_EQ(statements(), Lines{"conn: ROLLBACK !failed"});
  });
}

TEST_F(DialogClosingTest, ARollbackThatFailsInSaveKeepsTheDialog) {
  inCompany(2, [&] {
    realConnection(*session().sharedConn()).RollbackTrans();
    press("cmdOK");
    EXPECT_TRUE(isOpen());
    const Boxes raised = boxes();
    ASSERT_EQ(raised.size(), 1U);
    EXPECT_EQ(raised[0].prompt.find("basAllgemein\r\nSave: "), 0U);
    press("cmdCancel");
    EXPECT_EQ(boxes().size(), 1U);
  });
}

TEST_F(DialogClosingTest, ClosingReleasesTheWorkingObjects) {
  inChangedCompany(2, [&] { press("cmdOK"); });
  EXPECT_THROW(session().source().ConnWork(), Error);
  EXPECT_THROW(session().source().cmdSQL(), Error);
  EXPECT_FALSE(session().XArray().exists());
  EXPECT_FALSE(session().Buchungskreise().exists());
  EXPECT_THROW(session().dlgBuchungskreise(), Error);
  EXPECT_EQ(session().colUser(), (std::vector<std::string>{"Alle Benutzer", "Anna", "Max"}));
}

// How the dialog was being closed is forgotten when it stays open.
TEST_F(DialogClosingTest, AfterARefusedOkTheCloseButtonAsks) {
  inChangedCompany(2, [&] {
    script().failCommit();
    press("cmdOK");
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{errorBox(4711, "basAllgemein", "Save", deliberateErrorText)}));
    answer("cancel");
    closeWindow();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(boxes(), Boxes{saveQuestion});
    answer("yes");
    closeWindow();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{saveQuestion});
  });
  EXPECT_EQ(storedValue(), "160");
}

}  // namespace
}  // namespace vexnumkr::test
