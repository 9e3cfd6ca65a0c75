// What is sent in sets, and how much of it. That it leaves what saving row by row leaves is the
// matter of both_ways_test.
#include "rules/saving/saving_in_sets.h"

#include <algorithm>

#include "rules/saving_session.h"
#include "support/faults/forwarding_connection.h"

namespace vexnumkr {
namespace {

using test::Box;
using test::errorBox;
using test::Texts;
using Boxes = std::vector<Box>;

class SavingInSetsTest : public test::SavingSession {
 protected:
  using CoreSession::sql;

  /// Two booking circles, with ranges of `keys` document types in each and for Anna and Max, as
  /// they are once saved; loaded.
  void firm(int keys) {
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'Süd', 'ORB')");
    std::string ranges;
    std::string assignments;
    for (int key = 0; key < keys; ++key)
      for (int circle = 0; circle < 3; ++circle) {
        ranges += (ranges.empty() ? "" : ", ") + storedRange(circle, key);
        const std::string range = std::to_string(circle) + ", '" + keyName(key) + "'";
        assignments += (assignments.empty() ? "(" : ", (") + range + ", 'ALL', 'ORB'), (" + range +
                       ", 'Max', 'ORB')";
      }
    sql("INSERT INTO Nummernkreise VALUES " + ranges);
    sql("INSERT INTO Nummernkreis_Zuordnung VALUES " + assignments);
    load();
    EXPECT_TRUE(save());
    load();
  }
  static std::string keyName(int key) { return "K" + std::to_string(key); }

  // From 1 of the first key of circle 0 on, each apart from the others.
  static std::string storedRange(int circle, int key) {
    const int start = 1'000'000 * circle + 100 * key + 1;
    return "(" + std::to_string(circle) + ", '" + keyName(key) + "', 'Beleg " + keyName(key) +
           "', " + std::to_string(start) + ", " + std::to_string(start) + ", " +
           std::to_string(start + 50) + ", -1, 1, '', 'JJNNNNNN')";
  }

  // As the dialog loads.
  void load() {
    start(1, {"Anna", "Max"});
    session().source().access(DatabaseAccess::inSets);
    sentAndRead();
    CheckSonderkreise();
    RefreshCombo();
    LoadItems();
    RefreshSGroups();
    session().beginTransaction();
    session().blnChanged(true);
  }

  Texts loading() {
    Texts all = sentAndRead();
    std::erase(all, "conn: BEGIN");
    return all;
  }

  // The statements without what follows the name of their table.
  Texts kinds() {
    Texts all = sentAndRead();
    for (std::string& line : all) {
      std::size_t at = line.find("Nummernkrei");
      if (at != std::string::npos) line.erase(line.find_first_of(" (", at));
      if (const std::size_t from = line.find(" FROM "); line.find(": SELECT ") != line.npos)
        line.erase(12, from - 12);
    }
    return all;
  }

