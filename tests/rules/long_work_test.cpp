// What long work tells of itself while it goes on: loading, special ranges, new booking circles,
// numbering, saving.
#include <algorithm>

#include "rules/saving_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;
using test::Texts;
using Pointers = std::vector<MousePointer>;

class LongWorkTest : public test::SavingSession {
 protected:
  using CoreSession::sql;

  /// Notes, for every position shown, how many statements had been sent by then.
  struct Mark {
    int position;
    int statements;
  };
  std::vector<Mark> marksOf(const std::function<void()>& work) {
    std::vector<Mark> marks;
    int statements = 0;
    sentAndRead();
    progress().onShow = [&](int position) {
      statements += static_cast<int>(sentAndRead().size());
      marks.push_back({position, statements});
    };
    work();
    progress().onShow = {};
    statements_ = statements + static_cast<int>(sentAndRead().size());
    return marks;
  }
  /// All that `work` sent.
  int statements() const { return statements_; }

  Texts log() { return progress().takeLog(); }
  Pointers pointers() { return forms().takePointers(); }
  const Pointers busyOnce{MousePointer::Hourglass, MousePointer::Default};

  void circles(int count) {
    for (int circle = 1; circle <= count; ++circle) {
      const std::string number = std::to_string(circle);
      sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (" + number + ", 'Kreis " + number +
          "', 'ORB')");
    }
  }
  void stored(int circle, const std::string& key, bool active = true) {
    sql("INSERT INTO Nummernkreise VALUES (" + std::to_string(circle) + ", '" + key +
        "', 'Belegart', 1, 1, 9, " + (active ? "-1" : "0") + ", 1, '', '')");
  }
  void load() { LoadItems(); }

 private:
  int statements_ = 0;
};

// Positions are those of the statements sent, out of all of them.
TEST_F(LongWorkTest, LoadingCountsTheQuestionsForAssignments) {
  circles(3);
  for (const char* key : {"AN", "RE"}) stored(0, key);
  stored(1, "RE");
  stored(2, "RE", false);
  start(1, {"Anna", "Bert", "Carl", "Dora"});
  log();
  pointers();
  const auto marks = marksOf([&] { load(); });
  const int questions = 4 + 3 * 4;  // lacking common rows; active rows times users
  EXPECT_EQ(statements(), 1 + questions);
  ASSERT_EQ(marks.size(), static_cast<std::size_t>(questions));
  for (const Mark& mark : marks)
    EXPECT_NEAR(mark.position, (mark.statements - 1) * 1000.0 / questions, 2);
  EXPECT_EQ(marks.back().position, 1000);
  const Texts told = log();
  EXPECT_EQ(told.front(), "begin Nummernkreise werden geladen…");
  EXPECT_EQ(told.back(), "end");
  EXPECT_EQ(pointers(), busyOnce);
}

// A stored assignment of "Alle Benutzer" makes a row active that was not expected to be.
TEST_F(LongWorkTest, LoadingMoreThanExpectedStillEndsAtTheEnd) {
  circles(10);
  stored(0, "RE");
  for (int circle = 1; circle <= 10; ++circle)
    sql("INSERT INTO Nummernkreis_Zuordnung VALUES (" + std::to_string(circle) +
        ", 'RE', 'Alle Benutzer', 'ORB')");
  start(1, {"Anna", "Bert", "Carl"});
  const auto marks = marksOf([&] { load(); });
  EXPECT_EQ(statements(), 1 + 10 + 11 * 3);
  EXPECT_EQ(marks.size(), 10U + 11U * 3U);
  EXPECT_TRUE(std::ranges::is_sorted(marks, std::ranges::less{}, &Mark::position));
  EXPECT_EQ(marks.back().position, 1000);
}

TEST_F(LongWorkTest, LoadingNothingIsDoneAtOnce) {
  start(1);
  log();
  load();
  EXPECT_EQ(log(), (Texts{"begin Nummernkreise werden geladen…", "1000", "end"}));
}

