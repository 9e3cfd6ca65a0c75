// The journal that triggers write: what it records of saves and imports, and what it tells.
#include <algorithm>
#include <random>

#include <vexnumkr/error.h>
#include <vexnumkr/number_journal.h>

#include "numbers/numbers_database.h"
#include "support/journal_scripts.h"

namespace vexnumkr::test {
namespace {

using Lines = std::vector<std::string>;
using numbers::Company;
using numbers::JournalEntry;

void append(Lines& lines, const numbers::Change& change) {
  std::string line = std::string(1, "+~-"[static_cast<std::size_t>(change.kind)]) + change.what;
  for (const std::string& field : change.fields) line += " [" + field + "]";
  lines.push_back(line);
}

class JournalTest : public NumbersDatabase {
 protected:
  void install(const char* script = "protokoll") {
    runJournalScript(connection(), database().schema(), script);
  }
  std::vector<JournalEntry> entries(const numbers::JournalOptions& options = {}) {
    std::vector<JournalEntry> found;
    numbers::readJournal(connection(), options,
                         [&](const JournalEntry& entry) { found.push_back(entry); });
    return found;
  }
  /// All changes, in order.
  Lines changes(const numbers::JournalOptions& options = {}) {
    Lines lines;
    for (const JournalEntry& entry : entries(options))
      for (const numbers::JournalChange& change : entry.changes) append(lines, change.change);
    return lines;
  }
  /// A line of the journal as a trigger would write it.
  void line(const std::string& time, const std::string& action, const std::string& table,
            const std::string& columns, const std::string& values, int session = 1) {
    sql("INSERT INTO Nummernkreis_Protokoll (Zeitpunkt, Sitzung, Vorgang, Tabelle, Aktion, " +
        columns + ") VALUES ('" + time + "', " + std::to_string(session) + ", NULL, '" + table +
        "', '" + action + "', " + values + ")");
  }
  void assignment(const std::string& time, const std::string& action, const std::string& user,
                  int session = 1) {
    line(time, action, "Nummernkreis_Zuordnung", "Herkunft, Buchungskreis, NSchl, Benutzer",
         "'ORB', 1, 'RE', '" + user + "'", session);
  }
  bool isMariadb() const { return database().engine() == "mariadb"; }
  bool tellsTransactions() const { return database().engine().ends_with("postgresql"); }
};

TEST_F(JournalTest, EveryTableIsRecordedWithWhatWasThereBefore) {
  install();
  circle(1, "Werk");
  range(1, "RE", 100, 150, 199, {.mask = "1NN"});
  assign("Anna", 1, "RE", "ORC");
  special("RX", "RE", false);
  EXPECT_EQ(changes(), (Lines{"+Buchungskreis 1", "+RE, Buchungskreis 1",
                              "+Anna: RE, Buchungskreis 1", "+RX"}));
  sql("UPDATE Nummernkreise SET EndWert = 299, Maske = NULL");
  sql("UPDATE Nummernkreis_Buchungskreise SET Beschreibung = 'werk'");
  sql("UPDATE Nummernkreis_Sonderkreise SET Aktiviert = -1");
  sql("DELETE FROM Nummernkreis_Zuordnung");
  // Where nobody knows what was one transaction, all of it has happened at once.
  const Lines last =
      tellsTransactions()
          ? Lines{"~RE, Buchungskreis 1 [Endwert 199 -> 299] [Maske \"1NN\" -> \"\"]",
                  "~Buchungskreis 1 [Beschreibung \"Werk\" -> \"werk\"]",
                  "~RX [Aktiviert nein -> ja]", "-Anna: RE, Buchungskreis 1"}
          : Lines{"+Buchungskreis 1", "+RE, Buchungskreis 1", "+RX"};
  const Lines all = changes();
  EXPECT_EQ(Lines(all.end() - static_cast<std::ptrdiff_t>(last.size()), all.end()), last);
}

TEST_F(JournalTest, ItKnowsWhoAndWhen) {
  install();
  range(1, "RE", 100, 150, 199);
  const std::vector<JournalEntry> found = entries();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].time.size(), std::string("2026-11-22T09:30:00.123Z").size());
  EXPECT_EQ(found[0].time.back(), 'Z');
  EXPECT_EQ(found[0].login,
            isSqlite() ? "" : (isMariadb() ? "root@localhost" : std::string("vexnumkr")));
  EXPECT_EQ(found[0].user, "");
}

