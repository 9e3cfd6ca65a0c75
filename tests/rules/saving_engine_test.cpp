// Saves that the database engine itself cannot complete: whatever it fails on, and whether it has
// rolled back by then or not, everything is as before, and once the cause is gone the save works.
#include "rules/saving_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;
using test::Texts;

class SavingEngineTest : public test::EditedCompany {
 protected:
  /// Runs a statement on the connection that saves, outside of its transaction and unrecorded.
  void onHostConnection(const std::string& text) {
    Connection& connection = test::realConnection(*hostConnection());
    std::int32_t affected = 0;
    connection.RollbackTrans();
    connection.Execute(text, affected);
    connection.BeginTrans();
  }
  /// `failed` begins the last statement before the roll-back; "" where none was sent.
  void failsToSave(std::int32_t number, const std::string& description, const std::string& failed) {
    table().sort(RowOrder::display);
    const Texts values = rows();
    EXPECT_FALSE(save());
    EXPECT_EQ(boxes(), std::vector{errorBox(number, "basAllgemein", "Save", description)});
    const Texts statements = sent();
    ASSERT_GE(statements.size(), failed.empty() ? 2U : 3U);
    const auto fromEnd = [&](std::size_t n) { return statements[statements.size() - n]; };
    if (failed.empty()) {
      EXPECT_EQ(statements.size(), 2U);
    } else {
      EXPECT_EQ(fromEnd(3).find("conn: " + failed), 0U) << fromEnd(3);
      EXPECT_TRUE(fromEnd(3).ends_with(" !failed")) << fromEnd(3);
    }
    EXPECT_EQ(fromEnd(2), "conn: ROLLBACK");
    EXPECT_EQ(fromEnd(1), "conn: BEGIN");
    EXPECT_EQ(stored(), before_);
    EXPECT_EQ(rows(), values);
    EXPECT_TRUE(session().blnChanged());
  }
  void saves() {
    EXPECT_TRUE(save());
    EXPECT_EQ(sent().back(), "conn: COMMIT");
    EXPECT_EQ(storedRanges().size(), 8U);
    EXPECT_EQ(storedAssignments().size(), 8U);
  }
};

TEST_F(SavingEngineTest, AFullDatabase) {
  change(3, [this](RangeRow& row) { row.NBezeichnung = table().text(std::string(200'000, 'x')); });
  onHostConnection("PRAGMA max_page_count = 1");  // no more than there are
  failsToSave(13, "database or disk is full", "UPDATE Nummernkreise SET");
  onHostConnection("PRAGMA max_page_count = 100000");
  saves();
}

TEST_F(SavingEngineTest, AnEngineThatRollsBackByItself) {
  sql("CREATE TRIGGER t BEFORE INSERT ON Nummernkreise WHEN new.NSchl = 'SO' "
      "BEGIN SELECT RAISE(ROLLBACK, 'nicht heute'); END");
  failsToSave(1811, "nicht heute", "UPDATE Nummernkreise SET");
  sql("DROP TRIGGER t");
  saves();
}

TEST_F(SavingEngineTest, ADatabaseThatMayOnlyBeRead) {
  onHostConnection("PRAGMA query_only = ON");
  failsToSave(8, "attempt to write a readonly database", "");  // the lock is refused
  onHostConnection("PRAGMA query_only = OFF");
  saves();
}

TEST_F(SavingEngineTest, AConditionThatTheCommitChecks) {
  sql("CREATE TABLE Belege (Buchungskreis INTEGER, NSchl VARCHAR(10), FOREIGN KEY (Buchungskreis, "
      "NSchl) REFERENCES Nummernkreise DEFERRABLE INITIALLY DEFERRED)");
  sql("INSERT INTO Belege VALUES (9, 'XX')");
  failsToSave(787, "FOREIGN KEY constraint failed", "COMMIT");
  sql("DELETE FROM Belege");
  saves();
}

TEST_F(SavingEngineTest, ATableThatIsGone) {
  sql("ALTER TABLE Nummernkreis_Zuordnung RENAME TO Weg");
  table().sort(RowOrder::display);
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes(), std::vector{errorBox(1, "basAllgemein", "Save",
                                          "no such table: Nummernkreis_Zuordnung")});
  sql("ALTER TABLE Weg RENAME TO Nummernkreis_Zuordnung");
  EXPECT_EQ(stored(), before_);
  sent();
  saves();
}

}  // namespace
}  // namespace vexnumkr
