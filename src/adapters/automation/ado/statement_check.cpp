#include "adapters/automation/ado/statement_check.h"

#include <algorithm>
#include <string>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>

#include "engines/engines.h"
#include "platform/ascii_case.h"

namespace vexnumkr::automation {
namespace {

// The value of a key, also of one for an ODBC driver, which may stand in "Extended Properties".
std::string setting(std::string_view connectionString, std::string_view key) {
  std::string value = connectionValue(connectionString, key, ConnectionSyntax::oleDb);
  if (!value.empty()) return value;
  const std::string inner =
      connectionValue(connectionString, "Extended Properties", ConnectionSyntax::oleDb);
  return connectionValue(inner, key, ConnectionSyntax::oleDb);
}

bool isSameToken(const Token& a, const Token& b) {
  return a.kind == b.kind && a.text == b.text && a.isClosed == b.isClosed;
}

}  // namespace

NamedEngine engineNamedBy(std::string_view connectionString) {
  // The provider for ODBC is also the one that is taken where none is named.
  const std::string provider = inLowerCase(setting(connectionString, "Provider"));
  const bool isOdbc = provider.empty() || provider.starts_with("msdasql");
  const std::string name = isOdbc ? setting(connectionString, "Driver") : provider;
  return {!name.empty(), engineOfDriverName(name)};
}

std::optional<LexicalRules> lexicalRulesOf(std::string_view connectionString) {
  const auto [isNamed, engine] = engineNamedBy(connectionString);
  if (!isNamed) return std::nullopt;
  // A host may bring a provider for an engine that is in no list here, and is not refused for that:
  // what counts as a statement there is what does in every SQL.
  return engine == nullptr ? LexicalRules{} : engine->rules(engine->usualMode);
}

Statement StatementCheck::pass(std::string_view text, const std::optional<LexicalRules>& rules) {
  if (!rules) refuseAmbiguous(text);
  return gate_.pass(text, rules.value_or(LexicalRules{}));
}

void StatementCheck::refuseAmbiguous(std::string_view text) {
  if (text.find('\\') == std::string_view::npos) return;
  tokenise(text, LexicalRules{}, plain_);
  tokenise(text, LexicalRules{.backslashEscapes = true}, escaped_);
  if (!std::equal(plain_.begin(), plain_.end(), escaped_.begin(), escaped_.end(), isSameToken))
    throw Error(error_number::invalidArgument, "VEXNummernkreise",
                "Ein umgekehrter Schrägstrich vor einem Hochkomma ist nicht erlaubt, weil ihn "
                "nicht jede Datenbank gleich versteht.");
}

}  // namespace vexnumkr::automation
