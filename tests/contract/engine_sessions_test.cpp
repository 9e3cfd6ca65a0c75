// What is the same on every engine, however differently they do it.
#include <QSqlQuery>

#include "contract/engine_session.h"
#include "engines/engines.h"

namespace vexnumkr::test {

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
  const HostsDatabase host(database);
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
  const HostsDatabase host(database);
  const auto borrowed = borrowQtSqlConnection(host.get());
  QSqlQuery own(host.get());
  ASSERT_TRUE(own.exec(QStringLiteral("BEGIN")));
  ASSERT_TRUE(own.exec(QStringLiteral("INSERT INTO Kreise VALUES (1, 'Wirt', 0)")));
  EXPECT_NE(errorOf([&] { borrowed->BeginTrans(); }).number(), 0);
  for (const auto& end : {&Connection::RollbackTrans, &Connection::CommitTrans})
    EXPECT_EQ(errorOf([&] { (borrowed.get()->*end)(); }).description(),
              "Es läuft keine Transaktion.");
  ASSERT_TRUE(own.exec(QStringLiteral("ROLLBACK"))) << "it is still the host's";
  EXPECT_EQ(stored(), Texts{});
  borrowed->BeginTrans();
  borrowed->RollbackTrans();
}

TEST_F(EngineSessions, AnUpdateCountsTheRowsThatItHasFound) {
  run("INSERT INTO Kreise VALUES (1, 'a', -1)");
  run("INSERT INTO Kreise VALUES (2, 'a', -1)");
  const HostsDatabase host(database);
  for (const auto& connection : {conn, borrowQtSqlConnection(host.get())}) {
    EXPECT_EQ(test::run(*connection, "UPDATE Kreise SET Wahr = -1"), 2);
    EXPECT_EQ(test::run(*connection, "UPDATE Kreise SET Wahr = -1 WHERE Nr = 1"), 1);
    EXPECT_EQ(test::run(*connection, "UPDATE Kreise SET Wahr = 0 WHERE Nr = 3"), 0);
    connection->BeginTrans();
    EXPECT_EQ(test::run(*connection, "UPDATE Kreise SET Wahr = -1"), 2);
    connection->RollbackTrans();
  }
}

TEST_F(EngineSessions, WhoIsGoingToWriteReadsWhatIsStoredByThen) {
  run("INSERT INTO Kreise VALUES (1, 'alt', 0)");
  conn->IsolationLevel(ado::isolated);
  conn->BeginTrans();
  const auto other = open();
  run("SELECT * FROM Kreise");
  test::run(*other, "UPDATE Kreise SET Text = 'von anderen'");
  conn->LockTable("Kreise");
  EXPECT_EQ(test::rows(*conn, "SELECT Text FROM Kreise", {"Text"}), Texts{"'von anderen'"});
  EXPECT_EQ(run("UPDATE Kreise SET Wahr = -1"), 1);
  conn->CommitTrans();
  EXPECT_EQ(test::rows(*other, "SELECT Text, Wahr FROM Kreise", {"Text", "Wahr"}),
            Texts{"'von anderen'|-1"});
}

TEST_F(EngineSessions, WhatWasChangedBeforeIsKeptByWhoIsGoingToWrite) {
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  conn->LockTable("Kreise");
  run("INSERT INTO Kreise VALUES (2, 'b', 0)");
  conn->CommitTrans();
  EXPECT_EQ(stored(), (Texts{"'a'", "'b'"}));
}

// As other layers do it, whose transactions begin in their own way.
TEST_F(EngineSessions, AStatementLocksInAnyTransaction) {
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  const HostsDatabase host(database);
  QSqlDatabase hosts = host.get();
  ASSERT_TRUE(hosts.transaction());
  const std::string lock = engineThatAnswers(*conn)->lockTableAnyhow("Kreise");
  QSqlQuery query(hosts);
  ASSERT_TRUE(query.exec(QString::fromStdString(lock))) << lock;
  query.finish();
  const auto other = open();
  other->CommandTimeout(1);
  EXPECT_NE(errorOf(*other, "UPDATE Kreise SET Text = 'fremd'").number(), 0) << lock;
  EXPECT_EQ(test::rows(*other, "SELECT Text FROM Kreise", {"Text"}), Texts{"'a'"});
  ASSERT_TRUE(hosts.commit());
  EXPECT_EQ(test::run(*other, "UPDATE Kreise SET Text = 'fremd'"), 1);
}

TEST_F(EngineSessions, LockingNeedsATransaction) {
  EXPECT_NE(errorOf([&] { conn->LockTable("Kreise"); }).number(), 0);
}

TEST_F(EngineSessions, ATableThatIsNotThereFailsItsLockAndNothingElse) {
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  if (isSqlite())  // There is one lock, for the file.
    EXPECT_NO_THROW(conn->LockTable("Nirgends"));
  else
    EXPECT_NE(errorOf([&] { conn->LockTable("Nirgends"); }).number(), 0);
  conn->CommitTrans();
  EXPECT_EQ(stored(), Texts{"'a'"});
}

TEST_F(EngineSessions, AColumnTellsHowManyCharactersItHolds) {
  run("CREATE TABLE Breiten (Kurz VARCHAR(17), Lang TEXT, Zahl INTEGER)");
  EXPECT_EQ(conn->TextLimit("Breiten", "Kurz"), 17);
  EXPECT_EQ(conn->TextLimit("Breiten", "Lang"), isSqlite() || isPostgresql() ? 0 : 65535);
  EXPECT_EQ(conn->TextLimit("Breiten", "Zahl"), 0);
  EXPECT_EQ(conn->TextLimit("Breiten", "Fehlt"), 0);
  EXPECT_EQ(conn->TextLimit("Nirgends", "Kurz"), 0);
}

TEST_F(EngineSessions, TablesWithTransactionsAreNotRefused) {
  EXPECT_NO_THROW(conn->RequireTransactions({"Kreise", "Nirgends"}));
}

TEST_F(EngineSessions, AnEnginesFailureNamesTheEngine) {
  const std::string source = errorOf(*conn, "SELECT * FROM Nirgends").source();
  const std::string title = isPostgresql() ? "PostgreSQL" : isSqlite() ? "SQLite" : "MariaDB";
  EXPECT_EQ(source.substr(0, title.size()), title);
  if (isPostgresql()) {
    EXPECT_EQ(source, "PostgreSQL 42P01");
  }
}

TEST_F(EngineSessions, TheEngineIsAskedForItsName) {
  EXPECT_EQ(engineOf(*conn), database.schema());
  conn->BeginTrans();
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  EXPECT_EQ(engineOf(*conn), database.schema());
  conn->CommitTrans();
  EXPECT_EQ(engineNamedIn(database.connectionString()), database.schema());
}

}  // namespace vexnumkr::test
