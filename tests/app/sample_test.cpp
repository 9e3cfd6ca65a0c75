#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>
#include <map>
#include <set>

#include <vexnumkr/error.h>

#include "app/sample/create_sample.h"
#include "app/sample_database.h"

namespace vexnumkr::app {
namespace {

using test::Row;
using test::SampleDatabase;

class Sample : public testing::Test {
 protected:
  std::vector<std::string> column(const std::string& select) const {
    std::vector<std::string> values;
    for (const Row& row : database_.rows(select)) values.push_back(row.front());
    return values;
  }

  std::vector<std::string> columnsOf(const std::string& table) const {
    return column("SELECT name FROM pragma_table_info('" + table + "') ORDER BY cid");
  }

  std::vector<std::string> keyOf(const std::string& table) const {
    return column("SELECT name FROM pragma_table_info('" + table + "') WHERE pk > 0 ORDER BY pk");
  }

  long count(const std::string& from) const {
    return std::stol(column("SELECT COUNT(*) FROM " + from).front());
  }

  SampleDatabase database_;
};

using Names = std::vector<std::string>;

TEST_F(Sample, HasTheTablesOfTheNumberRangesOnly) {
  EXPECT_EQ(column("SELECT name FROM sqlite_master WHERE type='table' ORDER BY name"),
            (Names{"Nummernkreis_Buchungskreise", "Nummernkreis_Sonderkreise",
                   "Nummernkreis_Zuordnung", "Nummernkreise", "tblUser"}));
}

TEST_F(Sample, HasTheColumnsInOrder) {
  EXPECT_EQ(columnsOf("Nummernkreise"),
            (Names{"Buchungskreis", "NSchl", "NBezeichnung", "StartWert", "AktuellerWert",
                   "EndWert", "Aktiviert", "SortierIndex", "IstNSchlVon", "Maske"}));
  EXPECT_EQ(columnsOf("Nummernkreis_Buchungskreise"),
            (Names{"Buchungskreis", "Beschreibung", "Herkunft"}));
  EXPECT_EQ(columnsOf("Nummernkreis_Zuordnung"),
            (Names{"Buchungskreis", "NSchl", "Benutzer", "Herkunft"}));
  EXPECT_EQ(columnsOf("Nummernkreis_Sonderkreise"),
            (Names{"U_NSchl", "NSchl", "NBezeichnung", "Aktiviert", "Herkunft"}));
  EXPECT_EQ(columnsOf("tblUser"), (Names{"strUserName_PK"}));
}

TEST_F(Sample, HasTheKeys) {
  EXPECT_EQ(keyOf("Nummernkreise"), (Names{"Buchungskreis", "NSchl"}));
  EXPECT_EQ(keyOf("Nummernkreis_Buchungskreise"), (Names{"Herkunft", "Buchungskreis"}));
  EXPECT_EQ(keyOf("Nummernkreis_Zuordnung"), Names{});
  EXPECT_EQ(keyOf("Nummernkreis_Sonderkreise"), (Names{"Herkunft", "U_NSchl"}));
  EXPECT_EQ(keyOf("tblUser"), (Names{"strUserName_PK"}));
}

TEST_F(Sample, HasAnIndexOverAllColumnsOfTheAssignments) {
  const auto indexes =
      database_.rows("SELECT name, \"unique\" FROM pragma_index_list('Nummernkreis_Zuordnung')");
  ASSERT_EQ(indexes.size(), 1U);
  EXPECT_EQ(indexes[0][1], "0");
  EXPECT_EQ(column("SELECT name FROM pragma_index_info('" + indexes[0][0] + "') ORDER BY seqno"),
            columnsOf("Nummernkreis_Zuordnung"));
}

TEST_F(Sample, IsASmallCompany) {
  EXPECT_EQ(column("SELECT COUNT(DISTINCT NSchl) FROM Nummernkreise WHERE IstNSchlVon = '' AND "
                   "NSchl NOT IN ('LM', 'AF')"),
            Names{"14"});
  EXPECT_EQ(count("Nummernkreise WHERE NSchl IN ('LM', 'AF')"), 2);
  EXPECT_EQ(count("Nummernkreis_Buchungskreise WHERE Herkunft = 'ORB'"), 5);
  EXPECT_EQ(count("Nummernkreis_Buchungskreise WHERE Herkunft = 'ORC'"), 3);
  EXPECT_EQ(column("SELECT Buchungskreis FROM Nummernkreis_Buchungskreise GROUP BY Buchungskreis "
                   "HAVING COUNT(*) > 1"),
            Names{"3"});
  EXPECT_EQ(count("tblUser"), 5);
  for (const char* key : {"AN", "AB", "LS", "RE", "GU", "BS"}) {
    EXPECT_EQ(count(std::string("Nummernkreise WHERE Buchungskreis = 0 AND NSchl = '") + key + "'"),
              1)
        << key;
  }
  for (const char* mask : {"J%%JNNNN", "JJNNNN", "1NNNN", "RE-JJ-NNN", "MMNNN", ""}) {
    EXPECT_GE(count(std::string("Nummernkreise WHERE Maske = '") + mask + "'"), 1) << mask;
  }
}

TEST_F(Sample, KeepsBooleansAsZeroAndMinusOne) {
  EXPECT_EQ(column("SELECT DISTINCT Aktiviert FROM Nummernkreise ORDER BY 1"), (Names{"-1", "0"}));
  EXPECT_EQ(column("SELECT DISTINCT Aktiviert FROM Nummernkreis_Sonderkreise ORDER BY 1"),
            (Names{"-1", "0"}));
}

TEST_F(Sample, HasEveryRangeInOrder) {
  EXPECT_EQ(count("Nummernkreise WHERE NOT (StartWert < EndWert AND StartWert <= AktuellerWert AND "
                  "AktuellerWert <= EndWert)"),
            0);
}

TEST_F(Sample, HasAStandardRangeForEveryKey) {
  EXPECT_EQ(count("Nummernkreise a WHERE NOT EXISTS (SELECT * FROM Nummernkreise b WHERE "
                  "b.NSchl = a.NSchl AND b.Buchungskreis = 0)"),
            0);
  EXPECT_EQ(count("Nummernkreise WHERE Buchungskreis = 0 AND Aktiviert = 0"), 0);
}

TEST_F(Sample, HasNoRangesOfUnknownBookingCircles) {
  EXPECT_EQ(count("Nummernkreise WHERE Buchungskreis <> 0 AND Buchungskreis NOT IN "
                  "(SELECT Buchungskreis FROM Nummernkreis_Buchungskreise)"),
            0);
}

TEST_F(Sample, DescribesAKeyTheSameInEveryBookingCircle) {
  EXPECT_EQ(column("SELECT NSchl FROM Nummernkreise GROUP BY NSchl HAVING "
                   "COUNT(DISTINCT NBezeichnung) > 1 OR COUNT(DISTINCT SortierIndex) > 1"),
            Names{});
}

TEST_F(Sample, HasSpecialRangesOnAndOffForBothOrigins) {
  EXPECT_EQ(column("SELECT Herkunft || Aktiviert FROM Nummernkreis_Sonderkreise GROUP BY 1"),
            (Names{"ORB-1", "ORB0", "ORC-1", "ORC0"}));
  // One that is on has been given its range; one that is off has none.
  EXPECT_EQ(count("Nummernkreis_Sonderkreise s WHERE Aktiviert <> 0 AND NOT EXISTS (SELECT * FROM "
                  "Nummernkreise n WHERE n.NSchl = s.U_NSchl AND n.IstNSchlVon = s.NSchl AND "
                  "n.Buchungskreis = 0)"),
            0);
  EXPECT_EQ(count("Nummernkreis_Sonderkreise WHERE Aktiviert = 0 AND U_NSchl IN "
                  "(SELECT NSchl FROM Nummernkreise)"),
            0);
  EXPECT_EQ(count("Nummernkreis_Sonderkreise WHERE NSchl NOT IN (SELECT NSchl FROM Nummernkreise)"),
            0);
}

TEST_F(Sample, AssignsOnlyRangesThatAreActiveInTheirOrigin) {
  EXPECT_EQ(count("Nummernkreis_Zuordnung z WHERE NOT EXISTS (SELECT * FROM Nummernkreise n WHERE "
                  "n.Buchungskreis = z.Buchungskreis AND n.NSchl = z.NSchl AND n.Aktiviert <> 0)"),
            0);
  EXPECT_EQ(count("Nummernkreis_Zuordnung z WHERE Buchungskreis <> 0 AND NOT EXISTS (SELECT * FROM "
                  "Nummernkreis_Buchungskreise b WHERE b.Buchungskreis = z.Buchungskreis AND "
                  "b.Herkunft = z.Herkunft)"),
            0);
  EXPECT_EQ(count("Nummernkreis_Zuordnung WHERE NSchl IN ('LM', 'AF')"), 0);
  EXPECT_EQ(count("Nummernkreis_Zuordnung WHERE Benutzer <> 'ALL' AND Benutzer NOT IN "
                  "(SELECT strUserName_PK FROM tblUser)"),
            0);
}

TEST_F(Sample, GivesEveryUserExactlyOneRangePerKeyAndOrigin) {
  const long keys = std::stol(
      column("SELECT COUNT(DISTINCT NSchl) FROM Nummernkreise WHERE NSchl NOT IN ('LM', 'AF')")
          .front());
  EXPECT_EQ(column("SELECT COUNT(*) FROM Nummernkreis_Zuordnung WHERE Benutzer <> 'ALL' "
                   "GROUP BY Herkunft, Benutzer, NSchl HAVING COUNT(*) <> 1"),
            Names{});
  EXPECT_EQ(count("Nummernkreis_Zuordnung WHERE Benutzer <> 'ALL'"), 2 * 5 * keys);
  EXPECT_GT(count("Nummernkreis_Zuordnung WHERE Benutzer <> 'ALL' AND Buchungskreis <> 0"), 20);
}

TEST_F(Sample, AssignsEveryActiveRangeToEverybody) {
  for (const char* origin : {"ORB", "ORC"}) {
    const std::string ofOrigin = std::string("Herkunft = '") + origin + "'";
    EXPECT_EQ(
        column("SELECT Buchungskreis || NSchl FROM Nummernkreis_Zuordnung WHERE Benutzer = 'ALL' "
               "AND " +
               ofOrigin + " ORDER BY 1"),
        column(
            "SELECT Buchungskreis || NSchl FROM Nummernkreise WHERE Aktiviert <> 0 AND NSchl NOT "
            "IN ('LM', 'AF') AND (Buchungskreis = 0 OR Buchungskreis IN (SELECT Buchungskreis "
            "FROM Nummernkreis_Buchungskreise WHERE " +
            ofOrigin + ")) ORDER BY 1"));
  }
}

struct Interval {
  std::string name;
  long start;
  long end;
};

/// The pairs of ranges that overlap though they draw from one sequence.
std::vector<std::string> overlaps(const std::map<std::string, std::vector<Interval>>& sequences) {
  std::vector<std::string> found;
  for (const auto& [sequence, ranges] : sequences) {
    for (std::size_t a = 0; a < ranges.size(); ++a) {
      for (std::size_t b = a + 1; b < ranges.size(); ++b) {
        if (ranges[a].start <= ranges[b].end && ranges[b].start <= ranges[a].end) {
          found.push_back(ranges[a].name + " and " + ranges[b].name);
        }
      }
    }
  }
  return found;
}

TEST_F(Sample, HasNoOverlapInASequence) {
  std::map<std::string, std::vector<Interval>> sequences;
  for (const Row& row :
       database_.rows("SELECT CASE IstNSchlVon WHEN '' THEN NSchl ELSE IstNSchlVon END, "
                      "NSchl || Buchungskreis, StartWert, EndWert FROM Nummernkreise")) {
    sequences[row[0]].push_back({row[1], std::stol(row[2]), std::stol(row[3])});
  }
  EXPECT_EQ(overlaps(sequences), std::vector<std::string>{});
}

/// The lowest or, with `free` '9', the highest number of a mask in a month of a year.
long numberOf(const std::string& mask, const std::string& year, const std::string& month,
              char free) {
  std::string digits;
  std::size_t yearPlace = 0;
  std::size_t monthPlace = 0;
  for (auto c = mask.rbegin(); c != mask.rend(); ++c) {
    if (*c == 'J') digits.insert(0, 1, year[3 - yearPlace % 4]);
    if (*c == 'J' || *c == '%') ++yearPlace;
    if (*c == 'M') digits.insert(0, 1, month[1 - monthPlace++ % 2]);
    if (*c == 'N') digits.insert(0, 1, free);
    if (*c >= '0' && *c <= '9') digits.insert(0, 1, *c);
  }
  return std::stol(digits);
}

TEST_F(Sample, StaysInOrderWhenItIsRenumberedFromTheMasks) {
  const auto rows = database_.rows(
      "SELECT CASE IstNSchlVon WHEN '' THEN NSchl ELSE IstNSchlVon END, NSchl || Buchungskreis, "
      "StartWert, EndWert, Maske FROM Nummernkreise");
  for (const char* year : {"2000", "2009", "2026", "2027", "2031", "2099"}) {
    for (const char* month : {"01", "09", "10", "12"}) {
      std::map<std::string, std::vector<Interval>> sequences;
      for (const Row& row : rows) {
        const bool numbered = !row[4].empty();
        const long start = numbered ? numberOf(row[4], year, month, '0') : std::stol(row[2]);
        const long end = numbered ? numberOf(row[4], year, month, '9') : std::stol(row[3]);
        EXPECT_LT(start, end) << row[1];
        EXPECT_LE(end, 2147483647) << row[1];
        sequences[row[0]].push_back({row[1], start, end});
      }
      EXPECT_EQ(overlaps(sequences), std::vector<std::string>{}) << year << month;
    }
  }
}

TEST_F(Sample, HoldsTheNumbersOfItsMasks) {
  for (const Row& row :
       database_.rows("SELECT NSchl || Buchungskreis, Maske, StartWert, EndWert FROM Nummernkreise "
                      "WHERE Maske <> ''")) {
    EXPECT_EQ(std::stol(row[2]), numberOf(row[1], "2026", "11", '0')) << row[0];
    EXPECT_EQ(std::stol(row[3]), numberOf(row[1], "2026", "11", '9')) << row[0];
  }
}

TEST_F(Sample, IsNeverWrittenOverAFile) {
  const auto before = database_.rows("SELECT * FROM Nummernkreise");
  try {
    createSampleFile(database_.file());
    ADD_FAILURE() << "an existing file was taken";
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 58);
    EXPECT_EQ(error.description(), "Die Datei " + database_.file() + " gibt es schon.");
  }
  EXPECT_EQ(database_.rows("SELECT * FROM Nummernkreise"), before);
}

TEST_F(Sample, SaysWhereItCannotBeMade) {
  try {
    createSampleFile(database_.folder() + "/fehlt/neu.db");
    ADD_FAILURE() << "a file in a missing folder was made";
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 75);
  }
}

TEST_F(Sample, LeavesNothingBehindAFailure) {
  const auto connection = database_.connect();
  EXPECT_THROW(writeSample(*connection, smallCompany()), Error);
  connection->BeginTrans();  // the transaction of the failed attempt is over
  connection->RollbackTrans();
  EXPECT_EQ(count("tblUser"), 5);
}

TEST_F(Sample, TellsWhatItHolds) {
  const std::string file = database_.folder() + "/zweite.db";
  EXPECT_EQ(createSampleFile(file),
            "Beispieldatenbank angelegt: " + file +
                "\n  19 Belegarten mit 46 Nummernkreisen, 8 Buchungskreise, 6 Sonderkreise, "
                "5 Benutzer mit 232 Zuordnungen\n");
  EXPECT_EQ(test::rowsOf(file, "SELECT * FROM Nummernkreis_Zuordnung"),
            database_.rows("SELECT * FROM Nummernkreis_Zuordnung"));
}

}  // namespace
}  // namespace vexnumkr::app
