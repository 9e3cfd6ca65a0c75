#include "contract/database_contract.h"

namespace vexnumkr::test {

using Texts = std::vector<std::string>;

TEST_P(DatabaseContract, FieldNamesAreFoundWithoutRegardToCase) {
  run("INSERT INTO Werte (Nr, Zahl) VALUES (1, 7)");
  EXPECT_EQ(rows("SELECT Nr, Zahl FROM Werte", {"Nr", "NR", "zahl", "ZaHl"}), Texts{"1|1|7|7"});
  EXPECT_EQ(rows("SELECT * FROM Werte", {"nr", "ZAHL"}), Texts{"1|7"});
}

TEST_P(DatabaseContract, AnAliasNamesTheField) {
  EXPECT_EQ(rows("SELECT COUNT(*) AS Anzahl FROM Werte", {"Anzahl"}), Texts{"0"});
}

TEST_P(DatabaseContract, NullIsToldFromAnEmptyText) {
  run("INSERT INTO Werte (Nr, Zahl, Inhalt) VALUES (1, 0, '')");
  run("INSERT INTO Werte (Nr, Zahl, Inhalt) VALUES (2, NULL, NULL)");
  EXPECT_EQ(rows("SELECT Zahl, Inhalt FROM Werte ORDER BY Nr", {"Zahl", "Inhalt"}),
            (Texts{"0|''", "Null|Null"}));
}

TEST_P(DatabaseContract, IntegersComeAsNumbers) {
  run("INSERT INTO Werte (Nr, Zahl) VALUES (1, -2147483648)");
  run("INSERT INTO Werte (Nr, Zahl) VALUES (2, 2147483647)");
  EXPECT_EQ(rows("SELECT Zahl FROM Werte ORDER BY Nr", {"Zahl"}),
            (Texts{"-2147483648", "2147483647"}));
}

TEST_P(DatabaseContract, IntegersBeyond32BitsOverflowOnlyWhenConverted) {
  run("INSERT INTO Werte (Nr, Gross) VALUES (1, 2147483648)");
  run("INSERT INTO Werte (Nr, Gross) VALUES (2, -9223372036854775807)");
  EXPECT_EQ(rows("SELECT Gross FROM Werte ORDER BY Nr", {"Gross"}),
            (Texts{"'2147483648'", "'-9223372036854775807'"}));
  const Value big = value(*conn, "SELECT Gross AS X FROM Werte WHERE Nr = 1");
  EXPECT_EQ(errorOf([&] { big.toLong(); }).number(), error_number::overflow);
}

TEST_P(DatabaseContract, BooleansComeAsNumbers) {
  run("INSERT INTO Werte (Nr, Wahr) VALUES (1, -1)");
  run("INSERT INTO Werte (Nr, Wahr) VALUES (2, 0)");
  EXPECT_EQ(rows("SELECT Wahr FROM Werte ORDER BY Nr", {"Wahr"}), (Texts{"-1", "0"}));
}

TEST_P(DatabaseContract, TextsComeAsTheyWereWritten) {
  for (const char* const text :
       {"Größenänderung für 5 € ß", "ends in blanks  ", "  begins with blanks", " ",
        "tab\tand\r\nline", "\xF0\x9F\xA7\xBE receipt", "100 %1 \"quoted\" `so` [or] so", "007",
        "1.000,50"}) {
    run("DELETE FROM Werte");
    run("INSERT INTO Werte (Nr, Inhalt) VALUES (1, '" + std::string(text) + "')");
    EXPECT_EQ(shown(value(*conn, "SELECT Inhalt AS X FROM Werte")), shown(text));
  }
}

TEST_P(DatabaseContract, ALongTextComesWhole) {
  std::string text;
  while (text.size() < 900) text += "äöüß€";
  run("INSERT INTO Werte (Nr, Inhalt) VALUES (1, '" + text + "')");
  EXPECT_EQ(value(*conn, "SELECT Inhalt AS X FROM Werte"), Value(text));
}

TEST_P(DatabaseContract, RowsComeInTheirOrder) {
  for (const int nr : {3, 1, 2}) run("INSERT INTO Werte (Nr) VALUES (" + std::to_string(nr) + ")");
  EXPECT_EQ(rows("SELECT Nr FROM Werte ORDER BY Nr DESC", {"Nr"}), (Texts{"3", "2", "1"}));
}

TEST_P(DatabaseContract, AnEmptyResultIsAtItsEnd) {
  std::int32_t affected = -1;
  const auto found = conn->Execute("SELECT Nr FROM Werte", affected);
  EXPECT_TRUE(found->EndOfFile());
  EXPECT_EQ(errorOf([&] { found->MoveFirst(); }).number(), error_number::noCurrentRecord);
  EXPECT_EQ(errorOf([&] { found->MoveNext(); }).number(), error_number::noCurrentRecord);
  EXPECT_EQ(errorOf([&] { found->Fields("Nr"); }).number(), error_number::noCurrentRecord);
}

TEST_P(DatabaseContract, TheEndIsBehindTheLastRow) {
  run("INSERT INTO Werte (Nr) VALUES (1)");
  std::int32_t affected = -1;
  const auto found = conn->Execute("SELECT Nr FROM Werte", affected);
  EXPECT_FALSE(found->EndOfFile());
  found->MoveNext();
  EXPECT_TRUE(found->EndOfFile());
  EXPECT_EQ(errorOf([&] { found->Fields("Nr"); }).number(), error_number::noCurrentRecord);
  EXPECT_EQ(errorOf([&] { found->MoveNext(); }).number(), error_number::noCurrentRecord);
  EXPECT_TRUE(found->EndOfFile());
}

TEST_P(DatabaseContract, MoveFirstStartsAnew) {
  for (const int nr : {1, 2, 3}) run("INSERT INTO Werte (Nr) VALUES (" + std::to_string(nr) + ")");
  const auto found = openWritable("SELECT Nr FROM Werte ORDER BY Nr");
  EXPECT_EQ(rest(*found, {"Nr"}), (Texts{"1", "2", "3"}));
  found->MoveFirst();
  EXPECT_EQ(rest(*found, {"Nr"}), (Texts{"1", "2", "3"}));
}

TEST_P(DatabaseContract, AnUnknownFieldIsAnErrorThatNamesIt) {
  run("INSERT INTO Werte (Nr) VALUES (1)");
  std::int32_t affected = -1;
  const auto found = conn->Execute("SELECT Nr FROM Werte", affected);
  const Error error = errorOf([&] { found->Fields("Maske"); });
  EXPECT_EQ(error.number(), 3265);
  EXPECT_NE(error.description().find("Maske"), std::string::npos) << error.description();
}

TEST_P(DatabaseContract, ARecordsetGoesOnWhileOtherStatementsRun) {
  for (const int nr : {1, 2}) run("INSERT INTO Werte (Nr) VALUES (" + std::to_string(nr) + ")");
  std::int32_t affected = -1;
  const auto first = conn->Execute("SELECT Nr FROM Werte ORDER BY Nr", affected);
  const auto second = conn->Execute("SELECT Nr FROM Werte ORDER BY Nr DESC", affected);
  run("DELETE FROM Werte");
  EXPECT_EQ(rest(*first, {"Nr"}), (Texts{"1", "2"}));
  EXPECT_EQ(rest(*second, {"Nr"}), (Texts{"2", "1"}));
}

// More rows than an implementation would keep at once.
TEST_P(DatabaseContract, RowsThatStayOnTheServerComeOneAfterTheOther) {
  constexpr int count = 1 << 15;
  run("INSERT INTO Werte (Nr, Zahl) VALUES (0, 7)");
  for (int rows = 1; rows < count; rows *= 2)
    run("INSERT INTO Werte (Nr, Zahl) SELECT Nr + " + std::to_string(rows) + ", 7 FROM Werte");
  const auto readAll = [&] {
    const auto found = conn->createRecordset();
    found->CursorLocation(ado::useServer);
    found->Open("SELECT Nr FROM Werte ORDER BY Nr", *conn, ado::openForwardOnly, ado::lockReadOnly,
                ado::unspecified);
    found->MoveFirst();
    int expected = 0;
    for (; !found->EndOfFile(); found->MoveNext(), ++expected)
      if (found->Fields("nr").toLong() != expected) break;
    EXPECT_EQ(expected, count);
    EXPECT_EQ(errorOf([&] { found->MoveNext(); }).number(), 3021);
    found->Close();
  };
  readAll();
  conn->IsolationLevel(ado::repeatableRead);
  conn->BeginTrans();
  readAll();
  {
    const auto half = conn->createRecordset();
    half->Open("SELECT Nr FROM Werte", *conn, ado::openForwardOnly, ado::lockReadOnly,
               ado::unspecified);
    half->MoveNext();
  }
  EXPECT_EQ(rows("SELECT COUNT(*) AS Anzahl FROM Werte", {"Anzahl"}), Texts{std::to_string(count)});
  const auto wrong = conn->createRecordset();
  EXPECT_EQ(errorOf([&] {
              wrong->Open("SELECT * FROM GibtEsNicht", *conn, ado::openForwardOnly,
                          ado::lockReadOnly, ado::unspecified);
            }).number(),
            GetParam().numbers.unknownTable);
  readAll();
  conn->CommitTrans();
}

}  // namespace vexnumkr::test
