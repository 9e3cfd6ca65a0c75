// The cluster of the test run, for tests that ill-treat it.
#pragma once

#include <initializer_list>
#include <string>

namespace vexnumkr::test {

/// What is done to nodes, which count from 1, as tests/cluster/cluster.sh does it; each returns
/// when it is done. Error: std::runtime_error where it cannot be done.
class TestCluster {
 public:
  TestCluster();

  /// Three nodes of MariaDB; else a primary of PostgreSQL and its standby.
  bool isGalera() const { return kind_ == "galera"; }

  void kill(int node) const { order("kill", node); }
  void join(int node) const { order("join", node); }
  void cut(int node) const { order("cut", node); }
  void promote(int node) const { order("promote", node); }
  /// All nodes are up, reachable and in step again.
  void mend() const { order("mend", 0); }

 private:
  void order(const std::string& action, int node) const;

  std::string kind_;
  std::string folder_;
};

/// The connection string of a cluster with only these of its nodes, in this order.
std::string throughNodes(const std::string& connectionString, std::initializer_list<int> nodes);

}  // namespace vexnumkr::test
