// The database contract on the engine that the test run asks for: with connections that the adapter
// opens, and on a database that the host has opened itself.
#include <QSqlDatabase>
#include <QSqlQuery>

#include <vexnumkr/adapters.h>
#include <vexnumkr/connection_string.h>

#include "adapters/qtsql/opening/database_handle.h"
#include "contract/database_contract.h"
#include "support/fresh_database.h"

namespace vexnumkr::test {
namespace {

class OpenedDatabase : public TestDatabase {
 public:
  std::shared_ptr<Connection> connect() override {
    return openQtSqlConnection(database_.connectionString());
  }

 private:
  FreshDatabase database_;
};

// A host on MariaDB opens its database so that texts mean what stands in them.
void prepareHost(const QSqlDatabase& host) {
  if (engineUnderTest() == "mariadb")
    QSqlQuery(host).exec(
        QStringLiteral("SET sql_mode = CONCAT(@@sql_mode, ',NO_BACKSLASH_ESCAPES')"));
}

// Keeps the host's database open for as long as the connection that borrows it.
class BorrowedDatabase : public TestDatabase {
 public:
  std::shared_ptr<Connection> connect() override {
    struct Borrowed {
      explicit Borrowed(const std::string& text)
          : settings(parseConnectionString(text)),
            host(qtsql::driverOf(settings.driver), settings),
            connection(borrow(host.get())) {}
      static std::shared_ptr<Connection> borrow(const QSqlDatabase& database) {
        prepareHost(database);
        return borrowQtSqlConnection(database);
      }
      ConnectionSettings settings;
      qtsql::DatabaseHandle host;
      std::shared_ptr<Connection> connection;
    };
    const auto borrowed = std::make_shared<Borrowed>(database_.connectionString());
    return {borrowed, borrowed->connection.get()};
  }

 private:
  FreshDatabase database_;
};

// Codes with letters, as PostgreSQL's 42P01, are no numbers.
constexpr std::int32_t withLetters = -2147467259;

EngineNumbers numbersOf(const std::string& engine) {
  if (engine == "postgresql")
    return {.syntaxError = 42601, .unknownTable = withLetters, .duplicateKey = 23505};
  if (engine == "mariadb") return {.syntaxError = 1064, .unknownTable = 1146, .duplicateKey = 1062};
  if (engine == "odbc-postgresql") return {.syntaxError = 1, .unknownTable = 1, .duplicateKey = 1};
  if (engine == "odbc-sqlite") return {.syntaxError = 1, .unknownTable = 1, .duplicateKey = 19};
  return {.syntaxError = 1, .unknownTable = 1, .duplicateKey = 1555};
}

template <class Database>
Implementation implementation(const char* name) {
  return {name, [] { return std::make_unique<Database>(); }, numbersOf(engineUnderTest())};
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Engine, DatabaseContract,
                         testing::Values(implementation<OpenedDatabase>("Opened"),
                                         implementation<BorrowedDatabase>("Borrowed")),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace vexnumkr::test
