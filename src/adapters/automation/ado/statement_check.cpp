#include "adapters/automation/ado/statement_check.h"

#include <algorithm>
#include <map>
#include <string>

#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

#include "platform/ascii_case.h"

namespace vexnumkr::automation {
namespace {

using Settings = std::map<std::string, std::string>;

std::string_view trimmed(std::string_view text) {
  text = trimBlanks(text);
  if (text.size() >= 2 && (text.front() == '"' || text.front() == '\'') &&
      text.back() == text.front())
    text = text.substr(1, text.size() - 2);
  return text;
}

// Where the value that begins here ends: at a semicolon outside of quotes and braces.
std::size_t valueEnd(std::string_view text, std::size_t position) {
  char closing = '\0';
  for (; position < text.size(); ++position) {
    const char c = text[position];
    if (closing != '\0') {
      if (c == closing) closing = '\0';
    } else if (c == '"' || c == '\'') {
      closing = c;
    } else if (c == '{') {
      closing = '}';
    } else if (c == ';') {
      break;
    }
  }
  return position;
}

// The settings of a connection string, in lower case. Those for an ODBC driver may stand in quotes
// in "Extended Properties".
Settings settingsOf(std::string_view text) {
  Settings settings;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = valueEnd(text, begin);
    const std::string_view pair = text.substr(begin, end - begin);
    const std::size_t sign = pair.find('=');
    if (sign != std::string_view::npos)
      settings.emplace(inLowerCase(trimBlanks(pair.substr(0, sign))),
                       inLowerCase(trimmed(pair.substr(sign + 1))));
    begin = end + 1;
  }
  if (const auto inner = settings.find("extended properties"); inner != settings.end())
    settings.merge(settingsOf(std::string(inner->second)));
  return settings;
}

bool contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

bool isSameToken(const Token& a, const Token& b) {
  return a.kind == b.kind && a.text == b.text && a.isClosed == b.isClosed;
}

}  // namespace

std::optional<LexicalRules> lexicalRulesOf(std::string_view connectionString) {
  Settings settings = settingsOf(connectionString);
  // The provider for ODBC is also the one that is taken where none is named.
  const std::string& provider = settings["provider"];
  const bool isOdbc = provider.empty() || provider.starts_with("msdasql");
  const std::string& engine = isOdbc ? settings["driver"] : provider;
  if (contains(engine, "mariadb") || contains(engine, "mysql"))
    return LexicalRules{.dialect = Dialect::mariadb, .backslashEscapes = true};
  if (contains(engine, "postgres") || contains(engine, "psql"))
    return LexicalRules{.dialect = Dialect::postgresql};
  if (engine.empty()) return std::nullopt;
  return LexicalRules{};
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
    throw Error(refusedStatement, "VEXNummernkreise",
                "Ein umgekehrter Schrägstrich vor einem Hochkomma ist nicht erlaubt, weil ihn "
                "nicht jede Datenbank gleich versteht.");
}

}  // namespace vexnumkr::automation
