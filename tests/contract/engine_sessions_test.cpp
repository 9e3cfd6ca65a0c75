// What servers do otherwise than an embedded engine, and users must not notice; on every engine.
#include <QSqlQuery>
#include <algorithm>
#include <atomic>
#include <future>
#include <thread>

#include <vexnumkr/adapters.h>
#include <vexnumkr/connection_string.h>

#include "adapters/qtsql/session/database_handle.h"
#include "contract/database_language.h"
#include "support/fresh_database.h"

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;

class EngineSessions : public ::testing::Test {
 protected:
  EngineSessions() : conn(open()) {
    run("CREATE TABLE Kreise (Nr INTEGER NOT NULL, Text VARCHAR(100), Wahr SMALLINT, "
        "PRIMARY KEY (Nr))");
  }

  std::shared_ptr<Connection> open() { return openQtSqlConnection(database.connectionString()); }
  /// The working connection as the component opens it.
  std::unique_ptr<Connection> openWorking() {
    auto work = conn->createConnection();
    work->ConnectionString(conn->ConnectionString());
    work->IsolationLevel(ado::isolated);
    work->Open("", "", ado::unspecified);
    return work;
  }
  std::int32_t run(const std::string& text) { return test::run(*conn, text); }
  bool is(const std::string& engine) const { return database.engine() == engine; }
  bool isPostgresql() const { return database.engine().ends_with("postgresql"); }
  bool isSqlite() const { return database.engine().ends_with("sqlite"); }
  Texts stored() {
    return test::rows(*open(), "SELECT Nr, Text FROM Kreise ORDER BY Nr", {"Text"});
  }

  FreshDatabase database;
  std::shared_ptr<Connection> conn;
};

std::unique_ptr<Recordset> openWritable(Connection& connection, const std::string& select) {
  auto recordset = connection.createRecordset();
  recordset->CursorLocation(ado::useClient);
  recordset->Open(select, connection, ado::openKeyset, ado::lockOptimistic, ado::unspecified);
  return recordset;
}

}  // namespace

TEST_F(EngineSessions, TheWorkingConnectionNeverWaitsForTheDialogsTransaction) {
  run("INSERT INTO Kreise VALUES (1, 'alt', 0)");
  const auto work = openWorking();
  conn->IsolationLevel(ado::isolated);
  conn->BeginTrans();
  run("SELECT * FROM Kreise");
  run("INSERT INTO Kreise VALUES (2, 'neu', 0)");
  run("UPDATE Kreise SET Text = 'anders' WHERE Nr = 1");
  EXPECT_EQ(test::rows(*work, "SELECT COUNT(*) AS X FROM Kreise WHERE Nr = 2", {"X"}), Texts{"0"});
  EXPECT_EQ(test::rows(*work, "SELECT Text FROM Kreise WHERE Nr = 1", {"Text"}), Texts{"'alt'"});
  conn->CommitTrans();
  EXPECT_EQ(test::rows(*work, "SELECT COUNT(*) AS X FROM Kreise", {"X"}), Texts{"2"});
}

