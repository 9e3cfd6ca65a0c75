// What hosts draw and others store while the dialog is open: it is kept, or asked about, and never
// overwritten unseen.
#include "rules/saving/stored_changes.h"

#include "rules/saving_session.h"

namespace vexnumkr {
namespace {

using test::Box;
using test::errorBox;
using test::Texts;
using Boxes = std::vector<Box>;

constexpr std::int32_t yesOrNo = 36;

class StoredChangesTest : public test::SavingSession {
 protected:
  using CoreSession::sql;  // on another connection

  // Two booking circles with offers and invoices, as a dialog has loaded them.
  void SetUp() override {
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
    store("0, 'RE', 'Rechnung', 100, 110, 199, -1, 10, '', ''");
    store("1, 'RE', 'Rechnung', 200, 210, 299, -1, 10, '', '2NN'");
    store("1, 'AN', 'Angebot', 300, 310, 399, -1, 20, '', ''");
    store("0, 'AN', 'Angebot', 400, 410, 499, -1, 20, '', ''");
    start(1, {"Max"});
    LoadItems();
    session().beginTransaction();
    sentAndRead();
  }
  void store(const std::string& values) {
    sql("INSERT INTO Nummernkreise VALUES (" + values + ")");
  }
  // A host issues numbers.
  void draw(std::int32_t circle, const std::string& key, std::int32_t number) {
    sql("UPDATE Nummernkreise SET AktuellerWert=" + std::to_string(number) +
        " WHERE Buchungskreis=" + std::to_string(circle) + " AND NSchl='" + key + "'");
  }
  void type(std::int32_t circle, const std::string& key, ValueColumn column, const Value& value) {
    SetValueAll(key, circle, column, value);
    session().blnChanged(true);
  }
  // Between two statements of the save.
  void afterFirstReading(std::function<void()> act) {
    script().afterwards = [this, act = std::move(act)](const std::string& entry) {
      if (!entry.starts_with("work: SELECT NSchl")) return;
      const auto once = act;  // which goes with the function that holds it
      script().afterwards = nullptr;
      once();
    };
  }
  std::string row(const std::string& user, std::int32_t circle, const std::string& key) {
    const RangeRow& row = table().at(table().findRange(user, circle, key));
    return row.StartWert.toText() + " " + row.AktuellerWert.toText() + " " + row.EndWert.toText() +
           " " + row.Maske.toText();
  }
  std::string storedRow(std::int32_t circle, const std::string& key) {
    return select(
               "SELECT StartWert, AktuellerWert, EndWert, Maske FROM Nummernkreise WHERE "
               "Buchungskreis=" +
               std::to_string(circle) + " AND NSchl='" + key + "'")
        .at(0);
  }
  static Box question(const std::string& lines) {
    return {"Abfrage",
            "Folgende Nummernkreise wurden inzwischen an anderer Stelle geändert:\r\n" + lines +
                "\r\nSollen trotzdem Ihre Werte gespeichert werden?",
            yesOrNo};
  }
  static Box changedJustNow(const std::string& range) {
    return errorBox(3023, "basAllgemein", "Save",
                    "Der Nummernkreis " + range +
                        " wurde soeben an anderer Stelle geändert. Bitte speichern Sie noch "
                        "einmal.");
  }
};

TEST_F(StoredChangesTest, NumbersDrawnFromARangeLeftAloneAreKept) {
  draw(1, "RE", 250);
  type(1, "AN", &RangeRow::EndWert, 398);
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRow(1, "RE"), "200|250|299|2NN");
  EXPECT_EQ(storedRow(1, "AN"), "300|310|398|");
  EXPECT_EQ(row("Max", 1, "RE"), "200 250 299 2NN") << "in every user's row";
  EXPECT_EQ(takeShownChanges(), 1);
}

TEST_F(StoredChangesTest, WhatOthersHaveSetAnewIsKeptToo) {
  sql("UPDATE Nummernkreise SET StartWert=2000, AktuellerWert=2000, EndWert=2999, Maske=' 2NNN ' "
      "WHERE Buchungskreis=1 AND NSchl='RE'");
  type(1, "AN", &RangeRow::EndWert, 398);
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRow(1, "RE"), "2000|2000|2999|2NNN");
}

TEST_F(StoredChangesTest, WhatIsStoredAsTheUserEnteredItIsNoConflict) {
  draw(1, "RE", 250);
  type(1, "RE", &RangeRow::AktuellerWert, " 250 ");
  EXPECT_TRUE(save());
  EXPECT_EQ(takeShownChanges(), 0);
  EXPECT_EQ(storedRow(1, "RE"), "200|250|299|2NN");
}

