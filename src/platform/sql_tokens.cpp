#include "platform/sql_tokens.h"

#include <algorithm>

#include "platform/ascii_case.h"

namespace vexnumkr {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }

bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

struct Extent {
  TokenKind kind;
  std::size_t end;
  bool isClosed = true;
};

// Reads one text by the rules of one engine. Positions count from 0; each `...End` takes what
// begins at `start` and returns the position behind it.
class Scanner {
 public:
  Scanner(std::string_view sql, const LexicalRules& rules) : sql_(sql), rules_(rules) {}

  // Behind the white space and comments that begin at `start`.
  std::size_t skipBlanks(std::size_t start) const {
    while (start < sql_.size()) {
      const std::size_t end = blankEnd(start);
      if (end == start) return start;
      start = end;
    }
    return sql_.size();
  }

  Extent tokenAt(std::size_t start) const {
    if (rules_.executableComments && has(start, "/*")) return {TokenKind::directive, start + 2};
    if (startsNumber(start)) return {TokenKind::number, numberEnd(start)};
    if (rules_.dollarTexts && sql_[start] == '$') return dollarQuoted(start);
    if (rules_.escapeTexts && (has(start, "e'") || has(start, "E'"))) return escapedText(start + 1);
    if (isWordCharacter(sql_[start])) return {TokenKind::word, wordEnd(start)};
    return quotedOrSymbol(start);
  }

 private:
  char at(std::size_t i) const { return i < sql_.size() ? sql_[i] : '\0'; }
  bool has(std::size_t start, std::string_view text) const {
    return sql_.compare(start, text.size(), text) == 0;
  }

  std::size_t behind(std::string_view closing, std::size_t from) const {
    const std::size_t found = sql_.find(closing, from);
    return found == std::string_view::npos ? sql_.size() : found + closing.size();
  }

  bool isSpace(char c) const {
    return c == ' ' || (c >= '\t' && c <= '\r' && (c != '\v' || rules_.verticalTabIsBlank));
  }

  // `start` itself where neither white space nor a comment begins.
  std::size_t blankEnd(std::size_t start) const {
    if (isSpace(sql_[start])) return spaceEnd(start);
    if (rules_.byteOrderMarkIsBlank && has(start, byteOrderMark))
      return start + byteOrderMark.size();
    // Its line end is white space already, which something may follow.
    if (startsLineComment(start)) return std::min(sql_.find('\n', start), sql_.size());
    if (startsBlockComment(start)) return blockCommentEnd(start);
    return start;
  }

  std::size_t spaceEnd(std::size_t start) const {
    std::size_t end = start + 1;
    if (rules_.verticalTabFollowsBlanks)
      while (isSpace(at(end)) || at(end) == '\v') ++end;
    return end;
  }

  bool startsLineComment(std::size_t start) const {
    if (rules_.hashComments && sql_[start] == '#') return true;
    if (!has(start, "--")) return false;
    return !rules_.dashesNeedBlank || start + 2 == sql_.size() || sql_[start + 2] == ' ' ||
           isControl(sql_[start + 2]);
  }

  // With nothing behind it, it is a mistake, which the engine is to see.
  bool startsBlockComment(std::size_t start) const {
    const bool hasContent = start + 2 < sql_.size() || rules_.executableComments;
    return has(start, "/*") && hasContent && !isDirective(start);
  }

  bool isDirective(std::size_t start) const {
    return rules_.executableComments && (has(start, "/*!") || has(start, "/*M!"));
  }

  std::size_t blockCommentEnd(std::size_t start) const {
    if (!rules_.nestedComments) return behind("*/", start + 2);
    int depth = 0;
    for (std::size_t i = start; i < sql_.size();) {
      if (has(i, "/*")) {
        ++depth;
        i += 2;
      } else if (has(i, "*/")) {
        i += 2;
        if (--depth == 0) return i;
      } else {
        ++i;
      }
    }
    return sql_.size();
  }

  std::size_t wordEnd(std::size_t start) const {
    std::size_t end = start;
    while (end < sql_.size() && isWordCharacter(sql_[end])) ++end;
    return end;
  }

  bool startsNumber(std::size_t start) const {
    return isDigit(sql_[start]) || (sql_[start] == '.' && isDigit(at(start + 1)));
  }

  std::size_t numberEnd(std::size_t start) const {
    return rules_.strictNumbers ? strictNumberEnd(start) : looseNumberEnd(start);
  }