TEST_F(LongWorkTest, AFailedLoadEndsItsProgressBeforeItIsReported) {
  start(1);
  log();
  pointers();
  script().failStatement(1);
  load();
  EXPECT_EQ(boxes(), (std::vector{errorBox(test::deliberateErrorNumber, "basAllgemein", "LoadItems",
                                           test::deliberateErrorText)}));
  EXPECT_EQ(log(), (Texts{"begin Nummernkreise werden geladen…", "end"}));
  EXPECT_EQ(pointers(), busyOnce);
}

TEST_F(LongWorkTest, AFailureReportedInTheMiddlePausesIt) {
  stored(0, "RE");
  start(1, {"Anna", "Bert"});
  log();
  pointers();
  script().failStatement(2);
  load();
  EXPECT_EQ(boxes(), (std::vector{errorBox(test::deliberateErrorNumber, "basAllgemein",
                                           "AktiviertDB", test::deliberateErrorText)}));
  EXPECT_EQ(log(), (Texts{"begin Nummernkreise werden geladen…", "pause", "resume", "500", "1000",
                          "end"}));
  EXPECT_EQ(pointers(), (Pointers{MousePointer::Hourglass, MousePointer::Default,
                                  MousePointer::Hourglass, MousePointer::Default}));
}

TEST_F(LongWorkTest, SpecialRangesCountTheCirclesThatTheyAreAddedTo) {
  circles(4);
  for (const char* key : {"P1", "P2"})
    sql(std::string("INSERT INTO Nummernkreis_Sonderkreise VALUES ('") + key +
        "', 'RE', 'Proforma', -1, 'ORB')");
  start(1, {"Anna"});
  log();
  const auto marks = marksOf([&] { RefreshSGroups(); });
  EXPECT_EQ(statements(), 1 + 2 * 4);
  ASSERT_EQ(marks.size(), 8U);
  for (std::size_t i = 0; i < marks.size(); ++i) {
    EXPECT_EQ(marks[i].position, 125 * static_cast<int>(i + 1));
    EXPECT_EQ(marks[i].statements, static_cast<int>(i) + 2);
  }
  EXPECT_EQ(log().front(), "begin Sonderkreise werden übernommen…");
}

TEST_F(LongWorkTest, SpecialRangesThatAreInPlaceAreDoneAtOnce) {
  circles(4);
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('P1', 'RE', 'Proforma', 0, 'ORB')");
  start(1);
  log();
  RefreshSGroups();
  EXPECT_EQ(log(), (Texts{"begin Sonderkreise werden übernommen…", "1000", "end"}));
}

TEST_F(LongWorkTest, NewCirclesCountTheRowsThatTheyGet) {
  for (const char* key : {"AN", "RE", "LS"}) stored(0, key);
  circles(1);
  start(1, {"Anna"});
  load();
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'Zwei', 'ORB'), (3, 'Drei', 'ORB')");
  RefreshCombo();
  log();
  const auto marks = marksOf([&] { RefreshInXArray(); });
  EXPECT_EQ(statements(), 2 * 3);
  ASSERT_EQ(marks.size(), 6U);
  for (std::size_t i = 0; i < marks.size(); ++i) {
    EXPECT_EQ(marks[i].position, static_cast<int>(1000 * (i + 1) / 6));
    EXPECT_EQ(marks[i].statements, static_cast<int>(i) + 1);
  }
  EXPECT_EQ(log().front(), "begin Nummernkreise werden übernommen…");
}

TEST_F(LongWorkTest, MissingCirclesCountTheRowsThatTheyLose) {
  for (const char* key : {"AN", "RE"}) stored(0, key);
  circles(3);
  start(1, {"Anna"});
  load();
  sql("DELETE FROM Nummernkreis_Buchungskreise WHERE Buchungskreis > 1");
  RefreshCombo();
  log();
  RefreshInXArray();
  EXPECT_EQ(log(),
            (Texts{"begin Nummernkreise werden übernommen…", "250", "500", "750", "1000", "end"}));
}

