// The number library's statements with hostile values, against SQLite: each does what it does with
// its values bound. Values are quoted there, so none is refused but those with a zero character.
#include <string>
#include <vector>

#include <vexnumkr/error.h>

#include "engines/engines.h"
#include "fuzz/support/bound_statement.h"
#include "fuzz/support/input.h"
#include "fuzz/support/property.h"
#include "fuzz/support/sqlite_model.h"
#include "numbers/sql/statements.h"
#include "platform/statement_gate.h"

namespace vexnumkr::fuzz {
namespace {

using numbers::Literals;
namespace statement = numbers::statement;

struct Texts {
  std::string origin;
  std::string key;
  std::string description;
  std::string sharedKey;
  std::string mask;
  std::string user;
};

constexpr std::string Texts::*allTexts[] = {&Texts::origin,    &Texts::key,  &Texts::description,
                                            &Texts::sharedKey, &Texts::mask, &Texts::user};

struct Numbers {
  std::int32_t circle = 0;
  std::int32_t start = 0;
  std::int32_t current = 0;
  std::int32_t end = 0;
};

constexpr std::size_t kinds = 14;

// A row that an update has to change, whatever the texts are.
template <class Row>
Row withOtherDescription(Row row) {
  row.description += "x";
  return row;
}
numbers::Assignment withOtherDescription(numbers::Assignment row) { return row; }

std::string rowStatement(std::size_t kind, const Literals& literals, const Texts& texts,
                         const Numbers& numbers) {
  const auto write = [&](const auto& row) {
    switch (kind % 3) {
      case 0:
        return statement::insertRow(literals, texts.origin, row);
      case 1:
        return statement::updateRow(literals, texts.origin, withOtherDescription(row), row);
      default:
        return statement::deleteRow(literals, texts.origin, row);
    }
  };
  switch (kind / 3) {
    case 0:
      return write(numbers::Range{.circle = numbers.circle,
                                  .key = texts.key,
                                  .description = texts.description,
                                  .start = numbers.start,
                                  .current = numbers.current,
                                  .end = numbers.end,
                                  .sharedKey = texts.sharedKey,
                                  .mask = texts.mask});
    case 1:
      return write(numbers::Circle{numbers.circle, texts.description});
    case 2:
      return write(numbers::Assignment{numbers.circle, texts.key, texts.user});
    default:
      return write(numbers::SpecialRange{texts.key, texts.sharedKey, texts.description, true});
  }
}

std::string textOf(std::size_t kind, const Texts& texts, const Numbers& numbers) {
  const Literals literals(false);
  if (kind == 12)
    return statement::assignedRanges(literals, texts.origin, texts.user, texts.key, numbers.circle);
  if (kind == 13) return statement::issueNumbers(literals, numbers.circle, texts.key, 1);
  return rowStatement(kind, literals, texts, numbers);
}

class Attack {
 public:
  void run(std::size_t kind, const Texts& texts, const Numbers& numbers) {
    const std::string text = textOf(kind, texts, numbers);
    require(gate_.pass(text, rules_).text == text, "every text is one statement", {text});
    Texts marked;
    Binding binding;
    for (const auto member : allTexts) marked.*member = binding.mark(texts.*member);
    const Effect written = sqlite_.execute(text);
    const Effect bound = sqlite_.execute(binding.bind(textOf(kind, marked, numbers)));
    require(written.succeeded == bound.succeeded, "values written are values bound", {text});
    require(written.found == bound.found, "values written find what they find bound", {text});
    require(written.stored == bound.stored, "values written do what they do bound", {text});
  }

 private:
  const LexicalRules rules_ = engineOfDriverName("sqlite")->rules("");
  StatementGate gate_;
  SqliteModel sqlite_;
};

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  static Attack attack;
  Input input(data, size);
  const std::size_t kind = input.choice(kinds);
  Texts texts;
  for (const auto member : allTexts) texts.*member = input.text();
  const Numbers numbers{input.number(), input.number(), input.number(), input.number()};
  const bool hasZero = std::string_view(reinterpret_cast<const char*>(data), size).find('\0') !=
                       std::string_view::npos;
  try {
    attack.run(kind, texts, numbers);
  } catch (const vexnumkr::Error& error) {
    require(hasZero && error.number() == vexnumkr::error_number::invalidCall,
            "only a zero character is refused");
  }
  return 0;
}