TEST_F(StoredChangesTest, AConflictIsAskedAboutAndTheUsersValuesMayWin) {
  draw(1, "RE", 250);
  type(1, "RE", &RangeRow::AktuellerWert, 220);
  forms().answer(msg_box::yes);
  EXPECT_TRUE(save());
  EXPECT_EQ(boxes(), Boxes{question("Rechnung, Nord: Aktuell 210 -> 250\r\n")});
  EXPECT_EQ(storedRow(1, "RE"), "200|220|299|2NN");
}

TEST_F(StoredChangesTest, OtherwiseTheStoredValuesReplaceThemAndNothingIsSaved) {
  draw(1, "RE", 250);
  draw(0, "AN", 444);
  type(1, "RE", &RangeRow::EndWert, 298);
  type(1, "AN", &RangeRow::EndWert, 398);
  forms().answer(msg_box::no);
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{question("Rechnung, Nord: Aktuell 210 -> 250\r\n")});
  EXPECT_EQ(sent(), Texts{}) << "the transaction stays as it is";
  EXPECT_EQ(row("Max", 1, "RE"), "200 250 299 2NN");
  EXPECT_EQ(row(alleBenutzer, 0, "AN"), "400 444 499 ") << "taken over without a question";
  EXPECT_EQ(row(alleBenutzer, 1, "AN"), "300 310 398 ") << "the user's other entry stays";
  EXPECT_EQ(takeShownChanges(), 1);
  EXPECT_TRUE(save()) << "what was taken over is known now";
  EXPECT_EQ(storedRow(1, "RE"), "200|250|299|2NN");
}

TEST_F(StoredChangesTest, TenConflictsAreToldOneByOne) {
  std::vector<Conflict> conflicts(12,
                                  {{1, "RE"}, "Rechnung", "Nord", {1, 2, 9, ""}, {1, 5, 9, ""}});
  std::string lines;
  for (int i = 0; i < 10; ++i) lines += "Rechnung, Nord: Aktuell 2 -> 5\r\n";
  EXPECT_EQ(conflictQuestion(conflicts), question(lines + "und 2 weitere\r\n").prompt);
  conflicts.resize(10);
  EXPECT_EQ(conflictQuestion(conflicts), question(lines).prompt);
}

TEST_F(StoredChangesTest, NumbersDrawnWhileItIsSavedAreKept) {
  type(1, "AN", &RangeRow::EndWert, 398);
  afterFirstReading([this] { draw(1, "RE", 251); });
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRow(1, "RE"), "200|251|299|2NN");
  EXPECT_EQ(storedRow(1, "AN"), "300|310|398|");
}

TEST_F(StoredChangesTest, WhatWasDrawnWhileItWasSavedShowsAlsoAfterAFailure) {
  type(1, "AN", &RangeRow::EndWert, 398);
  afterFirstReading([this] {
    draw(1, "RE", 251);
    script().failStatement(2);
  });
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{errorBox(4711, "basAllgemein", "Save", "Absichtlicher Fehler")});
  EXPECT_EQ(row("Max", 1, "RE"), "200 251 299 2NN");
  EXPECT_EQ(takeShownChanges(), 1);
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRow(1, "RE"), "200|251|299|2NN");
}

TEST_F(StoredChangesTest, NamesPlacesAndAssignmentsAreTheDialogs) {
  sql("UPDATE Nummernkreise SET NBezeichnung='Neu', SortierIndex=77, Aktiviert=0 WHERE "
      "Buchungskreis=1 AND NSchl='RE'");
  sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'RE', 'Max', 'ORB')");
  type(1, "AN", &RangeRow::EndWert, 398);
  EXPECT_TRUE(save());
  EXPECT_EQ(select("SELECT NBezeichnung, SortierIndex FROM Nummernkreise WHERE Buchungskreis=1 AND "
                   "NSchl='RE'"),
            Texts{"Rechnung|10"});
  EXPECT_EQ(
      select("SELECT Benutzer FROM Nummernkreis_Zuordnung WHERE NSchl='RE' AND Benutzer='Max' "
             "AND Buchungskreis=1"),
      Texts{});
}

// Elsewhere a range without a key stands for all keys.
class StoredWithoutKeyTest : public StoredChangesTest {
 protected:
  void SetUp() override {
    store("0, '', 'Ohne', 800, 810, 899, -1, 5, '', ''");
    store("1, '', 'Ohne', 900, 910, 999, -1, 5, '', ''");
    StoredChangesTest::SetUp();
  }
};

