// What only PostgreSQL does.
#include "contract/engine_session.h"
#include "support/heap_in_use.h"

namespace vexnumkr::test {

using PostgresqlSessions = EngineSessions;

TEST_F(PostgresqlSessions, AWriteConflictIsReportedAndTheNextAttemptWorks) {
  run("INSERT INTO Kreise VALUES (1, 'alt', 0)");
  conn->IsolationLevel(ado::isolated);
  conn->BeginTrans();
  run("DELETE FROM Kreise WHERE Nr = 9");
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

TEST_F(PostgresqlSessions, AConflictThatShowsAtTheCommitIsReportedAndTheNextAttemptWorks) {
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  const auto other = open();
  for (const auto& connection : {conn, other}) {
    connection->IsolationLevel(ado::isolated);
    connection->BeginTrans();
    test::run(*connection, "DELETE FROM Kreise WHERE Nr = 9");
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

TEST_F(PostgresqlSessions, ARollBackTakesTheModeBackToo) {
  conn->BeginTrans();
  run("SET standard_conforming_strings = off");
  EXPECT_TRUE(conn->BackslashEscapes());
  conn->RollbackTrans();
  EXPECT_FALSE(conn->BackslashEscapes());
}

TEST_F(PostgresqlSessions, AStatementIsReadByTheRulesOfTheConnectionThatItIsSentOn) {
  run("SET standard_conforming_strings = off");
  EXPECT_TRUE(conn->BackslashEscapes());
  const std::string id = shown(value(*conn, "SELECT pg_backend_pid() AS X"));
  database.administer("SELECT pg_terminate_backend(" + id + ", 5000)");
  EXPECT_NE(errorOf(*conn, "SELECT * FROM Kreise").number(), 0);
  // With backslashes that escape, this were one statement.
  EXPECT_EQ(errorOf(*conn, "SELECT 'x\\'; DELETE FROM Kreise; -- '").number(), 3001);
  EXPECT_FALSE(conn->BackslashEscapes());
}

// Over a network anything else would be another round trip.
TEST_F(PostgresqlSessions, WhatIsReadTakesNothingButItsStatement) {
  const std::string id = shown(value(*conn, "SELECT pg_backend_pid() AS X"));
  run("INSERT INTO Kreise VALUES (1, 'a', 0)");
  EXPECT_EQ(run("SELECT Nr, Text FROM Kreise"), 1);
  const auto other = open();
  EXPECT_EQ(shown(value(*other, "SELECT query AS X FROM pg_stat_activity WHERE pid = " + id)),
            "'SELECT Nr, Text FROM Kreise'");
}

TEST_F(PostgresqlSessions, NothingIsCopiedOverTheConnection) {
  for (const char* text : {"COPY Kreise FROM STDIN", "COPY Kreise TO STDOUT"})
    EXPECT_EQ(errorOf(*conn, text).number(), error_number::invalidArgument) << text;
  EXPECT_EQ(run("SELECT * FROM Kreise"), 0);
}

TEST_F(PostgresqlSessions, BehindALargeAnswerTheTransactionGoesOn) {
  const std::string rows = "SELECT g, 'x', 0 FROM generate_series(1, 1500) AS g";
  conn->BeginTrans();
  EXPECT_EQ(run("INSERT INTO Kreise " + rows + " RETURNING Nr"), 1500);
  EXPECT_EQ(run("SELECT * FROM Kreise"), 1500);
  EXPECT_NE(errorOf(*conn, "INSERT INTO Kreise VALUES (1, 'x')").number(), 0);
  EXPECT_EQ(run("UPDATE Kreise SET Text = 'y' WHERE Nr = 7"), 1);
  conn->CommitTrans();
  EXPECT_EQ(shown(value(*conn, "SELECT COUNT(*) AS X FROM Kreise WHERE Text = 'x'")), "1499");
}

// Results are taken whole, and stay with their query until there is another one.
TEST_F(PostgresqlSessions, ALargeAnswerIsNotKept) {
  constexpr long mebibyte = 1024 * 1024;
  const std::string large = "SELECT repeat('x', 5000) AS Text FROM generate_series(1, 2000)";
  run("SELECT 1 AS X");
  const long before = heapInUse();
  EXPECT_EQ(run(large), 2000);
  EXPECT_LT(heapInUse() - before, mebibyte);
}

TEST_F(PostgresqlSessions, ATextThatIsNotInUtf8CannotBeRead) {
  const std::string name = database.name() + "_ascii";
  database.administer("CREATE DATABASE " + name +
                      " TEMPLATE template0 ENCODING 'SQL_ASCII' LC_COLLATE 'C' LC_CTYPE 'C'");
  ConnectionSettings settings = parseConnectionString(database.connectionString());
  settings.database = name;
  {
    const auto ascii = openQtSqlConnection(composeConnectionString(settings));
    test::run(*ascii, "CREATE TABLE Texte (Nr INTEGER, Text VARCHAR(20))");
    test::run(*ascii, "INSERT INTO Texte VALUES (1, 'gr\xC3\xBC\xC3\x9F')");
    test::run(*ascii,
              "INSERT INTO Texte VALUES (2, 'kaputt' || convert_from('\\xFC', 'SQL_ASCII'))");
    test::run(*ascii, "INSERT INTO Texte VALUES (3, '\xEF\xBF\xBD')");
    const char* const select = "SELECT Nr, Text FROM Texte ORDER BY Nr";
    ascii->BeginTrans();
    const Error error = errorOf(*ascii, select);
    EXPECT_EQ(error.number(), 3024);
    EXPECT_EQ(error.description(), "Ein Text ist nicht lesbar gespeichert.");
    EXPECT_EQ(test::rows(*ascii, "SELECT Text FROM Texte WHERE Nr <> 2", {"Text"}),
              (Texts{"'gr\xC3\xBC\xC3\x9F'", "'\xEF\xBF\xBD'"}))
        << "the transaction goes on";
    ascii->RollbackTrans();

    test::run(*ascii, "SET client_encoding = 'SQL_ASCII'");  // The server sends whatever there is.
    std::int32_t found = 0;
    const auto rows = ascii->Execute(select, found);
    EXPECT_EQ(rows->Fields("Text"), Value("gr\xC3\xBC\xC3\x9F"));
    rows->MoveNext();
    EXPECT_EQ(rows->Fields("Nr"), Value(2));
    EXPECT_EQ(errorOf([&] { rows->Fields("Text"); }).number(), 3024);
    rows->MoveNext();
    EXPECT_EQ(rows->Fields("Text"), Value("\xEF\xBF\xBD")) << "as somebody has stored it";
  }
  database.administer("DROP DATABASE " + name + " WITH (FORCE)");
}

TEST_F(PostgresqlSessions, OptionsThatAreNoPairsAreRefusedAndNotTold) {
  const Error error = errorOf([&] {
    openQtSqlConnection(database.connectionString() + ";Options=\"password=mein geheimwort\"");
  });
  EXPECT_EQ(error.number(), 3001);
  EXPECT_EQ(error.description().find("geheimwort"), std::string::npos) << error.description();
  EXPECT_NO_THROW(openQtSqlConnection(database.connectionString() +
                                      ";Options=\"password='mein geheimwort' sslmode=prefer\""));
}

}  // namespace vexnumkr::test
