// A database of a test's own, on the engine that the test run asks for.
//
// ctest runs many programs once per engine and way to reach it: the environment variable
// VEXNUMKR_TEST_ENGINE names the way (sqlite where it is not set; the engines' folders say which
// there are, in test_databases.cmake), and VEXNUMKR_TEST_SERVERS the file that says where the
// servers are (tests/servers/fixture.sh). VEXNUMKR_TEST_CLUSTER, where it is set, names the cluster
// there whose nodes take the place of the one server (tests/cluster/fixture.sh).
#pragma once

#include <QTemporaryDir>
#include <memory>
#include <string>
#include <string_view>

#include "support/test_engines.h"

namespace vexnumkr::test {

/// The name of the engine asked for.
std::string engineUnderTest();

/// Empty, with text in UTF-8 that is compared by code points; gone with this object, whoever is
/// still connected. REQUIRES: a QCoreApplication. Error: std::runtime_error without a server.
class FreshDatabase {
 public:
  explicit FreshDatabase(const std::string& engine = engineUnderTest());
  ~FreshDatabase();
  FreshDatabase(const FreshDatabase&) = delete;
  FreshDatabase& operator=(const FreshDatabase&) = delete;

  /// As for openQtSqlConnection; for a user who may do everything, and who has a password on
  /// clusters only.
  const std::string& connectionString() const { return connectionString_; }
  /// The same for another user of the server.
  std::string connectionString(const std::string& user, const std::string& password) const;
  std::string engine() const { return std::string(way_.name); }
  /// The name of the engine whose definitions make the host's tables here.
  std::string schema() const { return std::string(way_.engine); }

  /// Runs a statement on the server as its administrator, outside this database.
  void administer(const std::string& statement) const;
  /// What the server calls the database; the file's path where there is no server.
  const std::string& name() const { return name_; }

 private:
  bool isOnServer() const;
  // With this database's name and its server's folder in their places.
  std::string filledIn(std::string_view text) const;

  const TestWay& way_;
  const TestEngine& engine_;
  QTemporaryDir folder_;  // Where there is no server.
  std::string name_;
  std::string connectionString_;
};

}  // namespace vexnumkr::test
