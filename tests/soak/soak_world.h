// A company on a database of the engine that the test run asks for, hosts that work on it, and what
// goes wrong around them; and the watch over what is stored.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <vexnumkr/component.h>

#include "servers/private_server.h"
#include "support/faults/failing_disk.h"
#include "support/faults/hooked_connection.h"
#include "support/fresh_database.h"

namespace vexnumkr::test {

/// How often each kind of trouble has come.
struct Troubles {
  long statements = 0;
  long commits = 0;
  long connects = 0;
  long disk = 0;
  long servers = 0;
  long draws = 0;
  long secondDialogs = 0;
  long circles = 0;
  long saves = 0;
  long checks = 0;
};

/// Everything that is stored is at any time what a host's transaction held when it was committed,
/// or differs from that by a number that was drawn; anything else fails the test.
class SoakWorld {
 public:
  /// `random` is borrowed.
  explicit SoakWorld(std::mt19937& random);
  ~SoakWorld();
  SoakWorld(const SoakWorld&) = delete;
  SoakWorld& operator=(const SoakWorld&) = delete;

  /// A host opens the dialog of application 1 or 2 for one of the users.
  void session();
  /// What happens around a user between two steps: draws, another dialog, trouble; then the check.
  void afterStep();
  /// From now on everything works.
  void heal();
  void check();

  const Troubles& troubles() const { return troubles_; }

 private:
  class Host;

  int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(random_); }
  bool chance(int perThousand) { return upTo(999) < perThousand; }
  bool isOnServer() const { return engineUnderTest() != "sqlite"; }

  void writeAhead();
  void makeCompany();
  std::shared_ptr<Connection> connect();
  std::vector<std::string> contents(Connection& connection) const;
  void follow(Hooks& hooks, const std::shared_ptr<Connection>& real);
  void misbehave(const std::string& member);
  void committing(Connection& connection);
  void committed();
  void draw();
  void drawn(std::vector<std::string> found, bool hasDrawn);
  void maintainCircles(Connection& connection);
  void killServer();

  std::mt19937& random_;
  std::unique_ptr<PrivateServer> server_;
  FreshDatabase database_;
  FailingDisk disk_;
  std::vector<std::string> stored_;
  std::optional<std::vector<std::string>> pending_;  // of a commit that has not returned yet
  Troubles troubles_;
  int open_ = 0;  // dialogs
  bool isHealthy_ = false;
};

}  // namespace vexnumkr::test
