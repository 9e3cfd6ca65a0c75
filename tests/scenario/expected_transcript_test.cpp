#include "scenario/expected_transcript.h"

#include <gtest/gtest.h>

#include <fstream>

#include "scenario/world/temporary_folder.h"

namespace vexnumkr::scenario {
namespace {

class ExpectedTranscript : public ::testing::Test {
 protected:
  void write(const char* ending, const std::string& text) {
    std::ofstream(folder_.path() + "/a." + ending, std::ios::binary) << text;
  }
  std::optional<std::string> expected(const std::string& engine) {
    return expectedTranscript(scenario(), engine);
  }
  std::filesystem::path scenario() const { return folder_.path() + "/a.scenario"; }

 private:
  TemporaryFolder folder_;
};

}  // namespace

TEST_F(ExpectedTranscript, IsTheSameWhereTheEngineHasNoLines) {
  EXPECT_EQ(expected("mariadb"), std::nullopt);
  write("expected", "one\ntwo\n");
  EXPECT_EQ(expected("mariadb"), "one\ntwo\n");
}

TEST_F(ExpectedTranscript, HasTheEnginesLinesInTheirOrder) {
  write("expected", "one\ntwo\none\nthree\n");
  write("mariadb", "- one\n+ eins\n- three\n+ drei\n");
  EXPECT_EQ(expected("mariadb"), "eins\ntwo\none\ndrei\n");
  EXPECT_EQ(expected("postgresql"), "one\ntwo\none\nthree\n");
}

TEST_F(ExpectedTranscript, IsNothingWhereTheyDoNotFit) {
  write("expected", "one\ntwo\n");
  for (const char* lines : {"- three\n+ drei\n", "- two\n+ zwei\n- one\n+ eins\n", "- one\n",
                            "+ one\n- eins\n", "one\ntwo\n"}) {
    write("mariadb", lines);
    EXPECT_EQ(expected("mariadb"), std::nullopt) << lines;
  }
}

TEST_F(ExpectedTranscript, IsWrittenAsItsDifferences) {
  write("expected", "one\ntwo\n");
  EXPECT_TRUE(writeEngineLines(scenario(), "mariadb", "one\nzwei\n"));
  EXPECT_EQ(expected("mariadb"), "one\nzwei\n");
  EXPECT_FALSE(writeEngineLines(scenario(), "mariadb", "one\n"));
  EXPECT_TRUE(writeEngineLines(scenario(), "mariadb", "one\ntwo\n"));
  EXPECT_FALSE(
      std::filesystem::exists(std::filesystem::path(scenario()).replace_extension("mariadb")));
}

}  // namespace vexnumkr::scenario
