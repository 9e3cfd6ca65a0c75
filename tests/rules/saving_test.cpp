#include "rules/saving/saving.h"

#include "hosting/call_log.h"
#include "hosting/host_facility.h"
#include "rules/saving_session.h"

namespace vexnumkr {
namespace {

using test::Box;
using test::errorBox;
using test::Texts;
using Boxes = std::vector<Box>;

const Box question{"Abfrage", "Sollen die Änderungen gespeichert werden?", 35};

class SavingTest : public test::SavingSession {
 protected:
  bool save(bool askFirst, std::int32_t answer) {
    forms().answer(answer);
    const bool mayClose = SavingSession::save(askFirst);
    EXPECT_EQ(boxes(), Boxes{question});
    return mayClose;
  }
  using SavingSession::save;

  // Something that only the open transaction holds.
  void changeInTransaction() {
    std::int32_t affected = 0;
    session().Conn().Execute("DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft='ORC'", affected);
    sent();
  }
  bool transactionIsOpen() {
    try {
      session().rollBackTransaction();
      return true;
    } catch (const Error&) {
      return false;
    }
  }
};

TEST_F(SavingTest, WithoutChangesTheTransactionIsRolledBackSilently) {
  for (const bool askFirst : {false, true}) {
    if (!askFirst)
      company();
    else
      open();
    const Texts before = stored();
    session().blnChanged(false);
    changeInTransaction();
    EXPECT_TRUE(save(askFirst));
    EXPECT_EQ(sent(), Texts{"conn: ROLLBACK"});
    EXPECT_EQ(stored(), before);
    EXPECT_FALSE(transactionIsOpen());
  }
}

TEST_F(SavingTest, CancelLeavesTheTransactionOpen) {
  company();
  editedTable();
  EXPECT_FALSE(save(true, msg_box::cancel));
  EXPECT_EQ(sent(), Texts{});
  EXPECT_TRUE(session().blnChanged());
  EXPECT_TRUE(transactionIsOpen());
}

TEST_F(SavingTest, NoRollsBack) {
  company();
  editedTable();
  const Texts before = stored();
  changeInTransaction();
  EXPECT_TRUE(save(true, msg_box::no));
  EXPECT_EQ(sent(), Texts{"conn: ROLLBACK"});
  EXPECT_EQ(stored(), before);
  EXPECT_FALSE(transactionIsOpen());
}

TEST_F(SavingTest, NoIsNotHeldUpByARangeThatIsNotValid) {
  company();
  range(alleBenutzer, 1, "RE", 100);
  table().setValue(0, &RangeRow::EndWert, 0);
  EXPECT_TRUE(save(true, msg_box::no));
}

TEST_F(SavingTest, YesSaves) {
  company();
  EXPECT_TRUE(save(true, msg_box::yes));
  EXPECT_EQ(sent().back(), "conn: COMMIT");
}

TEST_F(SavingTest, WhoeverCannotBeAskedHasNotAgreed) {
  company(3);
  editedTable();
  const Texts before = stored();
  EXPECT_TRUE(save(true));
  EXPECT_EQ(sent(), Texts{"conn: ROLLBACK"});
  EXPECT_EQ(stored(), before);
}

TEST_F(SavingTest, WhoeverCouldNotBeAskedKeepsTheDialog) {
  company();
  editedTable();
  test::HostFacility facility;
  host().messages = facility.Messages();
  facility.failing = "Show";
  EXPECT_FALSE(SavingSession::save(true));
  EXPECT_EQ(sentAndRead(), Texts{});
  EXPECT_TRUE(session().blnChanged());
  EXPECT_TRUE(transactionIsOpen());
}

TEST_F(SavingTest, AnInvalidRangeIsNotSavedAndNoStatementSent) {
  company();
  range(alleBenutzer, 1, "RE", 100);
  table().setValue(0, &RangeRow::EndWert, 100);
  EXPECT_FALSE(save());
  EXPECT_EQ(takeDefect(), (RangeDefect{BrokenRule::EndNotAboveStart, 0, 0}));
  EXPECT_EQ(sent(), Texts{});
  EXPECT_TRUE(transactionIsOpen());
}

TEST_F(SavingTest, SendsItsStatementsInOrder) {
  company();
  editedTable();
  EXPECT_TRUE(save());
  const std::string insert =
      "conn: INSERT INTO Nummernkreise (Buchungskreis, NSchl, NBezeichnung, StartWert, "
      "AktuellerWert, EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske) VALUES (";
  const std::string assign =
      "conn: INSERT INTO Nummernkreis_Zuordnung (Buchungskreis, NSchl, Benutzer, Herkunft) "
      "VALUES (";
  const std::string read =
      "SELECT NSchl, NBezeichnung, Buchungskreis, StartWert, AktuellerWert, EndWert, Aktiviert, "
      "SortierIndex, IstNSchlVon, Maske FROM Nummernkreise WHERE NSchl <> 'LM' AND NSchl <> 'AF' "
      "ORDER BY SortierIndex";
  EXPECT_EQ(
      sentAndRead(),
      (Texts{"work: " + read,
             "conn: " + read,
             "conn: DELETE FROM Nummernkreise WHERE NOT EXISTS (SELECT * FROM "
             "Nummernkreis_Buchungskreise WHERE Nummernkreise.Buchungskreis = "
             "Nummernkreis_Buchungskreise.Buchungskreis AND Herkunft='ORC') AND NSchl <> 'LM' AND "
             "NSchl <> 'AF' AND (Buchungskreis <> 0 OR (IstNSchlVon <> '' AND IstNSchlVon IS NOT "
             "NULL))",
             "conn: DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft='ORB'",
             insert + "0, 'RE', 'Belegart RE', 100, 105, 109, -1, 10, '', 'NN') !failed",
             "conn: UPDATE Nummernkreise SET NBezeichnung='Belegart RE', StartWert=100, "
             "AktuellerWert=105, EndWert=109, Aktiviert=-1, SortierIndex=10, IstNSchlVon='', "
             "Maske='NN' WHERE Buchungskreis=0 AND NSchl='RE'",
             assign + "0, 'RE', 'ALL','ORB')",
             insert + "1, 'RE', 'Belegart RE', 200, 205, 209, -1, 10, '', 'NN')",
             assign + "1, 'RE', 'ALL','ORB')",
             insert + "2, 'RE', 'Belegart RE', 1, 6, 10, 0, 10, '', 'NN')",
             insert + "8, 'RE', 'Belegart RE', 300, 305, 309, -1, 10, '', 'NN') !failed",
             "conn: UPDATE Nummernkreise SET NBezeichnung='Belegart RE', StartWert=300, "
             "AktuellerWert=305, EndWert=309, Aktiviert=-1, SortierIndex=10, IstNSchlVon='', "
             "Maske='NN' WHERE Buchungskreis=8 AND NSchl='RE'",
             assign + "8, 'RE', 'ALL','ORB')",
             insert + "0, 'SO', 'Belegart SO', 400, 405, 409, -1, 10, 'RE', 'NN')",
             assign + "0, 'SO', 'ALL','ORB')",
             assign + "0, 'RE', 'Anna','ORB')",
             assign + "1, 'RE', 'Max','ORB')",
             "conn: " + read,
             "conn: SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Zuordnung WHERE Herkunft='ORB'",
             "conn: COMMIT"}));
  EXPECT_FALSE(transactionIsOpen()) << "none is begun after the commit";
}

TEST_F(SavingTest, StoresTheTableAndSparesWhatIsNotItsOwn) {
  company();
  editedTable();
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRanges(),
            (Texts{"0|LM|Lager|1|1|9|-1|1|RE|", "0|RE|Belegart RE|100|105|109|-1|10||NN",
                   "0|SO|Belegart SO|400|405|409|-1|10|RE|NN", "1|AF|Fertigung|1|1|9|-1|1||",
                   "1|RE|Belegart RE|200|205|209|-1|10||NN", "2|RE|Belegart RE|1|6|10|0|10||NN",
                   "7|RE|Rechnung West|1|1|9|-1|10||", "8|RE|Belegart RE|300|305|309|-1|10||NN"}));
  EXPECT_EQ(storedAssignments(),
            (Texts{"0|RE|ALL|ORB", "0|RE|Anna|ORB", "0|SO|ALL|ORB", "1|RE|ALL|ORB", "1|RE|Max|ORB",
                   "8|RE|ALL|ORB", "7|RE|ALL|ORC", "7|RE|Anna|ORC"}));
}

TEST_F(SavingTest, TheOtherApplicationSparesTheFirstOnesCircles) {
  company(2);
  range(alleBenutzer, 7, "RE", 100);
  EXPECT_TRUE(save());
  EXPECT_EQ(sent()[1], "conn: DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft='ORC'");
  EXPECT_EQ(storedRanges(),
            (Texts{"0|LM|Lager|1|1|9|-1|1|RE|", "0|RE|Rechnung alt|1|1|9|0|10|NULL|NULL",
                   "1|AF|Fertigung|1|1|9|-1|1||", "1|RE|Rechnung alt|1|1|9|-1|10||",
                   "7|RE|Belegart RE|100|105|109|-1|10||NN", "8|RE|Rechnung alt|1|1|9|-1|10||"}));
  EXPECT_EQ(storedAssignments(), (Texts{"1|RE|ALL|ORB", "1|RE|Weg|ORB", "7|RE|ALL|ORC"}));
}

TEST_F(SavingTest, WithoutOriginNothingIsWritten) {
  for (const std::int32_t application : {0, 3, -1}) {
    company(application);
    range(alleBenutzer, 1, "RE", 100);
    const Texts before = stored();
    EXPECT_FALSE(save());
    EXPECT_EQ(boxes(), Boxes{errorBox(5, "basAllgemein", "Save",
                                      "Die Anwendung " + std::to_string(application) +
                                          " hat keine eigenen Nummernkreise.")});
    EXPECT_EQ(sentAndRead(), (Texts{"conn: ROLLBACK", "conn: BEGIN"}));
    EXPECT_EQ(stored(), before);
    session().rollBackTransaction();
  }
}

TEST_F(SavingTest, AnEmptyTableDeletesAndCommits) {
  company();
  EXPECT_TRUE(save());
  const Texts statements = sent();
  ASSERT_EQ(statements.size(), 3U);
  EXPECT_TRUE(statements[0].starts_with("conn: DELETE FROM Nummernkreise WHERE NOT EXISTS"));
  EXPECT_EQ(statements[2], "conn: COMMIT");
  EXPECT_EQ(storedRanges(),
            (Texts{"0|LM|Lager|1|1|9|-1|1|RE|", "0|RE|Rechnung alt|1|1|9|0|10|NULL|NULL",
                   "1|AF|Fertigung|1|1|9|-1|1||", "7|RE|Rechnung West|1|1|9|-1|10||",
                   "8|RE|Rechnung alt|1|1|9|-1|10||"}));
  EXPECT_EQ(storedAssignments(), (Texts{"7|RE|ALL|ORC", "7|RE|Anna|ORC"}));
}

TEST_F(SavingTest, RowsOfUsersWriteNoValues) {
  company();
  range("Max", 1, "RE", 500, true);
  range("Max", 2, "RE", 600, false);
  range("Eva", 1, "AN", 700, true);
  EXPECT_TRUE(save());
  EXPECT_EQ(sent().size(), 5U) << "two deletes, two assignments, the commit";
  EXPECT_EQ(storedAssignments(),
            (Texts{"1|AN|Eva|ORB", "1|RE|Max|ORB", "7|RE|ALL|ORC", "7|RE|Anna|ORC"}));
}

TEST_F(SavingTest, OnlyTheCommonViewIsStoredAsAll) {
  EXPECT_EQ(basAllgemein::ReplaceUser("Alle Benutzer"), "ALL");
  for (const char* user : {"", "ALL", "alle Benutzer", "Alle Benutzer ", "Max"})
    EXPECT_EQ(basAllgemein::ReplaceUser(user), user);
}

TEST_F(SavingTest, ValuesAreConvertedWhereTheyAreWritten) {
  company();
  row({.Benutzer = alleBenutzer,
       .Buchungskreis = "2",
       .Gruppe = "Süd",
       .NSchl = "RE",
       .NBezeichnung = "Rechnung Ä☃",
       .StartWert = " -1.000 ",
       .AktuellerWert = "2,5",
       .EndWert = "3,5",
       .Aktiviert = "Wahr",
       .SortierIndex = "7",
       .Maske = 0});
  row({.Benutzer = "Max",
       .Buchungskreis = "2",
       .Gruppe = "Süd",
       .NSchl = "RE",
       .StartWert = Empty{},
       .AktuellerWert = Empty{},
       .EndWert = Empty{},
       .Aktiviert = -1,
       .SortierIndex = 1,
       .Maske = ""});
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRanges()[3], "2|RE|Rechnung Ä☃|-1000|2|4|-1|7||0");
  EXPECT_EQ(storedAssignments()[1], "2|RE|Max|ORB");
}

