// The database contract on the connection that records and fails on command: it must not change
// what it forwards.
#include "contract/sqlite/sqlite_database.h"
#include "support/faults/scripted_connection.h"

namespace vexnumkr::test {
namespace {

class ScriptedDatabase : public TestDatabase {
 public:
  std::shared_ptr<Connection> connect() override {
    return scriptedConnection(file_.open(), script_);
  }

 private:
  SqliteFile file_;
  ConnectionScript script_;
};

Implementation scripted() {
  Implementation implementation = sqliteImplementation("Scripted", nullptr);
  implementation.start = [] { return std::make_unique<ScriptedDatabase>(); };
  return implementation;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Sqlite, DatabaseContract, testing::Values(scripted()),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace vexnumkr::test