TEST_F(StoredWithoutKeyTest, ItIsARangeOfItsOwn) {
  draw(1, "RE", 250);
  store("1, 'LS', 'Lieferschein', 700, 710, 799, 0, 30, '', ''");
  type(1, "", &RangeRow::EndWert, 998);
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRow(1, "RE"), "200|250|299|2NN");
  EXPECT_EQ(storedRow(1, ""), "900|910|998|");
  EXPECT_EQ(storedRow(1, "LS"), "700|710|799|") << "nobody has read it";
}

TEST_F(StoredChangesTest, OfRangesThatAreNotItsOwnOnlyTheKeyIsReadBeforeTheLock) {
  store("1, 'LS', 'Lieferschein', 700, 710, 799, 0, 30, '', ''");
  sql("UPDATE Nummernkreise SET StartWert=NULL WHERE NSchl='LS'");
  draw(1, "RE", 250);
  type(1, "RE", &RangeRow::EndWert, 298);
  forms().answer(msg_box::no);
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{question("Rechnung, Nord: Aktuell 210 -> 250\r\n")});
  type(1, "AN", &RangeRow::EndWert, 398);
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(),
            Boxes{errorBox(94, "basAllgemein", "Save", "Unzulässige Verwendung von Null")});
}

TEST_F(StoredChangesTest, ARangeThatBothChangeAtThatMomentIsSavedOnceMore) {
  type(1, "RE", &RangeRow::EndWert, 298);
  afterFirstReading([this] { draw(1, "RE", 251); });
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{changedJustNow("Rechnung, Nord")});
  EXPECT_EQ(sent(), (Texts{"conn: ROLLBACK", "conn: BEGIN"}));
  EXPECT_EQ(storedRow(1, "RE"), "200|251|299|2NN");
  forms().answer(msg_box::yes);
  EXPECT_TRUE(save());
  EXPECT_EQ(boxes(), Boxes{question("Rechnung, Nord: Aktuell 210 -> 251\r\n")});
}

TEST_F(StoredChangesTest, OtherChangesAtThatMomentAreNotOverwritten) {
  type(1, "AN", &RangeRow::EndWert, 398);
  const char* const changes[] = {
      "UPDATE Nummernkreise SET EndWert=290 WHERE Buchungskreis=1 AND NSchl='RE'",
      "UPDATE Nummernkreise SET AktuellerWert=999 WHERE Buchungskreis=1 AND NSchl='RE'",
      "DELETE FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='RE'"};
  for (const char* change : changes) {
    SCOPED_TRACE(change);
    afterFirstReading([this, change] { sql(change); });
    EXPECT_FALSE(save());
    EXPECT_EQ(boxes(), Boxes{changedJustNow("Rechnung, Nord")});
    sql("DELETE FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='RE'");
    store("1, 'RE', 'Rechnung', 200, 210, 299, -1, 10, '', '2NN'");
  }
}

TEST_F(StoredChangesTest, RangesThatOthersHaveAddedStay) {
  store("5, 'RE', 'Rechnung West', 500, 510, 599, -1, 10, 'AN', '5NN'");
  store("1, 'LS', 'Lieferschein', 700, 710, 799, 0, 30, NULL, NULL");
  type(1, "AN", &RangeRow::EndWert, 398);
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRow(5, "RE"), "500|510|599|5NN");
  EXPECT_EQ(storedRow(1, "LS"), "700|710|799|");
}

TEST_F(StoredChangesTest, WithoutAChangeNothingIsReadOrWritten) {
  draw(1, "RE", 250);
  session().blnChanged(false);
  EXPECT_TRUE(save());
  EXPECT_EQ(sentAndRead(), Texts{"conn: ROLLBACK"});
}

TEST_F(StoredChangesTest, AReadingThatFailsIsTheSavesFailure) {
  type(1, "AN", &RangeRow::EndWert, 398);
  script().failStatement(1);
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{errorBox(4711, "basAllgemein", "Save", "Absichtlicher Fehler")});
  EXPECT_EQ(sent(), (Texts{"conn: ROLLBACK", "conn: BEGIN"}));
}

TEST_F(StoredChangesTest, WhatWasNotReadCompletelyIsNotWritten) {
  script().failStatement(1);
  EXPECT_FALSE(AktiviertDB(1, "RE", "Max"));
  boxes();
  session().blnChanged(true);
  const Texts before = stored();
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), (Boxes{{"Info",
                             "Die Nummernkreise konnten nicht vollständig gelesen werden. Es wird "
                             "nichts gespeichert.",
                             0}}));
  sentAndRead();
  EXPECT_EQ(stored(), before);
  session().blnChanged(false);
  EXPECT_TRUE(save()) << "leaving is not writing";
}

}  // namespace
}  // namespace vexnumkr
