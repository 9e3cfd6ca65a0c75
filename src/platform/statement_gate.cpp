#include "platform/statement_gate.h"

#include <algorithm>
#include <array>

#include <vexnumkr/error.h>

namespace vexnumkr {
namespace {

using Tokens = std::span<const Token>;

bool isSemicolon(const Token& token) { return token.kind == TokenKind::semicolon; }

bool isOneOf(const Token& token, std::span<const std::string_view> keywords) {
  return std::any_of(keywords.begin(), keywords.end(),
                     [&](std::string_view keyword) { return token.is(keyword); });
}

Error refused(const char* why) {
  return Error(error_number::invalidArgument, "VEXNummernkreise", why);
}

// The body of a trigger holds statements of its own, each closed by a semicolon.
bool createsTrigger(Tokens tokens) {
  std::size_t at = 0;
  const auto skip = [&](std::string_view keyword) {
    const bool found = at < tokens.size() && tokens[at].is(keyword);
    if (found) ++at;
    return found;
  };
  if (skip("EXPLAIN") && skip("QUERY")) skip("PLAN");
  if (!skip("CREATE")) return false;
  if (!skip("TEMP")) skip("TEMPORARY");
  return skip("TRIGGER");
}

// The position of the semicolon that ends the first statement, or the end. Such a
// trigger ends at the semicolon behind an END that follows a semicolon; a CASE closes with an END
// that does not.
std::size_t statementEnd(Tokens tokens, const LexicalRules& rules) {
  const bool isTrigger = rules.triggersHoldStatements && createsTrigger(tokens);
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!isSemicolon(tokens[i])) continue;
    if (!isTrigger || (i >= 2 && tokens[i - 1].is("END") && isSemicolon(tokens[i - 2]))) return i;
  }
  return tokens.size();
}

// `WITH` introduces selects and changes alike: the first verb outside the brackets decides.
const Token& mainVerb(Tokens tokens) {
  static constexpr std::array<std::string_view, 6> verbs = {"SELECT", "VALUES", "INSERT",
                                                            "UPDATE", "DELETE", "REPLACE"};
  if (!tokens[0].is("WITH")) return tokens[0];
  int depth = 0;
  for (const Token& token : tokens) {
    if (token.isSymbol('(')) ++depth;
    if (token.isSymbol(')')) --depth;
    if (depth == 0 && isOneOf(token, verbs)) return token;
  }
  return tokens[0];
}

// FOR UPDATE, FOR NO KEY UPDATE, FOR SHARE, FOR KEY SHARE, LOCK IN SHARE MODE.
bool locksRows(Tokens tokens) {
  static constexpr std::array<std::string_view, 4> behindFor = {"UPDATE", "SHARE", "NO", "KEY"};
  for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
    if (tokens[i].is("FOR") && isOneOf(tokens[i + 1], behindFor)) return true;
    if (tokens[i].is("LOCK") && tokens[i + 1].is("IN")) return true;
  }
  return false;
}

}  // namespace

bool Statement::isSelect() const {
  static constexpr std::array<std::string_view, 2> verbs = {"SELECT", "VALUES"};
  return isOneOf(mainVerb(tokens), verbs);
}

bool Statement::changesRows() const {
  static constexpr std::array<std::string_view, 4> verbs = {"INSERT", "UPDATE", "DELETE",
                                                            "REPLACE"};
  return isOneOf(mainVerb(tokens), verbs);
}

bool Statement::onlyReads() const {
  return (startsWith("SELECT") || startsWith("VALUES")) && !locksRows(tokens);
}

Statement StatementGate::pass(std::string_view text, const LexicalRules& rules) {
  if (text.find('\0') != std::string_view::npos)
    throw refused("Die Anweisung enthält ein Nullzeichen.");
  tokenise(text, rules, tokens_);
  if (std::any_of(tokens_.begin(), tokens_.end(),
                  [](const Token& token) { return token.kind == TokenKind::directive; }))
    throw refused("Kommentare der Form /*! … */ sind nicht erlaubt.");
  const auto first = std::find_if_not(tokens_.begin(), tokens_.end(), isSemicolon);
  const Tokens tokens = Tokens(tokens_).subspan(static_cast<std::size_t>(first - tokens_.begin()));
  if (tokens.empty()) throw refused("Die Anweisung ist leer.");
  const std::size_t end = statementEnd(tokens, rules);
  if (!std::all_of(tokens.begin() + static_cast<std::ptrdiff_t>(end), tokens.end(), isSemicolon))
    throw refused("Es ist nur eine Anweisung erlaubt; hinter dem Semikolon steht eine weitere.");
  const char* const begin = tokens.front().text.data();
  const std::string_view last = tokens[end - 1].text;
  const auto length = static_cast<std::size_t>(last.data() + last.size() - begin);
  return {std::string_view(begin, length), tokens.first(end)};
}

}  // namespace vexnumkr
