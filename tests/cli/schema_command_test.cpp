// "vexnumkr schema" on every engine.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "cli/program_database.h"

namespace vexnumkr::test {
namespace {

const std::vector<std::string> tables = {"Nummernkreise", "Nummernkreis_Buchungskreise",
                                         "Nummernkreis_Zuordnung", "Nummernkreis_Sonderkreise",
                                         "tblUser"};

class SchemaCommandTest : public ProgramDatabase {
 protected:
  SchemaCommandTest() {
    for (const std::string& table : tables) sql("DROP TABLE " + table);
  }
  std::string engineName() const {
    const std::string& engine = database().engine();
    return engine.starts_with("odbc-") ? engine.substr(5) : engine;
  }
};

TEST_F(SchemaCommandTest, MakesTheTablesOnce) {
  EXPECT_EQ(printed({"schema", "create"}),
            "Angelegt:\n  Nummernkreise\n  Nummernkreis_Buchungskreise\n"
            "  Nummernkreis_Zuordnung\n  Nummernkreis_Sonderkreise\n  tblUser\n");
  range(1, "RE", 1, 1, 9);
  EXPECT_EQ(printed({"schema", "create"}),
            "Gibt es schon:\n  Nummernkreise\n  Nummernkreis_Buchungskreise\n"
            "  Nummernkreis_Zuordnung\n  Nummernkreis_Sonderkreise\n  tblUser\n"
            "Es ist nichts zu tun.\n");
  EXPECT_EQ(current(1, "RE"), 1);
}

TEST_F(SchemaCommandTest, WhatIsThereStaysAndTheRestIsMade) {
  sql("CREATE TABLE tblUser (strUserName_PK VARCHAR(50) NOT NULL PRIMARY KEY, Email VARCHAR(50))");
  sql("CREATE TABLE Nummernkreis_Zuordnung (Buchungskreis INTEGER, NSchl VARCHAR(50), Benutzer "
      "VARCHAR(50), Herkunft VARCHAR(50))");
  EXPECT_EQ(printed({"schema", "create"}),
            "Angelegt:\n  Nummernkreise\n  Nummernkreis_Buchungskreise\n"
            "  Nummernkreis_Sonderkreise\nGibt es schon:\n  Nummernkreis_Zuordnung\n  tblUser\n");
  EXPECT_EQ(rows("SELECT Email FROM tblUser", {"Email"}), std::vector<std::string>{});
  range(1, "RE", 1, 1, 9);
}

TEST_F(SchemaCommandTest, ASqliteFileThatIsNotThereIsMade) {
  if (database().engine() != "sqlite") GTEST_SKIP() << "only SQLite has files";
  const QTemporaryDir folder;
  const std::string file = folder.filePath(QStringLiteral("neu.db")).toStdString();
  const std::string connection = "Driver=QSQLITE;Database=" + file;
  const auto exists = [&] { return QFile::exists(QString::fromStdString(file)); };
  const std::vector<std::string> call = {"schema", "create", "--connection", connection};
  std::vector<std::string> trial = call;
  trial.push_back("--dry-run");
  EXPECT_TRUE(printed(trial).starts_with("Es würden angelegt:\n  Nummernkreise\n"));
  EXPECT_FALSE(exists());
  std::vector<std::string> wrong = call;
  wrong.insert(wrong.end(), {"--engine", "mariadb"});
  EXPECT_EQ(vexnumkr(wrong).exitCode, 2);
  EXPECT_FALSE(exists());
  EXPECT_TRUE(printed(call).starts_with("Angelegt:\n  Nummernkreise\n"));
  EXPECT_TRUE(exists());
  EXPECT_EQ(vexnumkr({"schema", "create", "--connection", "Driver=QSQLITE;Database=/nirgends/x.db"})
                .errors,
            "vexnumkr: Die Datei /nirgends/x.db ist nicht anzulegen: No such file or directory.\n");
}

TEST_F(SchemaCommandTest, ATrialMakesNothing) {
  EXPECT_TRUE(printed({"schema", "create", "--dry-run"}).starts_with("Es würden angelegt:\n"));
  EXPECT_EQ(vexnumkr({"schema", "create"}).exitCode, 0);
}

TEST_F(SchemaCommandTest, MakesAllTablesOrNone) {
  sql("CREATE TABLE Nummernkreis_Zuordnung_Alle (X INTEGER)");  // the name of an index
  const bool sharesNames = engineName() != "mariadb";
  EXPECT_EQ(vexnumkr({"schema", "create"}).exitCode, sharesNames ? 3 : 0);
  sql("DROP TABLE Nummernkreis_Zuordnung_Alle");
  EXPECT_EQ(vexnumkr({"schema", "create"}).exitCode, 0);
}

TEST_F(SchemaCommandTest, WhatItPrintsMakesTheTablesToo) {
  const std::string json = printed({"schema", "print", "--engine", engineName(), "--json"});
  EXPECT_NE(json.find("\"CREATE TABLE Nummernkreise"), std::string::npos);
  std::string script = printed({"schema", "print", "--engine", engineName()});
  EXPECT_TRUE(script.starts_with("-- The five tables")) << script;
  for (std::size_t end = script.find(";\n"); end != std::string::npos; end = script.find(";\n")) {
    sql(script.substr(0, end));
    script.erase(0, end + 2);
  }
  range(1, "RE", 1, 1, 9);
  EXPECT_EQ(current(1, "RE"), 1);
}

TEST_F(SchemaCommandTest, TheEngineHasToBeTheOneReached) {
  const std::string other = engineName() == "sqlite" ? "mariadb" : "sqlite";
  const ProgramRun run = vexnumkr({"schema", "create", "--engine", other});
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors,
            "vexnumkr: Die Verbindung führt zu " + engineName() + ", nicht zu " + other + ".\n");
}

}  // namespace
}  // namespace vexnumkr::test
