#include <vexnumkr/error.h>
#include <vexnumkr/number_rollover.h>

#include "numbers/changed_meanwhile.h"
#include "numbers/check/checked_ranges.h"
#include "numbers/query.h"
#include "numbers/reissued.h"
#include "numbers/sql/statements.h"
#include "numbers/transaction.h"

namespace vexnumkr::numbers {
namespace {

bool hasValues(const Range& range, const MaskNumbers& numbers) {
  return range.start == numbers.low && range.current == numbers.low && range.end == numbers.high;
}

void setValues(Range& range, const MaskNumbers& numbers) {
  range.start = numbers.low;
  range.current = numbers.low;
  range.end = numbers.high;
}

void renumber(Connection& connection, const Renumbering& change) {
  const Literals literals(connection);
  const std::int32_t changed =
      execute(connection, statement::renumberRange(literals, change.range, change.numbers.low,
                                                   change.numbers.low, change.numbers.high));
  if (changed != 1) throw changedMeanwhile(change.range);
}

}  // namespace

RolloverPlan planRollover(const Company& company, const std::string& date) {
  RolloverPlan plan;
  Company after = company;
  const SwitchedOffKeys switchedOff(company);
  for (Range& range : after.ranges) {
    if (switchedOff.contains(range.key)) continue;
    try {
      const auto numbers = maskNumbers(range.mask, date);
      if (!numbers || hasValues(range, *numbers)) continue;
      plan.changes.push_back({range, *numbers, reissued(range, numbers->low, numbers->high)});
      setValues(range, *numbers);
    } catch (const Error& error) {
      plan.failures.push_back({range, describe(company, range) + ": Die Maske \"" + range.mask +
                                          "\" ergibt keine Nummern (" + error.description() +
                                          ")."});
    }
  }
  // Only all of them together: ranges may well overlap while a part has its new numbers.
  plan.broken = brokenRules(after);
  return plan;
}

RolloverPlan applyRollover(Connection& connection, std::int32_t application,
                           const std::string& date, Reissuing reissuing) {
  RolloverPlan plan;
  inTransaction(connection, Ending::commit, [&] {
    // From here on nobody draws, so that no number is issued from values that are about to go.
    execute(connection, statement::takeWriteLock());
    plan = planRollover(readCompany(connection, application), date);
    plan.reissuing = reissuing;
    if (!plan.isPossible()) return;
    for (const Renumbering& change : plan.changes) renumber(connection, change);
  });
  return plan;
}

}  // namespace vexnumkr::numbers
