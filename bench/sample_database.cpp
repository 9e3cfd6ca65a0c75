#include "bench/sample_database.h"

#include <cstdlib>

#include <vexnumkr/connection_string.h>

#include "app/sample/create_sample.h"

namespace vexnumkr::bench {

std::vector<std::string> otherEngines() {
  if (std::getenv("VEXNUMKR_TEST_SERVERS") == nullptr) return {};
  return {"postgresql", "mariadb", "odbc-postgresql", "odbc-sqlite"};
}

SampleDatabase::SampleDatabase(int scale, const std::string& engine) : database_(engine) {
  app::createSampleTables(connectionString(), scale);
}

std::string SampleDatabase::serverSocket() const {
  const std::string server = parseConnectionString(connectionString()).server;
  return isOnPostgresql() ? server + "/.s.PGSQL.5432" : server;
}

std::string SampleDatabase::connectionString(const std::string& host, std::uint16_t port) const {
  ConnectionSettings settings = parseConnectionString(connectionString());
  settings.server = host;
  settings.port = port;
  return composeConnectionString(settings);
}

}  // namespace vexnumkr::bench
