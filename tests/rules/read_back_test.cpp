// Databases that take every statement and store something else: what was written is read back, and
// nothing of it is committed where it is not there.
#include "rules/saving_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;
using test::Texts;

class ReadBackTest : public test::EditedCompany {
 protected:
  /// The host's connection forgets what it knows of the tables, and begins anew.
  void onTheDatabase(const std::string& text) {
    session().rollBackTransaction();
    sql(text);
    session().beginTransaction();
  }
  void notStored(const std::string& what) {
    EXPECT_FALSE(save());
    EXPECT_EQ(boxes(),
              std::vector{errorBox(3022, "basAllgemein", "Save",
                                   "Die Datenbank hat nicht alles so gespeichert, wie es gesendet "
                                   "wurde: " +
                                       what + ".")});
    EXPECT_EQ(stored(), before_);
    EXPECT_TRUE(session().blnChanged());
  }
};

TEST_F(ReadBackTest, ATriggerThatPassesOverARange) {
  onTheDatabase(
      "CREATE TRIGGER t BEFORE INSERT ON Nummernkreise WHEN new.NSchl = 'SO' "
      "BEGIN SELECT RAISE(IGNORE); END");
  notStored("Belegart SO, Gruppe");
  onTheDatabase("DROP TRIGGER t");
  EXPECT_TRUE(save());
}

TEST_F(ReadBackTest, ATriggerThatChangesAValue) {
  onTheDatabase(
      "CREATE TRIGGER t AFTER INSERT ON Nummernkreise WHEN new.Buchungskreis = 2 "
      "BEGIN UPDATE Nummernkreise SET EndWert = 11 WHERE Buchungskreis = 2; END");
  notStored("Belegart RE, Gruppe");
}

TEST_F(ReadBackTest, ATriggerThatMakesAValueNull) {
  onTheDatabase(
      "CREATE TRIGGER t AFTER INSERT ON Nummernkreise WHEN new.Buchungskreis = 2 "
      "BEGIN UPDATE Nummernkreise SET SortierIndex = NULL WHERE Buchungskreis = 2; END");
  notStored("Belegart RE, Gruppe");
}

TEST_F(ReadBackTest, ATriggerThatPassesOverAnAssignment) {
  onTheDatabase(
      "CREATE TRIGGER t BEFORE INSERT ON Nummernkreis_Zuordnung WHEN new.Benutzer = 'Max' "
      "BEGIN SELECT RAISE(IGNORE); END");
  notStored("Zuordnungen");
}

// The save removes it and inserts it again.
TEST_F(ReadBackTest, ATriggerThatPassesOverARangeThatTheDialogHasNotRead) {
  onTheDatabase("INSERT INTO Nummernkreise VALUES (5, 'ZZ', 'Zusatz', 1, 1, 9, 0, 10, '', '')");
  before_ = stored();
  onTheDatabase(
      "CREATE TRIGGER t BEFORE INSERT ON Nummernkreise WHEN new.NSchl = 'ZZ' "
      "BEGIN SELECT RAISE(IGNORE); END");
  notStored("Zusatz, Buchungskreis 5");
  onTheDatabase("DROP TRIGGER t");
  EXPECT_TRUE(save());
  EXPECT_EQ(std::ranges::count(storedRanges(), "5|ZZ|Zusatz|1|1|9|0|10||"), 1);
}

TEST_F(ReadBackTest, ATableWithoutAKeyWouldHoldRangesTwice) {
  session().rollBackTransaction();
  sql("CREATE TABLE Ohne AS SELECT * FROM Nummernkreise");
  sql("DROP TABLE Nummernkreise");
  sql("ALTER TABLE Ohne RENAME TO Nummernkreise");
  session().beginTransaction();
  notStored("Belegart RE, Gruppe");
}

TEST_F(ReadBackTest, BlanksAtTheEndAndEmptyTextsAsNullAreNoDifference) {
  onTheDatabase(
      "CREATE TRIGGER t AFTER INSERT ON Nummernkreise "
      "BEGIN UPDATE Nummernkreise SET IstNSchlVon = NULL, NBezeichnung = NBezeichnung || '  ' "
      "WHERE Buchungskreis = new.Buchungskreis AND NSchl = new.NSchl AND new.IstNSchlVon = ''; "
      "END");
  EXPECT_TRUE(save());
}

TEST_F(ReadBackTest, OfSeveralRowsOfOneRangeTheLastCounts) {
  range(alleBenutzer, 2, "RE", 1, false);
  range(alleBenutzer, 2, "RE", 31, false);
  EXPECT_TRUE(save());
  const Texts ranges = storedRanges();
  EXPECT_EQ(std::ranges::count(ranges, "2|RE|Belegart RE|31|36|40|0|10||NN"), 1);
}

}  // namespace
}  // namespace vexnumkr