TEST_F(LongWorkTest, NumberingCountsTheRows) {
  start(1);
  for (int i = 0; i < 8; ++i) range(alleBenutzer, i, "RE", 1);
  log();
  forms().answer(msg_box::yes);
  EXPECT_TRUE(StartAutoNum());
  boxes();
  EXPECT_EQ(log(), (Texts{"begin Automatische Nummerierung…", "125", "250", "375", "500", "625",
                          "750", "875", "1000", "end"}));
}

TEST_F(LongWorkTest, NumberingThatFailsEndsItsProgress) {
  start(1);
  for (int i = 0; i < 4; ++i) range(alleBenutzer, i, "RE", 1);
  table().setValue(2, &RangeRow::Maske, "xyz");
  log();
  forms().answer(msg_box::yes);
  EXPECT_FALSE(StartAutoNum());
  EXPECT_EQ(boxes().size(), 2U);
  EXPECT_EQ(log(), (Texts{"begin Automatische Nummerierung…", "end"}));
}

TEST_F(LongWorkTest, DecliningIsNoWork) {
  start(1);
  log();
  pointers();
  forms().answer(msg_box::no);
  EXPECT_FALSE(StartAutoNum());
  boxes();
  EXPECT_EQ(log(), Texts{});
  EXPECT_EQ(pointers(), Pointers{});
}

// A range that is stored already takes an update besides its insert.
TEST_F(LongWorkTest, SavingCountsRowsDeletionsAndTheCommit) {
  company();
  editedTable();
  log();
  pointers();
  const auto marks = marksOf([&] { EXPECT_TRUE(save()); });
  const int steps = 2 + 5 + 6 + 1;  // deletions, common rows, active rows, the commit
  ASSERT_EQ(marks.size(), static_cast<std::size_t>(steps));
  for (std::size_t i = 0; i < marks.size(); ++i)
    EXPECT_EQ(marks[i].position, static_cast<int>(1000 * (i + 1)) / steps);
  EXPECT_EQ(marks.back().statements, statements()) << "the commit is the last step";
  const Texts told = log();
  EXPECT_EQ(told.front(), "begin Nummernkreise werden gespeichert…");
  EXPECT_EQ(told.back(), "end");
  EXPECT_EQ(pointers(), busyOnce);
}

TEST_F(LongWorkTest, AFailedSaveEndsItsProgressBeforeItIsReported) {
  company();
  editedTable();
  log();
  pointers();
  script().failStatement(4);  // two readings and the first deletion go before
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), (std::vector{errorBox(test::deliberateErrorNumber, "basAllgemein", "Save",
                                           test::deliberateErrorText)}));
  EXPECT_EQ(log(), (Texts{"begin Nummernkreise werden gespeichert…", "71", "end"}));
  EXPECT_EQ(pointers(), busyOnce);
}

TEST_F(LongWorkTest, AFailedCommitEndsItsProgressShortOfTheEnd) {
  company();
  editedTable();
  script().failCommit();
  log();
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes().size(), 1U);
  const Texts told = log();
  EXPECT_EQ(told[told.size() - 2], "928");
  EXPECT_EQ(told.back(), "end");
}

TEST_F(LongWorkTest, ASaveInSetsEndsItsProgressShortOfTheEndToo) {
  company();
  editedTable();
  session().source().access(DatabaseAccess::inSets);
  script().failCommit();
  log();
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes().size(), 1U);
  const Texts told = log();
  EXPECT_LT(std::stoi(told[told.size() - 2]), ProgressDisplay::full);
  EXPECT_EQ(told.back(), "end");
}

TEST_F(LongWorkTest, SavingThatIsRefusedIsNoWork) {
  company();
  editedTable();
  table().setValue(4, &RangeRow::EndWert, 0);
  log();
  pointers();
  EXPECT_FALSE(save());
  EXPECT_TRUE(takeDefect());
  EXPECT_EQ(log(), Texts{});
  EXPECT_EQ(pointers(), Pointers{});
}

}  // namespace
}  // namespace vexnumkr
