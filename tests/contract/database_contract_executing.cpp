#include <algorithm>
#include <cctype>

#include "contract/database_contract.h"

namespace vexnumkr::test {

using Texts = std::vector<std::string>;

namespace {

// Engines that fold names tell them folded.
bool namesWithoutCase(const std::string& message, const std::string& name) {
  return std::search(message.begin(), message.end(), name.begin(), name.end(), [](char a, char b) {
           return std::tolower(static_cast<unsigned char>(a)) ==
                  std::tolower(static_cast<unsigned char>(b));
         }) != message.end();
}

}  // namespace

TEST_P(DatabaseContract, ASelectAffectsTheRowsItFinds) {
  EXPECT_EQ(run("SELECT Nr FROM Werte"), 0);
  for (const int nr : {1, 2, 3}) run("INSERT INTO Werte (Nr) VALUES (" + std::to_string(nr) + ")");
  EXPECT_EQ(run("SELECT Nr FROM Werte WHERE Nr > 1"), 2);
  EXPECT_EQ(run("SELECT Nr FROM Werte WHERE Nr > 3"), 0);
}

TEST_P(DatabaseContract, AChangeAffectsTheRowsItChanges) {
  EXPECT_EQ(run("INSERT INTO Werte (Nr) VALUES (1)"), 1);
  EXPECT_EQ(run("INSERT INTO Werte (Nr) VALUES (2)"), 1);
  EXPECT_EQ(run("UPDATE Werte SET Zahl = 5"), 2);
  EXPECT_EQ(run("UPDATE Werte SET Zahl = 6 WHERE Nr = 3"), 0);
  EXPECT_EQ(run("DELETE FROM Werte WHERE Nr = 1"), 1);
  EXPECT_EQ(run("DELETE FROM Werte WHERE Nr = 1"), 0);
}

TEST_P(DatabaseContract, AStatementWithoutRowsLeavesARecordsetAtItsEnd) {
  std::int32_t affected = -1;
  const auto nothing = conn->Execute("INSERT INTO Werte (Nr) VALUES (1)", affected);
  ASSERT_TRUE(nothing);
  EXPECT_TRUE(nothing->EndOfFile());
  EXPECT_EQ(errorOf([&] { nothing->Fields("Nr"); }).number(), error_number::noCurrentRecord);
}

TEST_P(DatabaseContract, ACommandRunsItsText) {
  const auto command = conn->createCommand();
  command->ActiveConnection(*conn);
  command->CommandType(ado::commandText);
  command->CommandTimeout(0);
  command->CommandText("INSERT INTO Werte (Nr) VALUES (4)");
  std::int32_t affected = -1;
  command->Execute(affected);
  EXPECT_EQ(affected, 1);
  command->CommandText("SELECT Nr FROM Werte");
  EXPECT_EQ(rest(*command->Execute(affected), {"Nr"}), Texts{"4"});
  EXPECT_EQ(affected, 1);
  EXPECT_EQ(rest(*command->Execute(affected), {"Nr"}), Texts{"4"});
}

TEST_P(DatabaseContract, ASecondStatementIsRefusedAndNothingRuns) {
  run("INSERT INTO Werte (Nr) VALUES (1)");
  for (const char* const text :
       {"DELETE FROM Werte; SELECT 1", "DELETE FROM Werte;DELETE FROM Werte",
        "DELETE FROM Werte;\n--comment\nSELECT 1", "DELETE FROM Werte; /* ; */ SELECT 1;",
        "DELETE FROM Werte WHERE Inhalt IS NULL OR Inhalt = 'x'; DELETE FROM Werte --'",
        "SELECT Nr FROM Werte; DELETE FROM Werte", "; DELETE FROM Werte; DELETE FROM Werte",
        "DELETE FROM Werte; this is no statement"}) {
    EXPECT_NE(errorOf(*conn, text).number(), 0) << text;
    EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{"1"}) << text;
  }
}

TEST_P(DatabaseContract, ARecordsetAndACommandRefuseASecondStatementToo) {
  run("INSERT INTO Werte (Nr) VALUES (1)");
  const std::string text = "SELECT Nr FROM Werte; DELETE FROM Werte";
  EXPECT_NE(errorOf([&] { openWritable(text); }).number(), 0);
  const auto command = conn->createCommand();
  command->ActiveConnection(*conn);
  command->CommandText(text);
  std::int32_t affected = -1;
  EXPECT_NE(errorOf([&] { command->Execute(affected); }).number(), 0);
  EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{"1"});
}

