// What only MariaDB does.
#include <QSqlDatabase>
#include <QSqlQuery>
#include <future>
#include <thread>

#include "contract/engine_session.h"

namespace vexnumkr::test {

using MariadbSessions = EngineSessions;

TEST_F(MariadbSessions, ABorrowedDatabaseKeepsItsModeAndIsReadByIt) {
  const HostsDatabase host(database);
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

TEST_F(MariadbSessions, WhatAHostChangesInItsModeHoldsFromTheNextTransaction) {
  const HostsDatabase host(database);
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

TEST_F(MariadbSessions, EncodingsInWhichBackslashesHideAreRefused) {
  const HostsDatabase host(database);
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

TEST_F(MariadbSessions, AfterADeadlockNothingIsCommittedByItself) {
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

TEST_F(MariadbSessions, AConnectionThatReconnectsByItselfIsRefused) {
  const Error error = errorOf(
      [&] { openQtSqlConnection(database.connectionString() + ";Options=MYSQL_OPT_RECONNECT=1"); });
  EXPECT_EQ(error.number(), 3706);
}

TEST_F(MariadbSessions, TablesWithoutTransactionsAreRefused) {
  run("CREATE TABLE Lose (Nr INTEGER) ENGINE = MyISAM");
  const Error error = errorOf([&] { conn->RequireTransactions({"Kreise", "Lose"}); });
  EXPECT_EQ(error.number(), 3251);
  EXPECT_EQ(error.description(),
            "Die Tabelle Lose kennt keine Transaktionen (MyISAM). Damit könnte nichts "
            "zurückgenommen werden. Bitte lassen Sie sie umstellen: ALTER TABLE Lose ENGINE = "
            "InnoDB");
  run("ALTER TABLE Lose ENGINE = InnoDB");
  EXPECT_NO_THROW(conn->RequireTransactions({"Kreise", "Lose"}));
}

TEST_F(MariadbSessions, ATextThatTheHostsEncodingLacksCannotBeRead) {
  run("INSERT INTO Kreise VALUES (1, 'plain?', 0), (2, 'grün', 0), (3, '\xC5\x81', 0)");
  const HostsDatabase host(database);
  const auto borrowed = borrowQtSqlConnection(host.get());
  QSqlQuery own(host.get());
  for (const char* const encoding : {"latin1", "gbk"}) {
    ASSERT_TRUE(own.exec(QStringLiteral("SET sql_mode = 'NO_BACKSLASH_ESCAPES'")));
    ASSERT_TRUE(own.exec(QStringLiteral("SET NAMES ") + QLatin1String(encoding)));
    borrowed->BeginTrans();
    std::int32_t found = 0;
    const auto rows = borrowed->Execute("SELECT Nr, Text FROM Kreise ORDER BY Nr", found);
    EXPECT_EQ(rows->Fields("Text"), Value("plain?"));
    for (const int nr : {2, 3}) {
      rows->MoveNext();
      EXPECT_EQ(rows->Fields("Nr"), Value(nr));
      EXPECT_EQ(errorOf([&] { ADD_FAILURE() << shown(rows->Fields("Text")); }).number(), 3024)
          << encoding << nr;
    }
    borrowed->RollbackTrans();
    ASSERT_TRUE(own.exec(QStringLiteral("SELECT @@character_set_results")) && own.next());
    EXPECT_EQ(own.value(0).toString(), QLatin1String(encoding)) << "as the host has set it";
  }
}

TEST_F(MariadbSessions, AHostThatCountsChangesOnlyIsAskedWhatItHasFound) {
  run("INSERT INTO Kreise VALUES (1, 'a', -1), (2, 'a', 0)");
  const ConnectionSettings settings = parseConnectionString(database.connectionString());
  const QString name = QStringLiteral("zaehlt_aenderungen");
  {
    QSqlDatabase host = QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), name);
    host.setDatabaseName(QString::fromStdString(settings.database));
    host.setUserName(QString::fromStdString(settings.user));
    host.setConnectOptions(QStringLiteral("UNIX_SOCKET=") +
                           QString::fromStdString(settings.server));
    ASSERT_TRUE(host.open());
    QSqlQuery own(host);
    ASSERT_TRUE(own.exec(QStringLiteral("UPDATE Kreise SET Wahr = -1 WHERE Nr = 1")));
    EXPECT_EQ(own.numRowsAffected(), 0);
    own = QSqlQuery();
    const auto borrowed = borrowQtSqlConnection(host);
    EXPECT_EQ(test::run(*borrowed, "UPDATE Kreise SET Wahr = -1"), 2);
    EXPECT_EQ(test::run(*borrowed, "UPDATE Kreise SET Wahr = -1"), 2);
    EXPECT_EQ(test::run(*borrowed, "UPDATE Kreise SET Wahr = -1 WHERE Nr = 3"), 0);
  }
  QSqlDatabase::removeDatabase(name);
}

TEST_F(MariadbSessions, UnknownOptionsAreRefusedAndNotTold) {
  const Error error = errorOf([&] {
    openQtSqlConnection(database.connectionString() + ";Options=\"SSL_CA=x;geheimwort\"");
  });
  EXPECT_EQ(error.number(), 3001);
  EXPECT_EQ(error.description(),
            "Verbindungszeichenfolge: Eintrag 2 von Options ist dem Treiber QMYSQL unbekannt.");
}

}  // namespace vexnumkr::test
