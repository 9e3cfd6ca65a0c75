// Statements that wait for a lock while somebody is told of it, who may do anything meanwhile.
#include <gtest/gtest.h>

#include <functional>

#include "contract/sqlite/sqlite_database.h"
#include "support/other_writer.h"

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;

constexpr std::int32_t busy = 5;
constexpr std::int32_t objectClosed = 3704;
constexpr const char* insert = "INSERT INTO a VALUES (2)";

// Does what a test wants done in the middle of the wait.
class Told final : public LockWait {
 public:
  void Begins() override { log.emplace_back("begins"); }
  void Lasts() override {
    if (log.back() != "lasts") log.emplace_back("lasts");
    if (meanwhile) meanwhile();
  }
  void Ends() noexcept override { log.emplace_back("ends"); }

  Texts log;
  std::function<void()> meanwhile;
};

class SqliteWaiting : public ::testing::Test {
 protected:
  void SetUp() override {
    run(*conn, "CREATE TABLE a (b)");
    run(*conn, "INSERT INTO a VALUES (1)");
    conn->OnLockWait(&told);
  }
  /// Seen by another connection, so what is committed.
  Texts stored() const { return rows(*file.open(), "SELECT b FROM a", {"b"}); }
  void expectWaitsAsBefore(Connection& connection) const {
    EXPECT_EQ(rows(connection, "PRAGMA busy_timeout", {"timeout"}), Texts{"5000"});
  }

  const Texts wholeWait{"begins", "lasts", "ends"};
  SqliteFile file;
  std::shared_ptr<Connection> conn = file.open();
  Told told;
};

}  // namespace

TEST_F(SqliteWaiting, NobodyIsToldOfAStatementThatDoesNotWait) {
  run(*conn, insert);
  EXPECT_EQ(told.log, Texts{});
}

TEST_F(SqliteWaiting, WhoeverIsToldHearsOfTheWholeWait) {
  OtherWriter other(file.path());
  told.meanwhile = [&] { other.release(); };
  run(*conn, insert);
  EXPECT_EQ(told.log, wholeWait);
  EXPECT_EQ(stored(), (Texts{"1", "2"}));
  expectWaitsAsBefore(*conn);
}

// Which asks for the keys of its table first.
TEST_F(SqliteWaiting, OpeningARecordsetThatCanBeChangedIsToldToo) {
  OtherWriter other(file.path(), "EXCLUSIVE");
  told.meanwhile = [&] { other.release(); };
  const auto records = conn->createRecordset();
  records->Open("SELECT b FROM a", *conn, ado::openKeyset, ado::lockOptimistic, 1);
  EXPECT_EQ(told.log, wholeWait);
  records->Fields("b", 7);
  records->Update();
  EXPECT_EQ(stored(), Texts{"7"});
}

TEST_F(SqliteWaiting, NobodyIsToldAnyMoreOnceThatWasSaid) {
  conn->OnLockWait(nullptr);
  run(*conn, "PRAGMA busy_timeout = 0");
  OtherWriter other(file.path());
  EXPECT_EQ(errorOf(*conn, insert).number(), busy);
  EXPECT_EQ(told.log, Texts{});
  other.release();
}

TEST_F(SqliteWaiting, WhatIsRaisedMeanwhileIsTheStatementsAndNothingIsRun) {
  struct Enough {};
  OtherWriter other(file.path());
  told.meanwhile = [] { throw Enough{}; };
  conn->BeginTrans();
  EXPECT_THROW(run(*conn, insert), Enough);
  EXPECT_EQ(told.log, wholeWait);
  expectWaitsAsBefore(*conn);
  other.release();
  run(*conn, "INSERT INTO a VALUES (3)");
  conn->CommitTrans();
  EXPECT_EQ(stored(), (Texts{"1", "3"})) << "the transaction goes on";
}