TEST_F(JournalTest, AHostMayNameItsUser) {
  if (isSqlite()) GTEST_SKIP() << "SQLite has no settings of a session";
  install();
  sql(isMariadb() ? "SET @vexnumkr_anwender = 'Hoffmann'" : "SET vexnumkr.anwender = 'Hoffmann'");
  range(1, "RE", 100, 150, 199);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].user, "Hoffmann");
}

TEST_F(JournalTest, DrawnNumbersAreRecordedOnRequestOnly) {
  range(1, "RE", 100, 150, 199);
  const auto draw = [&] {
    sql("UPDATE Nummernkreise SET AktuellerWert = AktuellerWert + 1 WHERE NSchl = 'RE'");
  };
  install();
  draw();
  EXPECT_EQ(changes(), Lines{});
  install("protokoll_gezogen");
  draw();
  draw();
  EXPECT_EQ(changes(), (Lines{"~RE, Buchungskreis 1 [Aktuell 151 -> 152]",
                              "~RE, Buchungskreis 1 [Aktuell 152 -> 153]"}));
  install();
  draw();
  EXPECT_EQ(changes().size(), 2U);
}

TEST_F(JournalTest, ACurrentValueThatSomebodyHasTypedIsRecorded) {
  range(1, "RE", 100, 150, 199);
  install();
  const auto type = [&](int current) {
    sql("UPDATE Nummernkreise SET NBezeichnung = 'Beleg', StartWert = 100, AktuellerWert = " +
        std::to_string(current) + ", EndWert = 199 WHERE NSchl = 'RE'");
  };
  type(140);
  EXPECT_EQ(changes(), Lines{"~RE, Buchungskreis 1 [Aktuell 150 -> 140]"});
  type(160);  // On MariaDB this looks as if the number had been drawn.
  EXPECT_EQ(changes().size(), isMariadb() ? 1U : 2U);
}

TEST_F(JournalTest, WhatStaysAsItIsLeavesNoTrace) {
  range(1, "RE", 100, 150, 199);
  assign("Anna", 1, "RE");
  install("protokoll");
  install("protokoll_gezogen");
  sql("UPDATE Nummernkreise SET EndWert = 199, AktuellerWert = 150");
  sql("DELETE FROM Nummernkreis_Zuordnung");
  assign("Anna", 1, "RE");
  if (tellsTransactions()) {
    EXPECT_EQ(changes(), (Lines{"-Anna: RE, Buchungskreis 1", "+Anna: RE, Buchungskreis 1"}));
  } else {
    EXPECT_EQ(changes(), Lines{});
  }
}

TEST_F(JournalTest, TwoSavesAreTwoEntriesHoweverMuchTheyUndo) {
  install();
  assignment("2026-11-22T09:00:00.000Z", "weg", "Anna");
  assignment("2026-11-22T09:00:00.500Z", "neu", "Anna");
  assignment("2026-11-22T09:00:01.000Z", "weg", "Max");
  assignment("2026-11-22T09:00:03.001Z", "neu", "Max");
  EXPECT_EQ(changes(), (Lines{"-Max: RE, Buchungskreis 1", "+Max: RE, Buchungskreis 1"}));
  const auto found = entries();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].time, "2026-11-22T09:00:01.000Z");
  EXPECT_EQ(found[1].time, "2026-11-22T09:00:03.001Z");
}

