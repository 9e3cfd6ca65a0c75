// The doctor on databases that are set up well, and in each way badly.
#include <gtest/gtest.h>

#include <QDate>
#include <QTemporaryFile>

#include <vexnumkr/adapters.h>
#include <vexnumkr/number_doctor.h>

#include "numbers/numbers_database.h"

namespace vexnumkr::test {
namespace {

using Lines = std::vector<std::string>;

class DoctorTest : public NumbersDatabase {
 protected:
  DoctorTest() { user("Anna"); }

  /// The names of what is not fine.
  Lines problems(const std::string& date) {
    Lines names;
    for (const numbers::Diagnosis& diagnosis : numbers::diagnose(connection(), date)) {
      if (diagnosis.isFine) continue;
      names.push_back(diagnosis.name);
      EXPECT_NE(diagnosis.problem, "") << diagnosis.name;
      EXPECT_NE(diagnosis.remedy, "") << diagnosis.name;
    }
    return names;
  }
  Lines problems() {
    return problems(QDate::currentDate().toString(QStringLiteral("yyyyMMdd")).toStdString());
  }
  /// Makes the ranges' table anew.
  void ranges(const std::string& definition) {
    sql("DROP TABLE Nummernkreise");
    sql("CREATE TABLE Nummernkreise (" + definition + ")");
  }
};

const std::string numbersOf32Bits = "StartWert INTEGER, AktuellerWert INTEGER, EndWert INTEGER, ";
const std::string rest = "SortierIndex INTEGER, IstNSchlVon VARCHAR(10), Maske VARCHAR(40)";

TEST_F(DoctorTest, ASoundDatabaseIsFineAndStaysAsItWas) {
  range(1, "RE", 1, 1, 9);
  EXPECT_EQ(problems(), Lines{});
  EXPECT_EQ(rows("SELECT COUNT(*) AS N FROM Nummernkreise", {"N"}), Lines{"1"});
  EXPECT_EQ(rows("SELECT COUNT(*) AS N FROM Nummernkreis_Zuordnung", {"N"}), Lines{"0"});
}

TEST_F(DoctorTest, ValuesThatAreNoNumbersOf32BitsAreNamed) {
  ranges(
      "Buchungskreis INTEGER, NSchl VARCHAR(10), NBezeichnung VARCHAR(60), StartWert VARCHAR(20), "
      "AktuellerWert BIGINT, EndWert INTEGER, Aktiviert SMALLINT, " +
      rest);
  for (const char* const values :
       {"1, 'RE', 'Beleg', 'abc', 1, 9", "2, 'RE', 'Beleg', '1', 4294967296, 9"})
    sql("INSERT INTO Nummernkreise (Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, "
        "EndWert) VALUES (" +
        std::string(values) + ")");
  std::string problem;
  for (const numbers::Diagnosis& diagnosis : numbers::diagnose(connection(), "20261121"))
    if (std::string(diagnosis.name) == "values") problem = diagnosis.problem;
  EXPECT_NE(problem.find("RE, Buchungskreis 1: StartWert \"abc\""), std::string::npos) << problem;
  EXPECT_NE(problem.find("RE, Buchungskreis 2: AktuellerWert \"4294967296\""), std::string::npos)
      << problem;
}

TEST_F(DoctorTest, EachProblemOfATableIsASentence) {
  sql("DROP TABLE Nummernkreis_Sonderkreise");
  sql("DROP TABLE tblUser");
  const std::string problem = numbers::diagnose(connection(), "20261121")[0].problem;
  const std::size_t second = problem.find("Die Tabelle", 5);
  ASSERT_NE(second, std::string::npos) << problem;
  EXPECT_EQ(problem.substr(second - 2, 2), ". ") << problem;
  EXPECT_TRUE(problem.ends_with('.')) << problem;
}

TEST_F(DoctorTest, AFileThatIsNoDatabaseIsCalledThat) {
  if (database().engine() != "sqlite") GTEST_SKIP() << "there are no files to open";
  QTemporaryFile file;
  ASSERT_TRUE(file.open());
  file.write(QByteArray(4096, 'x'));
  file.flush();
  const auto text = openQtSqlConnection("Driver=QSQLITE;Database=" + file.fileName().toStdString());
  const numbers::Diagnosis found = numbers::diagnose(*text, "20261121")[0];
  EXPECT_EQ(found.problem, "Die Datei ist keine Datenbank.");
  EXPECT_EQ(found.remedy, "In der Verbindung die Datei der Datenbank nennen.");
}

TEST_F(DoctorTest, MissingTablesAndColumnsAreNamed) {
  sql("DROP TABLE Nummernkreis_Sonderkreise");
  ranges("Buchungskreis INTEGER, NSchl VARCHAR(10), NBezeichnung VARCHAR(60), " + numbersOf32Bits +
         "Aktiviert SMALLINT, SortierIndex INTEGER, IstNSchlVon VARCHAR(10)");
  const auto found = numbers::diagnose(connection(), "20261121");
  ASSERT_FALSE(found.empty());
  EXPECT_NE(found[0].problem.find("In Nummernkreise fehlt: Maske."), std::string::npos)
      << found[0].problem;
  EXPECT_NE(found[0].problem.find("Die Tabelle Nummernkreis_Sonderkreise ist nicht lesbar"),
            std::string::npos)
      << found[0].problem;
}

TEST_F(DoctorTest, AMissingKeyIsTold) {
  ranges("Buchungskreis INTEGER, NSchl VARCHAR(10), NBezeichnung VARCHAR(60), " + numbersOf32Bits +
         "Aktiviert SMALLINT, " + rest);
  EXPECT_EQ(problems(), Lines{"key"});
}

TEST_F(DoctorTest, ALooseComparisonOfTextsIsTold) {
  if (database().engine().ends_with("postgresql"))
    GTEST_SKIP() << "PostgreSQL compares texts exactly whatever their collation";
  const std::string loose =
      isSqlite() ? "VARCHAR(10) COLLATE NOCASE" : "VARCHAR(10) COLLATE utf8mb4_general_ci";
  ranges("Buchungskreis INTEGER, NSchl " + loose + ", NBezeichnung VARCHAR(60), " +
         numbersOf32Bits + "Aktiviert SMALLINT, " + rest + ", PRIMARY KEY (Buchungskreis, NSchl)");
  EXPECT_EQ(problems(), Lines{"collation"});
}

TEST_F(DoctorTest, ColumnsThatCannotHoldTheValuesAreTold) {
  if (isSqlite()) GTEST_SKIP() << "SQLite's columns hold numbers of any size";
  ranges(
      "Buchungskreis INTEGER, NSchl VARCHAR(10), NBezeichnung VARCHAR(60), StartWert SMALLINT, "
      "AktuellerWert INTEGER, EndWert INTEGER, Aktiviert SMALLINT, " +
      rest + ", PRIMARY KEY (Buchungskreis, NSchl)");
  EXPECT_EQ(problems(), Lines{"writing"});
}

TEST_F(DoctorTest, WhoeverKeepsOthersFromReadingIsTold) {
  if (database().engine() != "sqlite")
    GTEST_SKIP() << "readers do not wait on servers, and 100 s behind SQLite's ODBC driver";
  std::int32_t affected = 0;
  connection().Execute("PRAGMA locking_mode = EXCLUSIVE", affected);
  connection().Execute("UPDATE tblUser SET strUserName_PK = 'Anne'", affected);
  EXPECT_EQ(problems(), Lines{"isolation"});
}

TEST_F(DoctorTest, ABackslashWithAMeaningIsTold) {
  if (database().engine() != "mariadb") GTEST_SKIP() << "elsewhere it never has one";
  std::int32_t affected = 0;
  connection().Execute("SET SESSION sql_mode = 'STRICT_TRANS_TABLES,ANSI_QUOTES'", affected);
  EXPECT_EQ(problems(), Lines{"settings"});
}

TEST_F(DoctorTest, TablesWithoutTransactionsAreToldAndCleanedUp) {
  if (database().engine() != "mariadb") GTEST_SKIP() << "only MariaDB has such tables";
  sql("ALTER TABLE Nummernkreise ENGINE = MyISAM");
  EXPECT_EQ(problems(), (Lines{"isolation", "rollback"}));
  EXPECT_EQ(rows("SELECT COUNT(*) AS N FROM Nummernkreise", {"N"}), Lines{"0"});
}

TEST_F(DoctorTest, MissingValuesAndUsersAreTold) {
  range(1, "RE", 1, 1, 9);
  sql("UPDATE Nummernkreise SET EndWert = NULL");
  sql("DELETE FROM tblUser");
  EXPECT_EQ(problems(), (Lines{"values", "users"}));
  user("Alle Benutzer");
  EXPECT_EQ(problems(), (Lines{"values", "users"}));
}

TEST_F(DoctorTest, AClockThatIsWrongIsTold) { EXPECT_EQ(problems("20010203"), Lines{"clock"}); }

}  // namespace
}  // namespace vexnumkr::test
