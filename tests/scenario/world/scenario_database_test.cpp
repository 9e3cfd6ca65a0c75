#include <gtest/gtest.h>

#include <filesystem>

#include <vexnumkr/error.h>

#include "scenario/world/database.h"
#include "scenario/world/temporary_folder.h"

namespace vexnumkr::scenario {
namespace {

class ScenarioDatabaseTest : public ::testing::Test {
 protected:
  ScenarioDatabaseTest() { database_.createTables(); }

  std::string file() const { return folder_.path() + "/nummern.db"; }

  TemporaryFolder folder_;
  ScenarioDatabase database_{"Driver=QSQLITE;Database=" + folder_.path() + "/nummern.db"};
};

TEST_F(ScenarioDatabaseTest, ListsRowsOrderedByAllColumns) {
  database_.run("INSERT INTO Nummernkreis_Zuordnung VALUES (2, 'RE', 'Max', 'ORC')");
  database_.run("INSERT INTO Nummernkreis_Zuordnung VALUES (10, 'RE', 'Max', 'ORB')");
  database_.run("INSERT INTO Nummernkreis_Zuordnung VALUES (2, 'RE', 'ALL', 'ORC')");
  EXPECT_EQ(
      database_.rows("Nummernkreis_Zuordnung"),
      (std::vector<PrintedRow>{"2 | RE | ALL | ORC", "2 | RE | Max | ORC", "10 | RE | Max | ORB"}));
}

TEST_F(ScenarioDatabaseTest, PrintsNullAndEmptyAsNothing) {
  database_.run("INSERT INTO Nummernkreise (Buchungskreis, NSchl, Maske) VALUES (1, 'a|b', '')");
  EXPECT_EQ(database_.run("SELECT NSchl, StartWert, Maske, Buchungskreis FROM Nummernkreise"),
            (std::vector<PrintedRow>{R"(a\|b |  |  | 1)"}));
}

TEST_F(ScenarioDatabaseTest, EnforcesTheKeys) {
  database_.run("INSERT INTO Nummernkreise (Buchungskreis, NSchl) VALUES (1, 'RE')");
  EXPECT_THROW(database_.run("INSERT INTO Nummernkreise (Buchungskreis, NSchl) VALUES (1, 'RE')"),
               Error);
}

TEST_F(ScenarioDatabaseTest, KeepsTheSettingsInAFileBeside) {
  EXPECT_TRUE(std::filesystem::exists(folder_.path() + "/nummern-einstellungen.db"));
  EXPECT_TRUE(database_.rows("Einstellungen").empty());
  database_.run("INSERT INTO Einstellungen VALUES ('B', 'K', 'Standard', 'Standard', '7')");
  EXPECT_EQ(database_.rows("Einstellungen"),
            (std::vector<PrintedRow>{"B | K | Standard | Standard | 7"}));
}

TEST_F(ScenarioDatabaseTest, StartsWithEmptyTablesWhateverWasThere) {
  database_.run("INSERT INTO tblUser VALUES ('Max')");
  ScenarioDatabase again("Driver=QSQLITE;Database=" + file());
  again.createTables();
  EXPECT_TRUE(again.run("SELECT * FROM tblUser").empty());
}

TEST(TemporaryFolder, TakesItsFilesAlong) {
  std::string path;
  {
    const TemporaryFolder folder;
    path = folder.path();
    EXPECT_TRUE(std::filesystem::is_directory(path));
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace vexnumkr::scenario
