#include "adapters/qtsql/rows/simple_select.h"

#include <algorithm>
#include <array>

namespace vexnumkr::qtsql {
namespace {

constexpr std::array<std::string_view, 6> joiningWords = {"GROUP",     "HAVING", "UNION",
                                                          "INTERSECT", "EXCEPT", "WINDOW"};

// Reads the statement's tokens from left to right; each member takes what it names when it comes
// next, and tells whether it did.
class Reader {
 public:
  explicit Reader(std::span<const Token> tokens) : tokens_(tokens) {}

  bool atEnd() const { return at_ == tokens_.size(); }
  const Token& previous() const { return tokens_[at_ - 1]; }
  const Token& next() const { return tokens_[at_]; }

  bool keyword(std::string_view word) { return takeIf(!atEnd() && next().is(word)); }
  bool symbol(char c) { return takeIf(!atEnd() && next().isSymbol(c)); }
  bool name() {
    return takeIf(!atEnd() &&
                  (next().kind == TokenKind::word || next().kind == TokenKind::quotedName));
  }

  bool column() {
    if (symbol('*')) return true;
    if (!name()) return false;
    return !symbol('.') || symbol('*') || name();
  }

  bool columns() {
    do {
      if (!column()) return false;
    } while (symbol(','));
    return true;
  }

  bool table() { return name() && (!symbol('.') || name()); }

  // What may follow the table: another name for it, conditions, order, limit.
  bool restOfSimpleSelect() {
    const bool hasClause = !atEnd() && startsClause();
    if (!hasClause && !atEnd()) {
      keyword("AS");
      if (!name()) return false;
    }
    return atEnd() || (startsClause() && !groupsOrCombines());
  }

 private:
  bool takeIf(bool matches) {
    if (matches) ++at_;
    return matches;
  }

  bool startsClause() const {
    return next().is("WHERE") || next().is("ORDER") || next().is("LIMIT");
  }

  // Inside brackets any select may stand; only what belongs to this one counts.
  bool groupsOrCombines() const {
    int depth = 0;
    for (const Token& token : tokens_.subspan(at_)) {
      if (token.isSymbol('(')) ++depth;
      if (token.isSymbol(')')) --depth;
      if (depth == 0 && std::any_of(joiningWords.begin(), joiningWords.end(),
                                    [&](std::string_view word) { return token.is(word); }))
        return true;
    }
    return false;
  }

  std::span<const Token> tokens_;
  std::size_t at_ = 0;
};

std::string_view between(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

const char* endOf(std::string_view text) { return text.data() + text.size(); }

}  // namespace

std::string SimpleSelect::withColumns(std::string_view columns) const {
  std::string text(beforeFrom);
  return text.append(", ").append(columns).append(" ").append(fromOn);
}

std::optional<SimpleSelect> parseSimpleSelect(const Statement& statement) {
  Reader reader(statement.tokens);
  if (!reader.keyword("SELECT") || !reader.columns()) return std::nullopt;
  const char* const columnsEnd = endOf(reader.previous().text);
  if (!reader.keyword("FROM") || reader.atEnd()) return std::nullopt;
  const char* const from = reader.previous().text.data();
  const char* const tableBegin = reader.next().text.data();
  if (!reader.table()) return std::nullopt;
  const char* const tableEnd = endOf(reader.previous().text);
  if (!reader.restOfSimpleSelect()) return std::nullopt;
  return SimpleSelect{between(tableBegin, tableEnd), between(statement.text.data(), columnsEnd),
                      between(from, endOf(statement.text))};
}

}  // namespace vexnumkr::qtsql
