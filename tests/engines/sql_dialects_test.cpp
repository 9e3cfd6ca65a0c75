// Where the engines read the same characters differently.
#include <gtest/gtest.h>

#include <string>

#include "engines/engine_list.h"
#include "platform/sql_tokens.h"

namespace vexnumkr {
namespace {

using Texts = std::vector<std::string>;

const LexicalRules sqlite = engines::sqlite.rules("");
const LexicalRules postgresql = engines::postgresql.rules("on");
const LexicalRules postgresqlWithEscapes = engines::postgresql.rules("off");
const LexicalRules mariadb =
    engines::mariadb.rules("ANSI_QUOTES,NO_BACKSLASH_ESCAPES utf8mb4 utf8mb4");
const LexicalRules mariadbByDefault = engines::mariadb.rules(engines::mariadb.usualMode);

Texts tokensOf(std::string_view sql, const LexicalRules& rules) {
  std::vector<Token> tokens;
  tokenise(sql, rules, tokens);
  Texts texts;
  for (const Token& token : tokens) texts.emplace_back(token.text);
  return texts;
}

Token lastOf(std::string_view sql, const LexicalRules& rules) {
  std::vector<Token> tokens;
  tokenise(sql, rules, tokens);
  return tokens.back();
}

}  // namespace

TEST(SqlDialects, ABackslashMayHideAQuote) {
  EXPECT_EQ(tokensOf("'\\' ; x'", sqlite), (Texts{"'\\'", ";", "x", "'"}));
  EXPECT_EQ(tokensOf("'\\' ; x'", mariadb), (Texts{"'\\'", ";", "x", "'"}));
  EXPECT_EQ(tokensOf("'\\' ; x'", mariadbByDefault), Texts{"'\\' ; x'"});
  EXPECT_EQ(tokensOf("'\\\\' ; x'", mariadbByDefault), (Texts{"'\\\\'", ";", "x", "'"}));
  EXPECT_EQ(tokensOf("\"\\\" ; x\"", mariadbByDefault), Texts{"\"\\\" ; x\""});
  EXPECT_EQ(tokensOf("`\\` ; x", mariadbByDefault), (Texts{"`\\`", ";", "x"}));
  EXPECT_EQ(tokensOf("'\\' ; x'", postgresqlWithEscapes), Texts{"'\\' ; x'"});
}

TEST(SqlDialects, AVerticalTabIsWhiteSpaceSomewhere) {
  EXPECT_EQ(tokensOf("a\vb \v c", mariadb), (Texts{"a", "b", "c"}));
  EXPECT_EQ(tokensOf("a\vb \v c", postgresql), (Texts{"a", "b", "c"}));
  EXPECT_EQ(tokensOf("a\vb \v\v c", sqlite), (Texts{"a", "\v", "b", "c"}));
  EXPECT_EQ(tokensOf("/* */\va--\n\vb", sqlite), (Texts{"\v", "a", "b"}));
  EXPECT_EQ(tokensOf("E'a'\n\v'\\' x '", postgresql), Texts{"E'a'\n\v'\\' x '"})
      << "such a text goes on in another line, and so do its backslashes";
}

TEST(SqlDialects, DoubleQuotesEncloseNamesOrTexts) {
  EXPECT_EQ(lastOf("\"a\"", mariadb).kind, TokenKind::quotedName);
  EXPECT_EQ(lastOf("\"a\"", mariadbByDefault).kind, TokenKind::text);
  EXPECT_EQ(lastOf("\"a\"", postgresql).kind, TokenKind::quotedName);
}

TEST(SqlDialects, BracketsAndBackticksQuoteOnlySomewhere) {
  EXPECT_EQ(tokensOf("[a;b]", sqlite), Texts{"[a;b]"});
  EXPECT_EQ(tokensOf("[a;b]", postgresql), (Texts{"[", "a", ";", "b", "]"}));
  EXPECT_EQ(tokensOf("[a;b]", mariadb), (Texts{"[", "a", ";", "b", "]"}));
  EXPECT_EQ(tokensOf("`a;b`", mariadb), Texts{"`a;b`"});
  EXPECT_EQ(tokensOf("`a;b`", postgresql), (Texts{"`", "a", ";", "b", "`"}));
}

TEST(SqlDialects, PostgresqlEscapesInTextsThatSaySo) {
  EXPECT_EQ(tokensOf("E'\\' ; x'", postgresql), Texts{"E'\\' ; x'"});
  EXPECT_EQ(tokensOf("1e'\\' ; x'", postgresql), (Texts{"1", "e'\\' ; x'"}));
  EXPECT_EQ(tokensOf("NAME'\\' ; x'", postgresql), (Texts{"NAME", "'\\'", ";", "x", "'"}));
  EXPECT_EQ(tokensOf("e'a'\n'\\' ; x'", postgresql), Texts{"e'a'\n'\\' ; x'"});
  EXPECT_EQ(tokensOf("e'a' -- b\n '\\' ; x'", postgresql), Texts{"e'a' -- b\n '\\' ; x'"});
  EXPECT_EQ(tokensOf("e'a' '\\' ; x'", postgresql), (Texts{"e'a'", "'\\'", ";", "x", "'"}));
  EXPECT_EQ(tokensOf("1e5 1.5e-3", postgresql), (Texts{"1e5", "1.5e-3"}));
}

TEST(SqlDialects, PostgresqlQuotesWithDollars) {
  EXPECT_EQ(tokensOf("$$a;'b$$ c", postgresql), (Texts{"$$a;'b$$", "c"}));
  EXPECT_EQ(tokensOf("$x$a;$$;$x$ c", postgresql), (Texts{"$x$a;$$;$x$", "c"}));
  EXPECT_EQ(tokensOf("a$$;b$$", postgresql), (Texts{"a$$", ";", "b$$"}));
  EXPECT_EQ(tokensOf("1$$;$$", postgresql), (Texts{"1", "$$;$$"}));
  EXPECT_EQ(tokensOf("$1;", postgresql), (Texts{"$", "1", ";"}));
  EXPECT_FALSE(lastOf("$$;", postgresql).isClosed);
  EXPECT_EQ(tokensOf("$$;$$", sqlite), (Texts{"$$", ";", "$$"}));
}

TEST(SqlDialects, OnlyPostgresqlNestsComments) {
  const char* const nested = "a /* /* */ ; b */ c";
  EXPECT_EQ(tokensOf(nested, postgresql), (Texts{"a", "c"}));
  EXPECT_EQ(tokensOf(nested, sqlite), (Texts{"a", ";", "b", "*", "/", "c"}));
  EXPECT_EQ(tokensOf(nested, mariadb), (Texts{"a", ";", "b", "*", "/", "c"}));
}

TEST(SqlDialects, MariadbHasItsOwnLineComments) {
  EXPECT_EQ(tokensOf("a # ; b\nc", mariadb), (Texts{"a", "c"}));
  EXPECT_EQ(tokensOf("a # b", postgresql), (Texts{"a", "#", "b"}));
  EXPECT_EQ(tokensOf("a --;b", mariadb), (Texts{"a", "-", "-", ";", "b"}));
  EXPECT_EQ(tokensOf("a -- ;b", mariadb), Texts{"a"});
  EXPECT_EQ(tokensOf("a --\t;b", mariadb), Texts{"a"});
  EXPECT_EQ(tokensOf("a --", mariadb), Texts{"a"});
  EXPECT_EQ(tokensOf("a --;b", postgresql), Texts{"a"});
}

TEST(SqlDialects, MariadbMayExecuteComments) {
  for (const char* const sql : {"a /*! */", "a /*!50000 b */", "a /*M! */", "a /*M!100000 b */"}) {
    std::vector<Token> tokens;
    tokenise(sql, mariadb, tokens);
    EXPECT_EQ(tokens.at(1).kind, TokenKind::directive) << sql;
  }
  EXPECT_EQ(tokensOf("a /* ! */ b", mariadb), (Texts{"a", "b"}));
  EXPECT_EQ(tokensOf("a /*! b */ c", postgresql), (Texts{"a", "c"}));
}

TEST(SqlDialects, OnlySqliteSkipsAByteOrderMark) {
  EXPECT_EQ(tokensOf("\xEF\xBB\xBF"
                     "a",
                     sqlite),
            Texts{"a"});
  EXPECT_EQ(tokensOf("\xEF\xBB\xBF"
                     "a",
                     postgresql),
            Texts{"\xEF\xBB\xBF"
                  "a"});
}

}  // namespace vexnumkr