TEST_F(EngineSessions, BothConnectionsAreSerializable) {
  if (isSqlite()) GTEST_SKIP() << "there is no other isolation";
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

TEST_F(EngineSessions, AFailureOfEveryKindLeavesTheTransactionInPlace) {
  conn->IsolationLevel(ado::isolated);
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (1, 'eins', 0)");
  for (const char* const text :
       {"INSERT INTO Kreise VALUES (1, 'doppelt', 0)", "INSERT INTO Kreise VALUES (2, 'offen",
        "SELECT * FROM Nirgends", "UPDATE Kreise SET", "UPDATE Nirgends SET Nr = 1"}) {
    EXPECT_NE(errorOf(*conn, text).number(), 0) << text;
    EXPECT_EQ(run("UPDATE Kreise SET Wahr = -1 WHERE Nr = 1"), 1) << text;
  }
  run("INSERT INTO Kreise VALUES (3, 'drei', 0)");
  EXPECT_NE(errorOf(*conn, "INSERT INTO Kreise VALUES (3, 'drei', 0)").number(), 0);
  conn->CommitTrans();
  EXPECT_EQ(stored(), (Texts{"'eins'", "'drei'"}));
}

TEST_F(EngineSessions, BackslashesAreOrdinaryCharacters) {
  EXPECT_FALSE(conn->BackslashEscapes());
  for (const std::string text : {"\\", "a\\", "\\n", "\\\\", "a\\''b"}) {
    run("DELETE FROM Kreise");
    run("INSERT INTO Kreise VALUES (1, '" + text + "', 0)");
    EXPECT_EQ(run("SELECT * FROM Kreise WHERE Text = '" + text + "'"), 1) << text;
  }
  EXPECT_EQ(stored(), Texts{"'a\\'b'"});
}

TEST_F(EngineSessions, ABorrowedDatabaseKeepsItsModeAndIsReadByIt) {
  if (!is("mariadb")) GTEST_SKIP() << "only MariaDB has such modes by default";
  const auto settings = parseConnectionString(database.connectionString());
  const qtsql::DatabaseHandle host(qtsql::driverOf(settings.driver), settings);
  const auto borrowed = borrowQtSqlConnection(host.get());
  EXPECT_TRUE(borrowed->BackslashEscapes());
  test::run(*borrowed, "INSERT INTO Kreise VALUES (1, 'x\\'; DELETE FROM Kreise; -- ', 0)");
  EXPECT_EQ(stored(), Texts{"'x'; DELETE FROM Kreise; -- '"});
  EXPECT_EQ(errorOf(*borrowed, "DELETE FROM Kreise WHERE Text = 'x\\\\'; DELETE FROM Kreise; -- '")
                .number(),
            3001);
  test::run(*borrowed, "SET sql_mode = 'NO_BACKSLASH_ESCAPES'");
  EXPECT_FALSE(borrowed->BackslashEscapes());
  EXPECT_EQ(stored().size(), 1U);
}

TEST_F(EngineSessions, WhatAHostChangesInItsModeHoldsFromTheNextTransaction) {
  if (!is("mariadb")) GTEST_SKIP() << "only MariaDB has such modes by default";
  const auto settings = parseConnectionString(database.connectionString());
  const qtsql::DatabaseHandle host(qtsql::driverOf(settings.driver), settings);
  const auto borrowed = borrowQtSqlConnection(host.get());
  QSqlQuery own(host.get());
  for (const bool escapes : {false, true}) {
    ASSERT_TRUE(own.exec(escapes ? QStringLiteral("SET sql_mode = ''")
                                 : QStringLiteral("SET sql_mode = 'NO_BACKSLASH_ESCAPES'")));
    borrowed->BeginTrans();
    EXPECT_EQ(borrowed->BackslashEscapes(), escapes);
    borrowed->RollbackTrans();
  }
}

TEST_F(EngineSessions, ARollBackTakesTheModeBackToo) {
  if (!is("postgresql")) GTEST_SKIP() << "elsewhere modes are no part of a transaction";
  conn->BeginTrans();
  run("SET standard_conforming_strings = off");
  EXPECT_TRUE(conn->BackslashEscapes());
  conn->RollbackTrans();
  EXPECT_FALSE(conn->BackslashEscapes());
}

TEST_F(EngineSessions, EncodingsInWhichBackslashesHideAreRefused) {
  if (!is("mariadb")) GTEST_SKIP() << "only MariaDB's clients have such encodings";
  const auto settings = parseConnectionString(database.connectionString());
  const qtsql::DatabaseHandle host(qtsql::driverOf(settings.driver), settings);
  const auto borrowed = borrowQtSqlConnection(host.get());
  QSqlQuery own(host.get());
  for (const char* const encoding : {"gbk", "big5", "sjis", "cp932"}) {
    ASSERT_TRUE(own.exec(QStringLiteral("SET NAMES ") + QLatin1String(encoding)));
    EXPECT_EQ(errorOf([&] { borrowed->BeginTrans(); }).number(), 3706);
    EXPECT_EQ(errorOf(*borrowed, "DELETE FROM Kreise").number(), 3706) << "until it is known";
    ASSERT_TRUE(own.exec(QStringLiteral("SET sql_mode = 'NO_BACKSLASH_ESCAPES'")));
    EXPECT_NO_THROW(borrowed->BeginTrans());
    borrowed->RollbackTrans();
    ASSERT_TRUE(own.exec(QStringLiteral("SET sql_mode = ''")));
  }
  ASSERT_TRUE(own.exec(QStringLiteral("SET NAMES utf8mb4")));
  EXPECT_NO_THROW(borrowed->BeginTrans());
  borrowed->RollbackTrans();
}

// The server has another mode by the time that the connection is opened again.
TEST_F(EngineSessions, AStatementIsReadByTheRulesOfTheConnectionThatItIsSentOn) {
  if (!is("postgresql")) GTEST_SKIP() << "one server will do";
  run("SET standard_conforming_strings = off");
  EXPECT_TRUE(conn->BackslashEscapes());
  const std::string id = shown(value(*conn, "SELECT pg_backend_pid() AS X"));
  database.administer("SELECT pg_terminate_backend(" + id + ", 5000)");
  EXPECT_NE(errorOf(*conn, "SELECT * FROM Kreise").number(), 0);
  // With backslashes that escape, this were one statement.
  EXPECT_EQ(errorOf(*conn, "SELECT 'x\\'; DELETE FROM Kreise; -- '").number(), 3001);
  EXPECT_FALSE(conn->BackslashEscapes());
}

TEST_F(EngineSessions, UpdateFindsItsRecordByAnyUniqueKeyAndSaysSoWhereThereIsNone) {
  run("CREATE TABLE Eindeutig (A INTEGER NOT NULL, B INTEGER, Wahr SMALLINT, UNIQUE (A))");
  run("CREATE TABLE Mehrdeutig (A INTEGER, Wahr SMALLINT, UNIQUE (A))");
  for (const char* const table : {"Eindeutig", "Mehrdeutig"})
    for (const char* const a : {"1", "2"})
      run("INSERT INTO " + std::string(table) + " (A, Wahr) VALUES (" + a + ", 0)");
  const auto records = openWritable(*conn, "SELECT Wahr FROM Eindeutig ORDER BY A DESC");
  records->Fields("Wahr", true);
  records->Update();
  EXPECT_EQ(test::rows(*conn, "SELECT Wahr FROM Eindeutig ORDER BY A", {"Wahr"}),
            (Texts{"0", "-1"}));
  if (isSqlite()) return;  // There every record has a number.
  const auto ambiguous = openWritable(*conn, "SELECT Wahr FROM Mehrdeutig");
  ambiguous->Fields("Wahr", true);
  const Error error = errorOf([&] { ambiguous->Update(); });
  EXPECT_EQ(error.number(), 3251);
  EXPECT_EQ(error.description(),
            "Der Datensatz hat keinen eindeutigen Schlüssel und kann nicht geändert werden.");
}

TEST_F(EngineSessions, UpdateToTheSameValueIsNoFailure) {
  run("INSERT INTO Kreise VALUES (1, 'a', -1)");
  const auto settings = parseConnectionString(database.connectionString());
  const qtsql::DatabaseHandle host(qtsql::driverOf(settings.driver), settings);
  for (const auto& connection : {conn, borrowQtSqlConnection(host.get())}) {
    const auto records = openWritable(*connection, "SELECT Wahr FROM Kreise");
    for (int i = 0; i < 2; ++i) {
      records->Fields("Wahr", true);
      records->Update();
    }
  }
  EXPECT_EQ(test::rows(*conn, "SELECT Wahr FROM Kreise", {"Wahr"}), Texts{"-1"});
}

TEST_F(EngineSessions, AHostsOwnTransactionIsNotTakenOver) {
  const auto settings = parseConnectionString(database.connectionString());
  const qtsql::DatabaseHandle host(qtsql::driverOf(settings.driver), settings);
  const auto borrowed = borrowQtSqlConnection(host.get());
  QSqlQuery own(host.get());
  ASSERT_TRUE(own.exec(QStringLiteral("BEGIN")));
  ASSERT_TRUE(own.exec(QStringLiteral("INSERT INTO Kreise VALUES (1, 'Wirt', 0)")));
  EXPECT_NE(errorOf([&] { borrowed->BeginTrans(); }).number(), 0);
  ASSERT_TRUE(own.exec(QStringLiteral("ROLLBACK")));
  EXPECT_EQ(stored(), Texts{});
  borrowed->BeginTrans();
  borrowed->RollbackTrans();
}

TEST_F(EngineSessions, AWriteConflictIsReportedAndTheNextAttemptWorks) {
  if (!isPostgresql()) GTEST_SKIP() << "others wait for the lock";
  run("INSERT INTO Kreise VALUES (1, 'alt', 0)");
  conn->IsolationLevel(ado::isolated);
  conn->BeginTrans();
  EXPECT_EQ(run("SELECT * FROM Kreise"), 1);
  const auto other = open();
  test::run(*other, "UPDATE Kreise SET Text = 'von anderen'");
  const Error conflict = errorOf(*conn, "UPDATE Kreise SET Text = 'von mir'");
  EXPECT_NE(conflict.description().find("could not serialize access"), std::string::npos);
  if (is("postgresql")) {
    EXPECT_EQ(conflict.number(), 40001);
  }
  conn->RollbackTrans();
  conn->BeginTrans();
  EXPECT_EQ(run("UPDATE Kreise SET Text = 'von mir'"), 1);
  conn->CommitTrans();
  EXPECT_EQ(stored(), Texts{"'von mir'"});
}

TEST_F(EngineSessions, AConflictThatShowsAtTheCommitIsReportedAndTheNextAttemptWorks) {
  if (!isPostgresql()) GTEST_SKIP() << "others find conflicts by their locks";
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  const auto other = open();
  for (const auto& connection : {conn, other}) {
    connection->IsolationLevel(ado::isolated);
    connection->BeginTrans();
    EXPECT_EQ(test::run(*connection, "SELECT * FROM Kreise"), 1);
  }
  run("INSERT INTO Kreise VALUES (2, 'b', 0)");
  test::run(*other, "INSERT INTO Kreise VALUES (3, 'c', 0)");
  other->CommitTrans();
  const Error conflict = errorOf([&] { conn->CommitTrans(); });
  EXPECT_NE(conflict.description().find("could not serialize access"), std::string::npos);
  EXPECT_EQ(errorOf(*conn, "DELETE FROM Kreise").description(), conflict.description());
  conn->RollbackTrans();
  EXPECT_EQ(stored(), (Texts{"'a'", "'c'"}));
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (2, 'b', 0)");
  conn->CommitTrans();
  EXPECT_EQ(stored(), (Texts{"'a'", "'b'", "'c'"}));
}

// The other transaction runs in a thread of its own, because each waits for the other.
TEST_F(EngineSessions, AfterADeadlockNothingIsCommittedByItself) {
  if (!is("mariadb")) GTEST_SKIP() << "a deadlock ends the transaction only there";
  run("INSERT INTO Kreise VALUES (1, 'a', 0), (2, 'b', 0), (3, 'c', 0), (4, 'd', 0)");
  conn->BeginTrans();
  run("UPDATE Kreise SET Text = 'mein' WHERE Nr = 1");
  std::promise<void> holdsSecond;
  std::thread thread([&] {
    const auto other = open();
    other->BeginTrans();
    test::run(*other, "UPDATE Kreise SET Text = 'anders' WHERE Nr >= 2");
    holdsSecond.set_value();
    test::run(*other, "UPDATE Kreise SET Text = 'anders' WHERE Nr = 1");
    other->CommitTrans();
  });
  holdsSecond.get_future().wait();
  const Error deadlock = errorOf(*conn, "UPDATE Kreise SET Text = 'mein' WHERE Nr = 2");
  EXPECT_EQ(deadlock.number(), 1213) << deadlock.description();
  EXPECT_EQ(errorOf(*conn, "INSERT INTO Kreise VALUES (5, 'e', 0)").number(), 1213);
  EXPECT_EQ(errorOf([&] { conn->CommitTrans(); }).number(), 1213);
  conn->RollbackTrans();
  thread.join();
  EXPECT_EQ(stored(), (Texts{"'anders'", "'anders'", "'anders'", "'anders'"}));
  conn->BeginTrans();
  run("UPDATE Kreise SET Text = 'mein' WHERE Nr = 1");
  conn->CommitTrans();
  EXPECT_EQ(stored().front(), "'mein'");
}

// The row is not there, so the update in place of the failed insert would find none and succeed.
TEST_F(EngineSessions, AfterALockThatCouldNotBeHadNothingGoesOnBeforeTheRollBack) {
  if (isSqlite()) GTEST_SKIP() << "there is one lock, which the first change takes";
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

TEST_F(EngineSessions, AfterATextThatDoesNotFitNothingGoesOnBeforeTheRollBack) {
  if (isSqlite()) GTEST_SKIP() << "every text fits";
  conn->BeginTrans();
  const Error tooLong =
      errorOf(*conn, "INSERT INTO Kreise VALUES (2, '" + std::string(101, 'x') + "', 0)");
  EXPECT_NE(tooLong.number(), 0);
  EXPECT_EQ(errorOf(*conn, "UPDATE Kreise SET Wahr = 0 WHERE Nr = 2").description(),
            tooLong.description());
  conn->RollbackTrans();
  EXPECT_EQ(run("INSERT INTO Kreise VALUES (2, 'kurz', 0)"), 1);
}

TEST_F(EngineSessions, AConnectionThatGoesRollsBackWhatAFailureHasEnded) {
  const auto settings = parseConnectionString(database.connectionString());
  const qtsql::DatabaseHandle host(qtsql::driverOf(settings.driver), settings);
  if (isSqlite()) GTEST_SKIP() << "every text fits";
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

TEST_F(EngineSessions, AConnectionThatWasEndedComesBackButNotItsTransaction) {
  if (isSqlite()) GTEST_SKIP() << "there is no server";
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

TEST_F(EngineSessions, ACommitOverALostConnectionFails) {
  if (isSqlite()) GTEST_SKIP() << "there is no server";
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

TEST_F(EngineSessions, AConnectionThatReconnectsByItselfIsRefused) {
  if (!is("mariadb")) GTEST_SKIP() << "only its client library does that";
  const Error error = errorOf(
      [&] { openQtSqlConnection(database.connectionString() + ";Options=MYSQL_OPT_RECONNECT=1"); });
  EXPECT_EQ(error.number(), 3706);
}

TEST_F(EngineSessions, AWrongPasswordIsNotTold) {
  if (isSqlite()) GTEST_SKIP() << "there are no passwords";
  const Error error = errorOf(
      [&] { openQtSqlConnection(database.connectionString("kennwort", "Geheim;\"4711\"")); });
  EXPECT_NE(error.number(), 0);
  EXPECT_EQ(error.description().find("4711"), std::string::npos) << error.description();
}

}  // namespace vexnumkr::test
