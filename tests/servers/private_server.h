// A database server that a test may stop and kill.
#pragma once

#include <QTemporaryDir>
#include <string>

namespace vexnumkr::test {

/// Runs in a folder of its own until this object goes, or this program in any other way, and takes
/// the place of the test run's servers for FreshDatabase in this program. REQUIRES: an engine that
/// has a server.
class PrivateServer {
 public:
  /// The engine as FreshDatabase calls it. Started; std::runtime_error when that fails.
  explicit PrivateServer(const std::string& engine);
  ~PrivateServer();
  PrivateServer(const PrivateServer&) = delete;
  PrivateServer& operator=(const PrivateServer&) = delete;

  void start() { order("start"); }
  /// As its administrator does.
  void stop() { order("stop"); }
  /// As a power failure does.
  void kill() { order("kill"); }

  /// The files of the server.
  std::string folder() const { return folder_.path().toStdString() + "/" + server_; }

 private:
  static void watch(const std::string& folder);
  void order(const std::string& action);

  QTemporaryDir folder_;
  std::string server_;  // As server.sh calls it.
};

}  // namespace vexnumkr::test
