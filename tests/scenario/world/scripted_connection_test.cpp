#include "support/faults/scripted_connection.h"

#include <gtest/gtest.h>

#include <vexnumkr/adapters.h>
#include <vexnumkr/error.h>

#include "scenario/world/database.h"
#include "scenario/world/temporary_folder.h"

namespace vexnumkr::test {
namespace {

using Entries = std::vector<std::string>;

class ScriptedConnectionTest : public ::testing::Test {
 protected:
  ScriptedConnectionTest() {
    scenario::ScenarioDatabase(text_).createTables();
    host_ = scriptedConnection(openQtSqlConnection(text_), script_);
    execute("INSERT INTO Nummernkreis_Sonderkreise VALUES ('A', 'RE', 'Erster', 0, 'ORB')");
    execute("INSERT INTO Nummernkreis_Sonderkreise VALUES ('B', 'RE', 'Zweiter', 0, 'ORB')");
    script_.takeStatements();
  }

  void execute(const std::string& statement) {
    std::int32_t affected = 0;
    host_->Execute(statement, affected);
  }

  std::unique_ptr<Recordset> openRecords() {
    auto records = host_->createRecordset();
    records->CursorLocation(ado::useClient);
    records->Open(select_, *host_, ado::openKeyset, ado::lockOptimistic, ado::unspecified);
    return records;
  }

  std::unique_ptr<Connection> openWorkingConnection() {
    auto connection = host_->createConnection();
    connection->ConnectionString(host_->ConnectionString());
    connection->Open("", "", ado::unspecified);
    return connection;
  }

  template <class Operation>
  void expectDeliberate(Operation operation) {
    try {
      operation();
      FAIL() << "nothing failed";
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 4711);
      EXPECT_EQ(error.description(), "Absichtlicher Fehler");
    }
  }

