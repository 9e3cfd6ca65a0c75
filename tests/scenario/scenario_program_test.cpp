// The driver as its users start it: exit statuses and what goes where.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "scenario/world/temporary_folder.h"

namespace vexnumkr::scenario {
namespace {

struct Ended {
  int status = -1;
  std::string output;
  std::string errors;
};

class ScenarioProgram : public ::testing::Test {
 protected:
  Ended start(const std::string& arguments) {
    const std::string command = "cd '" + folder_.path() + "' && '" SCENARIO_PROGRAM "' " +
                                arguments + " > out.txt 2> err.txt";
    const int status = system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, content("out.txt"), content("err.txt")};
  }

  Ended scenario(const std::string& text) {
    std::ofstream(folder_.path() + "/x.scenario", std::ios::binary) << text;
    return start("x.scenario");
  }

  std::string content(const std::string& name) const {
    std::ifstream in(folder_.path() + "/" + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }

  void expectFailure(const std::string& commands, const std::string& lastLine) {
    const Ended run = scenario(commands);
    EXPECT_EQ(run.status, 3) << run.output << run.errors;
    const std::string end = lastLine + "\n";
    ASSERT_GE(run.output.size(), end.size());
    EXPECT_EQ(run.output.substr(run.output.size() - end.size()), end) << run.output;
  }

  TemporaryFolder folder_;
};

const std::string opened =
    "sql INSERT INTO Nummernkreise VALUES (0,'RE','Rechnung',1,1,9,-1,1,'','')\n"
    "sql INSERT INTO Nummernkreis_Buchungskreise VALUES (1,'Nord','ORC')\n"
    "application 2\ninit\nshow\n";

TEST_F(ScenarioProgram, RunsAFileToItsEnd) {
  const Ended run = scenario("# nothing but\n\n  sql   SELECT 1, NULL, 'a|b'  \n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "> sql   SELECT 1, NULL, 'a|b'\nrow: 1 |  | a\\|b\n");
}

TEST_F(ScenarioProgram, ReadsStandardInput) {
  std::ofstream(folder_.path() + "/input", std::ios::binary) << "sql SELECT 7";
  const Ended run = start("- < input");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "> sql SELECT 7\nrow: 7\n");
}

TEST_F(ScenarioProgram, RunsNothingOfAFileThatItCannotRead) {
  const Ended run = scenario("sql SELECT 1\n\ndance\nclick\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors, "line 3: unknown command 'dance'\n");
}

TEST_F(ScenarioProgram, RefusesWrongArguments) {
  for (const char* arguments : {"", "a b", "--nonsense a", "a --connection", "missing.scenario"})
    EXPECT_EQ(start(arguments).status, 2) << arguments;
}

TEST_F(ScenarioProgram, UsesAGivenDatabaseAndEmptiesIt) {
  std::ofstream(folder_.path() + "/x.scenario")
      << "sql SELECT COUNT(*) FROM tblUser\nsql INSERT INTO tblUser VALUES ('Max')\n";
  for (int i = 0; i < 2; ++i) {
    const Ended run = start("--connection 'Driver=QSQLITE;Database=given.db' x.scenario");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output,
              "> sql SELECT COUNT(*) FROM tblUser\nrow: 0\n"
              "> sql INSERT INTO tblUser VALUES ('Max')\n");
  }
  EXPECT_TRUE(std::filesystem::exists(folder_.path() + "/given.db"));
  EXPECT_TRUE(std::filesystem::exists(folder_.path() + "/given-einstellungen.db"));
}

TEST_F(ScenarioProgram, SaysWhyACommandCannotBeCarriedOut) {
  expectFailure("grid\n", "failed: line 1: no dialog is open");
  expectFailure("\nshow\n", "failed: line 2: there is no component");
  expectFailure("release\n", "failed: line 1: there is no component");
  expectFailure("init\ntable\n", "failed: line 2: Objektvariable nicht festgelegt");
  expectFailure(opened + "show\n", "failed: line 6: a dialog is open");
  expectFailure(opened + "init\n", "failed: line 6: a dialog is open");
  expectFailure(opened + "press cmdNone\n",
                "failed: line 6: the dialog frmNummernkreise has no control cmdNone");
  expectFailure(opened + "press cboUser\n", "failed: line 6: the control cboUser is no button");
  expectFailure(opened + "press cmdSonderkreise\n",
                "failed: line 6: the control cmdSonderkreise is hidden");
  expectFailure(opened + "click 3 2\n", "failed: line 6: item 3 does not exist");
  expectFailure(opened + "click 1 6\n", "failed: line 6: column 6 is not shown");
  expectFailure(opened + "click 0 picture\n", "failed: line 6: item 0 has no picture");
  expectFailure(opened + "type 5\n", "failed: line 6: no cell editor is open");
  expectFailure(opened + "goto -1\n", "failed: line 6: item -1 does not exist");
  expectFailure(opened + "select cboUser Moritz\n",
                "failed: line 6: the drop-down list cboUser has no entry 'Moritz'");
  expectFailure(opened + "press cmdOptionen\ntick lst 0\n",
                "failed: line 7: the dialog frmOptionen has no control lst");
  expectFailure(opened + "press cmdOptionen\ngrid\n",
                "failed: line 7: the dialog frmOptionen has no grid");
}

TEST_F(ScenarioProgram, FailsWhenADialogIsLeftOpen) {
  expectFailure(opened + "# the end\n", "failed: line 5: a dialog is still open");
}

TEST_F(ScenarioProgram, FailsWhenABoxIsNotAnsweredProperly) {
  expectFailure(opened + "press cmdAuto\n",
                "failed: line 6: nobody answers the box 'Abfrage': Diese Option startet eine "
                "automatische Nummernvergabe nach Maske.\\r\\nAlle bisherigen Nummern werden "
                "hiermit überschrieben!\\r\\n\\r\\nMöchten Sie trotzdem fortfahren?");
  EXPECT_EQ(scenario(opened + "answer ok\npress cmdAuto\n").status, 3);
  expectFailure(opened + "click 1 2\ntype x\nanswer yes\nkey Tab\n",
                "failed: line 9: the box 'Info' does not offer yes");
}

TEST_F(ScenarioProgram, ChoosesTheNamedEntryOfALongList) {
  std::string users;
  for (int i = 11; i <= 70; ++i)
    users += "sql INSERT INTO tblUser VALUES ('U" + std::to_string(i) + "')\n";
  for (const std::string name : {"U11", "U50", "U65", "U69", "U70"}) {
    const Ended run =
        scenario(users + opened + "select cboUser " + name + "\ncombo cboUser\nclose\n");
    EXPECT_EQ(run.status, 0) << run.output << run.errors;
    EXPECT_NE(run.output.find(" text=" + name + "\n"), std::string::npos) << name;
  }
}

TEST_F(ScenarioProgram, PrintsTheSameEveryTime) {
  const std::string text = opened + "controls\ngrid\npress cmdOptionen\ncontrols\nkey Escape\n" +
                           "answer no\npress cmdAuto\nstatements\npress cmdCancel\ndatabase\n";
  const Ended first = scenario(text);
  EXPECT_EQ(first.status, 0) << first.output << first.errors;
  EXPECT_EQ(scenario(text).output, first.output);
}

TEST_F(ScenarioProgram, WritesPicturesIntoTheCurrentFolder) {
  EXPECT_EQ(scenario(opened + "screenshot x.png\npress cmdCancel\n").status, 0);
  EXPECT_EQ(content("x.png").substr(1, 3), "PNG");
}

}  // namespace
}  // namespace vexnumkr::scenario