  std::int32_t rowOf(const std::string& user, std::int32_t circle, const std::string& key) {
    return table().findRange(user, circle, key);
  }
};

const Texts reading = {"work: SELECT FROM Nummernkreise", "conn: SELECT FROM Nummernkreise",
                       "conn: SELECT FROM Nummernkreis_Zuordnung"};
const Texts readingBack = {"conn: SELECT FROM Nummernkreise",
                           "conn: SELECT FROM Nummernkreis_Zuordnung", "conn: COMMIT"};

Texts between(const Texts& writing) {
  Texts all = reading;
  all.insert(all.end(), writing.begin(), writing.end());
  all.insert(all.end(), readingBack.begin(), readingBack.end());
  return all;
}

TEST_F(SavingInSetsTest, LoadingTakesAsManyStatementsHoweverLargeTheCompanyIs) {
  firm(2);
  EXPECT_EQ(loading().size(), 5U);
  session().rollBackTransaction();
  sql("DELETE FROM Nummernkreise");
  sql("DELETE FROM Nummernkreis_Zuordnung");
  sql("DELETE FROM Nummernkreis_Buchungskreise");
  firm(40);
  EXPECT_EQ(loading(),
            (Texts{"conn: SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Sonderkreise WHERE "
                   "Herkunft='ORB'",
                   "conn: SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise "
                   "WHERE Herkunft='ORB'",
                   "conn: " + statement::ranges(),
                   "conn: SELECT Buchungskreis, NSchl, Benutzer FROM Nummernkreis_Zuordnung WHERE "
                   "Herkunft='ORB'",
                   "conn: " + statement::specialRangesByKey("ORB")}));
}

TEST_F(SavingInSetsTest, WhatIsStoredAsItIsToBeIsNotWritten) {
  firm(3);
  kinds();
  EXPECT_TRUE(save());
  EXPECT_EQ(kinds(), between({}));
}

TEST_F(SavingInSetsTest, AChangedValueIsOneUpdate) {
  firm(40);
  sentAndRead();
  SetValueAll("K1", 1, &RangeRow::EndWert, 1'000'190);
  EXPECT_TRUE(save());
  const Texts all = sentAndRead();
  ASSERT_EQ(all.size(), 7U);
  EXPECT_EQ(all[3],
            "conn: UPDATE Nummernkreise SET NBezeichnung='Beleg K1', StartWert=1000101, "
            "AktuellerWert=1000101, EndWert=1000190, Aktiviert=-1, SortierIndex=1, "
            "IstNSchlVon='', Maske='JJNNNNNN' WHERE Buchungskreis=1 AND NSchl='K1'");
}

TEST_F(SavingInSetsTest, ManyChangedNumbersAreOneUpdate) {
  firm(40);
  for (const char* key : {"K2", "K1"})
    for (const int circle : {1, 2, 0})
      SetValueAll(key, circle, &RangeRow::AktuellerWert,
                  table().at(rowOf(alleBenutzer, circle, key)).StartWert.toLong() + 1);
  sentAndRead();
  EXPECT_TRUE(save());
  const Texts all = sentAndRead();
  ASSERT_EQ(all.size(), 7U);
  const auto choice = [](const std::string& column, int k1, int k2) {
    std::string text = column + "=CASE Buchungskreis";
    for (const int circle : {0, 1, 2}) {
      const auto value = [&](int start) { return std::to_string(1'000'000 * circle + start); };
      text += " WHEN " + std::to_string(circle) + " THEN CASE NSchl WHEN 'K1' THEN " + value(k1) +
              " WHEN 'K2' THEN " + value(k2) + " ELSE " + column + " END";
    }
    return text + " ELSE " + column + " END";
  };
  EXPECT_EQ(all[3], "conn: UPDATE Nummernkreise SET " + choice("AktuellerWert", 102, 202) +
                        " WHERE Buchungskreis=0 AND NSchl IN ('K1' , 'K2') OR Buchungskreis=1 AND "
                        "NSchl IN ('K1' , 'K2') OR Buchungskreis=2 AND NSchl IN ('K1' , 'K2')");
  EXPECT_EQ(
      select("SELECT Buchungskreis, AktuellerWert, EndWert, Maske FROM Nummernkreise "
             "WHERE NSchl='K2' ORDER BY Buchungskreis"),
      (Texts{"0|202|251|JJNNNNNN", "1|1000202|1000251|JJNNNNNN", "2|2000202|2000251|JJNNNNNN"}));
}

TEST_F(SavingInSetsTest, NoColumnIsWrittenBeforeOrBehindThoseThatDiffer) {
  firm(40);
  sql("UPDATE Nummernkreise SET SortierIndex = 99 WHERE NSchl = 'K1'");
  for (const int circle : {0, 1, 2}) SetValueAll("K2", circle, &RangeRow::Maske, "NNN");
  sentAndRead();
  EXPECT_TRUE(save());
  const Texts all = sentAndRead();
  ASSERT_EQ(all.size(), 7U);
  EXPECT_TRUE(all[3].starts_with("conn: UPDATE Nummernkreise SET SortierIndex=CASE")) << all[3];
  for (const char* column : {"NBezeichnung=CASE", "IstNSchlVon=CASE", "Maske=CASE"})
    EXPECT_NE(all[3].find(column), std::string::npos) << column;
  EXPECT_EQ(select("SELECT Buchungskreis, NSchl, SortierIndex, NBezeichnung, Maske "
                   "FROM Nummernkreise WHERE NSchl IN ('K1', 'K2') AND Buchungskreis < 2 "
                   "ORDER BY Buchungskreis, NSchl"),
            (Texts{"0|K1|1|Beleg K1|JJNNNNNN", "0|K2|1|Beleg K2|NNN", "1|K1|1|Beleg K1|JJNNNNNN",
                   "1|K2|1|Beleg K2|NNN"}));
}

// Two ranges, since a single one is written as a whole.
TEST_F(SavingInSetsTest, EachColumnIsWrittenAlone) {
  firm(3);
  const Texts before = stored();
  const auto inBoth = [&](ValueColumn column, int difference) {
    for (const char* key : {"K1", "K2"}) {
      const RangeRow& row = table().at(rowOf(alleBenutzer, 1, key));
      SetValueAll(key, 1, column, (row.*column).toLong() + difference);
    }
  };
  const auto storedAs = [&](const std::string& setting) {
    sql("UPDATE Nummernkreise SET " + setting +
        " WHERE Buchungskreis = 1 AND NSchl IN ('K1', 'K2')");
  };
  const auto isWrittenAlone = [&](const std::string& column) {
    sentAndRead();
    EXPECT_TRUE(save());
    session().beginTransaction();
    const Texts all = sentAndRead();
    const auto update = std::ranges::find_if(
        all, [](const std::string& text) { return text.starts_with("conn: UPDATE"); });
    ASSERT_NE(update, all.end()) << column;
    EXPECT_TRUE(update->starts_with("conn: UPDATE Nummernkreise SET " + column +
                                    "=CASE Buchungskreis WHEN 1 THEN CASE NSchl WHEN 'K1' THEN "))
        << *update;
    EXPECT_EQ(update->find("=CASE"), update->rfind("=CASE")) << *update;
  };
  for (const char* other :
       {"Aktiviert = 0", "SortierIndex = 9", "NBezeichnung = 'fremd'", "IstNSchlVon = 'K0'"}) {
    storedAs(other);
    isWrittenAlone(std::string(other, std::string_view(other).find(' ')));
    EXPECT_EQ(stored(), before) << other;
  }
  inBoth(&RangeRow::EndWert, 1);
  isWrittenAlone("EndWert");
  inBoth(&RangeRow::AktuellerWert, 2);
  isWrittenAlone("AktuellerWert");
  inBoth(&RangeRow::StartWert, -1);
  isWrittenAlone("StartWert");
  for (const char* key : {"K1", "K2"}) SetValueAll(key, 1, &RangeRow::Maske, "NNN");
  isWrittenAlone("Maske");
  EXPECT_EQ(select("SELECT NSchl, StartWert, AktuellerWert, EndWert, Maske FROM Nummernkreise "
                   "WHERE Buchungskreis = 1 AND NSchl <> 'K0' ORDER BY NSchl"),
            (Texts{"K1|1000100|1000103|1000152|NNN", "K2|1000200|1000203|1000252|NNN"}));
}

TEST_F(SavingInSetsTest, ANewCompanyIsAFewInsertions) {
  firm(300);
  sql("DELETE FROM Nummernkreise WHERE Buchungskreis > 0");
  sql("DELETE FROM Nummernkreis_Zuordnung");
  for (const RangeRow& row : table()) session().data().known.read(RangeId::of(row));
  sentAndRead();
  EXPECT_TRUE(save());
  // 600 ranges; 900 assignments for everybody, 900 for Max, and 300 for Anna, who has nothing but
  // the standard ranges.
  EXPECT_EQ(kinds(), between({"conn: INSERT INTO Nummernkreise", "conn: INSERT INTO Nummernkreise",
                              "conn: INSERT INTO Nummernkreis_Zuordnung",
                              "conn: INSERT INTO Nummernkreis_Zuordnung",
                              "conn: INSERT INTO Nummernkreis_Zuordnung",
                              "conn: INSERT INTO Nummernkreis_Zuordnung",
                              "conn: INSERT INTO Nummernkreis_Zuordnung"}));
}

TEST_F(SavingInSetsTest, ACircleThatIsGoneIsTwoDeletions) {
  firm(40);
  sql("DELETE FROM Nummernkreis_Buchungskreise WHERE Buchungskreis = 2");
  RefreshCombo();
  RefreshInXArray();
  CheckActivity();
  sentAndRead();
  EXPECT_TRUE(save());
  EXPECT_EQ(kinds(), between({"conn: SELECT FROM Nummernkreise", "conn: DELETE FROM Nummernkreise",
                              "conn: DELETE FROM Nummernkreis_Zuordnung"}));
  EXPECT_EQ(select("SELECT Buchungskreis FROM Nummernkreise WHERE Buchungskreis = 2"), Texts{});
  EXPECT_EQ(select("SELECT Benutzer FROM Nummernkreis_Zuordnung WHERE Buchungskreis = 2"), Texts{});
}

TEST_F(SavingInSetsTest, EqualAssignmentsAreCounted) {
  firm(1);
  for (int i = 0; i < 2; ++i)
    sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'K0', 'Max', 'ORB')");
  sql("DELETE FROM Nummernkreis_Zuordnung WHERE Benutzer = 'ALL' AND Buchungskreis = 0");
  sentAndRead();
  EXPECT_TRUE(save());
  const Texts all = sentAndRead();
  ASSERT_EQ(all.size(), 8U);
  EXPECT_EQ(all[3],
            "conn: DELETE FROM Nummernkreis_Zuordnung WHERE Buchungskreis=1 AND NSchl='K0' AND "
            "Benutzer='Max' AND Herkunft='ORB'");
  EXPECT_EQ(all[4],
            "conn: INSERT INTO Nummernkreis_Zuordnung (Herkunft, Buchungskreis, NSchl, Benutzer) "
            "VALUES ('ORB' , 0 , 'K0' , 'ALL') , ('ORB' , 1 , 'K0' , 'Max')");
  EXPECT_EQ(select("SELECT Benutzer FROM Nummernkreis_Zuordnung WHERE Buchungskreis = 1 "
                   "ORDER BY Benutzer"),
            (Texts{"ALL", "Max"}));
}

