// A database of the engine under test, with a table, and the connections of the dialog to it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/adapters.h>
#include <vexnumkr/connection_string.h>
#include <vexnumkr/engines.h>

#include "adapters/qtsql/opening/database_handle.h"
#include "contract/database_language.h"
#include "support/fresh_database.h"

namespace vexnumkr::test {

using Texts = std::vector<std::string>;

/// A database that a host has opened itself, with nothing set.
class HostsDatabase {
 public:
  explicit HostsDatabase(const FreshDatabase& database)
      : settings_(parseConnectionString(database.connectionString())),
        handle_(qtsql::driverOf(settings_.driver), settings_) {}
  const QSqlDatabase& get() const { return handle_.get(); }

 private:
  ConnectionSettings settings_;
  qtsql::DatabaseHandle handle_;
};

class EngineSessions : public ::testing::Test {
 protected:
  EngineSessions() : conn(open()) {
    run("CREATE TABLE Kreise (Nr INTEGER NOT NULL, Text VARCHAR(100), Wahr SMALLINT, "
        "PRIMARY KEY (Nr))");
  }

  std::shared_ptr<Connection> open() { return openQtSqlConnection(database.connectionString()); }
  /// The working connection as the component opens it.
  std::unique_ptr<Connection> openWorking() {
    auto work = conn->createConnection();
    work->ConnectionString(conn->ConnectionString());
    work->IsolationLevel(ado::isolated);
    work->Open("", "", ado::unspecified);
    return work;
  }
  std::int32_t run(const std::string& text) { return test::run(*conn, text); }
  bool is(const std::string& engine) const { return database.engine() == engine; }
  bool isPostgresql() const { return database.engine().ends_with("postgresql"); }
  bool isSqlite() const { return database.engine().ends_with("sqlite"); }
  Texts stored() {
    return test::rows(*open(), "SELECT Nr, Text FROM Kreise ORDER BY Nr", {"Text"});
  }

  FreshDatabase database;
  std::shared_ptr<Connection> conn;
};

inline std::unique_ptr<Recordset> openWritable(Connection& connection, const std::string& select) {
  auto recordset = connection.createRecordset();
  recordset->CursorLocation(ado::useClient);
  recordset->Open(select, connection, ado::openKeyset, ado::lockOptimistic, ado::unspecified);
  return recordset;
}

}  // namespace vexnumkr::test
