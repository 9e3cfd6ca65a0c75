// SQLite databases that are busy with somebody else.
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

#include "contract/sqlite/sqlite_database.h"
#include "support/other_writer.h"

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;

constexpr std::int32_t busy = 5;

class SqliteLocking : public ::testing::Test {
 protected:
  void SetUp() override { run("CREATE TABLE a (b)"); }
  void run(const std::string& text) { test::run(*conn, text); }
  void doNotWait() { run("PRAGMA busy_timeout = 0"); }

  SqliteFile file;
  std::shared_ptr<Connection> conn = file.open();
};

// Reads a file in a thread of its own, which keeps writers from committing, until somebody is seen
// to wait for it. A waiting writer lets no new reader in: that is how it is seen.
class ReaderUntilWaitedFor {
 public:
  explicit ReaderUntilWaitedFor(const std::string& path) : thread_([this, path] { read(path); }) {
    reading_.get_future().wait();
  }
  // Whether somebody waited.
  bool finish() {
    finished_ = true;
    thread_.join();
    return wasWaitedFor_;
  }

 private:
  void read(const std::string& path) {
    HostDatabase reader(path);
    HostDatabase newcomer(path);
    EXPECT_TRUE(reader.run("BEGIN"));
    reader.numbers("SELECT b FROM a");
    reading_.set_value();
    while (!finished_ && !wasWaitedFor_) wasWaitedFor_ = !newcomer.run("SELECT b FROM a");
    EXPECT_TRUE(reader.run("COMMIT"));
  }

  std::promise<void> reading_;
  std::atomic<bool> finished_ = false;
  std::atomic<bool> wasWaitedFor_ = false;
  std::thread thread_;
};

}  // namespace

TEST_F(SqliteLocking, LocksAreWaitedForUpToFiveSeconds) {
  EXPECT_EQ(rows(*conn, "PRAGMA busy_timeout", {"timeout"}), Texts{"5000"});
}

TEST_F(SqliteLocking, AWriterWaitsUntilTheReaderIsDone) {
  ReaderUntilWaitedFor reader(file.path());
  conn->BeginTrans();
  run("INSERT INTO a VALUES (1)");
  conn->CommitTrans();
  EXPECT_TRUE(reader.finish());
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{"1"});
}

TEST_F(SqliteLocking, AStatementThatWaitsGoesOnToo) {
  ReaderUntilWaitedFor reader(file.path());
  run("INSERT INTO a VALUES (1)");
  EXPECT_TRUE(reader.finish());
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{"1"});
}

TEST_F(SqliteLocking, WhileAnotherProcessWritesAChangeFailsWithTheEnginesMessage) {
  doNotWait();
  OtherWriter other(file.path());
  conn->BeginTrans();
  const Error error = errorOf(*conn, "INSERT INTO a VALUES (1)");
  EXPECT_EQ(error.number(), busy);
  EXPECT_EQ(error.description(), "database is locked");
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{});
  conn->RollbackTrans();

  other.release();
  conn->BeginTrans();
  run("INSERT INTO a VALUES (1)");
  conn->CommitTrans();
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{"1"});
}

TEST_F(SqliteLocking, AnUpdateOfARecordThatFailsOnALockCanBeTriedAgain) {
  run("INSERT INTO a VALUES (1)");
  doNotWait();
  const auto records = conn->createRecordset();
  records->Open("SELECT b FROM a", *conn, ado::openKeyset, ado::lockOptimistic, 1);
  OtherWriter other(file.path());
  records->Fields("b", 2);
  EXPECT_EQ(errorOf([&] { records->Update(); }).number(), busy);
  other.release();
  records->Update();
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{"2"});
}

TEST_F(SqliteLocking, ACommitThatFailsLeavesTheTransactionOpen) {
  doNotWait();
  HostDatabase reader(file.path());
  const auto failToCommit = [&](const char* text) {
    ASSERT_TRUE(reader.run("BEGIN"));
    reader.numbers("SELECT b FROM a");
    conn->BeginTrans();
    run(text);
    const Error error = errorOf([&] { conn->CommitTrans(); });
    EXPECT_EQ(error.number(), busy);
    EXPECT_EQ(error.description(), "database is locked");
    ASSERT_TRUE(reader.run("COMMIT"));
  };
  failToCommit("INSERT INTO a VALUES (1)");
  run("INSERT INTO a VALUES (2)");
  conn->RollbackTrans();
  EXPECT_EQ(rows(*conn, "SELECT b FROM a", {"b"}), Texts{});

  failToCommit("INSERT INTO a VALUES (3)");
  conn->CommitTrans();
  EXPECT_EQ(reader.numbers("SELECT b FROM a"), std::vector{3});
}

TEST_F(SqliteLocking, ReadingLeavesNoLockBehind) {
  run("INSERT INTO a VALUES (1), (2), (3)");
  HostDatabase other(file.path());
  std::int32_t affected = -1;
  const auto found = conn->Execute("SELECT b FROM a", affected);
  EXPECT_FALSE(found->EndOfFile());
  EXPECT_TRUE(other.run("BEGIN EXCLUSIVE"));
  EXPECT_TRUE(other.run("DELETE FROM a"));
  EXPECT_TRUE(other.run("COMMIT"));
  EXPECT_EQ(rest(*found, {"b"}), (Texts{"1", "2", "3"}));
}

}  // namespace vexnumkr::test