TEST_F(SavingInSetsTest, WhatCannotBeNamedGoesWithAllTheOthers) {
  firm(1);
  sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'K0', NULL, 'ORB')");
  sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'K0', 'O''Neill', 'ORB')");
  sentAndRead();
  EXPECT_TRUE(save());
  EXPECT_EQ(kinds(), between({"conn: DELETE FROM Nummernkreis_Zuordnung",
                              "conn: INSERT INTO Nummernkreis_Zuordnung"}));
  EXPECT_EQ(select("SELECT Benutzer FROM Nummernkreis_Zuordnung WHERE Buchungskreis = 1 "
                   "ORDER BY Benutzer"),
            (Texts{"ALL", "Max"}));
}

// The quote makes a row of its own of what would be another one in a statement of many.
TEST_F(SavingInSetsTest, AValueWithAQuoteStandsAlone) {
  firm(3);
  const Texts before = stored();
  for (const char* key : {"K0", "K1", "K2"}) SetValueAll(key, 1, &RangeRow::Maske, "NN");
  SetValueAll("K1", 1, &RangeRow::Maske, "' WHEN 'K2' THEN 'x");
  sentAndRead();
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), Boxes{errorBox(3001, "basAllgemein", "Save",
                                    "Die Anweisung wurde nicht ausgeführt, weil ein Wert sie "
                                    "verändert. Bitte prüfen Sie die Eingaben auf Hochkommas."
                                    "\r\n(Belegart: Beleg K1, Buchungskreis: Nord)")});
  EXPECT_EQ(stored(), before);
}

