// The server goes away while somebody edits and saves: there is an error box, what was committed
// stays, what was not is gone as a whole, and saving again works once the server is back.
#include <functional>
#include <optional>

#include <vexnumkr/adapters.h>

#include "data/loading.h"
#include "hosting/start_up.h"
#include "rules/saving_session.h"
#include "servers/private_server.h"

namespace vexnumkr {
namespace {

using test::Texts;

// Does something right before the statement of a number.
class InterruptedCommand final : public Command {
 public:
  InterruptedCommand(std::unique_ptr<Command> real, int number, std::function<void()> interrupt)
      : real_(std::move(real)), number_(number), interrupt_(std::move(interrupt)) {}
  void ActiveConnection(Connection& connection) override { real_->ActiveConnection(connection); }
  void CommandType(std::int32_t type) override { real_->CommandType(type); }
  void CommandTimeout(std::int32_t seconds) override { real_->CommandTimeout(seconds); }
  void CommandText(const std::string& text) override { real_->CommandText(text); }
  std::unique_ptr<Recordset> Execute(std::int32_t& recordsAffected) override {
    if (++statements_ == number_) interrupt_();
    return real_->Execute(recordsAffected);
  }

 private:
  std::unique_ptr<Command> real_;
  int number_;
  std::function<void()> interrupt_;
  int statements_ = 0;
};

class LostServerTest : public test::SavingSession {
 protected:
  static void SetUpTestSuite() { server_.emplace(test::engineUnderTest()); }
  static void TearDownTestSuite() { server_.reset(); }
  static test::PrivateServer& server() { return *server_; }

  LostServerTest() {
    company();
    before = stored();
    editedTable();
    values = rows();
  }

  std::unique_ptr<Command> newCommand() {
    auto command = session().Conn().createCommand();
    command->ActiveConnection(session().Conn());
    return command;
  }
  /// The save fails with boxes and leaves the values of the user alone.
  void expectFailure() {
    EXPECT_FALSE(save());
    const auto raised = boxes();
    ASSERT_FALSE(raised.empty());
    for (const test::Box& box : raised) {
      EXPECT_TRUE(box.prompt.starts_with("basAllgemein\r\nSave: ")) << box.prompt;
      EXPECT_GT(box.prompt.size(), 21U) << "it says what has happened";
      EXPECT_EQ(box.buttons, 48);
    }
    EXPECT_EQ(rows().size(), values.size());
    EXPECT_TRUE(session().blnChanged());
  }
  /// Nothing of the failed saves is stored; the next one stores everything.
  void expectSavingAgainWorks() {
    EXPECT_EQ(stored(), before);
    session().source().cmdSQL(newCommand());
    EXPECT_TRUE(save());
    EXPECT_EQ(boxes().size(), 0U);
    EXPECT_NE(stored(), before);
    EXPECT_EQ(storedRanges().size(), 8U);
  }
  /// What the test looks at is read over a connection that may have been lost as well.
  Texts stored() {
    try {
      return SavingSession::stored();
    } catch (const Error&) {
      return SavingSession::stored();
    }
  }

  Texts before;
  Texts values;

 private:
  static std::optional<test::PrivateServer> server_;
};

std::optional<test::PrivateServer> LostServerTest::server_;

}  // namespace

TEST_F(LostServerTest, ItWasRestartedWhileTheDialogWasOpen) {
  server().stop();
  server().start();
  expectFailure();
  expectSavingAgainWorks();
}

TEST_F(LostServerTest, ItIsAwayForSeveralAttempts) {
  server().stop();
  expectFailure();
  expectFailure();
  server().start();
  expectSavingAgainWorks();
}

TEST_F(LostServerTest, ItIsKilledAtEveryStageOfASave) {
  for (const int statement : {1, 2, 3, 7, 12}) {
    SCOPED_TRACE("statement " + std::to_string(statement));
    session().source().cmdSQL(
        std::make_unique<InterruptedCommand>(newCommand(), statement, [] { server().kill(); }));
    expectFailure();
    server().start();
    EXPECT_EQ(stored(), before);
    session().rollBackTransaction();
    company();
    editedTable();
  }
  expectSavingAgainWorks();
}

TEST_F(LostServerTest, WhatWasCommittedSurvivesItsKilling) {
  EXPECT_TRUE(save());
  const Texts after = stored();
  EXPECT_NE(after, before);
  server().kill();
  server().start();
  EXPECT_EQ(stored(), after);
}

TEST_F(LostServerTest, CancellingNeedsNoServer) {
  server().kill();
  EXPECT_NO_THROW(session().rollBackTransaction());
  server().start();
  EXPECT_EQ(stored(), before);
}

TEST_F(LostServerTest, ATransactionThatWasBegunInVainMayBeBegunOnceMore) {
  const auto host = openQtSqlConnection(connectionString());
  server().stop();
  EXPECT_THROW(host->BeginTrans(), Error);
  EXPECT_THROW(host->BeginTrans(), Error);
  server().start();
  host->BeginTrans();
  EXPECT_THROW(host->BeginTrans(), Error) << "it has begun";
  host->RollbackTrans();
  session().Conn().RollbackTrans();
}

TEST_F(LostServerTest, TheWorkingConnectionComesBackToo) {
  server().stop();
  server().start();
  std::int32_t start = 1, current = 1, end = 1;
  const auto fetch = [&] { GetBuchungskreisData(7, "RE", start, end, current); };
  fetch();
  EXPECT_EQ(boxes().size(), 1U);
  fetch();
  EXPECT_EQ(boxes().size(), 0U);
  session().rollBackTransaction();
}

}  // namespace vexnumkr
