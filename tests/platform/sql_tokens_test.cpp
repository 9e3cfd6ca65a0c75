#include "platform/sql_tokens.h"

#include <gtest/gtest.h>

#include <string>

namespace vexnumkr {
namespace {

using Texts = std::vector<std::string>;

// All the quotes that some engine knows.
constexpr LexicalRules everyQuote{
    .backquotedNames = true, .bracketedNames = true, .byteOrderMarkIsBlank = true};

Texts tokensOf(std::string_view sql) {
  std::vector<Token> tokens;
  tokenise(sql, everyQuote, tokens);
  Texts texts;
  for (const Token& token : tokens) texts.emplace_back(token.text);
  return texts;
}

std::vector<TokenKind> kindsOf(std::string_view sql) {
  std::vector<Token> tokens;
  tokenise(sql, everyQuote, tokens);
  std::vector<TokenKind> kinds;
  for (const Token& token : tokens) kinds.push_back(token.kind);
  return kinds;
}

}  // namespace

TEST(SqlTokens, AreWordsNumbersTextsAndSymbols) {
  EXPECT_EQ(tokensOf("SELECT a.b,1.5 FROM t WHERE c<>'x' AND d=-1;"),
            (Texts{"SELECT", "a", ".", "b", ",", "1.5", "FROM", "t", "WHERE", "c", "<", ">", "'x'",
                   "AND", "d", "=", "-", "1", ";"}));
  using enum TokenKind;
  EXPECT_EQ(
      kindsOf("a 'b' \"c\" `d` [e] 1 ; +"),
      (std::vector{word, text, quotedName, quotedName, quotedName, number, semicolon, symbol}));
}

TEST(SqlTokens, AreNoneInBlanksAndComments) {
  EXPECT_EQ(tokensOf(""), Texts{});
  EXPECT_EQ(tokensOf(" \t\r\n\f"), Texts{});
  EXPECT_EQ(tokensOf("-- all; of it"), Texts{});
  EXPECT_EQ(tokensOf("a--b;'\nc"), (Texts{"a", "c"}));
  EXPECT_EQ(tokensOf("a/*;'*/b/**/c/***/d/*/*/e"), (Texts{"a", "b", "c", "d", "e"}));
  EXPECT_EQ(tokensOf("a - -b / *c"), (Texts{"a", "-", "-", "b", "/", "*", "c"}));
  EXPECT_EQ(tokensOf("\xEF\xBB\xBFSELECT \xEF\xBB\xBF 1"), (Texts{"SELECT", "1"}));
}

TEST(SqlTokens, KeepLiteralsTogether) {
  EXPECT_EQ(tokensOf("'a;b' 'it''s' '' '''' 'x'"),
            (Texts{"'a;b'", "'it''s'", "''", "''''", "'x'"}));
  EXPECT_EQ(tokensOf("\"a;\"\"b\" `c``;` [d;'\"]"), (Texts{"\"a;\"\"b\"", "`c``;`", "[d;'\"]"}));
  EXPECT_EQ(tokensOf("'-- no' \"/* no */\""), (Texts{"'-- no'", "\"/* no */\""}));
  EXPECT_EQ(tokensOf("x'00FF' 'a'b"), (Texts{"x", "'00FF'", "'a'", "b"}));
  EXPECT_EQ(tokensOf("'\\' ; '"), (Texts{"'\\'", ";", "'"}));
}

TEST(SqlTokens, GoOnToTheEndWhenUnclosed) {
  EXPECT_EQ(tokensOf("a 'b; c"), (Texts{"a", "'b; c"}));
  EXPECT_EQ(tokensOf("a 'b;''"), (Texts{"a", "'b;''"}));
  EXPECT_EQ(tokensOf("a \"b; c"), (Texts{"a", "\"b; c"}));
  EXPECT_EQ(tokensOf("a [b; c"), (Texts{"a", "[b; c"}));
  EXPECT_EQ(tokensOf("a /* b; c"), (Texts{"a"}));
  EXPECT_EQ(tokensOf("a /*/ b; c"), (Texts{"a"}));
  EXPECT_EQ(tokensOf("a /*"), (Texts{"a", "/", "*"})) << "which is a mistake for the engine to see";
}

TEST(SqlTokens, KnowNumbers) {
  EXPECT_EQ(tokensOf("1 .5 1. 1e3 1E-3 1.5e+3 0x1F 12abc 1-2 1e- a.5"),
            (Texts{"1", ".5", "1.", "1e3", "1E-3", "1.5e+3", "0x1F", "12abc", "1", "-", "2", "1e",
                   "-", "a", ".5"}));
}

TEST(SqlTokens, TakeUmlautsAsLetters) {
  EXPECT_EQ(tokensOf("Größe=ß€"), (Texts{"Größe", "=", "ß€"}));
}

TEST(SqlTokens, KnowKeywordsInAnyCase) {
  const auto first = [](std::string_view sql) {
    std::vector<Token> tokens;
    tokenise(sql, everyQuote, tokens);
    return tokens.at(0);
  };
  EXPECT_TRUE(first("SELECT").is("SELECT"));
  EXPECT_TRUE(first("sElEcT").is("SELECT"));
  EXPECT_FALSE(first("SELECTS").is("SELECT"));
  EXPECT_FALSE(first("SELEC").is("SELECT"));
  EXPECT_FALSE(first("[SELECT]").is("SELECT"));
  EXPECT_FALSE(first("'SELECT'").is("SELECT"));
  EXPECT_TRUE(first("*").isSymbol('*'));
  EXPECT_FALSE(first("'*'").isSymbol('\''));
}

}  // namespace vexnumkr