TEST_P(DatabaseContract, WhatStandsAroundTheOneStatementDoesNotCount) {
  for (const char* const text :
       {"SELECT COUNT(*) AS X FROM Werte;", "SELECT COUNT(*) AS X FROM Werte ; \n",
        "  SELECT COUNT(*) AS X FROM Werte;;", "SELECT COUNT(*) AS X FROM Werte; -- done",
        "SELECT COUNT(*) AS X FROM Werte; /* done; really */",
        "/* first; */ SELECT COUNT(*) AS X FROM Werte -- last;"})
    EXPECT_EQ(value(*conn, text), Value(0)) << text;
}

TEST_P(DatabaseContract, SemicolonsInsideLiteralsSeparateNothing) {
  for (const char* const text : {"a;b", "a''; DELETE FROM Werte; --", ";", "-- ;", "/* ; */"}) {
    run("DELETE FROM Werte");
    EXPECT_EQ(run("INSERT INTO Werte (Nr, Inhalt) VALUES (1, '" + std::string(text) + "')"), 1);
  }
  EXPECT_EQ(value(*conn, "SELECT Inhalt AS X FROM Werte"), Value("/* ; */"));
}

TEST_P(DatabaseContract, TextsThatLookLikePlaceholdersAreTexts) {
  for (const char* const text : {"?", ":x", "@x", "$1", "%1", "a?b:c", "?1 :Nr :Inhalt", "\\"}) {
    run("DELETE FROM Werte");
    run("INSERT INTO Werte (Nr, Inhalt) VALUES (1, '" + std::string(text) + "')");
    EXPECT_EQ(shown(value(*conn, "SELECT Inhalt AS X FROM Werte")), shown(text));
    EXPECT_EQ(run("SELECT Nr FROM Werte WHERE Inhalt = '" + std::string(text) + "'"), 1);
  }
}

TEST_P(DatabaseContract, ATextWithoutAStatementIsAnError) {
  for (const char* const text : {"", " \n", ";", "-- nothing", "/* nothing */ ; "})
    EXPECT_NE(errorOf(*conn, text).number(), 0) << text;
}

TEST_P(DatabaseContract, AZeroCharacterDoesNotCutAStatement) {
  run("INSERT INTO Werte (Nr) VALUES (1)");
  const std::string text = std::string("DELETE FROM Werte ") + '\0' + " WHERE Nr = 2";
  EXPECT_NE(errorOf(*conn, text).number(), 0);
  EXPECT_EQ(rows("SELECT Nr FROM Werte", {"Nr"}), Texts{"1"});
}

TEST_P(DatabaseContract, FailuresCarryTheEnginesCodeAndMessage) {
  run("INSERT INTO Werte (Nr) VALUES (1)");
  const EngineNumbers& numbers = GetParam().numbers;

  const Error duplicate = errorOf(*conn, "INSERT INTO Werte (Nr) VALUES (1)");
  EXPECT_EQ(duplicate.number(), numbers.duplicateKey);
  EXPECT_FALSE(duplicate.description().empty());

  const Error unknown = errorOf(*conn, "SELECT * FROM GibtEsNicht");
  EXPECT_EQ(unknown.number(), numbers.unknownTable);
  EXPECT_TRUE(namesWithoutCase(unknown.description(), "GibtEsNicht")) << unknown.description();

  const Error syntax = errorOf(*conn, "INSERT INTO Werte (Nr, Inhalt) VALUES (2, 'O'Brien')");
  EXPECT_EQ(syntax.number(), numbers.syntaxError);
  EXPECT_NE(syntax.description().find("Brien"), std::string::npos) << syntax.description();
}

TEST_P(DatabaseContract, AFailureToOpenARecordsetLeavesItClosed) {
  const auto recordset = conn->createRecordset();
  const auto open = [&](const std::string& select) {
    recordset->Open(select, *conn, ado::openKeyset, ado::lockOptimistic, ado::unspecified);
  };
  EXPECT_EQ(errorOf([&] { open("SELECT * FROM GibtEsNicht"); }).number(),
            GetParam().numbers.unknownTable);
  open("SELECT * FROM Werte");
  EXPECT_TRUE(recordset->EndOfFile());
}

}  // namespace vexnumkr::test
