#include "platform/sql_tokens.h"

#include "platform/ascii_case.h"

namespace vexnumkr {
namespace {

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r' && c != '\v'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

// Each of the following takes what begins at `start` and returns the position behind it.

std::size_t behind(std::string_view sql, std::string_view closing, std::size_t from) {
  const std::size_t found = sql.find(closing, from);
  return found == std::string_view::npos ? sql.size() : found + closing.size();
}

// A quote inside is doubled, which reads as two literals without anything between them.
std::size_t quotedEnd(std::string_view sql, std::size_t start) {
  const char quote = sql[start];
  std::size_t end = start;
  do {
    end = behind(sql, std::string_view(&quote, 1), end + 1);
  } while (end < sql.size() && sql[end] == quote);
  return end;
}

std::size_t wordEnd(std::string_view sql, std::size_t start) {
  std::size_t end = start;
  while (end < sql.size() && isWordCharacter(sql[end])) ++end;
  return end;
}

std::size_t numberEnd(std::string_view sql, std::size_t start) {
  std::size_t end = start;
  for (; end < sql.size(); ++end) {
    const bool isExponentSign = (sql[end] == '+' || sql[end] == '-') && end > start &&
                                (sql[end - 1] == 'e' || sql[end - 1] == 'E') &&
                                end + 1 < sql.size() && isDigit(sql[end + 1]);
    if (!isWordCharacter(sql[end]) && sql[end] != '.' && !isExponentSign) break;
  }
  return end;
}

bool startsNumber(std::string_view sql, std::size_t start) {
  return isDigit(sql[start]) ||
         (sql[start] == '.' && start + 1 < sql.size() && isDigit(sql[start + 1]));
}

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// Behind the white space and comments that begin at `start`.
std::size_t skipBlanks(std::string_view sql, std::size_t start) {
  for (;;) {
    if (start >= sql.size()) return sql.size();
    if (isSpace(sql[start]))
      ++start;
    else if (sql[start] == byteOrderMark[0] && sql.compare(start, 3, byteOrderMark) == 0)
      start += byteOrderMark.size();
    else if (sql.compare(start, 2, "--") == 0)
      start = behind(sql, "\n", start);
    else if (sql.compare(start, 2, "/*") == 0)
      start = behind(sql, "*/", start + 2);
    else
      return start;
  }
}

struct Extent {
  TokenKind kind;
  std::size_t end;
};

Extent tokenAt(std::string_view sql, std::size_t start) {
  if (startsNumber(sql, start)) return {TokenKind::number, numberEnd(sql, start)};
  if (isWordCharacter(sql[start])) return {TokenKind::word, wordEnd(sql, start)};
  switch (sql[start]) {
    case '\'':
      return {TokenKind::text, quotedEnd(sql, start)};
    case '"':
    case '`':
      return {TokenKind::quotedName, quotedEnd(sql, start)};
    case '[':
      return {TokenKind::quotedName, behind(sql, "]", start)};
    case ';':
      return {TokenKind::semicolon, start + 1};
    default:
      return {TokenKind::symbol, start + 1};
  }
}

}  // namespace

bool Token::is(std::string_view keyword) const {
  return kind == TokenKind::word && equalsWithoutCase(text, keyword);
}

void tokenise(std::string_view sql, std::vector<Token>& tokens) {
  tokens.clear();
  for (std::size_t at = skipBlanks(sql, 0); at < sql.size();) {
    const Extent token = tokenAt(sql, at);
    tokens.push_back({token.kind, sql.substr(at, token.end - at)});
    at = skipBlanks(sql, token.end);
  }
}

}  // namespace vexnumkr
