// The component's statements with hostile values, against SQLite: what the check lets through does
// what the same statement does with its values bound, and nothing else.
#include <string>

#include <vexnumkr/error.h>

#include "data/sql/statement_shapes.h"
#include "engines/engines.h"
#include "fuzz/support/own_statements.h"
#include "fuzz/support/property.h"
#include "fuzz/support/sqlite_model.h"
#include "platform/statement_gate.h"

namespace vexnumkr::fuzz {
namespace {

class Attack {
 public:
  void run(std::size_t kind, const OwnValues& values) {
    if (!isMade(kind, values)) return;
    const std::string text = ownStatement(kind, values);
    const bool passes = shapes_.isOwn(text) && passesGate(text);
    require(passes || !values.isHarmless(), "values without quotes are never refused", {text});
    if (!passes) return;
    const Effect written = sqlite_.execute(text);
    if (!written.succeeded) {
      require(written.stored == sqlite_.untouched(), "a failed statement changes nothing", {text});
      if (!values.isHarmless()) return;
    }
    const Effect bound = sqlite_.execute(boundOwnStatement(kind, values));
    require(written.succeeded == bound.succeeded, "values written are values bound", {text});
    require(written.found == bound.found, "values written find what they find bound", {text});
    require(written.stored == bound.stored, "values written do what they do bound", {text});
  }

 private:
  bool passesGate(const std::string& text) {
    static const LexicalRules rules = engineOfDriverName("sqlite")->rules("");
    try {
      gate_.pass(text, rules);
      return true;
    } catch (const Error&) {
      return false;
    }
  }

  StatementShapes shapes_;
  StatementGate gate_;
  SqliteModel sqlite_;
};

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  static Attack attack;
  Input input(data, size);
  const std::size_t kind = input.choice(ownStatementCount);
  attack.run(kind, OwnValues::read(input));
  return 0;
}
