// Writing what differs, all or nothing.
#include <set>

#include <vexnumkr/error.h>

#include "numbers/changed_meanwhile.h"
#include "numbers/check/checked_ranges.h"
#include "numbers/origin.h"
#include "numbers/query.h"
#include "numbers/reissued.h"
#include "numbers/sql/statements.h"
#include "numbers/transaction.h"
#include "numbers/transfer/import_faults.h"
#include "numbers/transfer/row_changes.h"

namespace vexnumkr::numbers {
namespace {

std::set<std::int32_t> sharedCircles(Connection& connection, const std::string& origin) {
  std::set<std::int32_t> circles;
  const auto rows = select(connection, statement::circlesOfOthers(Literals(connection), origin));
  for (; !rows->EndOfFile(); rows->MoveNext())
    circles.insert(rows->Fields("Buchungskreis").toLong());
  rows->Close();
  return circles;
}

void addReissued(const Company& stored, const RowChange<Range>& change,
                 std::vector<Finding>& findings) {
  if (change.kind() != ChangeKind::changed || !change.wanted->current || !change.wanted->end)
    return;
  const auto numbers = reissued(*change.stored, *change.wanted->current, *change.wanted->end);
  if (!numbers) return;
  findings.push_back(findingAt(
      *change.wanted, FindingKind::numbersReissued, Severity::critical,
      describe(stored, *change.wanted) + ": Die Nummern " + std::to_string(numbers->first) + "–" +
          std::to_string(numbers->last) + " sind schon vergeben und würden noch einmal vergeben."));
}

// What is stored, what it is to become, and the steps between. The steps point into both.
struct Comparison {
  Comparison(Connection& connection, const Company& asked, const TransferOptions& options)
      : stored(readCompany(connection, asked.application)),
        wanted(completed(stored, asked, options.withCurrent)),
        changes(compareRows(stored, wanted, options.removeOthers,
                            sharedCircles(connection, requiredOrigin(asked.application)))) {
    const Company after = applied(stored, changes);
    broken = brokenRules(after);
    faults = importFaults(connection, wanted, after, changes);
    if (!options.reissue) addReissues(asked, options.withCurrent);
  }
  Comparison(const Comparison&) = delete;
  Comparison& operator=(const Comparison&) = delete;

  ImportPlan plan() const { return {described(changes), broken, faults}; }

  Company stored;
  Company wanted;
  RowChanges changes;
  std::vector<Finding> broken;
  std::vector<ImportFault> faults;

 private:
  // Whoever asks for a current value knows what it does.
  void addReissues(const Company& asked, bool withCurrent) {
    for (const auto& change : changes.ranges) {
      if (change.wanted == nullptr) continue;
      const auto index = static_cast<std::size_t>(change.wanted - wanted.ranges.data());
      if (!withCurrent || !asked.ranges[index].current) addReissued(stored, change, broken);
    }
  }
};

class Writer {
 public:
  Writer(Connection& connection, const std::string& origin)
      : connection_(connection), literals_(connection), origin_(origin) {}

  void write(const RowChanges& changes) {
    for (const auto& change : changes.circles) write(change);
    for (const auto& change : changes.ranges) write(change);
    for (const auto& change : changes.assignments) write(change);
    for (const auto& change : changes.specialRanges) write(change);
  }

 private:
  template <class Row>
  void write(const RowChange<Row>& change) {
    switch (change.kind()) {
      case ChangeKind::added:
        send(statement::insertRow(literals_, origin_, *change.wanted));
        break;
      case ChangeKind::changed:
        requireFound(*change.stored, send(statement::updateRow(literals_, origin_, *change.stored,
                                                               *change.wanted)));
        break;
      case ChangeKind::removed:
        requireFound(*change.stored,
                     send(statement::deleteRow(literals_, origin_, *change.stored)));
        break;
    }
  }
  std::int32_t send(const std::string& text) { return execute(connection_, text); }

  // What has become of the other tables' rows is seen when they are read back.
  template <class Row>
  static void requireFound(const Row&, std::int32_t) {}
  static void requireFound(const Range& range, std::int32_t found) {
    if (found == 0) throw changedMeanwhile(range);
  }

  Connection& connection_;
  Literals literals_;
  std::string origin_;
};

void requireStored(Connection& connection, const Company& wanted, const TransferOptions& options) {
  const Comparison now(connection, wanted, options);
  const std::vector<Change> left = described(now.changes);
  if (left.empty()) return;
  throw Error(error_number::notStoredAsWritten, "vexnumkr",
              "Die Datenbank hat nicht alles so gespeichert, wie es gesendet wurde: " +
                  left.front().what + ". Es wurde nichts geändert.");
}

}  // namespace

ImportPlan planImport(Connection& connection, const Company& wanted,
                      const TransferOptions& options) {
  ImportPlan plan;
  readAtOneMoment(connection, [&] { plan = Comparison(connection, wanted, options).plan(); });
  return plan;
}

ImportPlan storeCompany(Connection& connection, const Company& wanted,
                        const TransferOptions& options) {
  ImportPlan plan;
  inTransaction(connection, Ending::commit, [&] {
    // What is compared has to be what is overwritten: nobody draws or saves in between.
    execute(connection, statement::takeWriteLock());
    const Comparison comparison(connection, wanted, options);
    plan = comparison.plan();
    if (!plan.isPossible() || plan.changes.empty()) return;
    Writer(connection, requiredOrigin(wanted.application)).write(comparison.changes);
    requireStored(connection, wanted, options);
  });
  return plan;
}

}  // namespace vexnumkr::numbers
