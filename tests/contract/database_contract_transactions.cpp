#include "contract/database_contract.h"

namespace vexnumkr::test {

using Texts = std::vector<std::string>;

TEST_P(DatabaseContract, ACommitMakesTheChangesVisibleToOthers) {
  conn->BeginTrans();
  run("INSERT INTO Werte (Nr) VALUES (1)");
  run("INSERT INTO Werte (Nr) VALUES (2)");
  EXPECT_EQ(committedRows("SELECT Nr FROM Werte", {"Nr"}), Texts{});
  conn->CommitTrans();
  EXPECT_EQ(committedRows("SELECT Nr FROM Werte ORDER BY Nr", {"Nr"}), (Texts{"1", "2"}));
}

TEST_P(DatabaseContract, ARollbackUndoesEverything) {
  run("INSERT INTO Werte (Nr, Zahl) VALUES (1, 10)");
  conn->BeginTrans();
  run("UPDATE Werte SET Zahl = 11");
  run("INSERT INTO Werte (Nr) VALUES (2)");
  run("DELETE FROM Werte WHERE Nr = 1");
  conn->RollbackTrans();
  EXPECT_EQ(rows("SELECT Nr, Zahl FROM Werte", {"Nr", "Zahl"}), Texts{"1|10"});
}

TEST_P(DatabaseContract, WithoutATransactionEveryStatementIsCommitted) {
  run("INSERT INTO Werte (Nr) VALUES (1)");
  EXPECT_EQ(committedRows("SELECT Nr FROM Werte", {"Nr"}), Texts{"1"});
}

TEST_P(DatabaseContract, TransactionsFollowOneAnother) {
  for (const int nr : {1, 2, 3}) {
    conn->BeginTrans();
    run("INSERT INTO Werte (Nr) VALUES (" + std::to_string(nr) + ")");
    if (nr == 2)
      conn->RollbackTrans();
    else
      conn->CommitTrans();
  }
  EXPECT_EQ(rows("SELECT Nr FROM Werte ORDER BY Nr", {"Nr"}), (Texts{"1", "3"}));
}

TEST_P(DatabaseContract, TransactionsDoNotNest) {
  conn->BeginTrans();
  run("INSERT INTO Werte (Nr) VALUES (1)");
  EXPECT_NE(errorOf([&] { conn->BeginTrans(); }).number(), 0);
  conn->RollbackTrans();
  EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{});
}

TEST_P(DatabaseContract, EndingATransactionThatIsNotOpenIsAnError) {
  EXPECT_NE(errorOf([&] { conn->CommitTrans(); }).number(), 0);
  EXPECT_NE(errorOf([&] { conn->RollbackTrans(); }).number(), 0);
  conn->BeginTrans();
  conn->CommitTrans();
  EXPECT_NE(errorOf([&] { conn->CommitTrans(); }).number(), 0);
  EXPECT_NE(errorOf([&] { conn->RollbackTrans(); }).number(), 0);
}

TEST_P(DatabaseContract, AFailedStatementLeavesTheTransactionAndWhatWasDoneBefore) {
  conn->BeginTrans();
  run("INSERT INTO Werte (Nr, Zahl) VALUES (1, 10)");
  EXPECT_EQ(errorOf(*conn, "INSERT INTO Werte (Nr) VALUES (1)").number(),
            GetParam().numbers.duplicateKey);
  EXPECT_EQ(errorOf(*conn, "SELECT * FROM GibtEsNicht").number(), GetParam().numbers.unknownTable);
  EXPECT_NE(errorOf(*conn, "SELECT 1; SELECT 2").number(), 0);
  EXPECT_EQ(run("UPDATE Werte SET Zahl = 11 WHERE Nr = 1"), 1);
  EXPECT_EQ(committedRows("SELECT Nr FROM Werte", {"Nr"}), Texts{});
  conn->CommitTrans();
  EXPECT_EQ(committedRows("SELECT Nr, Zahl FROM Werte", {"Nr", "Zahl"}), Texts{"1|11"});
}

TEST_P(DatabaseContract, AFailedStatementIsUndoneAsAWhole) {
  run("INSERT INTO Werte (Nr, Zahl) VALUES (1, 10)");
  run("INSERT INTO Werte (Nr, Zahl) VALUES (2, 20)");
  conn->BeginTrans();
  EXPECT_NE(errorOf(*conn, "UPDATE Werte SET Zahl = 0, Nr = 2").number(), 0);
  conn->CommitTrans();
  EXPECT_EQ(rows("SELECT Nr, Zahl FROM Werte ORDER BY Nr", {"Nr", "Zahl"}),
            (Texts{"1|10", "2|20"}));
}

TEST_P(DatabaseContract, AfterAFailureTheTransactionCanBeRolledBackAndBegunAgain) {
  conn->BeginTrans();
  run("INSERT INTO Werte (Nr) VALUES (1)");
  EXPECT_NE(errorOf(*conn, "INSERT INTO Werte (Nr) VALUES (1)").number(), 0);
  conn->RollbackTrans();
  conn->BeginTrans();
  run("INSERT INTO Werte (Nr) VALUES (2)");
  conn->CommitTrans();
  EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{"2"});
}

TEST_P(DatabaseContract, TheIsolationLevelIsSerializableWhenAskedFor) {
  conn->IsolationLevel(ado::isolated);
  EXPECT_EQ(conn->IsolationLevel(), ado::isolated);
  conn->BeginTrans();
  run("INSERT INTO Werte (Nr) VALUES (1)");
  conn->CommitTrans();
  EXPECT_EQ(committedRows("SELECT Nr FROM Werte", {"Nr"}), Texts{"1"});
}

TEST_P(DatabaseContract, AnIsolationLevelThatDoesNotExistIsAnError) {
  EXPECT_NE(errorOf([&] {
              conn->IsolationLevel(12345);
              conn->BeginTrans();
            }).number(),
            0);
}

TEST_P(DatabaseContract, ATransactionOfRepeatableReadsReads) {
  run("INSERT INTO Werte (Nr, Zahl) VALUES (1, 10)");
  conn->IsolationLevel(ado::repeatableRead);
  EXPECT_EQ(conn->IsolationLevel(), ado::repeatableRead);
  conn->BeginTrans();
  EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{"1"});
  EXPECT_NE(errorOf([&] { conn->BeginTrans(); }).number(), 0);
  conn->CommitTrans();
  conn->BeginTrans();
  EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{"1"});
  conn->RollbackTrans();
  run("INSERT INTO Werte (Nr, Zahl) VALUES (2, 20)");
  EXPECT_EQ(rows("SELECT Nr FROM Werte ORDER BY Nr", {"Nr"}), (Texts{"1", "2"}));
}

TEST_P(DatabaseContract, OthersReadWhatWasBeforeWhileATransactionRuns) {
  run("INSERT INTO Werte (Nr, Zahl) VALUES (1, 10)");
  const auto other = database->connect();
  conn->IsolationLevel(ado::isolated);
  conn->BeginTrans();
  run("UPDATE Werte SET Zahl = 11");
  EXPECT_EQ(test::rows(*other, "SELECT Zahl FROM Werte", {"Zahl"}), Texts{"10"});
  conn->CommitTrans();
  EXPECT_EQ(test::rows(*other, "SELECT Zahl FROM Werte", {"Zahl"}), Texts{"11"});
}

}  // namespace vexnumkr::test
