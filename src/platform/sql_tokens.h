// Statement texts taken apart, so that nobody has to look for characters inside literals.
//
// The lexical rules are SQLite's, exactly: where this and the engine disagreed about the end of a
// literal or a comment, a second statement could hide there.
#pragma once

#include <string_view>
#include <vector>

namespace vexnumkr {

enum class TokenKind {
  word,        ///< A keyword or a bare name.
  quotedName,  ///< "name", `name` or [name], with its quotes.
  text,        ///< 'text', with its quotes.
  number,      ///< 12, 1.5e-3, 0x1F.
  semicolon,
  symbol,  ///< Any other single character.
};

struct Token {
  TokenKind kind;
  std::string_view text;  ///< Points into the text that was taken apart.

  /// Whether it is that keyword, in any case. A name in quotes is none.
  bool is(std::string_view keyword) const;
  bool isSymbol(char c) const { return kind == TokenKind::symbol && text[0] == c; }
};

/// Puts the tokens of `sql` into `tokens`, which is emptied first and keeps its memory. White space
/// and comments yield none. An unclosed literal or comment goes on to the end of the text. Any text
/// can be taken apart; whether it makes sense is the engine's to say.
void tokenise(std::string_view sql, std::vector<Token>& tokens);

}  // namespace vexnumkr
