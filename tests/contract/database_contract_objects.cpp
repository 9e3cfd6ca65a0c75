#include "contract/database_contract.h"

namespace vexnumkr::test {

using Texts = std::vector<std::string>;

TEST_P(DatabaseContract, AFurtherConnectionIsOpenedByTheConnectionString) {
  run("INSERT INTO Werte (Nr) VALUES (1)");
  const auto work = conn->createConnection();
  work->CommandTimeout(0);
  work->ConnectionString(conn->ConnectionString());
  work->ConnectionTimeout(0);
  work->CursorLocation(ado::useServer);
  work->IsolationLevel(ado::isolated);
  work->Open("", "", ado::unspecified);
  EXPECT_EQ(test::rows(*work, "SELECT Nr FROM Werte", {"Nr"}), Texts{"1"});
  work->Close();
  EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{"1"});
}

TEST_P(DatabaseContract, AFurtherConnectionIsAnotherOne) {
  conn->BeginTrans();
  const auto work = conn->createConnection();
  work->ConnectionString(conn->ConnectionString());
  work->Open("", "", ado::unspecified);
  run("INSERT INTO Werte (Nr) VALUES (1)");
  EXPECT_EQ(test::run(*work, "SELECT Nr FROM Werte"), 0);
  conn->CommitTrans();
  EXPECT_EQ(test::run(*work, "SELECT Nr FROM Werte"), 1);
}

TEST_P(DatabaseContract, ANewConnectionIsClosed) {
  const auto work = conn->createConnection();
  EXPECT_NE(errorOf(*work, "SELECT Nr FROM Werte").number(), 0);
  EXPECT_NE(errorOf([&] { work->BeginTrans(); }).number(), 0);
  EXPECT_NE(errorOf([&] { work->CommitTrans(); }).number(), 0);
  EXPECT_NE(errorOf([&] { work->RollbackTrans(); }).number(), 0);
  EXPECT_NE(errorOf([&] { work->Close(); }).number(), 0);
}

TEST_P(DatabaseContract, AnOpenConnectionIsNotOpenedAgain) {
  EXPECT_NE(errorOf([&] { conn->Open("", "", ado::unspecified); }).number(), 0);
  EXPECT_NE(errorOf([&] { conn->ConnectionString("Driver=X;Database=Y"); }).number(), 0);
  EXPECT_EQ(run("SELECT Nr FROM Werte"), 0);
}

TEST_P(DatabaseContract, AClosedConnectionRefusesEverything) {
  const auto work = database->connect();
  const auto command = work->createCommand();
  command->ActiveConnection(*work);
  command->CommandText("SELECT Nr FROM Werte");
  work->Close();
  std::int32_t affected = -1;
  EXPECT_NE(errorOf(*work, "SELECT Nr FROM Werte").number(), 0);
  EXPECT_NE(errorOf([&] { command->Execute(affected); }).number(), 0);
  EXPECT_NE(errorOf([&] { work->BeginTrans(); }).number(), 0);
  EXPECT_NE(errorOf([&] { work->Close(); }).number(), 0);
  const auto recordset = conn->createRecordset();
  EXPECT_NE(errorOf([&] {
              recordset->Open("SELECT Nr FROM Werte", *work, ado::openKeyset, ado::lockOptimistic,
                              ado::unspecified);
            }).number(),
            0);
}

TEST_P(DatabaseContract, ClosingRollsTheTransactionBack) {
  const auto work = database->connect();
  work->BeginTrans();
  test::run(*work, "INSERT INTO Werte (Nr) VALUES (1)");
  work->Close();
  EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{});
  EXPECT_EQ(run("INSERT INTO Werte (Nr) VALUES (1)"), 1);
}

TEST_P(DatabaseContract, ReleasingRollsTheTransactionBack) {
  auto work = database->connect();
  work->BeginTrans();
  test::run(*work, "INSERT INTO Werte (Nr) VALUES (1)");
  work.reset();
  EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{});
}

TEST_P(DatabaseContract, ACommandNeedsAConnection) {
  const auto command = conn->createCommand();
  command->CommandText("SELECT Nr FROM Werte");
  std::int32_t affected = -1;
  EXPECT_NE(errorOf([&] { command->Execute(affected); }).number(), 0);
}

TEST_P(DatabaseContract, ANewRecordsetIsClosed) {
  const auto recordset = conn->createRecordset();
  EXPECT_NE(errorOf([&] { recordset->EndOfFile(); }).number(), 0);
  EXPECT_NE(errorOf([&] { recordset->MoveFirst(); }).number(), 0);
  EXPECT_NE(errorOf([&] { recordset->MoveNext(); }).number(), 0);
  EXPECT_NE(errorOf([&] { recordset->Fields("Nr"); }).number(), 0);
  EXPECT_NE(errorOf([&] { recordset->Fields("Nr", 1); }).number(), 0);
  EXPECT_NE(errorOf([&] { recordset->Update(); }).number(), 0);
  EXPECT_NE(errorOf([&] { recordset->Close(); }).number(), 0);
}

TEST_P(DatabaseContract, ARecordsetIsOpenedAgainOnlyAfterItsClose) {
  fillSonderkreise();
  const auto recordset = openWritable("SELECT Nr FROM Werte");
  const auto openAgain = [&] {
    recordset->Open("SELECT U_NSchl FROM Sonderkreise WHERE Herkunft = 'ORC'", *conn,
                    ado::openKeyset, ado::lockOptimistic, ado::unspecified);
  };
  EXPECT_NE(errorOf(openAgain).number(), 0);
  recordset->Close();
  EXPECT_NE(errorOf([&] { recordset->EndOfFile(); }).number(), 0);
  EXPECT_EQ(recordset->CursorLocation(), ado::useClient);
  openAgain();
  EXPECT_EQ(rest(*recordset, {"U_NSchl"}), Texts{"'S1'"});
}

}  // namespace vexnumkr::test
