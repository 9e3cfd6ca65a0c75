// A session with something to save on a cluster whose nodes come and go.
#pragma once

#include <algorithm>
#include <memory>
#include <string>

#include <vexnumkr/adapters.h>

#include "cluster/test_cluster.h"
#include "contract/database_language.h"
#include "hosting/start_up.h"
#include "rules/saving_session.h"

namespace vexnumkr::test {

class ClusterSession : public SavingSession {
 protected:
  ClusterSession() {
    cluster.mend();  // The test's database is on every node then.
    company();
    before = stored();
    editedTable();
    values = rows();
  }
  ~ClusterSession() override {
    session().Conn().RollbackTrans();
    cluster.mend();
  }

  std::shared_ptr<Connection> openThrough(std::initializer_list<int> nodes) const {
    return openQtSqlConnection(throughNodes(connectionString(), nodes));
  }
  /// The dialog's connection, and one that is opened as its second one is.
  Connection& first() { return realConnection(*hostConnection()); }
  std::unique_ptr<Connection> second() {
    auto made = first().createConnection();
    made->ConnectionString(first().ConnectionString());
    made->Open("", "", ado::unspecified);
    return made;
  }

  /// The save fails with one box, whose text it returns, and leaves the values of the user alone.
  std::string refusal() {
    EXPECT_FALSE(save());
    const auto told = boxes();
    EXPECT_EQ(told.size(), 1U);
    EXPECT_EQ(sorted(rows()), sorted(values));
    EXPECT_TRUE(session().blnChanged());
    return told.empty() ? std::string() : told.front().prompt;
  }
  /// Nothing of the failed saves is stored; the next one stores everything.
  void expectSavingAgainWorks() {
    EXPECT_EQ(storedNow(), before);
    EXPECT_TRUE(save());
    for (const Box& box : boxes()) ADD_FAILURE() << box.prompt;
    EXPECT_EQ(storedRanges().size(), 8U);
    session().Conn().BeginTrans();
  }
  /// What the test looks at is read over a connection that may have been lost as well.
  Texts storedNow() {
    try {
      return stored();
    } catch (const Error&) {
      return stored();
    }
  }

  static Texts sorted(Texts texts) {
    std::sort(texts.begin(), texts.end());
    return texts;
  }

  TestCluster cluster;
  Texts before;
  Texts values;
};

}  // namespace vexnumkr::test
