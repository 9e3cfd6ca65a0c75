#include "data/sql/statement_shapes.h"

#include <algorithm>
#include <utility>

#include "data/sql/statements.h"

namespace vexnumkr {
namespace {

constexpr std::string_view literal = "?";

bool isLiteral(const Token& token) {
  return token.kind == TokenKind::text || token.kind == TokenKind::number;
}

// Behind one of these, a minus belongs to the number that follows.
bool takesSignedNumber(const Token& token) {
  return token.isSymbol('=') || token.isSymbol(',') || token.isSymbol('(');
}

// Takes the literals out, signs included.
void reduce(std::vector<Token>& tokens) {
  std::size_t end = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const bool isSign = tokens[i].isSymbol('-') && end > 0 && takesSignedNumber(tokens[end - 1]) &&
                        i + 1 < tokens.size() && tokens[i + 1].kind == TokenKind::number;
    if (isSign) ++i;
    Token token = tokens[i];
    if (isLiteral(token)) token.text = literal;
    tokens[end++] = token;
  }
  tokens.resize(end);
}

// Names and keywords have to be spelled as the component spells them.
bool sameShape(const std::vector<Token>& a, const std::vector<Token>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Token& x, const Token& y) {
    return x.kind == y.kind && x.text == y.text;
  });
}

// Every statement, with values of no interest.
std::vector<std::string> ownStatements() {
  return {statement::users(),
          statement::ranges(),
          statement::bookingCircles(""),
          statement::assignment(0, "", "", ""),
          statement::specialRangeCount(""),
          statement::specialRangesByKey(""),
          statement::specialRangesByDescription(""),
          statement::otherOriginsOfCircle(0, ""),
          statement::storedRange("", 0),
          statement::deleteRanges(""),
          statement::deleteAssignments(""),
          statement::insertRange({}),
          statement::updateRange({}),
          statement::insertAssignment(0, "", "", "")};
}

// A closed literal has an even number of quotes: two around it, and two for each in it.
bool endsInsideLiteral(const std::vector<Token>& tokens) {
  if (tokens.empty() || tokens.back().kind != TokenKind::text) return false;
  const std::string_view text = tokens.back().text;
  return std::count(text.begin(), text.end(), '\'') % 2 != 0;
}

bool isOneStatement(const std::vector<Token>& tokens) {
  return std::none_of(tokens.begin(), tokens.end(),
                      [](const Token& token) { return token.kind == TokenKind::semicolon; });
}

}  // namespace

StatementShapes::StatementShapes() : texts_(ownStatements()) {
  for (const std::string& text : texts_) {
    Shape shape;
    tokenise(text, shape);
    reduce(shape);
    shapes_.push_back(std::move(shape));
  }
}

bool StatementShapes::isOwn(std::string_view text) {
  tokenise(text, tokens_);
  if (endsInsideLiteral(tokens_)) return isOneStatement(tokens_);
  // Comments yield no tokens, and the component's statements have none: the last token is the end.
  if (tokens_.empty() ||
      tokens_.back().text.data() + tokens_.back().text.size() != text.data() + text.size())
    return false;
  reduce(tokens_);
  return std::any_of(shapes_.begin(), shapes_.end(),
                     [this](const Shape& shape) { return sameShape(shape, tokens_); });
}

}  // namespace vexnumkr
