// "vexnumkr draw" on every engine.
#include <gtest/gtest.h>

#include "cli/program_database.h"

namespace vexnumkr::test {
namespace {

class DrawCommandTest : public ProgramDatabase {
 protected:
  DrawCommandTest() {
    circle(1, "Werk");
    range(1, "RE", 100, 188, 199);
    assign("Anna", 1, "RE");
  }
  std::vector<std::string> draw(const std::vector<std::string>& further) {
    std::vector<std::string> arguments = {"draw", "--application", "1", "--user", "Anna"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    return arguments;
  }
};

TEST_F(DrawCommandTest, PrintsTheNumber) {
  const ProgramRun run = vexnumkr(draw({"--key", "RE"}));
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output, "189\n");
  EXPECT_EQ(run.errors, "");
  EXPECT_EQ(current(1, "RE"), 189);
}

TEST_F(DrawCommandTest, PrintsAnObjectALineForEachNumber) {
  EXPECT_EQ(printed(draw({"--key", "RE", "--count", "2", "--json"})),
            R"({"number":189,"key":"RE","user":"Anna","circle":1,"drawnFrom":"RE","left":10,)"
            R"("lastTenPercent":false,"lastOne":false})"
            "\n"
            R"({"number":190,"key":"RE","user":"Anna","circle":1,"drawnFrom":"RE","left":9,)"
            R"("lastTenPercent":true,"lastOne":false})"
            "\n");
}

TEST_F(DrawCommandTest, SaysBesidesThatTheEndIsNear) {
  EXPECT_EQ(vexnumkr(draw({"--key", "RE", "--count", "2"})).errors,
            "vexnumkr: Nur noch 9 Nummern frei: Nummernkreis \"RE\", Buchungskreis 1.\n");
  const ProgramRun run = vexnumkr(draw({"--key", "RE", "--count", "9"}));
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors,
            "vexnumkr: Das war die letzte Nummer: Nummernkreis \"RE\", Buchungskreis 1.\n");
}

TEST_F(DrawCommandTest, ATrialDrawsNothing) {
  EXPECT_EQ(printed(draw({"--key", "RE", "--dry-run"})), "189\n");
  EXPECT_EQ(current(1, "RE"), 188);
}

TEST_F(DrawCommandTest, ARangeWithoutNumbersIsAFinding) {
  const ProgramRun run = vexnumkr(draw({"--key", "RE", "--count", "12", "--json"}));
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors,
            R"({"error":{"number":3036,"text":"Der Nummernkreis \"RE\" im Buchungskreis 1 hat nur )"
            R"(noch 11 von 12 verlangten Nummern."}})"
            "\n");
}

TEST_F(DrawCommandTest, WithoutTheTablesTheDatabaseIsTheProblem) {
  sql("DROP TABLE Nummernkreise");
  const ProgramRun run = vexnumkr(draw({"--key", "RE"}));
  EXPECT_EQ(run.exitCode, 3);
  EXPECT_TRUE(run.errors.starts_with("vexnumkr: Die Datenbank meldet: ")) << run.errors;
  EXPECT_NE(run.errors.find("vexnumkr doctor"), std::string::npos);
}

}  // namespace
}  // namespace vexnumkr::test
