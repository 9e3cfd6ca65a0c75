// The database contract on SQLite, opened by a connection string.
#include "contract/sqlite_database.h"

namespace vexnumkr::test {

INSTANTIATE_TEST_SUITE_P(
    Sqlite, DatabaseContract,
    testing::Values(sqliteImplementation("ByString", [](SqliteFile& file) { return file.open(); })),
    [](const auto& tested) { return tested.param.name; });

}  // namespace vexnumkr::test
