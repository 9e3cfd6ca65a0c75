// "vexnumkr schema" on every engine.
#include <gtest/gtest.h>

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
  const ProgramRun again = vexnumkr({"schema", "create"});
  EXPECT_EQ(again.exitCode, 2);
  EXPECT_NE(again.errors.find("gibt es schon: Nummernkreise,"), std::string::npos) << again.errors;
  EXPECT_EQ(current(1, "RE"), 1);
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
  EXPECT_EQ(vexnumkr({"schema", "create"}).exitCode, sharesNames ? 0 : 2);
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
