// Any text at all, against SQLite's own parser: where the gate sees one statement SQLite sees no
// other, and one that only reads for the gate only reads for SQLite.
#include "platform/statement_gate.h"

#include <string>

#include <vexnumkr/error.h>

#include "engines/engines.h"
#include "fuzz/support/input.h"
#include "fuzz/support/property.h"
#include "fuzz/support/sqlite_model.h"

namespace vexnumkr::fuzz {
namespace {

// Some pragmas do something when they are merely compiled.
int refusePragmas(void*, int action, const char*, const char*, const char*, const char*) {
  return action == SQLITE_PRAGMA ? SQLITE_DENY : SQLITE_OK;
}

struct Compiled {
  int statements = 0;
  bool onlyReads = true;
  bool hasFailed = false;
};

// What SQLite finds in `text`, up to its first mistake.
Compiled compile(sqlite3* database, std::string_view text) {
  Compiled result;
  while (!text.empty() && !result.hasFailed) {
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    result.hasFailed = sqlite3_prepare_v2(database, text.data(), static_cast<int>(text.size()),
                                          &statement, &tail) != SQLITE_OK;
    text.remove_prefix(static_cast<std::size_t>(tail - text.data()));
    if (statement == nullptr) continue;
    ++result.statements;
    result.onlyReads = result.onlyReads && sqlite3_stmt_readonly(statement) != 0;
    sqlite3_finalize(statement);
  }
  return result;
}

class Attack {
 public:
  Attack() { sqlite3_set_authorizer(sqlite_.handle(), refusePragmas, nullptr); }

  void run(const std::string& text) {
    try {
      compare(text, gate_.pass(text, rules_));
    } catch (const Error& error) {
      require(error.number() == error_number::invalidArgument, "a text is refused as such", {text});
    }
  }

 private:
  void compare(const std::string& text, const Statement& statement) {
    require(!statement.text.empty(), "a statement is not empty", {text});
    const Compiled whole = compile(sqlite_.handle(), text);
    require(whole.statements <= 1, "the engine finds no second statement", {text});
    const Compiled passed = compile(sqlite_.handle(), statement.text);
    require(passed.statements == whole.statements, "what is cut off is no part of it", {text});
    if (passed.hasFailed || passed.statements == 0) return;
    if (statement.onlyReads() || statement.isSelect())
      require(passed.onlyReads, "what seems to read only reads", {text});
    if (statement.changesRows()) require(!passed.onlyReads, "what seems to write writes", {text});
  }

  const LexicalRules rules_ = engineOfDriverName("sqlite")->rules("");
  StatementGate gate_;
  SqliteModel sqlite_;
};

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  static Attack attack;
  attack.run(Input(data, size).rest());
  return 0;
}
