// Statement texts taken apart, so that nobody has to look for characters inside literals.
//
// The lexical rules are each engine's own, exactly: where these and the engine disagreed about the
// end of a literal or a comment, a second statement could hide there.
#pragma once

#include <string_view>
#include <vector>

namespace vexnumkr {

/// How an engine, in the mode that a connection has set, reads a statement. Without any of these it
/// reads what all of SQL has in common: 'texts', "names", and comments of the forms -- and /* */.
struct LexicalRules {
  /// In texts, a backslash takes the meaning from the character behind it, quotes included.
  bool backslashEscapes = false;
  bool doubleQuotedTexts = false;   ///< Double quotes enclose texts, not names.
  bool backquotedNames = false;     ///< `name`
  bool bracketedNames = false;      ///< [name]
  bool escapeTexts = false;         ///< E'text', in which backslashes escape.
  bool dollarTexts = false;         ///< $tag$text$tag$
  bool nestedComments = false;      ///< A /* inside a comment begins another one.
  bool executableComments = false;  ///< What stands in /*! */ may be executed.
  bool hashComments = false;        ///< # to the end of the line.
  bool dashesNeedBlank = false;     ///< -- is a comment only where a blank or a control follows.
  /// What follows the digits of a number is a token of its own, not a part of it.
  bool strictNumbers = false;
  bool verticalTabIsBlank = false;
  bool verticalTabFollowsBlanks = false;  ///< It is white space right behind other white space.
  bool byteOrderMarkIsBlank = false;
  bool triggersHoldStatements = false;  ///< The body of a trigger is made of them.

  friend bool operator==(const LexicalRules&, const LexicalRules&) = default;
};

enum class TokenKind {
  word,        ///< A keyword or a bare name.
  quotedName,  ///< "name", `name` or [name], with its quotes.
  text,        ///< 'text', with its quotes.
  number,      ///< 12, 1.5e-3, 0x1F.
  semicolon,
  directive,  ///< The beginning of a comment that the engine may execute.
  symbol,     ///< Any other single character.
};

struct Token {
  TokenKind kind;
  std::string_view text;  ///< Points into the text that was taken apart.
  bool isClosed = true;   ///< False for a literal that lacks its closing quote.

  /// Whether it is that keyword, in any case. A name in quotes is none.
  bool is(std::string_view keyword) const;
  bool isSymbol(char c) const { return kind == TokenKind::symbol && text[0] == c; }
};

/// Puts the tokens of `sql` into `tokens`, which is emptied first and keeps its memory. White space
/// and comments yield none. An unclosed literal or comment goes on to the end of the text. Any text
/// can be taken apart; whether it makes sense is the engine's to say.
void tokenise(std::string_view sql, const LexicalRules& rules, std::vector<Token>& tokens);

}  // namespace vexnumkr
