#include "cli/broken_rules.h"

#include <ostream>

#include "cli/printable.h"

namespace vexnumkr::cli {

Json describedRules(const std::vector<numbers::Finding>& broken) {
  Json rules = Json::array();
  for (const numbers::Finding& finding : broken)
    rules.push_back({{"kind", numbers::nameOf(finding.kind)},
                     {"circle", finding.circle},
                     {"key", finding.key},
                     {"text", finding.text}});
  return rules;
}

void printRules(Session& session, const std::vector<numbers::Finding>& broken) {
  for (const numbers::Finding& finding : broken)
    session.out() << "FEHLER  " << printable(finding.text) << '\n';
}

}  // namespace vexnumkr::cli
