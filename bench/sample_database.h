// A database with a sample company, on any engine.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/fresh_database.h"

namespace vexnumkr::bench {

/// The engine of comparisons that need none in particular.
inline constexpr const char* fileEngine = "sqlite";

/// The engines on servers, and those behind ODBC; empty unless the environment says where the
/// servers are (see FreshDatabase).
std::vector<std::string> otherEngines();

/// The company of that scale (see sampleCompany); gone with this object.
class SampleDatabase {
 public:
  explicit SampleDatabase(int scale, const std::string& engine = fileEngine);

  const std::string& connectionString() const { return database_.connectionString(); }
  /// The socket in the file system of the server that it is on.
  std::string serverSocket() const;
  /// To reach it by another address of the server.
  std::string connectionString(const std::string& host, std::uint16_t port) const;
  bool isOnPostgresql() const { return database_.engine().ends_with("postgresql"); }

 private:
  test::FreshDatabase database_;
};

}  // namespace vexnumkr::bench
