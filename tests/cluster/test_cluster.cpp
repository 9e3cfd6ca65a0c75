#include "cluster/test_cluster.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <vexnumkr/connection_string.h>

namespace vexnumkr::test {

TestCluster::TestCluster() {
  const char* const kind = std::getenv("VEXNUMKR_TEST_CLUSTER");
  const char* const file = std::getenv("VEXNUMKR_TEST_SERVERS");
  kind_ = kind == nullptr ? "" : kind;
  std::ifstream stream(file == nullptr ? "" : file);
  if (kind_.empty() || !std::getline(stream, folder_))
    throw std::runtime_error("there is no test cluster");
}

void TestCluster::order(const std::string& action, int node) const {
  const std::string command = std::string("'") + CLUSTER_SCRIPT + "' " + kind_ + " " + action +
                              " '" + folder_ + "/" + kind_ + "' " +
                              (node == 0 ? std::string() : std::to_string(node)) + " >>'" +
                              folder_ + "/log' 2>&1 </dev/null";
  if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

std::string throughNodes(const std::string& connectionString, std::initializer_list<int> nodes) {
  ConnectionSettings settings = parseConnectionString(connectionString);
  const auto addresses = serverAddresses(settings);
  settings.server.clear();
  for (const int node : nodes) {
    const ServerAddress& address = addresses.at(static_cast<std::size_t>(node - 1));
    settings.server +=
        (settings.server.empty() ? "" : ",") + address.server + ':' + std::to_string(address.port);
  }
  return composeConnectionString(settings);
}

}  // namespace vexnumkr::test
