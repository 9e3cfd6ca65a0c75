#include "adapters/automation/ado/statement_check.h"

#include <algorithm>
#include <string>

#include <vexnumkr/error.h>

#include "platform/ascii_case.h"

namespace vexnumkr::automation {
namespace {

bool contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

bool isSameToken(const Token& a, const Token& b) {
  return a.kind == b.kind && a.text == b.text && a.isClosed == b.isClosed;
}

}  // namespace

std::optional<LexicalRules> lexicalRulesOf(std::string_view connectionString) {
  const std::string text = inLowerCase(connectionString);
  if (contains(text, "mariadb") || contains(text, "mysql"))
    return LexicalRules{.dialect = Dialect::mariadb, .backslashEscapes = true};
  if (contains(text, "postgres") || contains(text, "psqlodbc"))
    return LexicalRules{.dialect = Dialect::postgresql};
  const bool namesProvider = contains(text, "provider=") && !contains(text, "provider=msdasql");
  if (namesProvider || contains(text, "driver=")) return LexicalRules{};
  return std::nullopt;
}

Statement StatementCheck::pass(std::string_view text, const std::optional<LexicalRules>& rules) {
  if (!rules) refuseAmbiguous(text);
  return gate_.pass(text, rules.value_or(LexicalRules{}));
}

void StatementCheck::refuseAmbiguous(std::string_view text) {
  if (text.find('\\') == std::string_view::npos) return;
  constexpr std::int32_t invalidArgument = 3001;
  tokenise(text, LexicalRules{}, plain_);
  tokenise(text, LexicalRules{.backslashEscapes = true}, escaped_);
  if (!std::equal(plain_.begin(), plain_.end(), escaped_.begin(), escaped_.end(), isSameToken))
    throw Error(invalidArgument, "VEXNummernkreise",
                "Ein umgekehrter Schrägstrich vor einem Hochkomma ist nicht erlaubt, weil ihn "
                "nicht jede Datenbank gleich versteht.");
}

}  // namespace vexnumkr::automation
