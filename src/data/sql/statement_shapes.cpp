#include "data/sql/statement_shapes.h"

#include <algorithm>

#include "data/sql/statements.h"

namespace vexnumkr {
namespace {

constexpr char literalMark = '?';

bool isLiteral(const Token& token) {
  return token.kind == TokenKind::text || token.kind == TokenKind::number;
}

// Behind one of these, a minus belongs to the number that follows.
bool takesSignedNumber(const Token& token) {
  return token.isSymbol('=') || token.isSymbol(',') || token.isSymbol('(') || token.is("WHEN") ||
         token.is("THEN");
}

bool isSign(const std::vector<Token>& tokens, std::size_t i) {
  return tokens[i].isSymbol('-') && i > 0 && takesSignedNumber(tokens[i - 1]) &&
         i + 1 < tokens.size() && tokens[i + 1].kind == TokenKind::number &&
         tokens[i].text.data() + 1 == tokens[i + 1].text.data();
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
          statement::assignmentCount(""),
          statement::insertAssignment(0, "", "", ""),
          statement::assignments(""),
          statement::wholeAssignments(""),
          statement::sharedRanges(""),
          statement::deletableRanges(""),
          statement::removeRange(0, ""),
          statement::removeAssignment(0, "", "", "")};
}

// Those of many rows, with one.
std::vector<std::string> ownSetStatements() {
  const std::vector<statement::KeysOfCircle> keys = {{0, {""}}};
  const std::vector<statement::UsersOfRange> users = {{0, "", {""}}};
  const std::vector<RangeRow> range(1);
  std::vector<std::string> all = {statement::removeRanges(keys), statement::insertRanges(range),
                                  statement::removeAssignments(users, ""),
                                  statement::insertAssignments(users, "")};
  for (std::size_t first = 0; first < statement::RangeColumns::count; ++first)
    for (std::size_t end = first + 1; end <= statement::RangeColumns::count; ++end)
      all.push_back(statement::updateRanges(range, {first, end}));
  return all;
}

// `shape` with one of what is repeated behind each `head`.
std::string withoutRepetition(const std::string& shape, const statement::Repetition& repetition) {
  std::string result;
  std::size_t copied = 0;
  for (std::size_t at = shape.find(repetition.head); at != std::string::npos;
       at = shape.find(repetition.head, at)) {
    at += repetition.head.size();
    result.append(shape, copied, at - copied);
    while (shape.compare(at, repetition.more.size(), repetition.more) == 0)
      at += repetition.more.size();
    copied = at;
  }
  return result.append(shape, copied);
}

// Between its quotes a text may hold none, doubled or not, and no backslash that has a meaning.
bool valuesStayInside(const std::vector<Token>& tokens, bool backslashEscapes) {
  return std::ranges::all_of(tokens, [backslashEscapes](const Token& token) {
    if (token.kind != TokenKind::text) return true;
    const std::string_view value = token.text.substr(1, token.text.size() - 2);
    return value.find('\'') == std::string_view::npos &&
           (!backslashEscapes || value.find('\\') == std::string_view::npos);
  });
}

bool endsInsideLiteral(const std::vector<Token>& tokens) {
  return !tokens.empty() && tokens.back().kind == TokenKind::text && !tokens.back().isClosed;
}

// Whether engines could disagree about where a literal begins that stands behind this token.
bool isDoubtful(const Token& token) {
  static constexpr std::string_view quoteSymbols = "#$`[]\\";
  switch (token.kind) {
    case TokenKind::word:
      return token.is("E") || token.text.find('$') != std::string_view::npos;
    case TokenKind::number:
      return token.text.find_first_not_of("0123456789.") != std::string_view::npos;
    case TokenKind::symbol:
      return quoteSymbols.find(token.text[0]) != std::string_view::npos;
    case TokenKind::text:
      return false;
    default:
      return true;
  }
}

// Whether a text whose last literal is open is a single statement and open for every engine.
bool isOpenForAll(std::string_view text, const std::vector<Token>& tokens) {
  const char* at = text.data();
  for (const Token& token : tokens) {
    const std::string_view gap(at, static_cast<std::size_t>(token.text.data() - at));
    if (isDoubtful(token) || gap.find_first_not_of(" \t\r\n") != std::string_view::npos)
      return false;
    at = token.text.data() + token.text.size();
  }
  return true;
}

}  // namespace

StatementShapes::StatementShapes() : repetitions_(statement::repetitions()) {
  for (const std::string& text : ownStatements()) {
    takeApart(text, false);
    shapes_.insert(shapeOf(text));
  }
}

bool StatementShapes::isOwn(std::string_view text, bool backslashEscapes) {
  takeApart(text, backslashEscapes);
  if (endsInsideLiteral(tokens_)) return isOpenForAll(text, tokens_);
  if (!valuesStayInside(tokens_, backslashEscapes)) return false;
  const std::string& shape = shapeOf(text);
  return shapes_.contains(shape) || isOfSets(withoutRepetitions(shape));
}

bool StatementShapes::isOfSets(const std::string& shape) {
  if (shapesOfSets_.empty())
    for (const std::string& text : ownSetStatements()) {
      takeApart(text, false);
      shapesOfSets_.insert(shapeOf(text));
    }
  return shapesOfSets_.contains(shape);
}

std::string StatementShapes::withoutRepetitions(std::string shape) const {
  for (const statement::Repetition& repetition : repetitions_)
    shape = withoutRepetition(shape, repetition);
  return shape;
}

void StatementShapes::takeApart(std::string_view text, bool backslashEscapes) {
  tokenise(text, LexicalRules{.backslashEscapes = backslashEscapes}, tokens_);
}

const std::string& StatementShapes::shapeOf(std::string_view text) {
  shape_.clear();
  const char* copied = text.data();
  for (std::size_t i = 0; i < tokens_.size(); ++i) {
    const std::string_view token = tokens_[i].text;
    if (!isLiteral(tokens_[i]) && !isSign(tokens_, i)) continue;
    shape_.append(copied, token.data());
    if (isLiteral(tokens_[i])) shape_ += literalMark;
    copied = token.data() + token.size();
  }
  return shape_.append(copied, text.data() + text.size());
}

}  // namespace vexnumkr
