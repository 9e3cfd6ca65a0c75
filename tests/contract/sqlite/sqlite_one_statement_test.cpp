// Whether the adapter and SQLite agree about where a statement ends, tried with random texts.
#include <gtest/gtest.h>

#include <random>

#include <vexnumkr/adapters.h>

#include "contract/database_language.h"

namespace vexnumkr::test {
namespace {

// The driver's own refusal of what it takes for a second statement.
constexpr std::int32_t engineSawMore = 21;

class OneStatement : public ::testing::Test {
 protected:
  void SetUp() override { RecordProperty("seed", std::to_string(seed)); }

  std::string oneOf(const std::vector<std::string>& choices) {
    return choices[random() % choices.size()];
  }
  // Up to `most` of `pieces` in a row.
  std::string soup(const std::vector<std::string>& pieces, std::size_t most) {
    std::string text;
    for (std::size_t count = random() % (most + 1); count > 0; --count) text += oneOf(pieces);
    return text;
  }
  std::string blanks() {
    return oneOf(
        {" ", "\n", "/**/", " /* ; ' */ ", "--;'\"\n", "/*/;*/", "\t", " -- x\n\r", "/***/"});
  }

  const unsigned seed = std::random_device()();
  std::mt19937 random{seed};
  std::shared_ptr<Connection> conn = openQtSqlConnection("Driver=QSQLITE;Database=:memory:");
};

}  // namespace

TEST_F(OneStatement, IsWhatTheEngineTakesForOne) {
  SCOPED_TRACE("seed " + std::to_string(seed));
  for (int i = 0; i < 5000; ++i) {
    const std::string literal = soup(
        {"a", ";", "''", "\"", "`", "[", "]", "--", "/*", "*/", "\n", "ä", "\\", "?", ":x"}, 8);
    std::string text = soup({";", " "}, 2);
    const auto count = 1 + random() % 2;
    for (std::size_t k = 0; k < count; ++k)
      text += blanks() + "SELECT" + blanks() + "'" + literal + "'" + blanks() + "AS" + blanks() +
              oneOf({"X", "\"X\"", "[X]", "`X`"}) + blanks() + ";" + blanks();
    std::string expected = literal;
    for (std::size_t at = 0; (at = expected.find("''", at)) != std::string::npos; ++at)
      expected.erase(at, 1);
    if (count == 1)
      EXPECT_EQ(value(*conn, text), Value(expected)) << text;
    else
      EXPECT_EQ(errorOf(*conn, text).number(), 3001) << text;
  }
}

TEST_F(OneStatement, LeavesNothingForTheEngineToFindBehindIt) {
  SCOPED_TRACE("seed " + std::to_string(seed));
  int executed = 0;
  for (int i = 0; i < 20000; ++i) {
    const std::string text =
        oneOf({"SELECT 1", "SELECT 'a'", "VALUES(1)"}) +
        soup({";", "'",  "\"", "`", "[",  "]",  "-",  "--",       "/",  "*",  "\n",
              " ", ",",  "1",  "a", "1e", "\v", "\f", "SELECT 2", "\\", "x'", "\xEF\xBB\xBF",
              ".", "||", "AS"},
             7);
    try {
      run(*conn, text);
      ++executed;
    } catch (const Error& error) {
      EXPECT_NE(error.number(), engineSawMore) << text;
    }
  }
  EXPECT_GT(executed, 0);
}

}  // namespace vexnumkr::test
