#include "scenario/language/transcript.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vexnumkr::scenario {
namespace {

TEST(Transcript, PrintsTextsOnOneLine) {
  EXPECT_EQ(printedText("a\r\nb\\c|d"), R"(a\r\nb\\c\|d)");
  EXPECT_EQ(printedText(""), "");
  EXPECT_EQ(printedText("Süd \t"), "Süd \t");
}

TEST(Transcript, PrintsCells) {
  EXPECT_EQ(printedValue(Value()), "");
  EXPECT_EQ(printedValue(Null()), "");
  EXPECT_EQ(printedValue(Value(-7)), "-7");
  EXPECT_EQ(printedValue(Value(true)), "True");
  EXPECT_EQ(printedValue(Value(false)), "False");
  EXPECT_EQ(printedValue(Value("a|b")), R"(a\|b)");
}

TEST(Transcript, JoinsCells) {
  EXPECT_EQ(joined({"a", "", "c", ""}), "a |  | c | ");
  EXPECT_EQ(joined({}), "");
}

TEST(Transcript, WritesLinesAtOnce) {
  std::ostringstream out;
  Transcript transcript(out);
  transcript.line("> init");
  EXPECT_EQ(out.str(), "> init\n");
}

TEST(Transcript, WritesNothingBehindAFailure) {
  std::ostringstream out;
  Transcript transcript(out);
  transcript.failed(7, "no such\ncontrol");
  transcript.line("> grid");
  transcript.failed(8, "again");
  EXPECT_EQ(out.str(), "failed: line 7: no such\\ncontrol\n");
}

}  // namespace
}  // namespace vexnumkr::scenario
