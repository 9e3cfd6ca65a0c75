// The database contract on a SQLite database that the host has opened itself.
#include <vexnumkr/adapters.h>

#include "contract/sqlite/sqlite_database.h"

namespace vexnumkr::test {
namespace {

// Keeps the host's database open for as long as the connection that borrows it.
std::shared_ptr<Connection> borrow(SqliteFile& file) {
  struct Borrowed {
    explicit Borrowed(const std::string& path)
        : host(path), connection(borrowQtSqlConnection(host.get())) {}
    HostDatabase host;
    std::shared_ptr<Connection> connection;
  };
  const auto borrowed = std::make_shared<Borrowed>(file.path());
  return {borrowed, borrowed->connection.get()};
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Sqlite, DatabaseContract,
                         testing::Values(sqliteImplementation("Borrowed", borrow)),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace vexnumkr::test
