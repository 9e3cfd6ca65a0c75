#include "numbers/transfer/import_faults.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <unordered_set>
#include <utility>

#include <vexnumkr/numbers.h>

#include "data/stored/hosts_keys.h"

namespace vexnumkr::numbers {
namespace {

std::size_t charactersOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

std::string number(std::int32_t value) { return std::to_string(value); }

class FaultSearch {
 public:
  FaultSearch(Connection& connection, const Company& wanted, const Company& after)
      : connection_(connection), wanted_(wanted) {
    circles_.insert(0);
    for (const Circle& circle : after.circles) circles_.insert(circle.number);
    for (const Range& range : after.ranges) {
      ranges_.emplace(range.circle, range.key);
      keys_.insert(range.key);
    }
    users_.insert(after.users.begin(), after.users.end());
    users_.insert(everybody);
  }

  std::vector<ImportFault> in(const RowChanges& changes) {
    search(ChangedTable::circles, changes.circles, wanted_.circles);
    search(ChangedTable::ranges, changes.ranges, wanted_.ranges);
    search(ChangedTable::assignments, changes.assignments, wanted_.assignments);
    search(ChangedTable::specialRanges, changes.specialRanges, wanted_.specialRanges);
    // As they stand in the company, whoever has to find them.
    std::stable_sort(faults_.begin(), faults_.end(), [](const auto& a, const auto& b) {
      return std::tie(a.table, a.row) < std::tie(b.table, b.row);
    });
    return std::move(faults_);
  }

 private:
  template <class Row>
  void search(ChangedTable table, const std::vector<RowChange<Row>>& changes,
              const std::vector<Row>& rows) {
    for (const RowChange<Row>& change : changes) {
      if (change.wanted == nullptr) continue;
      table_ = table;
      row_ = static_cast<std::size_t>(change.wanted - rows.data());
      examine(*change.wanted);
    }
  }

  void examine(const Circle& circle) {
    if (circle.number < 1)
      fault("Ein Buchungskreis hat eine Nummer ab 1, nicht " + number(circle.number) + ".");
    requireLength("Nummernkreis_Buchungskreise", "Beschreibung", circle.description);
  }

  void examine(const Range& range) {
    requireCircle(range.circle);
    requireKey("Nummernkreise", "NSchl", range.key);
    requireLength("Nummernkreise", "NBezeichnung", range.description);
    requireLength("Nummernkreise", "IstNSchlVon", range.sharedKey);
    requireLength("Nummernkreise", "Maske", range.mask);
    if (!range.sharedKey.empty() && !ranges_.contains({range.circle, range.sharedKey}))
      fault("Den Nummernkreis " + range.sharedKey +
            ", aus dem gezogen werden soll, gibt es im Buchungskreis " + number(range.circle) +
            " nicht.");
  }

  void examine(const Assignment& assignment) {
    requireCircle(assignment.circle);
    if (circles_.contains(assignment.circle) &&
        !ranges_.contains({assignment.circle, assignment.key}))
      fault("Den Nummernkreis " + assignment.key + " gibt es im Buchungskreis " +
            number(assignment.circle) + " nicht.");
    if (!users_.contains(assignment.user))
      fault("Den Benutzer \"" + assignment.user + "\" gibt es nicht.");
  }

  void examine(const SpecialRange& special) {
    requireKey("Nummernkreis_Sonderkreise", "U_NSchl", special.ownKey);
    requireLength("Nummernkreis_Sonderkreise", "NBezeichnung", special.description);
    if (!keys_.contains(special.key))
      fault("Einen Nummernkreis \"" + special.key + "\", aus dem er ziehen könnte, gibt es nicht.");
  }

  void requireCircle(std::int32_t circle) {
    if (!circles_.contains(circle))
      fault("Den Buchungskreis " + number(circle) + " gibt es nicht.");
  }

  void requireKey(const char* table, const char* column, const std::string& key) {
    if (key.empty()) fault("Der Nummernschlüssel ist leer.");
    if (isHostsKey(key)) fault("Der Nummernschlüssel " + key + " gehört der Anwendung selbst.");
    requireLength(table, column, key);
  }

  void requireLength(const char* table, const char* column, const std::string& text) {
    const std::int32_t limit = limitOf(table, column);
    const std::size_t length = charactersOf(text);
    if (limit > 0 && length > static_cast<std::size_t>(limit))
      fault(std::string(column) + " hat " + std::to_string(length) +
            " Zeichen; in die Spalte passen " + number(limit) + ".");
  }

  std::int32_t limitOf(const char* table, const char* column) {
    const auto [found, isNew] = limits_.try_emplace({table, column}, 0);
    if (isNew) found->second = connection_.TextLimit(table, column);
    return found->second;
  }

  void fault(std::string text) { faults_.push_back({table_, row_, std::move(text)}); }

  Connection& connection_;
  const Company& wanted_;
  std::set<std::int32_t> circles_;
  std::set<std::pair<std::int32_t, std::string>> ranges_;
  std::unordered_set<std::string> keys_;
  std::unordered_set<std::string> users_;
  std::map<std::pair<std::string, std::string>, std::int32_t> limits_;
  ChangedTable table_ = ChangedTable::circles;
  std::size_t row_ = 0;
  std::vector<ImportFault> faults_;
};

}  // namespace

std::vector<ImportFault> importFaults(Connection& connection, const Company& wanted,
                                      const Company& after, const RowChanges& changes) {
  return FaultSearch(connection, wanted, after).in(changes);
}

}  // namespace vexnumkr::numbers