// A statement in the middle of another one would go into its transaction, or end it.
TEST_F(SqliteWaiting, TheConnectionIsOfNoOtherUseMeanwhile) {
  const auto command = conn->createCommand();
  command->ActiveConnection(*conn);
  command->CommandText(insert);
  const auto records = conn->createRecordset();
  records->Open("SELECT b FROM a", *conn, ado::openKeyset, ado::lockOptimistic, 1);
  records->Fields("b", 7);
  OtherWriter other(file.path());
  std::vector<std::int32_t> refused;
  told.meanwhile = [&] {
    std::int32_t affected = 0;
    for (const std::function<void()>& use : std::vector<std::function<void()>>{
             [&] { conn->Execute(insert, affected); }, [&] { command->Execute(affected); },
             [&] { records->Update(); }, [&] { conn->BeginTrans(); }, [&] { conn->CommitTrans(); },
             [&] { conn->RollbackTrans(); }, [&] { conn->LockTable("a"); },
             [&] { conn->CommandTimeout(7); }, [&] { conn->TextLimit("a", "b"); },
             [&] {
               conn->createRecordset()->Open("SELECT b FROM a", *conn, ado::openForwardOnly,
                                             ado::lockReadOnly, 1);
             }})
      refused.push_back(errorOf(use).number());
    other.release();
  };
  conn->BeginTrans();
  run(*conn, insert);
  EXPECT_EQ(refused, std::vector<std::int32_t>(10, error_number::invalidCall));
  EXPECT_EQ(stored(), Texts{"1"});
  conn->CommitTrans();
  EXPECT_EQ(stored(), (Texts{"1", "2"}));
  records->Update();
  EXPECT_EQ(stored(), (Texts{"7", "2"}));
}

TEST_F(SqliteWaiting, ClosingTheConnectionEndsTheWaitAndTheTransaction) {
  conn->BeginTrans();
  OtherWriter other(file.path());
  told.meanwhile = [&] { conn->Close(); };
  EXPECT_EQ(errorOf(*conn, insert).number(), objectClosed);
  EXPECT_EQ(told.log, wholeWait);
  EXPECT_EQ(errorOf(*conn, insert).number(), objectClosed);
  other.release();
  EXPECT_EQ(stored(), Texts{"1"});
  conn->Open("", "", ado::unspecified);
  told.meanwhile = nullptr;
  run(*conn, insert);
  EXPECT_EQ(stored(), (Texts{"1", "2"}));
}

TEST_F(SqliteWaiting, OpeningItAnewMeanwhileIsForWhatComesNext) {
  OtherWriter other(file.path());
  told.meanwhile = [&] {
    conn->Close();
    conn->Open("", "", ado::unspecified);
    other.release();
  };
  EXPECT_EQ(errorOf(*conn, insert).number(), objectClosed);
  told.meanwhile = nullptr;
  run(*conn, "INSERT INTO a VALUES (3)");
  EXPECT_EQ(stored(), (Texts{"1", "3"}));
  expectWaitsAsBefore(*conn);
}

TEST_F(SqliteWaiting, ReleasingTheConnectionEndsTheWaitOfACommand) {
  const auto command = conn->createCommand();
  command->ActiveConnection(*conn);
  command->CommandText(insert);
  OtherWriter other(file.path());
  told.meanwhile = [&] { conn.reset(); };
  std::int32_t affected = 0;
  EXPECT_EQ(errorOf([&] { command->Execute(affected); }).number(), objectClosed);
  EXPECT_EQ(told.log, wholeWait);
  other.release();
  EXPECT_EQ(stored(), Texts{"1"});
}

TEST_F(SqliteWaiting, ReleasingTheConnectionEndsTheWaitsOfItsOwnMembers) {
  using Member = std::function<void(Connection&)>;
  std::int32_t affected = 0;
  for (const Member& member : {Member([&](Connection& it) { it.Execute(insert, affected); }),
                               Member([](Connection& it) { it.LockTable("a"); })}) {
    conn = file.open();
    conn->OnLockWait(&told);
    conn->BeginTrans();
    OtherWriter other(file.path());
    told.meanwhile = [&] { conn.reset(); };
    EXPECT_EQ(errorOf([&] { member(*conn); }).number(), objectClosed);
    other.release();
    EXPECT_EQ(stored(), Texts{"1"});
  }
}

}  // namespace vexnumkr::test
