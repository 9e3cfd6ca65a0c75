// A save that does not get a lock in time: it says so and changes nothing, and the next one works.
#include <vexnumkr/adapters.h>

#include "rules/saving_session.h"

namespace vexnumkr {
namespace {

using test::Texts;

void execute(Connection& connection, const std::string& text) {
  std::int32_t affected = 0;
  connection.Execute(text, affected);
}

class SavingLockedTest : public test::SavingSession {
 protected:
  void SetUp() override {
    company();
    before = stored();
    editedTable();
    table().sort(RowOrder::display);
  }
  bool isServer() { return !database().engine().ends_with("sqlite"); }
  /// On the connection that saves, outside of its transaction and unrecorded.
  void waitOneSecondForLocks() {
    Connection& connection = test::realConnection(*hostConnection());
    connection.RollbackTrans();
    execute(connection, database().engine() == "mariadb"
                            ? "SET SESSION innodb_lock_wait_timeout = 1"
                            : "SET lock_timeout = '1s'");
    connection.BeginTrans();
  }

  Texts before;
};

// The insert waits for the other one, which may yet be rolled back. Were the update tried after
// that, it would find no row, and the commit would lose the range.
TEST_F(SavingLockedTest, ARangeThatSomebodyElseIsInserting) {
  if (!isServer()) GTEST_SKIP() << "there is one lock, which the first change takes";
  waitOneSecondForLocks();
  const auto other = openQtSqlConnection(connectionString());
  other->BeginTrans();
  execute(*other, "INSERT INTO Nummernkreise VALUES (2, 'RE', '', 1, 1, 9, 0, 1, '', '')");
  const Texts values = rows();
  EXPECT_FALSE(save());
  const auto raised = boxes();
  ASSERT_EQ(raised.size(), 1U);
  EXPECT_TRUE(raised.front().prompt.starts_with("basAllgemein\r\nSave: ")) << raised.front().prompt;
  other->RollbackTrans();
  EXPECT_EQ(stored(), before);
  EXPECT_EQ(rows(), values);
  EXPECT_TRUE(session().blnChanged());
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRanges().size(), 8U);
  EXPECT_EQ(storedAssignments().size(), 8U);
}

// Without a transaction nothing could be taken back: neither this attempt nor the next one writes.
TEST_F(SavingLockedTest, TablesWithoutTransactions) {
  if (database().engine() != "mariadb") GTEST_SKIP() << "every table has transactions here";
  session().rollBackTransaction();
  execute(test::realConnection(*hostConnection()), "ALTER TABLE Nummernkreise ENGINE=MyISAM");
  for (int attempts = 0; attempts < 3; ++attempts) {
    EXPECT_FALSE(save());
    const auto raised = boxes();
    EXPECT_FALSE(raised.empty());
    for (const test::Box& box : raised)
      EXPECT_NE(box.prompt.find("kennt keine Transaktionen"), std::string::npos) << box.prompt;
    EXPECT_EQ(stored(), before);
  }
  execute(test::realConnection(*hostConnection()), "ALTER TABLE Nummernkreise ENGINE=InnoDB");
  EXPECT_TRUE(save());
  EXPECT_NE(stored(), before);
}

// Nobody uses the range, so nothing else of the save has that key.
TEST_F(SavingLockedTest, AKeyThatIsTooLongForItsColumn) {
  if (!isServer()) GTEST_SKIP() << "every text fits";
  const auto setKey = [&](const std::string& key) {
    change(table().findCircle(2), [&](RangeRow& row) { row.NSchl = table().text(key); });
  };
  setKey(std::string(30, 'k'));
  EXPECT_FALSE(save());
  EXPECT_EQ(boxes().size(), 1U);
  EXPECT_EQ(stored(), before);
  setKey("RE");
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRanges().size(), 8U);
}

}  // namespace
}  // namespace vexnumkr
