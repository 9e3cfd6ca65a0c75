#include "contract/database_contract.h"

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* withoutKeys =
    "SELECT NBezeichnung, Aktiviert FROM Sonderkreise WHERE Herkunft='ORB' ORDER BY U_NSchl";
constexpr const char* everything = "SELECT * FROM Sonderkreise ORDER BY Herkunft, U_NSchl";

}  // namespace

TEST_P(DatabaseContract, UpdateWritesTheRecordThatWasRead) {
  fillSonderkreise();
  const auto records = openWritable(
      "SELECT U_NSchl, Aktiviert FROM Sonderkreise WHERE Herkunft='ORB' ORDER BY U_NSchl DESC");
  records->MoveNext();
  records->Fields("Aktiviert", true);
  records->Update();
  EXPECT_EQ(committedRows(everything, {"Herkunft", "U_NSchl", "Aktiviert"}),
            (Texts{"'ORB'|'S1'|0", "'ORB'|'S2'|-1", "'ORB'|'S3'|0", "'ORC'|'S1'|0"}));
}

TEST_P(DatabaseContract, UpdateTellsRecordsApartThatLookTheSame) {
  fillSonderkreise();
  const auto records = openWritable(withoutKeys);
  for (const bool on : {true, false, true}) {
    records->Fields("Aktiviert", on);
    records->Update();
    records->MoveNext();
  }
  EXPECT_TRUE(records->EndOfFile());
  EXPECT_EQ(committedRows(everything, {"Herkunft", "U_NSchl", "Aktiviert"}),
            (Texts{"'ORB'|'S1'|-1", "'ORB'|'S2'|0", "'ORB'|'S3'|-1", "'ORC'|'S1'|0"}));
}

TEST_P(DatabaseContract, UpdateWritesSeveralFieldsOfEveryKind) {
  run("INSERT INTO Werte (Nr, Zahl, Inhalt) VALUES (1, 10, 'alt')");
  const auto records = openWritable("SELECT Zahl, Wahr, Inhalt FROM Werte");
  records->Fields("zahl", Null());
  records->Fields("WAHR", true);
  records->Fields("Inhalt", "O'Brien; -- ? :x Größe  ");
  records->Update();
  EXPECT_EQ(committedRows("SELECT * FROM Werte", {"Nr", "Zahl", "Wahr", "Inhalt"}),
            Texts{"1|Null|-1|'O'Brien; -- ? :x Größe  '"});
  records->Fields("Zahl", 2147483647);
  records->Fields("Inhalt", "");
  records->Update();
  EXPECT_EQ(committedRows("SELECT * FROM Werte", {"Zahl", "Inhalt"}), Texts{"2147483647|''"});
}

TEST_P(DatabaseContract, UpdateLeavesFieldsAloneThatWereNotSet) {
  fillSonderkreise();
  const auto records = openWritable(withoutKeys);
  run("UPDATE Sonderkreise SET NBezeichnung = 'anders' WHERE Herkunft = 'ORB' AND U_NSchl = 'S1'");
  records->Fields("Aktiviert", true);
  records->Update();
  EXPECT_EQ(rows("SELECT * FROM Sonderkreise WHERE Herkunft = 'ORB' AND U_NSchl = 'S1'",
                 {"NBezeichnung", "Aktiviert"}),
            Texts{"'anders'|-1"});
}

TEST_P(DatabaseContract, ValuesSetAreReadBack) {
  fillSonderkreise();
  const auto records = openWritable(withoutKeys);
  records->Fields("Aktiviert", true);
  EXPECT_EQ(records->Fields("aktiviert"), Value(-1));
  records->Update();
  records->MoveNext();
  records->MoveFirst();
  EXPECT_EQ(rest(*records, {"Aktiviert"}), (Texts{"-1", "0", "0"}));
}

TEST_P(DatabaseContract, AValueThatWasSetIsNotWrittenBeforeUpdate) {
  fillSonderkreise();
  const auto records = openWritable(withoutKeys);
  records->Fields("Aktiviert", true);
  EXPECT_EQ(committedRows(withoutKeys, {"Aktiviert"}), (Texts{"0", "0", "0"}));
  records->Update();
  EXPECT_EQ(committedRows(withoutKeys, {"Aktiviert"}), (Texts{"-1", "0", "0"}));
}

TEST_P(DatabaseContract, UpdateWithoutAValueSetWritesNothing) {
  fillSonderkreise();
  const auto records = openWritable(withoutKeys);
  run("UPDATE Sonderkreise SET Aktiviert = -1");
  records->Update();
  EXPECT_EQ(rows(withoutKeys, {"Aktiviert"}), (Texts{"-1", "-1", "-1"}));
}

TEST_P(DatabaseContract, UpdatesBelongToTheTransaction) {
  fillSonderkreise();
  conn->BeginTrans();
  const auto records = openWritable(withoutKeys);
  records->Fields("Aktiviert", true);
  records->Update();
  EXPECT_EQ(committedRows(withoutKeys, {"Aktiviert"}), (Texts{"0", "0", "0"}));
  conn->RollbackTrans();
  EXPECT_EQ(rows(withoutKeys, {"Aktiviert"}), (Texts{"0", "0", "0"}));
}

