// The dialog on a cluster of three nodes: whatever becomes of the node that it works on, there is
// one box, everything is as before, and saving again works on one of the others.
#include <vexnumkr/connection_string.h>
#include <vexnumkr/number_doctor.h>

#include "cluster/cluster_session.h"

namespace vexnumkr {
namespace {

class GaleraTest : public test::ClusterSession {
 protected:
  // What the test reads is what all nodes have committed.
  GaleraTest() { CoreSession::sql("SET SESSION wsrep_sync_wait = 15"); }

  static std::string nodeOf(Connection& connection) {
    return test::value(connection, "SELECT @@GLOBAL.wsrep_node_name AS X").toText();
  }
  /// Keeps the first node from the others, and waits until it has noticed.
  void isolateTheFirst() {
    const auto first = openThrough({1});
    test::run(*first, "SET GLOBAL wsrep_provider_options = 'gmcast.isolate=1'");
    while (test::rows(*first, "SHOW GLOBAL STATUS LIKE 'wsrep_cluster_status'", {"Value"}) ==
           test::Texts{"'Primary'"}) {
    }
  }
  /// Until the other nodes have noticed that the first has gone.
  void waitUntilTwoAreInStep() const {
    const auto node = openThrough({2});
    while (test::rows(*node, "SHOW GLOBAL STATUS LIKE 'wsrep_cluster_size'", {"Value"}) !=
               test::Texts{"'2'"} ||
           test::rows(*node, "SHOW GLOBAL STATUS LIKE 'wsrep_local_state_comment'", {"Value"}) !=
               test::Texts{"'Synced'"}) {
    }
  }
};

}  // namespace

TEST_F(GaleraTest, BothConnectionsAreOnTheFirstNodeThatIsNamed) {
  EXPECT_EQ(nodeOf(first()), "node1");
  EXPECT_EQ(nodeOf(*second()), "node1");
  EXPECT_EQ(nodeOf(*openThrough({3, 1, 2})), "node3");
}

TEST_F(GaleraTest, AfterItsNodeWasKilledTheDialogGoesOnOnTheNext) {
  const auto working = second();
  cluster.kill(1);
  waitUntilTwoAreInStep();
  EXPECT_TRUE(refusal().starts_with("basAllgemein\r\nSave: "));
  expectSavingAgainWorks();
  EXPECT_EQ(nodeOf(first()), "node2");
  EXPECT_EQ(nodeOf(*working), "node2");
  const auto third = openThrough({3});
  test::run(*third, "SET SESSION wsrep_sync_wait = 15");
  EXPECT_EQ(test::rows(*third, "SELECT COUNT(*) AS N FROM Nummernkreise", {"N"}), test::Texts{"8"});
}

TEST_F(GaleraTest, ANodeWithoutMajoritySaysSoAndIsLeft) {
  isolateTheFirst();
  const std::string told = refusal();
  EXPECT_NE(told.find("arbeitet gerade nicht mit den anderen seines Clusters zusammen"),
            std::string::npos)
      << told;
  expectSavingAgainWorks();
  EXPECT_EQ(nodeOf(first()), "node2");
  EXPECT_EQ(nodeOf(*openThrough({1, 3})), "node3");
  const Error alone = test::errorOf(*openThrough({1}), "SELECT * FROM Nummernkreise");
  EXPECT_EQ(alone.number(), 1047) << alone.description();
}

TEST_F(GaleraTest, WhatCertificationRefusesIsSavedTheNextTime) {
  const auto other = openThrough({2});
  script().afterwards = [&](const std::string& entry) {
    if (!entry.starts_with("conn: SELECT COUNT")) return;
    script().afterwards = nullptr;
    test::run(*other,
              "UPDATE Nummernkreise SET SortierIndex = 77 WHERE Buchungskreis = 1 AND "
              "NSchl = 'RE'");
  };
  const std::string told = refusal();
  EXPECT_NE(told.find("hatte Vorrang"), std::string::npos) << told;
  EXPECT_EQ(sentAndRead().back(), "conn: BEGIN");
  EXPECT_EQ(storedNow().size(), before.size());
  EXPECT_TRUE(save());
  EXPECT_EQ(storedRanges().size(), 8U);
  session().Conn().BeginTrans();
}

TEST_F(GaleraTest, ACommitElsewhereMayEndTheOpenTransaction) {
  std::int32_t affected = 0;
  first().Execute(
      "UPDATE Nummernkreis_Buchungskreise SET Beschreibung = 'Mein' WHERE Herkunft = 'ORB' AND "
      "Buchungskreis = 1",
      affected);
  const auto other = openThrough({2});
  test::run(*other,
            "UPDATE Nummernkreis_Buchungskreise SET Beschreibung = 'Fremd' WHERE "
            "Herkunft = 'ORB' AND Buchungskreis = 1");
  EXPECT_EQ(select("SELECT Beschreibung FROM Nummernkreis_Buchungskreise WHERE Buchungskreis = 1"),
            test::Texts{"Fremd"});
  const std::string told = refusal();
  EXPECT_NE(told.find("hatte Vorrang"), std::string::npos) << told;
  expectSavingAgainWorks();
  EXPECT_EQ(select("SELECT Beschreibung FROM Nummernkreis_Buchungskreise WHERE Buchungskreis = 1"),
            test::Texts{"Fremd"});
}

TEST_F(GaleraTest, ASilentNodeIsGivenUp) {
  ConnectionSettings settings = parseConnectionString(connectionString());
  settings.options = "MYSQL_OPT_READ_TIMEOUT=1";
  const auto open = openQtSqlConnection(composeConnectionString(settings));
  cluster.cut(1);
  EXPECT_NE(test::errorOf(*open, "SELECT * FROM Nummernkreise").number(), 0);
  EXPECT_EQ(nodeOf(*open), "node2");
  EXPECT_EQ(nodeOf(*openThrough({1, 3})), "node3");
}

TEST_F(GaleraTest, TheDoctorMissesAPrimaryKey) {
  const auto clusterProblem = [&] {
    std::string problem = "nothing about clusters";
    for (const numbers::Diagnosis& each : numbers::diagnose(first(), "20261121"))
      if (each.name == "cluster") problem = each.problem;
    return problem;
  };
  session().Conn().RollbackTrans();
  EXPECT_EQ(clusterProblem(), "");
  CoreSession::sql("ALTER TABLE Nummernkreis_Zuordnung DROP COLUMN Zeile");
  EXPECT_EQ(clusterProblem(), "Ohne Primärschlüssel: Nummernkreis_Zuordnung.");
  session().Conn().BeginTrans();
}

}  // namespace vexnumkr