TEST_F(SavingInSetsTest, WhereSeveralRowsAreNotTakenSingleOnesAreSent) {
  firm(2);
  session().source().ConnWork(
      std::make_unique<test::PlainConnection>(hostConnection()->createConnection()));
  session().source().ConnWork().ConnectionString(connectionString());
  session().source().ConnWork().Open("", "", ado::unspecified);
  for (const char* key : {"K0", "K1"}) SetValueAll(key, 1, &RangeRow::Maske, "NN");
  sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'K0', 'Weg', 'ORB')");
  sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'K1', 'Weg', 'ORB')");
  sql("DELETE FROM Nummernkreis_Zuordnung WHERE Benutzer = 'ALL' AND Buchungskreis = 0");
  sentAndRead();
  EXPECT_TRUE(save());
  EXPECT_EQ(kinds(), between({"conn: UPDATE Nummernkreise", "conn: UPDATE Nummernkreise",
                              "conn: DELETE FROM Nummernkreis_Zuordnung",
                              "conn: DELETE FROM Nummernkreis_Zuordnung",
                              "conn: INSERT INTO Nummernkreis_Zuordnung",
                              "conn: INSERT INTO Nummernkreis_Zuordnung"}));
}

// 720 ranges: at most 12 statements and one for every 250 of them.
TEST_F(SavingInSetsTest, NumberingAllRangesAnewIsAFewUpdates) {
  firm(240);
  for (std::int32_t row = 0; row < table().size(); ++row)
    table().setValue(row, &RangeRow::AktuellerWert, table().at(row).StartWert.toLong() + 7);
  sentAndRead();
  EXPECT_TRUE(save());
  EXPECT_EQ(kinds(), between({"conn: UPDATE Nummernkreise", "conn: UPDATE Nummernkreise"}));
  EXPECT_EQ(select("SELECT NSchl FROM Nummernkreise WHERE AktuellerWert <> StartWert + 7"),
            Texts{});
}

