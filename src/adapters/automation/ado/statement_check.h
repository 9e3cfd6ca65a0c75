// What is demanded of every statement before an ADO object gets it.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/statement_gate.h"

namespace vexnumkr {
struct Engine;
}

namespace vexnumkr::automation {

/// What a connection string says about the engine behind it.
struct NamedEngine {
  bool isNamed = false;            ///< Not so for an ODBC data source that is only named.
  const Engine* engine = nullptr;  ///< Null for one that is not supported.
};
NamedEngine engineNamedBy(std::string_view connectionString);

/// How the engine behind a connection string reads a statement; none where the string does not
/// tell, as with an ODBC data source that is only named. A supported engine is taken in the mode
/// that it has by itself; providers of other engines are read by what all of SQL has in common.
std::optional<LexicalRules> lexicalRulesOf(std::string_view connectionString);

/// Lets exactly one statement through, and only where it is clear what it says: where the engine is
/// not known, a text that reads differently with backslash escapes and without is refused.
class StatementCheck {
 public:
  /// The statement in `text`. Error 3001 for a text that is refused.
  Statement pass(std::string_view text, const std::optional<LexicalRules>& rules);

 private:
  void refuseAmbiguous(std::string_view text);

  StatementGate gate_;
  std::vector<Token> plain_;
  std::vector<Token> escaped_;
};

}  // namespace vexnumkr::automation