  std::size_t looseNumberEnd(std::size_t start) const {
    std::size_t end = start;
    for (; end < sql_.size(); ++end) {
      const bool isExponentSign = (sql_[end] == '+' || sql_[end] == '-') && end > start &&
                                  (sql_[end - 1] == 'e' || sql_[end - 1] == 'E') &&
                                  isDigit(at(end + 1));
      if (!isWordCharacter(sql_[end]) && sql_[end] != '.' && !isExponentSign) break;
    }
    return end;
  }

  // What follows the digits is a token of its own, which may open a literal: 1e'...', 1$$...$$.
  std::size_t strictNumberEnd(std::size_t start) const {
    std::size_t end = start;
    while (isDigit(at(end)) || at(end) == '.') ++end;
    if (at(end) == 'e' || at(end) == 'E') {
      const bool hasSign = at(end + 1) == '+' || at(end + 1) == '-';
      std::size_t exponent = end + (hasSign ? 2 : 1);
      if (isDigit(at(exponent))) {
        while (isDigit(at(exponent))) ++exponent;
        end = exponent;
      }
    }
    return end;
  }

  // A quote inside is doubled or, where that is the rule, follows a backslash.
  Extent quoted(TokenKind kind, std::size_t start, bool backslashEscapes) const {
    const char quote = sql_[start];
    for (std::size_t i = start + 1; i < sql_.size(); ++i) {
      if (backslashEscapes && sql_[i] == '\\') {
        ++i;
      } else if (sql_[i] == quote) {
        if (at(i + 1) != quote) return {kind, i + 1};
        ++i;
      }
    }
    return {kind, sql_.size(), false};
  }

  // A text in another line goes on with the one before it, and reads backslashes as that does.
  Extent escapedText(std::size_t start) const {
    Extent text = quoted(TokenKind::text, start, true);
    for (;;) {
      std::size_t next = text.end;
      while (next < sql_.size() && (isSpace(sql_[next]) || has(next, "--")))
        next = isSpace(sql_[next]) ? next + 1 : behind("\n", next);
      const bool passedLine =
          sql_.substr(text.end, next - text.end).find_first_of("\r\n") != std::string_view::npos;
      if (!text.isClosed || !passedLine || at(next) != '\'') return text;
      text = quoted(TokenKind::text, next, true);
    }
  }

  // $tag$ ... $tag$; a tag is a name without dollar signs, or nothing.
  Extent dollarQuoted(std::size_t start) const {
    std::size_t end = start + 1;
    while (end < sql_.size() && isWordCharacter(sql_[end]) && sql_[end] != '$') ++end;
    if (at(end) != '$' || isDigit(at(start + 1))) return {TokenKind::symbol, start + 1};
    const std::string_view tag = sql_.substr(start, end + 1 - start);
    const bool isClosed = sql_.find(tag, end + 1) != std::string_view::npos;
    return {TokenKind::text, behind(tag, end + 1), isClosed};
  }

  Extent quotedOrSymbol(std::size_t start) const {
    const bool escapes = rules_.backslashEscapes;
    switch (sql_[start]) {
      case '\'':
        return quoted(TokenKind::text, start, escapes);
      case '"':
        if (rules_.doubleQuotedTexts) return quoted(TokenKind::text, start, escapes);
        return quoted(TokenKind::quotedName, start, false);
      case '`':
        if (!rules_.backquotedNames) break;
        return quoted(TokenKind::quotedName, start, false);
      case '[':
        if (!rules_.bracketedNames) break;
        return {TokenKind::quotedName, behind("]", start)};
      case ';':
        return {TokenKind::semicolon, start + 1};
      default:
        break;
    }
    return {TokenKind::symbol, start + 1};
  }

  std::string_view sql_;
  const LexicalRules& rules_;
};

}  // namespace

bool Token::is(std::string_view keyword) const {
  return kind == TokenKind::word && equalsWithoutCase(text, keyword);
}

void tokenise(std::string_view sql, const LexicalRules& rules, std::vector<Token>& tokens) {
  tokens.clear();
  const Scanner scanner(sql, rules);
  for (std::size_t at = scanner.skipBlanks(0); at < sql.size();) {
    const Extent token = scanner.tokenAt(at);
    tokens.push_back({token.kind, sql.substr(at, token.end - at), token.isClosed});
    at = scanner.skipBlanks(token.end);
  }
}

}  // namespace vexnumkr