TEST_F(JournalTest, SessionsThatMixAreKeptApart) {
  install();
  assignment("2026-11-22T09:00:00.000Z", "weg", "Anna", 1);
  assignment("2026-11-22T09:00:00.000Z", "neu", "Anna", 2);
  assignment("2026-11-22T09:00:00.001Z", "neu", "Max", 1);
  EXPECT_EQ(changes(), (Lines{"-Anna: RE, Buchungskreis 1", "+Max: RE, Buchungskreis 1",
                              "+Anna: RE, Buchungskreis 1"}));
}

TEST_F(JournalTest, EqualAssignmentsAreCounted) {
  install();
  for (const char* action : {"weg", "weg", "weg", "neu", "neu"})
    assignment("2026-11-22T09:00:00.000Z", action, "Anna");
  EXPECT_EQ(changes(), Lines{"-Anna: RE, Buchungskreis 1"});
}

TEST_F(JournalTest, HowSomethingIsStoredIsNoChange) {
  install();
  const char* const columns =
      "Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, EndWert, Aktiviert, "
      "SortierIndex, IstNSchlVon, Maske";
  const auto range = [&](const char* action, const char* values) {
    line("2026-11-22T09:00:00.000Z", action, "Nummernkreise", columns, values);
  };
  range("weg", "1, 'RE', 'Rechnung  ', 1, 1, 9, 1, 10, NULL, ' 1N '");
  range("neu", "1, 'RE', 'Rechnung', 1, 1, 9, -1, 10, '', '1N'");
  EXPECT_EQ(changes(), Lines{});
}

TEST_F(JournalTest, TimesAndApplicationsCanBeChosen) {
  install();
  assignment("2026-11-22T09:00:00.000Z", "neu", "Anna");
  assignment("2026-11-23T09:00:00.000Z", "neu", "Max");
  line("2026-11-23T09:00:00.000Z", "neu", "Nummernkreis_Buchungskreise",
       "Herkunft, Buchungskreis, Beschreibung", "'ORC', 5, 'Ost'");
  EXPECT_EQ(changes({.since = "2026-11-23T00:00:00.000Z", .application = 1}),
            Lines{"+Max: RE, Buchungskreis 1"});
  EXPECT_EQ(changes({.before = "2026-11-23T00:00:00.000Z"}), Lines{"+Anna: RE, Buchungskreis 1"});
  EXPECT_EQ(changes({.application = 2}), Lines{"+Buchungskreis 5"});
}

TEST_F(JournalTest, EntriesStayAsTheyAre) {
  install();
  assign("Anna", 1, "RE");
  EXPECT_THROW(sql("DELETE FROM Nummernkreis_Protokoll"), Error);
  EXPECT_THROW(sql("UPDATE Nummernkreis_Protokoll SET Benutzer = 'Max'"), Error);
  if (tellsTransactions()) {
    EXPECT_THROW(sql("TRUNCATE Nummernkreis_Protokoll"), Error);
  }
  if (isSqlite()) {
    EXPECT_THROW(sql("REPLACE INTO Nummernkreis_Protokoll (Eintrag, Tabelle, Aktion) VALUES (1, "
                     "'Nummernkreise', 'weg')"),
                 Error);
  }
  EXPECT_EQ(changes(), Lines{"+Anna: RE, Buchungskreis 1"});
}

TEST_F(JournalTest, AnEntryWithoutATimeHidesNoOthers) {
  install();
  for (const char* const time : {"kaputt", "", "2026-11-22T09:30:00.12xZ"})
    sql("INSERT INTO Nummernkreis_Protokoll (Zeitpunkt, Tabelle, Aktion, Herkunft, Buchungskreis, "
        "NSchl, Benutzer) VALUES ('" +
        std::string(time) + "', 'Nummernkreis_Zuordnung', 'neu', 'ORB', 1, 'RE', 'Max')");
  assign("Anna", 1, "RE");
  EXPECT_EQ(changes().back(), "+Anna: RE, Buchungskreis 1");
}