TEST_F(SavingTest, AnUpdateTellsWhetherItHasFoundItsRange) {
  company();
  RangeRow range;
  range.Buchungskreis = 77;
  EXPECT_FALSE(basAllgemein::UpdateIntoNummernkreise(source(), range));
  range.Buchungskreis = 0;
  range.NSchl = table().text("RE");
  EXPECT_TRUE(basAllgemein::UpdateIntoNummernkreise(source(), range));
  EXPECT_TRUE(basAllgemein::UpdateIntoNummernkreise(source(), range)) << "it is so already";
}

// The fifth statement is the insert: two readings and two deletions come before.
TEST_F(SavingTest, AnInsertThatFailsIsAnUpdateWhereTheRangeIsStored) {
  company();
  range(alleBenutzer, 0, "RE", 100);
  script().failStatement(5);
  EXPECT_TRUE(save());
  const Texts statements = sent();
  ASSERT_EQ(statements.size(), 6U);
  EXPECT_TRUE(statements[2].ends_with("!failed"));
  EXPECT_TRUE(statements[3].starts_with("conn: UPDATE Nummernkreise SET"));
  EXPECT_EQ(statements[5], "conn: COMMIT");
}

TEST_F(SavingTest, AnInsertThatFailsWhereNothingIsStoredFailsTheSave) {
  company();
  const Texts before = stored();
  range(alleBenutzer, 2, "RE", 100);
  script().failStatement(5);
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{errorBox(4711, "basAllgemein", "Save", "Absichtlicher Fehler")})
      << "the insert's failure";
  EXPECT_EQ(stored(), before);
}

