#include "rules/saving/assignment_changes.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "data/table/loose_text.h"
#include "rules/saving/saving.h"

namespace vexnumkr {
namespace {

struct Count {
  std::int32_t wanted = 0;
  std::int32_t stored = 0;

  bool isLeaving() const { return stored > wanted; }
  std::int32_t lacking() const { return isLeaving() ? wanted : wanted - stored; }
};

// How many there are of each assignment that has to do with the table.
class Counts {
 public:
  explicit Counts(const XArray& table) : table_(table) {
    for (const RangeRow& row : table)
      if (row.Aktiviert) ++of(row).wanted;
    for (auto& [range, users] : ranges_) users.resize(users_.size());
  }

  Count& of(const RangeRow& row) {
    return at(row.Buchungskreis, row.NSchl.id(), userNumber(row.Benutzer));
  }

  // Null for a key or a user that no active row has. What it returns stays where it is.
  Count* find(const StoredAssignment& stored) {
    const auto key = table_.knownText(stored.NSchl);
    const LooseNames::Number user = users_.find(stored.Benutzer);
    return key && user != LooseNames::none ? &at(stored.Buchungskreis, key->id(), user) : nullptr;
  }

 private:
  Count& at(std::int32_t circle, std::uint32_t key, LooseNames::Number user) {
    std::vector<Count>& users =
        ranges_[std::uint64_t{static_cast<std::uint32_t>(circle)} << 32 | key];
    if (users.size() <= user) users.resize(users_.size());
    return users[user];
  }

  LooseNames::Number userNumber(Text user) {
    if (numbers_.size() <= user.id()) numbers_.resize(user.id() + 1, LooseNames::none);
    LooseNames::Number& number = numbers_[user.id()];
    if (number == LooseNames::none) number = users_.add(basAllgemein::ReplaceUser(user.str()));
    return number;
  }

  const XArray& table_;
  LooseNames users_;                         // as they are stored
  std::vector<LooseNames::Number> numbers_;  // of the users, by the numbers of their texts
  std::unordered_map<std::uint64_t, std::vector<Count>> ranges_;
};

class Comparison {
 public:
  Comparison(const XArray& table, const std::string& Herkunft)
      : table_(table), Herkunft_(Herkunft), counts_(table) {}

  void readAll(Recordset& records) {
    for (; !records.EndOfFile() && !anew_; records.MoveNext()) read(records);
    records.Close();
  }

  AssignmentChanges changes() {
    if (anew_) return allAssignments(table_);
    AssignmentChanges changes;
    for (const auto& [assignment, count] : leaving_) add(changes, assignment, count->stored);
    for (const auto& [key, records] : strange_)
      add(changes, {std::get<0>(key), std::get<1>(key), std::get<2>(key)}, records);
    for (const RangeRow& row : table_)
      if (row.Aktiviert && takeLacking(counts_.of(row))) changes.lacking.push_back(&row);
    return changes;
  }

 private:
  void read(const Recordset& record) {
    const Value circle = record.Fields("Buchungskreis");
    const Value key = record.Fields("NSchl");
    const Value user = record.Fields("Benutzer");
    const Value origin = record.Fields("Herkunft");
    if (!circle.isLong() || !key.isText() || !user.isText() || !origin.isText() ||
        origin.asText() != Herkunft_)
      anew_ = true;
    else
      count({circle.asLong(), key.asText(), user.asText()});
  }

  void count(const StoredAssignment& stored) {
    Count* const count = counts_.find(stored);
    if (count == nullptr)
      ++strange_[{stored.Buchungskreis, stored.NSchl, stored.Benutzer}];
    else if (++count->stored == count->wanted + 1)
      leaving_.emplace_back(stored, count);
  }

  static void add(AssignmentChanges& changes, const StoredAssignment& assignment,
                  std::int64_t records) {
    changes.leaving.push_back(assignment);
    changes.leavingRecords += records;
  }

  static bool takeLacking(Count& count) {
    if (count.lacking() == 0) return false;
    --count.wanted;
    return true;
  }

  const XArray& table_;
  const std::string& Herkunft_;
  Counts counts_;
  bool anew_ = false;
  std::vector<std::pair<StoredAssignment, const Count*>> leaving_;
  std::map<std::tuple<std::int32_t, std::string, std::string>, std::int64_t> strange_;
};

}  // namespace

AssignmentChanges compareAssignments(const XArray& table, Recordset& stored,
                                     const std::string& Herkunft) {
  Comparison comparison(table, Herkunft);
  comparison.readAll(stored);
  return comparison.changes();
}

AssignmentChanges allAssignments(const XArray& table) {
  AssignmentChanges changes;
  changes.anew = true;
  for (const RangeRow& row : table)
    if (row.Aktiviert) changes.lacking.push_back(&row);
  return changes;
}

}  // namespace vexnumkr
