#include "contract/database_contract.h"

namespace vexnumkr::test {

// Each program says which implementation it tests.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DatabaseContract);

void DatabaseContract::SetUp() {
  database = GetParam().start();
  conn = database->connect();
  run("CREATE TABLE Werte (Nr INTEGER NOT NULL, Zahl INTEGER, Gross BIGINT, Wahr SMALLINT, "
      "Inhalt VARCHAR(1000), PRIMARY KEY (Nr))");
  run("CREATE TABLE Sonderkreise (Herkunft VARCHAR(3) NOT NULL, U_NSchl VARCHAR(10) NOT NULL, "
      "NBezeichnung VARCHAR(50), Aktiviert SMALLINT, PRIMARY KEY (Herkunft, U_NSchl))");
}

void DatabaseContract::fillSonderkreise() {
  for (const char* const values : {"('ORB', 'S1', 'Sonder', 0)", "('ORB', 'S2', 'Sonder', 0)",
                                   "('ORB', 'S3', 'Sonder', 0)", "('ORC', 'S1', 'Sonder', 0)"})
    run("INSERT INTO Sonderkreise (Herkunft, U_NSchl, NBezeichnung, Aktiviert) VALUES " +
        std::string(values));
}

std::unique_ptr<Recordset> DatabaseContract::openWritable(const std::string& select) {
  auto recordset = conn->createRecordset();
  recordset->CursorLocation(ado::useClient);
  recordset->Open(select, *conn, ado::openKeyset, ado::lockOptimistic, ado::unspecified);
  return recordset;
}

}  // namespace vexnumkr::test