std::string raised(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return std::to_string(error.number()) + "|" + error.source() + "|" + error.description();
  }
  return "nothing";
}

TEST_F(SavingTest, TheStatementRoutinesPassTheirErrorOn) {
  company();
  const char* error = "4711|ScriptedConnection|Absichtlicher Fehler";
  script().failStatement(1);
  EXPECT_EQ(raised([this] { basAllgemein::UpdateIntoNummernkreise(source(), {}); }), error);
  script().failStatement(1);
  EXPECT_EQ(
      raised([this] { basAllgemein::InsertIntoNummernkreis_Zuordnung(source(), 1, "RE", "Max"); }),
      error);
  RangeRow stored;
  stored.NSchl = table().text("RE");
  script().failStatement(2);
  EXPECT_EQ(raised([&] { basAllgemein::InsertIntoNummernkreise(source(), stored); }), error)
      << "the range is stored already, so its insert has failed before";
  EXPECT_EQ(boxes(), Boxes{}) << "they report nothing themselves";
}

// Transactions that fail, on a connection that does nothing but note them.
class TransactionFailureTest : public SavingTest {
 protected:
  void SetUp() override {
    company();
    session().Conn(std::make_shared<test::LoggedConnection>(log_, "conn"));
    session().beginTransaction();
    log_.take();
  }
  void TearDown() override {
    session().Conn(hostConnection());
    SavingTest::TearDown();
  }
  static Box failure() { return errorBox(4711, "basAllgemein", "Save", "Absichtlicher Fehler"); }