// What the tables do behind the statements' backs.
class SavingInSetsBehindTriggersTest : public SavingInSetsTest {
 protected:
  void SetUp() override {
    firm(3);
    removeACircle();
  }
  /// Takes assignments along, but not the one that is left of each document type.
  void removeACircle() {
    sql("DELETE FROM Nummernkreis_Buchungskreise WHERE Buchungskreis=2");
    RefreshCombo();
    RefreshInXArray();
    session().blnChanged(true);
  }
  void trigger(const std::string& text) {
    session().rollBackTransaction();
    sql("CREATE TRIGGER t " + text);
    session().beginTransaction();
  }
  void notStored(const std::string& what) {
    const Texts before = stored();
    EXPECT_FALSE(save());
    EXPECT_EQ(boxes(),
              Boxes{errorBox(3022, "basAllgemein", "Save",
                             "Die Datenbank hat nicht alles so gespeichert, wie es gesendet "
                             "wurde: " +
                                 what + ".")});
    EXPECT_EQ(stored(), before);
    session().rollBackTransaction();
    sql("DROP TRIGGER t");
    session().beginTransaction();
    EXPECT_TRUE(save());
    EXPECT_NE(stored(), before);
  }
  bool takesTheTriggers() { return database().engine().ends_with("sqlite"); }
};

TEST_F(SavingInSetsBehindTriggersTest, ARangeThatStaysIsNoticed) {
  if (!takesTheTriggers()) GTEST_SKIP() << "the triggers are SQLite's";
  trigger("BEFORE DELETE ON Nummernkreise WHEN old.NSchl = 'K1' BEGIN SELECT RAISE(IGNORE); END");
  notStored("Beleg K1, Buchungskreis 2");
}

TEST_F(SavingInSetsBehindTriggersTest, AnAssignmentThatStaysIsNoticed) {
  if (!takesTheTriggers()) GTEST_SKIP() << "the triggers are SQLite's";
  trigger(
      "BEFORE DELETE ON Nummernkreis_Zuordnung WHEN old.NSchl = 'K1' "
      "BEGIN SELECT RAISE(IGNORE); END");
  notStored("Zuordnungen");
}

TEST_F(SavingInSetsBehindTriggersTest, AnAssignmentThatIsChangedIsNoticed) {
  if (!takesTheTriggers()) GTEST_SKIP() << "the triggers are SQLite's";
  trigger(
      "AFTER DELETE ON Nummernkreis_Zuordnung WHEN old.NSchl = 'K1' BEGIN UPDATE "
      "Nummernkreis_Zuordnung SET Benutzer = 'Anna' WHERE Benutzer = 'Max' AND NSchl = 'K0'; END");
  notStored("Zuordnungen");
}

}  // namespace
}  // namespace vexnumkr
