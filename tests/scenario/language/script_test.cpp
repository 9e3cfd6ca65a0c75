#include "scenario/language/script.h"

#include <gtest/gtest.h>

namespace vexnumkr::scenario {
namespace {

Command only(const std::string& line) {
  const std::vector<Command> commands = readScript(line);
  EXPECT_EQ(commands.size(), 1U) << line;
  return commands.at(0);
}

using Words = std::vector<std::string>;

TEST(Script, SkipsEmptyLinesAndCommentsAndCountsThem) {
  const auto commands = readScript("\n# a comment\n   \n  init  \r\n\tshow\n");
  ASSERT_EQ(commands.size(), 2U);
  EXPECT_EQ(commands[0].line, 4);
  EXPECT_EQ(commands[0].text, "init");
  EXPECT_EQ(commands[1].line, 5);
  EXPECT_EQ(commands[1].text, "show");
}

TEST(Script, ReadsALastLineWithoutLineBreak) { EXPECT_EQ(only("grid").name, "grid"); }

TEST(Script, TakesAnEmptyFile) { EXPECT_TRUE(readScript("").empty()); }

TEST(Script, SeparatesWordsByBlanks) {
  EXPECT_EQ(only("choose  optOnANToAB   1").arguments, (Words{"optOnANToAB", "1"}));
}

TEST(Script, ReadsQuotedWords) {
  EXPECT_EQ(only(R"(select cboUser "Alle Benutzer")").argument(1), "Alle Benutzer");
  EXPECT_EQ(only(R"(type "")").argument(0), "");
  EXPECT_EQ(only(R"(type "a\"b\\c\nd")").argument(0), "a\"b\\c\nd");
}

TEST(Script, LeavesBackslashesAndQuotesInsidePlainWordsAlone) {
  EXPECT_EQ(only(R"(type a\nb"c)").argument(0), R"(a\nb"c)");
}

TEST(Script, TakesTheRestOfTheLineForSqlAndHost) {
  const std::string text = R"(SELECT  'a  b', "c" FROM x WHERE y='\n' -- "open)";
  EXPECT_EQ(only("sql   " + text).argument(0), text);
  const Command host = only("host  buchungskreise  " + text);
  EXPECT_EQ(host.name, "host buchungskreise");
  EXPECT_EQ(host.argument(0), text);
}

TEST(Script, TellsFormsOfOneCommandApart) {
  EXPECT_EQ(only("click 3 2").name, "click");
  EXPECT_EQ(only("click 3 2").number(1), 2);
  EXPECT_EQ(only("click 3 picture").name, "click picture");
  EXPECT_EQ(only("click 3 picture").arguments, (Words{"3"}));
  EXPECT_EQ(only("tooltip cboUser").name, "tooltip");
  EXPECT_EQ(only("tooltip cell").name, "tooltip");
  EXPECT_EQ(only("tooltip cell 3 5").name, "tooltip cell");
  EXPECT_EQ(only("tooltip cell 3 5").arguments, (Words{"3", "5"}));
  EXPECT_EQ(only("fail commit").name, "fail commit");
  EXPECT_EQ(only("fail connect").name, "fail connect");
  EXPECT_EQ(only("fail statement 12").number(0), 12);
  EXPECT_EQ(only("fail component vxtComDlg.WWSDialog").argument(0), "vxtComDlg.WWSDialog");
}

TEST(Script, TakesAnyNumberOfAnswers) {
  EXPECT_EQ(only("answer ok yes no cancel").arguments, (Words{"ok", "yes", "no", "cancel"}));
}

TEST(Script, KnowsEveryCommand) {
  for (const char* line : {"sql SELECT 1",   "application -1", "user Max",
                           "date 20240315",  "init",           "show",
                           "answer yes",     "press cmdOK",    "select cboUser Max",
                           "key Ctrl+Right", "type x",         "rightclick 1 2",
                           "goto 4",         "tick lst 0",     "close",
                           "resize 5 6",     "grid",           "editor",
                           "controls",       "combo cboUser",  "checklist l",
                           "options",        "table",          "circles",
                           "database",       "statements",     "screenshot a.png",
                           "release"}) {
    EXPECT_NO_THROW(readScript(line)) << line;
  }
}

void expectRefused(const std::string& line, const std::string& why) {
  try {
    readScript("init\n" + line + "\nnonsense\n");
    FAIL() << line;
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.line(), 2) << line;
    EXPECT_EQ(error.what(), why) << line;
  }
}

TEST(Script, NamesTheFirstLineThatCannotBeRead) {
  expectRefused("dance", "unknown command 'dance'");
  expectRefused("Init", "unknown command 'Init'");
  expectRefused("init now", "expected: init");
  expectRefused("click 3", "expected: click ITEM COLUMN or: click ITEM picture");
  expectRefused("click 3 x", "'x' is no number");
  expectRefused("click 99999999999 1", "'99999999999' is no number");
  expectRefused("select cboUser Alle Benutzer", "expected: select COMBO TEXT");
  expectRefused("sql", "expected: sql REST");
  expectRefused("host buchungskreise", "expected: host buchungskreise REST");
  expectRefused("host einstellungen x", "expected: host buchungskreise REST");
  expectRefused("answer", "expected: answer ANSWERS");
  expectRefused("answer maybe", "'maybe' is no answer");
  expectRefused("key Hyper+F2", "'Hyper+F2' is no key");
  expectRefused("fail statement 0", "the next statement is number 1");
  expectRefused("fail statement -2", "the next statement is number 1");
  expectRefused(R"(type "abc)", "a quoted word is not closed");
  expectRefused(R"(type "abc"d)", "a quoted word is followed by more text");
  expectRefused(R"(type "a\tb")", R"(\t means nothing in a quoted word)");
  expectRefused("type \xff", "not UTF-8");
}

}  // namespace
}  // namespace vexnumkr::scenario
