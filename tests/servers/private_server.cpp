#include "servers/private_server.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace vexnumkr::test {
namespace {

// Whose server an engine of the tests is on, by whatever driver.
std::string serverOf(const std::string& engine) {
  for (const char* const server : {"mariadb", "postgresql"})
    if (engine.ends_with(server)) return server;
  throw std::runtime_error("there is no server of " + engine);
}

}  // namespace

PrivateServer::PrivateServer(const std::string& engine) : server_(serverOf(engine)) {
  const std::string folder = folder_.path().toStdString();
  // The server may run as another user, which has to pass through.
  ::chmod(folder.c_str(), 0711);
  std::ofstream(folder + "/servers") << folder << '\n';
  ::setenv("VEXNUMKR_TEST_SERVERS", (folder + "/servers").c_str(), 1);
  watch(folder);
  start();
}

PrivateServer::~PrivateServer() {
  try {
    kill();
  } catch (const std::exception&) {
    // It is stopped already.
  }
}

// Stops the server after a test that crashes or is killed.
void PrivateServer::watch(const std::string& folder) {
  const std::string command = std::string("setsid '") + FIXTURE_SCRIPT + "' watch '" + folder +
                              "/servers' '" + folder + "' " + std::to_string(::getpid()) +
                              " >/dev/null 2>&1 </dev/null &";
  if (std::system(command.c_str()) != 0)
    throw std::runtime_error("cannot watch over the server: " + command);
}

void PrivateServer::order(const std::string& action) {
  const std::string folder = folder_.path().toStdString();
  const std::string command = std::string("'") + SERVER_SCRIPT + "' " + server_ + " " + action +
                              " '" + folder + "/" + server_ + "' >>'" + folder +
                              "/log' 2>&1 </dev/null";
  if (std::system(command.c_str()) != 0)
    throw std::runtime_error("cannot " + action + " the server: " + command);
}

}  // namespace vexnumkr::test
