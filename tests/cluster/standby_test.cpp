// The dialog on a primary with a standby, which takes its place.
#include <chrono>
#include <future>

#include "cluster/cluster_session.h"

namespace vexnumkr {
namespace {

class StandbyTest : public test::ClusterSession {
 protected:
  /// The nodes of the test run as they are now.
  StandbyTest() : primary(isStandby(1) ? 2 : 1), standby(3 - primary) {}

  bool isStandby(int node) const {
    return test::value(*openThrough({node}), "SELECT pg_is_in_recovery()::integer AS X") ==
           Value(1);
  }
  bool isOnStandby(Connection& connection) {
    return test::value(connection, "SELECT pg_is_in_recovery()::integer AS X") == Value(1);
  }
  static std::string portOf(Connection& connection) {
    return test::value(connection, "SELECT inet_server_port() AS X").toText();
  }

  const int primary;
  const int standby;
};

}  // namespace

TEST_F(StandbyTest, TheStandbyIsPassedOverUnlessItIsTheOnlyOneNamed) {
  EXPECT_FALSE(isOnStandby(first()));
  EXPECT_EQ(portOf(*second()), portOf(first()));
  EXPECT_FALSE(isOnStandby(*openThrough({standby, primary})));
  EXPECT_TRUE(isOnStandby(*openThrough({standby})));
}

TEST_F(StandbyTest, AfterThePrimaryWasKilledTheDialogGoesOnOnTheStandbyOnceItIsPromoted) {
  EXPECT_TRUE(save());
  before = stored();
  session().Conn().BeginTrans();
  SetValueAll("RE", 1, &RangeRow::EndWert, 250);
  values = rows();
  session().blnChanged(true);
  cluster.kill(primary);
  refusal();
  const std::string again = refusal();
  EXPECT_NE(again.find("Keiner der Datenbankserver nimmt zurzeit Änderungen an."),
            std::string::npos)
      << again;
  EXPECT_NE(again.find(": Der Server ist ein Standby und nimmt keine Änderungen an."),
            std::string::npos)
      << again;
  cluster.promote(standby);
  cluster.join(primary);
  expectSavingAgainWorks();
  EXPECT_EQ(portOf(*second()), portOf(first()));
}

TEST_F(StandbyTest, APrimaryThatTakesNoMoreChangesSaysSo) {
  const auto administrator = openThrough({primary});
  test::run(*administrator, "ALTER SYSTEM SET default_transaction_read_only = on");
  test::run(*administrator, "SELECT pg_reload_conf()");
  while (
      test::value(*administrator, "SELECT current_setting('default_transaction_read_only') AS X") ==
      Value("off")) {
  }
  const std::string first = refusal();
  EXPECT_NE(first.find("vielleicht ist inzwischen ein anderer der Hauptserver"), std::string::npos)
      << first;
  const std::string again = refusal();
  EXPECT_NE(again.find("nur zum Lesen freigegeben"), std::string::npos) << again;
  cluster.mend();
  while (
      test::value(*administrator, "SELECT current_setting('default_transaction_read_only') AS X") ==
      Value("on")) {
  }
  expectSavingAgainWorks();
}

TEST_F(StandbyTest, ACommitWaitsForTheStandbyWhateverTimeStatementsHave) {
  session().Conn().RollbackTrans();
  cluster.kill(standby);
  const auto committed = std::async(std::launch::async, [&] {
    const auto limited = openThrough({primary});
    limited->CommandTimeout(1);
    limited->BeginTrans();
    test::run(*limited, "UPDATE Nummernkreise SET SortierIndex = 77");
    limited->CommitTrans();
  });
  const auto hasEnded = [&] {
    return committed.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
  };
  const auto observer = openThrough({primary});
  while (!hasEnded() && test::value(*observer,
                                    "SELECT COUNT(*)::integer AS X FROM pg_stat_activity WHERE "
                                    "wait_event = 'SyncRep' AND clock_timestamp() - state_change > "
                                    "interval '2 seconds'") != Value(1)) {
  }
  EXPECT_FALSE(hasEnded()) << "it was told as committed, and the standby lacks it";
  cluster.join(standby);
  committed.wait();
  session().Conn().BeginTrans();
}

TEST_F(StandbyTest, ASilentServerIsGivenUp) {
  cluster.cut(primary);
  const Error refused = test::errorOf([&] { openThrough({primary, standby}); });
  EXPECT_EQ(refused.number(), 3709);
  EXPECT_NE(refused.description().find("Standby"), std::string::npos) << refused.description();
  cluster.mend();
  EXPECT_FALSE(isOnStandby(*openThrough({primary, standby})));
}

}  // namespace vexnumkr
