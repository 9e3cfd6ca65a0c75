// The database contract on ADO objects, here the stand-ins for ADO's own, over a real SQLite file.
#include <cstdlib>
#include <fstream>

#include "adapters/automation/ado/connection.h"
#include "contract/database_contract.h"

namespace vexnumkr::test {
namespace {

using automation::AdoConnection;
using automation::LateBound;

// The codes by which providers tell these failures.
constexpr auto statementFailed = static_cast<std::int32_t>(0x80040E14);
constexpr auto tableMissing = static_cast<std::int32_t>(0x80040E37);
constexpr auto integrityViolated = static_cast<std::int32_t>(0x80040E2F);

class AdoDatabase : public TestDatabase {
 public:
  AdoDatabase() { std::ofstream("Z:" + path_); }
  ~AdoDatabase() override { std::remove(("Z:" + path_).c_str()); }

  std::shared_ptr<Connection> connect() override {
    auto connection = std::make_shared<AdoConnection>(LateBound::create("ADODB.Connection"));
    connection->ConnectionString("Driver=SQLite3;Database=" + path_);
    connection->Open("", "", ado::unspecified);
    return connection;
  }

 private:
  // The ODBC driver lies outside of Windows and knows no drives.
  static std::string freshPath() {
    static int count = 0;
    const char* const folder = std::getenv("VEXNUMKR_WORLD");
    EXPECT_NE(folder, nullptr);
    return std::string(folder != nullptr ? folder : "") + "/contract-" +
           std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count) + ".db";
  }

  const std::string path_ = freshPath();
};

Implementation adoImplementation() {
  return {"Ado", [] { return std::make_unique<AdoDatabase>(); },
          EngineNumbers{.syntaxError = statementFailed,
                        .unknownTable = tableMissing,
                        .duplicateKey = integrityViolated}};
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Windows, DatabaseContract, testing::Values(adoImplementation()),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace vexnumkr::test