  test::CallLog log_;
};

TEST_F(TransactionFailureTest, ARollBackThatFailsWithoutChangesKeepsTheDialogOpen) {
  session().blnChanged(false);
  log_.failing = "conn.RollbackTrans";
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{failure()});
  EXPECT_EQ(log_.take(), Texts{"conn.RollbackTrans"});
}

TEST_F(TransactionFailureTest, ARollBackThatFailsOnNoKeepsTheDialogOpen) {
  forms().answer(msg_box::no);
  log_.failing = "conn.RollbackTrans";
  EXPECT_FALSE(SavingSession::save(true));
  EXPECT_EQ(boxes(), (Boxes{question, failure()}));
}

TEST_F(TransactionFailureTest, ACommitThatFailsIsRolledBackAndBegunAnew) {
  log_.failing = "conn.CommitTrans";
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{failure()});
  EXPECT_EQ(log_.take(), (Texts{"conn.CommitTrans", "conn.RollbackTrans", "conn.BeginTrans"}));
}

TEST_F(TransactionFailureTest, ARollBackThatFailsAfterAFailureIsIgnored) {
  script().failStatement(1);
  log_.failing = "conn.RollbackTrans";
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{failure()}) << "the statement's";
  EXPECT_EQ(log_.take(), (Texts{"conn.RollbackTrans", "conn.BeginTrans"}));
}

TEST_F(TransactionFailureTest, ATransactionThatCannotBeBegunIsReported) {
  script().failStatement(1);
  log_.failing = "conn.BeginTrans";
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), (Boxes{failure(), failure()}));
  log_.take();
  EXPECT_NO_THROW(session().rollBackTransaction());
  EXPECT_EQ(log_.take(), Texts{}) << "the failed one is rolled back already";
}

TEST_F(TransactionFailureTest, WhatCouldNotBeRolledBackIsRolledBackByCancelling) {
  script().failStatement(1);
  log_.failing = "conn.RollbackTrans";
  log_.failingThen = "conn.BeginTrans";
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), (Boxes{failure(), failure()}));
  log_.take();
  session().rollBackTransaction();
  EXPECT_EQ(log_.take(), Texts{"conn.RollbackTrans"});
}

}  // namespace
}  // namespace vexnumkr
