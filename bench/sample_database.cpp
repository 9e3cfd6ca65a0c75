#include "bench/sample_database.h"

#include <cstdlib>

#include "app/sample/create_sample.h"

namespace vexnumkr::bench {

std::vector<std::string> otherEngines() {
  if (std::getenv("VEXNUMKR_TEST_SERVERS") == nullptr) return {};
  return {"postgresql", "mariadb", "odbc-postgresql", "odbc-sqlite"};
}

SampleDatabase::SampleDatabase(int scale, const std::string& engine) : database_(engine) {
  app::createSampleTables(connectionString(), scale);
}

}  // namespace vexnumkr::bench
