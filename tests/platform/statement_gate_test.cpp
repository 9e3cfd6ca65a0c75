#include "platform/statement_gate.h"

#include <gtest/gtest.h>

#include <string>

#include "contract/database_language.h"

namespace vexnumkr {
namespace {

std::string passed(std::string_view text) {
  StatementGate gate;
  return std::string(gate.pass(text, {.triggersHoldStatements = true}).text);
}

std::string refusal(std::string_view text) {
  const Error error = test::errorOf([&] { passed(text); });
  EXPECT_EQ(error.number(), 3001);
  return error.description();
}

constexpr const char* trigger =
    " t AFTER INSERT ON a BEGIN "
    "UPDATE b SET c = CASE WHEN d THEN 1 ELSE 2 END; DELETE FROM e; END";

}  // namespace

TEST(StatementGate, TheLineEndOfACommentIsWhiteSpace) {
  StatementGate gate;
  EXPECT_EQ(gate.pass("-- ;\n\v\nSELECT 1", {.verticalTabFollowsBlanks = true}).text, "SELECT 1");
  EXPECT_EQ(gate.pass("SELECT 1 -- ;", {}).text, "SELECT 1");
}

TEST(StatementGate, ASelectThatLocksRowsDoesMoreThanRead) {
  const auto onlyReads = [](std::string_view text) {
    StatementGate gate;
    return gate.pass(text).onlyReads();
  };
  for (const char* const locks : {"", " OFFSET 1", " -- FOR UPDATE", " FOR SYSTEM_TIME ALL"})
    EXPECT_TRUE(onlyReads(std::string("SELECT 'FOR UPDATE' FROM a") + locks)) << locks;
  for (const char* const locks : {" FOR UPDATE", " for share NOWAIT", " FOR NO KEY UPDATE",
                                  " FOR KEY SHARE", " LOCK IN SHARE MODE"})
    EXPECT_FALSE(onlyReads(std::string("SELECT b FROM a") + locks)) << locks;
}

TEST(StatementGate, PassesTheStatementWithoutWhatSurroundsIt) {
  EXPECT_EQ(passed("SELECT 1"), "SELECT 1");
  EXPECT_EQ(passed(" ; /*;*/ SELECT 1 /*;*/ ; -- ;"), "SELECT 1");
  EXPECT_EQ(passed("SELECT /*;*/ 1;;"), "SELECT /*;*/ 1");
  EXPECT_EQ(passed("DELETE FROM a WHERE b=';'"), "DELETE FROM a WHERE b=';'");
  EXPECT_EQ(passed("SELECT 'open; SELECT 2"), "SELECT 'open; SELECT 2");
}

TEST(StatementGate, RefusesASecondStatement) {
  const std::string second =
      "Es ist nur eine Anweisung erlaubt; hinter dem Semikolon steht eine weitere.";
  EXPECT_EQ(refusal("SELECT 1; SELECT 2"), second);
  EXPECT_EQ(refusal("SELECT 1;x"), second);
  EXPECT_EQ(refusal(";SELECT 1;;'x'"), second);
  EXPECT_EQ(refusal("SELECT ''';'; SELECT 2"), second);
  EXPECT_EQ(refusal("SELECT 1 -- x\n; /* */ SELECT 2"), second);
  EXPECT_EQ(refusal("CREATE TABLE t (a); END; SELECT 1"), second);
}

TEST(StatementGate, RefusesTextsWithoutAStatement) {
  EXPECT_EQ(refusal(""), "Die Anweisung ist leer.");
  EXPECT_EQ(refusal(" ;; -- x"), "Die Anweisung ist leer.");
}

TEST(StatementGate, RefusesZeroCharacters) {
  using namespace std::string_view_literals;
  EXPECT_EQ(refusal("SELECT 1\0"sv), "Die Anweisung enthält ein Nullzeichen.");
  EXPECT_EQ(refusal("SELECT '\0'"sv), "Die Anweisung enthält ein Nullzeichen.");
}

TEST(StatementGate, TakesATriggerAsOneStatement) {
  for (const char* const create :
       {"CREATE TRIGGER", "create temp trigger", "CREATE TEMPORARY TRIGGER",
        "EXPLAIN CREATE TRIGGER", "EXPLAIN QUERY PLAN CREATE TRIGGER"}) {
    const std::string text = std::string(create) + trigger;
    EXPECT_EQ(passed(text + " ; "), text);
    EXPECT_EQ(refusal(text + "; DELETE FROM a"),
              "Es ist nur eine Anweisung erlaubt; hinter dem Semikolon steht eine weitere.");
  }
}

TEST(StatementGate, ReadsTextsAsTheEngineDoes) {
  const LexicalRules escaping{.backslashEscapes = true};
  StatementGate gate;
  EXPECT_NO_THROW(gate.pass("SELECT '\\'; DELETE FROM a; --'", escaping));
  EXPECT_THROW(gate.pass("SELECT '\\'; DELETE FROM a; --'"), Error);
  const LexicalRules postgresql{.dollarTexts = true};
  EXPECT_NO_THROW(gate.pass("DO $$ BEGIN; END $$", postgresql));
  EXPECT_THROW(gate.pass("CREATE TRIGGER t BEGIN a; END", postgresql), Error);
}

TEST(StatementGate, RefusesCommentsThatMayBeExecuted) {
  StatementGate gate;
  for (const char* const text : {"SELECT 1 /*! + 1 */", "/*M!100100 DROP TABLE a */"}) {
    const Error error =
        test::errorOf([&] { gate.pass(text, LexicalRules{.executableComments = true}); });
    EXPECT_EQ(error.number(), 3001) << text;
  }
  EXPECT_NO_THROW(gate.pass("SELECT '/*! a */'", LexicalRules{.executableComments = true}));
}

TEST(StatementGate, KnowsWhatAStatementDoes) {
  StatementGate gate;
  for (const char* const text : {"SELECT 1", "values (1)", "WITH a AS (DELETE) SELECT 1",
                                 "WITH a(b) AS (SELECT 1), c AS (SELECT 2) VALUES (3)"}) {
    EXPECT_TRUE(gate.pass(text).isSelect()) << text;
    EXPECT_FALSE(gate.pass(text).changesRows()) << text;
  }
  for (const char* const text : {"INSERT INTO a", "update a", "DELETE FROM a", "REPLACE INTO a",
                                 "WITH a AS (SELECT 1) DELETE FROM b WHERE c IN (SELECT 1)"}) {
    EXPECT_FALSE(gate.pass(text).isSelect()) << text;
    EXPECT_TRUE(gate.pass(text).changesRows()) << text;
  }
  for (const char* const text : {"CREATE TABLE a (b)", "BEGIN", "PRAGMA a", "EXPLAIN DELETE FROM a",
                                 "WITH", "(SELECT 1)", "'SELECT'"}) {
    EXPECT_FALSE(gate.pass(text).isSelect()) << text;
    EXPECT_FALSE(gate.pass(text).changesRows()) << text;
  }
}

TEST(StatementGate, CanBePassedAgain) {
  StatementGate gate;
  gate.pass("SELECT 1, 2, 3");
  EXPECT_EQ(gate.pass("SELECT 4").tokens.size(), 2u);
}

}  // namespace vexnumkr