TEST_F(JournalTest, ItEndsWithoutLosingItsEntries) {
  install();
  install();
  assign("Anna", 1, "RE");
  install("protokoll_ende");
  install("protokoll_ende");
  assign("Max", 1, "RE");
  EXPECT_EQ(changes(), Lines{"+Anna: RE, Buchungskreis 1"});
  EXPECT_TRUE(numbers::hasJournal(connection()));
  sql("DROP TABLE Nummernkreis_Protokoll");
  EXPECT_FALSE(numbers::hasJournal(connection()));
}

// What an import says that it changes, against what the journal says that it has changed.
class RandomCompanies {
 public:
  explicit RandomCompanies(unsigned seed) : random_(seed) {}

  Company next() {
    Company company;
    company.application = 1;
    for (std::int32_t circle = 1; circle <= 4; ++circle)
      if (chance(70)) company.circles.push_back({circle, text("Kreis")});
    for (int key = 0; key < 4; ++key) {
      const std::string name = "K" + std::to_string(key);
      for (const numbers::Circle& circle : company.circles) {
        if (!chance(60)) continue;
        company.ranges.push_back(range(circle.number, key, name));
        for (const char* const user : {"ALL", "Anna", "Max"})
          if (chance(40)) company.assignments.push_back({circle.number, name, user});
      }
      const bool isUsed = std::ranges::count(company.ranges, name, &numbers::Range::key) > 0;
      if (isUsed && chance(50))
        company.specialRanges.push_back({name, name, text("Sonder"), chance(50)});
    }
    return company;
  }

 private:
  bool chance(int percent) { return std::uniform_int_distribution(1, 100)(random_) <= percent; }
  std::string text(const char* word) {
    return word + std::string(chance(50) ? " 'Süd'" : " \\ Nord");
  }
  numbers::Range range(std::int32_t circle, int key, const std::string& name) {
    numbers::Range made;
    made.circle = circle;
    made.key = name;
    made.description = text("Beleg");
    made.start = circle * 10000 + key * 1000;
    made.current = made.start;
    made.end = *made.start + (chance(50) ? 500 : 900);
    made.active = chance(80);
    made.mask = chance(50) ? "9NNN" : "";
    return made;
  }

  std::mt19937 random_;
};

Lines sorted(Lines lines) {
  std::sort(lines.begin(), lines.end());
  return lines;
}

TEST_F(JournalTest, ImportsAreRecordedAsTheyAnnounceThemselves) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomCompanies companies(seed);
  sql("INSERT INTO tblUser VALUES ('Anna')");
  sql("INSERT INTO tblUser VALUES ('Max')");
  install();
  std::vector<Lines> announced;
  for (int i = 0; i < 8; ++i) {
    const auto plan = numbers::storeCompany(connection(), companies.next(), {.removeOthers = true});
    for (const numbers::ImportFault& fault : plan.faults) ADD_FAILURE() << fault.text;
    ASSERT_TRUE(plan.isPossible());
    announced.emplace_back();
    for (const numbers::Change& change : plan.changes) append(announced.back(), change);
  }
  if (tellsTransactions()) {
    const auto found = entries();
    ASSERT_EQ(found.size(), announced.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
      Lines recorded;
      for (const numbers::JournalChange& change : found[i].changes) append(recorded, change.change);
      EXPECT_EQ(sorted(recorded), sorted(announced[i])) << "import " << i;
    }
    return;
  }
  // One session without a pause: what was empty has become what is stored now.
  Company empty;
  empty.application = 1;
  Lines difference;
  for (const numbers::Change& change :
       numbers::differences(empty, numbers::readCompany(connection(), 1),
                            {.withCurrent = true, .removeOthers = true}))
    append(difference, change);
  EXPECT_EQ(sorted(changes()), sorted(difference));
}

}  // namespace
}  // namespace vexnumkr::test
