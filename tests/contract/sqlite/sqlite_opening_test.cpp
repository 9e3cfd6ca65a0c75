// Opening and closing SQLite databases, and borrowing them.
#include <gtest/gtest.h>

#include <QSqlQuery>
#include <filesystem>

#include <vexnumkr/adapters.h>

#include "contract/sqlite/sqlite_database.h"
#include "contract/sqlite/unprivileged.h"

namespace vexnumkr::test {
namespace {

Error openingError(const std::string& connectionString) {
  return errorOf([&] { openQtSqlConnection(connectionString); });
}

bool exists(const std::string& path) { return std::filesystem::exists(path); }

}  // namespace

TEST(SqliteOpening, AMissingFileIsTheEnginesErrorAndIsNotCreated) {
  const SqliteFile file;
  const std::string missing = file.folder() + "/missing.db";
  const Error error = openingError("Driver=QSQLITE;Database=" + missing);
  EXPECT_EQ(error.number(), 14);
  EXPECT_EQ(error.description(), "unable to open database file: " + missing);
  EXPECT_EQ(error.source(), "SQLite");
  EXPECT_FALSE(exists(missing));
  EXPECT_EQ(openingError("Driver=QSQLITE;Database=" + file.folder() + "/no/such.db").number(), 14);
  EXPECT_EQ(openingError("Driver=QSQLITE;Database=" + file.folder()).number(), 14);
}

TEST(SqliteOpening, AnyFileNameWillDo) {
  for (const char* const name : {"Größe 100%.db", "a?mode=memory&b#c.db", "a;b=c.db", " a .db",
                                 "\"a\".db", "%20.db", "a\\b.db", "mode=x.db"}) {
    const SqliteFile file(name);
    HostDatabase host(file.path());
    ASSERT_TRUE(host.run("CREATE TABLE a (b)"));
    const auto connection = borrowQtSqlConnection(host.get())->createConnection();
    connection->ConnectionString(borrowQtSqlConnection(host.get())->ConnectionString());
    connection->Open("", "", ado::unspecified);
    EXPECT_EQ(run(*connection, "INSERT INTO a (b) VALUES (1)"), 1) << name;
    EXPECT_EQ(host.numbers("SELECT b FROM a"), std::vector{1}) << name;
  }
}

TEST(SqliteOpening, ARelativeNameStartsInTheCurrentFolder) {
  const SqliteFile file(":x y.db");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(file.folder());
  run(*openQtSqlConnection("Driver=QSQLITE;Database=:x y.db"), "CREATE TABLE a (b)");
  std::filesystem::current_path(before);
  EXPECT_EQ(value(*file.open(), "SELECT COUNT(*) AS X FROM a"), Value(0));
}

TEST(SqliteOpening, AUriIsTakenAsItStandsButCreatesNothing) {
  const SqliteFile file;
  run(*file.open(), "CREATE TABLE a (b)");
  const auto readOnly =
      openQtSqlConnection("Driver=QSQLITE;Database=file:" + file.path() + "?mode=ro");
  EXPECT_EQ(value(*readOnly, "SELECT COUNT(*) AS X FROM a"), Value(0));
  EXPECT_EQ(errorOf(*readOnly, "DELETE FROM a").number(), 8);
  EXPECT_EQ(openingError("Driver=QSQLITE;Database=file:" + file.folder() + "/b.db").number(), 14);
  EXPECT_EQ(openingError("Driver=QSQLITE;Database=file:" + file.folder() + "/b.db?cache=private")
                .number(),
            14);
}

TEST(SqliteOpening, ADatabaseInMemoryIsEmpty) {
  const auto connection = openQtSqlConnection("driver=qsqlite;database=:memory:");
  run(*connection, "CREATE TABLE a (b)");
  EXPECT_EQ(value(*connection, "SELECT COUNT(*) AS X FROM sqlite_master"), Value(1));
}

TEST(SqliteOpening, AFileThatIsNoDatabaseFailsAtItsFirstUse) {
  const SqliteFile file;
  std::filesystem::copy_file("/proc/self/exe", file.path(),
                             std::filesystem::copy_options::overwrite_existing);
  const auto connection = file.open();
  for (int i = 0; i < 2; ++i) {
    const Error error = errorOf(*connection, "SELECT * FROM Nummernkreise");
    EXPECT_EQ(error.number(), 26);
    EXPECT_EQ(error.description(), "file is not a database");
  }
}

TEST(SqliteOpening, AReadOnlyFileCanBeReadButNotWritten) {
  const SqliteFile file;
  run(*file.open(), "CREATE TABLE a (b)");
  std::filesystem::permissions(file.folder(), std::filesystem::perms(0755));
  std::filesystem::permissions(file.path(), std::filesystem::perms(0444));
  const Unprivileged user;
  const auto connection = file.open();
  EXPECT_EQ(value(*connection, "SELECT COUNT(*) AS X FROM a"), Value(0));
  connection->BeginTrans();
  const Error error = errorOf(*connection, "INSERT INTO a (b) VALUES (1)");
  EXPECT_EQ(error.number(), 8);
  EXPECT_EQ(error.description(), "attempt to write a readonly database");
  connection->RollbackTrans();
  EXPECT_EQ(value(*connection, "SELECT COUNT(*) AS X FROM a"), Value(0));
}

TEST(SqliteOpening, AnUnknownDriverIsAnError) {
  const Error error = openingError("Driver=QXYZ;Database=a");
  EXPECT_EQ(error.number(), 3706);
  EXPECT_EQ(error.description(),
            "Der Datenbanktreiber \"QXYZ\" wird nicht unterstützt; möglich sind: QPSQL, QMYSQL, "
            "QMARIADB, QSQLITE, QODBC.");
}

TEST(SqliteOpening, AMalformedStringIsAnErrorOnOpening) {
  const auto connection = createQtSqlConnection();
  connection->ConnectionString("Datei");
  EXPECT_EQ(errorOf([&] { connection->Open("", "", ado::unspecified); }).number(), 3001);
  connection->ConnectionString("Driver=QSQLITE;Database=:memory:");
  connection->Open("Max", "geheim", ado::unspecified);
  EXPECT_EQ(value(*connection, "SELECT 1 AS X"), Value(1));
}

TEST(SqliteOpening, LevelsOfIsolationThatSqliteLacksAreErrors) {
  const auto connection = openQtSqlConnection("Driver=QSQLITE;Database=:memory:");
  connection->IsolationLevel(ado::isolated);
  connection->IsolationLevel(ado::unspecified);
  constexpr std::int32_t readCommitted = 4096;
  EXPECT_EQ(errorOf([&] { connection->IsolationLevel(readCommitted); }).number(), 3251);
  EXPECT_EQ(connection->IsolationLevel(), ado::unspecified);

  const auto closed = createQtSqlConnection();
  closed->ConnectionString("Driver=QSQLITE;Database=:memory:");
  closed->IsolationLevel(readCommitted);
  EXPECT_EQ(errorOf([&] { closed->Open("", "", ado::unspecified); }).number(), 3251);
}

TEST(SqliteOpening, LeavesNothingBehindInQtsListOfConnections) {
  const SqliteFile file;
  const QStringList before = QSqlDatabase::connectionNames();
  {
    const auto first = file.open();
    const auto second = first->createConnection();
    second->ConnectionString(first->ConnectionString());
    second->Open("", "", ado::unspecified);
    std::int32_t affected = -1;
    const auto recordset = second->Execute("SELECT 1 AS X", affected);
    const auto command = second->createCommand();
    command->ActiveConnection(*second);
    EXPECT_EQ(QSqlDatabase::connectionNames().size(), before.size() + 2);
    second->Close();
    EXPECT_EQ(QSqlDatabase::connectionNames().size(), before.size() + 1);
    openingError("Driver=QSQLITE;Database=" + file.folder());
    EXPECT_EQ(QSqlDatabase::connectionNames().size(), before.size() + 1);
  }
  EXPECT_EQ(QSqlDatabase::connectionNames(), before);
}

TEST(SqliteOpening, ObjectsOutliveTheirConnection) {
  const SqliteFile file;
  auto connection = file.open();
  run(*connection, "CREATE TABLE a (b INTEGER)");
  run(*connection, "INSERT INTO a (b) VALUES (7)");
  const auto command = connection->createCommand();
  command->ActiveConnection(*connection);
  command->CommandText("SELECT b FROM a");
  const auto recordset = connection->createRecordset();
  recordset->Open("SELECT b FROM a", *connection, ado::openKeyset, ado::lockOptimistic, 1);
  std::int32_t affected = -1;

  connection->Close();
  EXPECT_EQ(recordset->Fields("b"), Value(7));
  recordset->Fields("b", 8);
  EXPECT_EQ(errorOf([&] { recordset->Update(); }).number(), 3704);
  EXPECT_EQ(errorOf([&] { command->Execute(affected); }).number(), 3704);
  connection->Open("", "", ado::unspecified);
  EXPECT_EQ(rest(*command->Execute(affected), {"b"}), std::vector<std::string>{"7"});
  EXPECT_EQ(errorOf([&] { recordset->Update(); }).number(), 3704);
  connection.reset();
  EXPECT_EQ(errorOf([&] { command->Execute(affected); }).number(), 3709);
  EXPECT_EQ(recordset->Fields("b"), Value(8));
}

TEST(SqliteOpening, SettingsThatMakeNoSenseAreErrors) {
  const auto connection = openQtSqlConnection("Driver=QSQLITE;Database=:memory:");
  const auto command = connection->createCommand();
  EXPECT_EQ(errorOf([&] { connection->CommandTimeout(-1); }).number(), 3001);
  EXPECT_EQ(errorOf([&] { connection->ConnectionTimeout(-1); }).number(), 3001);
  EXPECT_EQ(errorOf([&] { command->CommandTimeout(-1); }).number(), 3001);
  EXPECT_EQ(errorOf([&] { command->CommandType(2); }).number(), 3001);
}

TEST(SqliteBorrowing, LeavesTheHostsDatabaseOpen) {
  const SqliteFile file;
  HostDatabase host(file.path());
  {
    const auto connection = borrowQtSqlConnection(host.get());
    run(*connection, "CREATE TABLE a (b)");
    connection->Close();
    EXPECT_EQ(errorOf(*connection, "SELECT 1").number(), 3704);
    EXPECT_TRUE(host.run("INSERT INTO a (b) VALUES (1)"));
  }
  {
    const auto released = borrowQtSqlConnection(host.get());
    run(*released, "SELECT * FROM a");
  }
  EXPECT_EQ(host.numbers("SELECT b FROM a"), std::vector{1});
}

TEST(SqliteBorrowing, ChangesNoneOfTheHostsSettings) {
  const SqliteFile file;
  HostDatabase host(file.path(), "QSQLITE_BUSY_TIMEOUT=1234");
  const auto connection = borrowQtSqlConnection(host.get());
  run(*connection, "SELECT 1");
  EXPECT_EQ(host.numbers("PRAGMA busy_timeout"), std::vector{1234});
  EXPECT_EQ(host.numbers("PRAGMA foreign_keys"), std::vector{0});
}

TEST(SqliteBorrowing, ComposesTheConnectionString) {
  const SqliteFile file("a;b.db");
  HostDatabase host(file.path());
  host.get().setHostName(QStringLiteral("db"));
  host.get().setPort(77);
  host.get().setUserName(QStringLiteral("Max"));
  host.get().setPassword(QStringLiteral("ge;heim"));
  EXPECT_EQ(
      borrowQtSqlConnection(host.get())->ConnectionString(),
      "Driver=QSQLITE;Database=\"" + file.path() + "\";Server=db;Port=77;UID=Max;PWD=\"ge;heim\"");
}

TEST(SqliteBorrowing, NeedsAnOpenDatabase) {
  const SqliteFile file;
  HostDatabase host(file.path());
  host.get().close();
  const Error error = errorOf([&] { borrowQtSqlConnection(host.get()); });
  EXPECT_EQ(error.number(), 3709);
  EXPECT_EQ(error.description(), "Die übergebene Datenbank ist nicht geöffnet.");
  EXPECT_EQ(errorOf([] { borrowQtSqlConnection(QSqlDatabase()); }).number(), 3709);
}

TEST(SqliteBorrowing, SurvivesTheHostsClosing) {
  const SqliteFile file;
  HostDatabase host(file.path());
  const auto connection = borrowQtSqlConnection(host.get());
  run(*connection, "CREATE TABLE a (b)");
  connection->BeginTrans();
  run(*connection, "INSERT INTO a (b) VALUES (1)");
  host.get().close();
  EXPECT_EQ(errorOf(*connection, "SELECT * FROM a").number(), 3704);
  EXPECT_EQ(errorOf([&] { connection->CommitTrans(); }).number(), 3704);
  EXPECT_EQ(errorOf([&] { connection->RollbackTrans(); }).number(), 3704);
  ASSERT_TRUE(host.get().open());
  EXPECT_EQ(value(*connection, "SELECT COUNT(*) AS X FROM a"), Value(0));
}

TEST(SqliteBorrowing, RollsBackOnlyWhatItHasBegun) {
  const SqliteFile file;
  HostDatabase host(file.path());
  ASSERT_TRUE(host.run("CREATE TABLE a (b)"));
  ASSERT_TRUE(host.run("BEGIN"));
  {
    const auto connection = borrowQtSqlConnection(host.get());
    run(*connection, "INSERT INTO a (b) VALUES (1)");
    EXPECT_EQ(errorOf([&] { connection->BeginTrans(); }).number(), 1);
  }
  EXPECT_TRUE(host.run("COMMIT"));
  {
    const auto connection = borrowQtSqlConnection(host.get());
    connection->BeginTrans();
    run(*connection, "INSERT INTO a (b) VALUES (2)");
  }
  EXPECT_FALSE(host.run("COMMIT"));
  EXPECT_EQ(host.numbers("SELECT b FROM a"), std::vector{1});
}

}  // namespace vexnumkr::test