TEST_P(DatabaseContract, UpdateOfADeletedRecordIsAnError) {
  fillSonderkreise();
  const auto records = openWritable(withoutKeys);
  run("DELETE FROM Sonderkreise WHERE Herkunft = 'ORB' AND U_NSchl = 'S1'");
  records->Fields("Aktiviert", true);
  const Error error = errorOf([&] { records->Update(); });
  EXPECT_NE(error.number(), 0);
  EXPECT_FALSE(error.description().empty());
  EXPECT_EQ(rows(everything, {"Aktiviert"}), (Texts{"0", "0", "0"}));
}

TEST_P(DatabaseContract, AFailedUpdateCanBeTriedAgain) {
  run("INSERT INTO Werte (Nr, Inhalt) VALUES (1, 'a')");
  run("INSERT INTO Werte (Nr, Inhalt) VALUES (2, 'b')");
  const auto records = openWritable("SELECT Nr, Inhalt FROM Werte ORDER BY Nr");
  records->Fields("Nr", 2);
  EXPECT_EQ(errorOf([&] { records->Update(); }).number(), GetParam().numbers.duplicateKey);
  run("DELETE FROM Werte WHERE Nr = 2");
  records->Update();
  EXPECT_EQ(rows("SELECT Nr, Inhalt FROM Werte", {"Nr", "Inhalt"}), Texts{"2|'a'"});
}

TEST_P(DatabaseContract, ARecordWhoseKeyWasWrittenIsStillTheSame) {
  run("INSERT INTO Werte (Nr, Inhalt) VALUES (1, 'a')");
  fillSonderkreise();
  const auto numbers = openWritable("SELECT Nr, Inhalt FROM Werte");
  numbers->Fields("Nr", 7);
  numbers->Update();
  numbers->Fields("Inhalt", "b");
  numbers->Update();
  EXPECT_EQ(rows("SELECT Nr, Inhalt FROM Werte", {"Nr", "Inhalt"}), Texts{"7|'b'"});

  const auto records = openWritable("SELECT * FROM Sonderkreise WHERE Herkunft = 'ORC'");
  records->Fields("u_nschl", "S9");
  records->Update();
  records->Fields("Aktiviert", true);
  records->Update();
  EXPECT_EQ(rows("SELECT * FROM Sonderkreise WHERE Herkunft = 'ORC'", {"U_NSchl", "Aktiviert"}),
            Texts{"'S9'|-1"});
}

TEST_P(DatabaseContract, ThereIsNothingToWriteAtTheEnd) {
  const auto records = openWritable(withoutKeys);
  EXPECT_TRUE(records->EndOfFile());
  EXPECT_EQ(errorOf([&] { records->Fields("Aktiviert", true); }).number(),
            error_number::noCurrentRecord);
  EXPECT_EQ(errorOf([&] { records->Update(); }).number(), error_number::noCurrentRecord);
}

TEST_P(DatabaseContract, SettingAnUnknownFieldIsAnErrorThatNamesIt) {
  fillSonderkreise();
  const auto records = openWritable(withoutKeys);
  const Error error = errorOf([&] { records->Fields("Herkunft", "ORC"); });
  EXPECT_EQ(error.number(), 3265);
  EXPECT_NE(error.description().find("Herkunft"), std::string::npos) << error.description();
}

TEST_P(DatabaseContract, OtherRecordsetsAreReadOnly) {
  fillSonderkreise();
  std::int32_t affected = -1;
  const auto executed = conn->Execute(withoutKeys, affected);
  EXPECT_EQ(errorOf([&] { executed->Fields("Aktiviert", true); }).number(), 3251);
  EXPECT_EQ(errorOf([&] { executed->Update(); }).number(), 3251);

  const auto readOnly = conn->createRecordset();
  readOnly->Open(withoutKeys, *conn, ado::openForwardOnly, ado::lockReadOnly, ado::unspecified);
  EXPECT_EQ(errorOf([&] { readOnly->Fields("Aktiviert", true); }).number(), 3251);
  EXPECT_EQ(errorOf([&] { readOnly->Update(); }).number(), 3251);
  EXPECT_EQ(rest(*readOnly, {"Aktiviert"}), (Texts{"0", "0", "0"}));
}

TEST_P(DatabaseContract, ARowThatIsNoRecordCannotBeWritten) {
  fillSonderkreise();
  for (const char* const select :
       {"SELECT COUNT(*) AS Aktiviert FROM Sonderkreise",
        "SELECT MAX(Aktiviert) AS Aktiviert FROM Sonderkreise GROUP BY Herkunft",
        "SELECT DISTINCT Aktiviert FROM Sonderkreise",
        "SELECT s.Aktiviert FROM Sonderkreise s, Sonderkreise t",
        "SELECT Aktiviert FROM Sonderkreise UNION SELECT Aktiviert FROM Sonderkreise"}) {
    const auto records = openWritable(select);
    ASSERT_FALSE(records->EndOfFile()) << select;
    EXPECT_EQ(errorOf([&] {
                records->Fields("Aktiviert", true);
                records->Update();
              }).number(),
              3251)
        << select;
  }
  EXPECT_EQ(rows(everything, {"Aktiviert"}), (Texts{"0", "0", "0", "0"}));
}

}  // namespace vexnumkr::test
