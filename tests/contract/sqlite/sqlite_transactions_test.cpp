// What SQLite's transactions meet: other writers, files that go away, texts that are none.
#include <gtest/gtest.h>

#include <filesystem>

#include "contract/sqlite/sqlite_database.h"
#include "support/faults/engine_waits.h"

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;

/// In each journal mode.
class SqliteTransactions : public ::testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    run(std::string("PRAGMA journal_mode = ") + GetParam());
    run("CREATE TABLE a (b)");
    run("INSERT INTO a VALUES (1)");
  }
  void run(const std::string& text) { test::run(*conn, text); }
  Texts stored() { return rows(*file.open(), "SELECT b FROM a", {"b"}); }

  SqliteFile file;
  std::shared_ptr<Connection> conn = file.open();
};

/// Another file takes the place of this one, with all that belongs to it.
void replace(const SqliteFile& file) {
  for (const char* const part : {"", "-wal", "-shm", "-journal"})
    if (std::filesystem::exists(file.path() + part))
      std::filesystem::rename(file.path() + part, file.path() + ".alt" + part);
  HostDatabase another(file.path());
  ASSERT_TRUE(another.run("CREATE TABLE a (b)"));
}

}  // namespace

TEST_P(SqliteTransactions, WhoHasReadAndIsGoingToWriteWaitsForAnotherWriter) {
  HostDatabase other(file.path());
  conn->BeginTrans();
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{"1"});
  ASSERT_TRUE(other.run("BEGIN IMMEDIATE"));
  ASSERT_TRUE(other.run("UPDATE a SET b = 2"));
  bool isOpen = true;
  const EngineWaits waits([&] {
    if (isOpen) {
      EXPECT_TRUE(other.run("COMMIT"));
    }
    isOpen = false;
  });
  conn->LockTable("a");
  EXPECT_FALSE(isOpen);
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{"2"}) << "and not what was before";
  run("UPDATE a SET b = b + 1");
  conn->CommitTrans();
  EXPECT_EQ(stored(), Texts{"3"});
}

TEST_P(SqliteTransactions, AWriterThatStaysIsReportedAfterFiveSecondsAndSavingAgainWorks) {
  HostDatabase other(file.path());
  ASSERT_TRUE(other.run("BEGIN IMMEDIATE"));
  const EngineWaits waits;
  conn->BeginTrans();
  EXPECT_EQ(errorOf([&] { conn->LockTable("a"); }).description(), "database is locked");
  EXPECT_GE(waits.milliseconds(), 4500);
  EXPECT_LE(waits.milliseconds(), 5500);
  EXPECT_EQ(errorOf(*conn, "DELETE FROM a").description(), "database is locked");
  conn->RollbackTrans();
  ASSERT_TRUE(other.run("COMMIT"));
  conn->BeginTrans();
  conn->LockTable("a");
  run("UPDATE a SET b = 7");
  conn->CommitTrans();
  EXPECT_EQ(stored(), Texts{"7"});
}

TEST_P(SqliteTransactions, NobodyWaitsLongerThanItMay) {
  conn->CommandTimeout(1);
  HostDatabase other(file.path());
  ASSERT_TRUE(other.run("BEGIN IMMEDIATE"));
  const EngineWaits waits;
  EXPECT_EQ(errorOf(*conn, "DELETE FROM a").description(), "database is locked");
  EXPECT_LE(waits.milliseconds(), 1200);
  conn->CommandTimeout(30);
  EXPECT_EQ(rows(*conn, "PRAGMA busy_timeout", {"timeout"}), Texts{"5000"});
}

TEST_P(SqliteTransactions, AFileThatIsReplacedTakesNoSave) {
  conn->BeginTrans();
  run("INSERT INTO a VALUES (2)");
  replace(file);
  const Error moved = errorOf([&] { conn->CommitTrans(); });
  EXPECT_EQ(moved.number(), 1032);
  EXPECT_EQ(moved.source(), "SQLite");
  EXPECT_EQ(moved.description(),
            "Die Datenbankdatei wurde inzwischen gelöscht, umbenannt oder ersetzt. Es wird nichts "
            "gespeichert. Bitte schließen Sie die Anwendung und öffnen Sie sie neu.");
  EXPECT_NO_THROW(conn->RollbackTrans());
  EXPECT_EQ(errorOf([&] { conn->BeginTrans(); }).number(), 1032);
  EXPECT_EQ(stored(), Texts{});
}

TEST_P(SqliteTransactions, AFileThatIsGoneTakesNoSave) {
  std::filesystem::rename(file.path(), file.path() + ".weg");
  EXPECT_EQ(errorOf([&] { conn->BeginTrans(); }).number(), 1032);
  std::filesystem::rename(file.path() + ".weg", file.path());
  EXPECT_NO_THROW(conn->BeginTrans());
}

TEST_P(SqliteTransactions, ATextThatIsNotInUtf8CannotBeRead) {
  run("DELETE FROM a");
  run("INSERT INTO a VALUES ('gr\xC3\xBCn'), (CAST(x'6BFC' AS TEXT)), ('\xEF\xBF\xBD'), (x'FF')");
  std::int32_t found = 0;
  const auto all = conn->Execute("SELECT b, 1 AS c FROM a ORDER BY rowid", found);
  EXPECT_EQ(all->Fields("b"), Value("gr\xC3\xBCn"));
  all->MoveNext();
  EXPECT_EQ(all->Fields("c"), Value(1));
  const Error error = errorOf([&] { all->Fields("b"); });
  EXPECT_EQ(error.number(), 3024);
  EXPECT_EQ(error.description(), "Ein Text ist nicht lesbar gespeichert.");
  all->MoveNext();
  EXPECT_EQ(all->Fields("b"), Value("\xEF\xBF\xBD")) << "as somebody has stored it";
  all->MoveNext();
  EXPECT_EQ(errorOf([&] { all->Fields("b"); }).number(), 3024);
}

INSTANTIATE_TEST_SUITE_P(Journal, SqliteTransactions, testing::Values("DELETE", "WAL"),
                         [](const auto& tested) { return std::string(tested.param); });

}  // namespace vexnumkr::test
