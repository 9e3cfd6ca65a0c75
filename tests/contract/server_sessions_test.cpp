// What servers do otherwise than an embedded engine, and users must not notice.
#include <QSqlQuery>

#include "contract/engine_session.h"

namespace vexnumkr::test {

using ServerSessions = EngineSessions;

TEST_F(ServerSessions, BothConnectionsAreSerializable) {
  const auto work = openWorking();
  conn->IsolationLevel(ado::isolated);
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  const char* const ofWork = isPostgresql()
                                 ? "SELECT upper(current_setting('transaction_isolation')) AS X"
                                 : "SELECT @@SESSION.tx_isolation AS X";
  const char* const ofTransaction =
      isPostgresql() ? ofWork
                     : "SELECT trx_isolation_level AS X FROM information_schema.innodb_trx "
                       "WHERE trx_mysql_thread_id = CONNECTION_ID()";
  EXPECT_EQ(test::rows(*work, ofWork, {"X"}), Texts{"'SERIALIZABLE'"});
  EXPECT_EQ(test::rows(*conn, ofTransaction, {"X"}), Texts{"'SERIALIZABLE'"});
  conn->RollbackTrans();
}

TEST_F(ServerSessions, ATransactionOfRepeatableReadsSeesWhatWasStoredAtOneMoment) {
  run("INSERT INTO Kreise VALUES (1, 'alt', 0)");
  run("CREATE TABLE Weitere (Nr INTEGER)");
  const HostsDatabase host(database);
  for (const auto& connection : {conn, borrowQtSqlConnection(host.get())}) {
    connection->IsolationLevel(ado::repeatableRead);
    connection->BeginTrans();
    EXPECT_EQ(test::rows(*connection, "SELECT Text FROM Kreise", {"Text"}), Texts{"'alt'"});
    const auto other = open();
    test::run(*other, "UPDATE Kreise SET Text = 'neu'");
    test::run(*other, "INSERT INTO Weitere VALUES (1)");
    EXPECT_EQ(test::rows(*connection, "SELECT Nr FROM Weitere", {"Nr"}), Texts{});
    EXPECT_NE(errorOf(*connection, "DELETE FROM Weitere").number(), 0) << "it only reads";
    EXPECT_EQ(test::rows(*connection, "SELECT Text FROM Kreise", {"Text"}), Texts{"'alt'"});
    connection->CommitTrans();
    EXPECT_EQ(test::rows(*connection, "SELECT Text FROM Kreise", {"Text"}), Texts{"'neu'"});
    test::run(*other, "DELETE FROM Weitere");
    test::run(*other, "UPDATE Kreise SET Text = 'alt'");
  }
}

TEST_F(ServerSessions, WhoHasChangedSomethingSeesUnderTheLockWhatIsStoredByThen) {
  run("INSERT INTO Kreise VALUES (1, 'alt', 0)");
  conn->IsolationLevel(ado::isolated);
  conn->RequireTransactions({"Kreise"});
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (2, 'mein', 0)");
  const auto other = open();
  test::run(*other, "UPDATE Kreise SET Text = 'von anderen' WHERE Nr = 1");
  conn->LockTable("Kreise");
  EXPECT_EQ(test::rows(*conn, "SELECT Text FROM Kreise ORDER BY Nr", {"Text"}),
            (Texts{"'von anderen'", "'mein'"}));
  EXPECT_EQ(run("UPDATE Kreise SET Wahr = -1"), 2);
  conn->CommitTrans();
  EXPECT_EQ(test::rows(*other, "SELECT Wahr FROM Kreise", {"Wahr"}), (Texts{"-1", "-1"}));
}

TEST_F(ServerSessions, AfterALockThatCouldNotBeHadNothingGoesOnBeforeTheRollBack) {
  const auto other = open();
  other->BeginTrans();
  test::run(*other, "INSERT INTO Kreise VALUES (2, 'fremd', 0)");
  run(isPostgresql() ? "SET lock_timeout = '1s'" : "SET SESSION innodb_lock_wait_timeout = 1");
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (1, 'mein', 0)");
  const Error locked = errorOf(*conn, "INSERT INTO Kreise VALUES (2, 'mein', 0)");
  EXPECT_NE(locked.number(), 0);
  other->RollbackTrans();
  EXPECT_EQ(errorOf(*conn, "UPDATE Kreise SET Text = 'mein' WHERE Nr = 2").description(),
            locked.description());
  EXPECT_EQ(errorOf([&] { conn->CommitTrans(); }).description(), locked.description());
  conn->RollbackTrans();
  EXPECT_EQ(stored(), Texts{});
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (2, 'mein', 0)");
  conn->CommitTrans();
  EXPECT_EQ(stored(), Texts{"'mein'"});
}

TEST_F(ServerSessions, AfterATextThatDoesNotFitNothingGoesOnBeforeTheRollBack) {
  conn->BeginTrans();
  const Error tooLong =
      errorOf(*conn, "INSERT INTO Kreise VALUES (2, '" + std::string(101, 'x') + "', 0)");
  EXPECT_NE(tooLong.number(), 0);
  EXPECT_EQ(errorOf(*conn, "UPDATE Kreise SET Wahr = 0 WHERE Nr = 2").description(),
            tooLong.description());
  conn->RollbackTrans();
  EXPECT_EQ(run("INSERT INTO Kreise VALUES (2, 'kurz', 0)"), 1);
}

TEST_F(ServerSessions, AConnectionThatGoesRollsBackWhatAFailureHasEnded) {
  const HostsDatabase host(database);
  {
    const auto borrowed = borrowQtSqlConnection(host.get());
    borrowed->BeginTrans();
    test::run(*borrowed, "INSERT INTO Kreise VALUES (1, 'mein', 0)");
    test::run(*borrowed, isPostgresql() ? "SELECT 1" : "SET sql_mode = 'STRICT_TRANS_TABLES'");
    EXPECT_NE(
        errorOf(*borrowed, "INSERT INTO Kreise VALUES (2, '" + std::string(101, 'x') + "', 0)")
            .number(),
        0);
  }
  QSqlQuery own(host.get());
  ASSERT_TRUE(own.exec(QStringLiteral("INSERT INTO Kreise VALUES (3, 'Wirt', 0)")));
  EXPECT_EQ(stored(), Texts{"'Wirt'"});
}

TEST_F(ServerSessions, AConnectionThatWasEndedComesBackButNotItsTransaction) {
  const auto end = [&] {
    const std::string id = shown(value(
        *conn, isPostgresql() ? "SELECT pg_backend_pid() AS X" : "SELECT CONNECTION_ID() AS X"));
    database.administer(isPostgresql() ? "SELECT pg_terminate_backend(" + id + ", 5000)"
                                       : "KILL " + id);
  };
  end();
  EXPECT_NE(errorOf(*conn, "SELECT * FROM Kreise").number(), 0) << "nobody knows what it has done";
  EXPECT_EQ(run("INSERT INTO Kreise VALUES (1, 'a', 0)"), 1);

  end();
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (2, 'b', 0)");
  end();
  const Error lost = errorOf(*conn, "INSERT INTO Kreise VALUES (3, 'c', 0)");
  EXPECT_NE(lost.number(), 0);
  EXPECT_EQ(errorOf(*conn, "INSERT INTO Kreise VALUES (4, 'd', 0)").description(),
            lost.description());
  EXPECT_EQ(errorOf([&] { conn->CommitTrans(); }).description(), lost.description());
  EXPECT_NO_THROW(conn->RollbackTrans());
  EXPECT_EQ(stored(), Texts{"'a'"});
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (5, 'e', 0)");
  conn->CommitTrans();
  EXPECT_EQ(stored(), (Texts{"'a'", "'e'"}));
}

TEST_F(ServerSessions, ACommitOverALostConnectionFails) {
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  const std::string id = shown(value(
      *conn, isPostgresql() ? "SELECT pg_backend_pid() AS X" : "SELECT CONNECTION_ID() AS X"));
  database.administer(isPostgresql() ? "SELECT pg_terminate_backend(" + id + ", 5000)"
                                     : "KILL " + id);
  EXPECT_NE(errorOf([&] { conn->CommitTrans(); }).number(), 0);
  EXPECT_NO_THROW(conn->RollbackTrans());
  EXPECT_EQ(stored(), Texts{});
}

TEST_F(ServerSessions, AWrongPasswordIsNotTold) {
  const Error error = errorOf(
      [&] { openQtSqlConnection(database.connectionString("kennwort", "Geheim;\"4711\"")); });
  EXPECT_NE(error.number(), 0);
  EXPECT_EQ(error.description().find("4711"), std::string::npos) << error.description();
}

TEST_F(ServerSessions, AStatementTakesNoLongerThanItMay) {
  const auto work = openWorking();
  const char* const slow = isPostgresql() ? "SELECT pg_sleep(30) AS X" : "SELECT SLEEP(30) AS X";
  work->CommandTimeout(1);
  const Error tooLong = errorOf(*work, slow);
  EXPECT_NE(tooLong.number(), 0);
  EXPECT_EQ(test::rows(*work, "SELECT COUNT(*) AS X FROM Kreise", {"X"}), Texts{"0"});
}

TEST_F(ServerSessions, ALockIsWaitedForNoLongerThanAStatementMayTake) {
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  conn->BeginTrans();
  run("UPDATE Kreise SET Text = 'mein'");
  const auto other = conn->createConnection();
  other->CommandTimeout(1);
  other->ConnectionString(conn->ConnectionString());
  other->Open("", "", ado::unspecified);
  EXPECT_NE(errorOf(*other, "UPDATE Kreise SET Text = 'fremd'").number(), 0);
  conn->CommitTrans();
  other->CommandTimeout(0);
  EXPECT_EQ(test::run(*other, "UPDATE Kreise SET Text = 'fremd'"), 1);
}

TEST_F(ServerSessions, ASelectThatLocksRowsDoesSoInTheTransaction) {
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  conn->BeginTrans();
  EXPECT_EQ(run("SELECT * FROM Kreise WHERE Nr = 1 FOR UPDATE"), 1);
  const auto other = open();
  other->CommandTimeout(1);
  EXPECT_NE(errorOf(*other, "UPDATE Kreise SET Text = 'fremd'").number(), 0);
  conn->RollbackTrans();
  EXPECT_EQ(test::run(*other, "UPDATE Kreise SET Text = 'fremd'"), 1);
}

TEST_F(ServerSessions, WhoIsGoingToWriteKeepsOthersFromIt) {
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  conn->IsolationLevel(ado::isolated);
  conn->BeginTrans();
  conn->LockTable("Kreise");
  const auto other = open();
  other->CommandTimeout(1);
  EXPECT_NE(errorOf(*other, "UPDATE Kreise SET Text = 'fremd'").number(), 0);
  EXPECT_EQ(test::rows(*other, "SELECT Text FROM Kreise", {"Text"}), Texts{"'a'"});
  run("DELETE FROM Kreise");
  conn->CommitTrans();
  EXPECT_EQ(stored(), Texts{});
}

}  // namespace vexnumkr::test