  const std::string select_ = "SELECT U_NSchl, Aktiviert FROM Nummernkreis_Sonderkreise";
  scenario::TemporaryFolder folder_;
  const std::string text_ = "Driver=QSQLITE;Database=" + folder_.path() + "/x.db";
  ConnectionScript script_;
  std::shared_ptr<Connection> host_;
};

TEST_F(ScriptedConnectionTest, RecordsStatementsOfBothConnectionsInOrder) {
  std::int32_t affected = 0;
  const auto work = openWorkingConnection();
  work->Execute("SELECT 1 AS Eins", affected);
  const auto command = host_->createCommand();
  command->ActiveConnection(*host_);
  command->CommandText("SELECT 2 AS Zwei");
  EXPECT_EQ(command->Execute(affected)->Fields("Zwei"), Value(2));
  openRecords();
  const auto onWork = work->createRecordset();
  onWork->Open("SELECT 3 AS Drei", *work, ado::openForwardOnly, ado::lockReadOnly,
               ado::unspecified);
  EXPECT_EQ(script_.takeStatements(), (Entries{"work: SELECT 1 AS Eins", "conn: SELECT 2 AS Zwei",
                                               "conn: " + select_, "work: SELECT 3 AS Drei"}));
  EXPECT_TRUE(script_.takeStatements().empty());
}

TEST_F(ScriptedConnectionTest, RecordsTransactions) {
  host_->BeginTrans();
  EXPECT_THROW(host_->BeginTrans(), Error);
  host_->CommitTrans();
  host_->BeginTrans();
  host_->RollbackTrans();
  EXPECT_THROW(host_->RollbackTrans(), Error);
  EXPECT_EQ(script_.takeStatements(),
            (Entries{"conn: BEGIN", "conn: BEGIN !failed", "conn: COMMIT", "conn: BEGIN",
                     "conn: ROLLBACK", "conn: ROLLBACK !failed"}));
}

TEST_F(ScriptedConnectionTest, RecordsUpdatesByTheirPlace) {
  const auto records = openRecords();
  records->MoveNext();
  records->Fields("Aktiviert", true);
  records->Update();
  records->MoveFirst();
  records->Fields("Aktiviert", false);
  records->Update();
  EXPECT_EQ(script_.takeStatements(),
            (Entries{"conn: " + select_, "conn: UPDATE RECORD 1 Aktiviert=True",
                     "conn: UPDATE RECORD 0 Aktiviert=False"}));
}

TEST_F(ScriptedConnectionTest, MarksWhatTheEngineRefuses) {
  EXPECT_THROW(execute("SELECT nonsense FROM nowhere"), Error);
  EXPECT_EQ(script_.takeStatements(), (Entries{"conn: SELECT nonsense FROM nowhere !failed"}));
}

TEST_F(ScriptedConnectionTest, FailsTheNthStatementOnceWithoutSendingIt) {
  script_.failStatement(2);
  execute("UPDATE Nummernkreis_Sonderkreise SET NSchl='X' WHERE U_NSchl='A'");
  expectDeliberate([&] { execute("DELETE FROM Nummernkreis_Sonderkreise"); });
  const auto records = openRecords();
  EXPECT_FALSE(records->EndOfFile());
  EXPECT_EQ(script_.takeStatements(),
            (Entries{"conn: UPDATE Nummernkreis_Sonderkreise SET NSchl='X' WHERE U_NSchl='A'",
                     "conn: DELETE FROM Nummernkreis_Sonderkreise !failed", "conn: " + select_}));
}

TEST_F(ScriptedConnectionTest, CountsUpdatesAndBothConnectionsButNoTransactions) {
  std::int32_t affected = 0;
  const auto work = openWorkingConnection();
  script_.failStatement(3);
  work->Execute("SELECT 1 AS Eins", affected);
  const auto records = openRecords();
  host_->BeginTrans();
  records->Fields("Aktiviert", true);
  expectDeliberate([&] { records->Update(); });
  host_->RollbackTrans();
  EXPECT_EQ(script_.takeStatements(),
            (Entries{"work: SELECT 1 AS Eins", "conn: " + select_, "conn: BEGIN",
                     "conn: UPDATE RECORD 0 Aktiviert=True !failed", "conn: ROLLBACK"}));
}

TEST_F(ScriptedConnectionTest, ALaterOrderReplacesAnEarlierOne) {
  script_.failStatement(1);
  script_.failStatement(2);
  EXPECT_NO_THROW(execute("SELECT 1 AS Eins"));
  expectDeliberate([&] { execute("SELECT 1 AS Eins"); });
}

TEST_F(ScriptedConnectionTest, FailsOneCommitAndLeavesTheTransactionOpen) {
  script_.failCommit();
  host_->BeginTrans();
  execute("DELETE FROM Nummernkreis_Sonderkreise");
  expectDeliberate([&] { host_->CommitTrans(); });
  host_->RollbackTrans();
  EXPECT_FALSE(openRecords()->EndOfFile());
  host_->BeginTrans();
  EXPECT_NO_THROW(host_->CommitTrans());
}

TEST_F(ScriptedConnectionTest, FailsEveryOpeningOfAWorkingConnection) {
  script_.failConnect();
  expectDeliberate([&] { openWorkingConnection(); });
  expectDeliberate([&] { openWorkingConnection(); });
  EXPECT_TRUE(script_.takeStatements().empty());
}

TEST_F(ScriptedConnectionTest, LetsTheRealConnectionWorkUnseen) {
  script_.failStatement(1);
  std::int32_t affected = 0;
  EXPECT_NO_THROW(realConnection(*host_).Execute("SELECT 1 AS Eins", affected));
  EXPECT_TRUE(script_.takeStatements().empty());
  const auto plain = openQtSqlConnection(text_);
  EXPECT_EQ(&realConnection(*plain), plain.get());
}

TEST_F(ScriptedConnectionTest, RefusesConnectionsThatAreNotScripted) {
  const auto plain = openQtSqlConnection(text_);
  EXPECT_THROW(host_->createCommand()->ActiveConnection(*plain), Error);
  EXPECT_THROW(host_->createRecordset()->Open(select_, *plain, ado::openForwardOnly,
                                              ado::lockReadOnly, ado::unspecified),
               Error);
}

}  // namespace
}  // namespace vexnumkr::test
