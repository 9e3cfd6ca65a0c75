#include "numbers/transfer/row_changes.h"

#include <algorithm>
#include <string_view>
#include <tuple>

namespace vexnumkr::numbers {
namespace {

auto keyOf(const Circle& row) { return row.number; }
auto keyOf(const Range& row) { return std::tuple(std::string_view(row.key), row.circle); }
auto keyOf(const Assignment& row) {
  return std::tuple(row.circle, std::string_view(row.key), std::string_view(row.user));
}
auto keyOf(const SpecialRange& row) { return std::string_view(row.ownKey); }

// Each key once, in order; the first of equal ones counts.
template <class Row>
std::vector<const Row*> inOrder(const std::vector<Row>& rows) {
  std::vector<const Row*> order;
  for (const Row& row : rows) order.push_back(&row);
  std::stable_sort(order.begin(), order.end(),
                   [](const Row* a, const Row* b) { return keyOf(*a) < keyOf(*b); });
  order.erase(std::unique(order.begin(), order.end(),
                          [](const Row* a, const Row* b) { return keyOf(*a) == keyOf(*b); }),
              order.end());
  return order;
}

template <class Row, class MayRemove>
std::vector<RowChange<Row>> compare(const std::vector<Row>& stored, const std::vector<Row>& wanted,
                                    MayRemove&& mayRemove) {
  std::vector<RowChange<Row>> changes;
  const auto before = inOrder(stored);
  const auto after = inOrder(wanted);
  auto old = before.begin();
  for (const Row* row : after) {
    for (; old != before.end() && keyOf(**old) < keyOf(*row); ++old)
      if (mayRemove(**old)) changes.push_back({*old, nullptr});
    const bool isStored = old != before.end() && keyOf(**old) == keyOf(*row);
    if (!isStored) {
      changes.push_back({nullptr, row});
    } else {
      if (!isSame(**old, *row)) changes.push_back({*old, row});
      ++old;
    }
  }
  for (; old != before.end(); ++old)
    if (mayRemove(**old)) changes.push_back({*old, nullptr});
  return changes;
}

// The changes are in the order of their keys.
template <class Row>
std::vector<Row> appliedRows(const std::vector<Row>& stored,
                             const std::vector<RowChange<Row>>& changes) {
  std::vector<Row> rows;
  for (const Row& row : stored) {
    const auto change = std::lower_bound(
        changes.begin(), changes.end(), keyOf(row), [](const RowChange<Row>& one, const auto& key) {
          return keyOf(one.stored == nullptr ? *one.wanted : *one.stored) < key;
        });
    const bool isOfRow = change != changes.end() && change->stored != nullptr &&
                         keyOf(*change->stored) == keyOf(row);
    if (!isOfRow) {
      rows.push_back(row);
    } else if (change->wanted != nullptr) {
      rows.push_back(*change->wanted);
    }
  }
  for (const auto& change : changes)
    if (change.stored == nullptr) rows.push_back(*change.wanted);
  return rows;
}

std::string shown(const std::string& text) { return "\"" + text + "\""; }
std::string shown(std::int32_t number) { return std::to_string(number); }
std::string shown(const std::optional<std::int32_t>& number) {
  return number ? std::to_string(*number) : "NULL";
}
std::string shown(bool flag) { return flag ? "ja" : "nein"; }

template <class Field>
void addField(Change& change, const char* name, const Field& before, const Field& after) {
  if (before == after) return;
  change.fields.push_back(std::string(name) + " " + shown(before) + " -> " + shown(after));
}

void addFields(Change& change, const Circle& before, const Circle& after) {
  addField(change, "Beschreibung", before.description, after.description);
}
void addFields(Change& change, const Range& before, const Range& after) {
  addField(change, "Bezeichnung", before.description, after.description);
  addField(change, "Startwert", before.start, after.start);
  addField(change, "Aktuell", before.current, after.current);
  addField(change, "Endwert", before.end, after.end);
  addField(change, "Aktiviert", before.active, after.active);
  addField(change, "Sortierung", before.sortIndex, after.sortIndex);
  addField(change, "IstNSchlVon", before.sharedKey, after.sharedKey);
  addField(change, "Maske", before.mask, after.mask);
}
void addFields(Change&, const Assignment&, const Assignment&) {}
void addFields(Change& change, const SpecialRange& before, const SpecialRange& after) {
  addField(change, "Schlüssel", before.key, after.key);
  addField(change, "Bezeichnung", before.description, after.description);
  addField(change, "Aktiviert", before.active, after.active);
}

std::string circleText(std::int32_t number) { return "Buchungskreis " + std::to_string(number); }
std::string nameOf(const Circle& row) { return circleText(row.number); }
std::string nameOf(const Range& row) { return row.key + ", " + circleText(row.circle); }
std::string nameOf(const Assignment& row) {
  return row.user + ": " + row.key + ", " + circleText(row.circle);
}
std::string nameOf(const SpecialRange& row) { return row.ownKey; }

template <class Row>
void describe(ChangedTable table, const std::vector<RowChange<Row>>& rows,
              std::vector<Change>& changes) {
  for (const auto& row : rows) {
    Change change{.kind = row.kind(),
                  .table = table,
                  .what = nameOf(row.wanted == nullptr ? *row.stored : *row.wanted)};
    if (change.kind == ChangeKind::changed) addFields(change, *row.stored, *row.wanted);
    changes.push_back(std::move(change));
  }
}

}  // namespace

bool isSame(const Circle& a, const Circle& b) { return a.description == b.description; }
bool isSame(const Range& a, const Range& b) {
  return std::tie(a.description, a.start, a.current, a.end, a.active, a.sortIndex, a.sharedKey,
                  a.mask) == std::tie(b.description, b.start, b.current, b.end, b.active,
                                      b.sortIndex, b.sharedKey, b.mask);
}
bool isSame(const Assignment&, const Assignment&) { return true; }
bool isSame(const SpecialRange& a, const SpecialRange& b) {
  return std::tie(a.key, a.description, a.active) == std::tie(b.key, b.description, b.active);
}

RowChanges compareRows(const Company& stored, const Company& wanted, bool removeOthers,
                       const std::set<std::int32_t>& sharedCircles) {
  const auto always = [&](const auto&) { return removeOthers; };
  RowChanges changes;
  changes.circles = compare(stored.circles, wanted.circles, always);
  changes.ranges = compare(stored.ranges, wanted.ranges, [&](const Range& range) {
    const bool isStandard = range.circle == 0 && range.sharedKey.empty();
    return removeOthers && !isStandard && !sharedCircles.contains(range.circle);
  });
  changes.assignments = compare(stored.assignments, wanted.assignments, always);
  changes.specialRanges = compare(stored.specialRanges, wanted.specialRanges, always);
  return changes;
}

Company completed(const Company& stored, Company wanted, bool withCurrent) {
  for (Range& range : wanted.ranges) {
    const Range* const known = stored.find(range.circle, range.key);
    // A current value is no setting but the memory of what has been issued, which stays here.
    if (withCurrent && range.current) continue;
    range.current = range.start;
    if (known == nullptr || !known->current) continue;
    const bool fits = range.start && range.end && *range.start <= *known->current &&
                      *known->current <= *range.end;
    // Numbers that are issued stay issued, so that the rules refuse what has no room for them.
    const bool isSameStart = range.start == known->start;
    if (fits || isSameStart) range.current = known->current;
  }
  return wanted;
}

Company applied(const Company& stored, const RowChanges& changes) {
  Company after = stored;
  after.circles = appliedRows(stored.circles, changes.circles);
  after.ranges = appliedRows(stored.ranges, changes.ranges);
  after.specialRanges = appliedRows(stored.specialRanges, changes.specialRanges);
  return after;
}

std::vector<Change> described(const RowChanges& changes) {
  std::vector<Change> all;
  describe(ChangedTable::circles, changes.circles, all);
  describe(ChangedTable::ranges, changes.ranges, all);
  describe(ChangedTable::assignments, changes.assignments, all);
  describe(ChangedTable::specialRanges, changes.specialRanges, all);
  return all;
}

std::vector<Change> differences(const Company& stored, const Company& wanted,
                                const TransferOptions& options) {
  const Company complete = completed(stored, wanted, options.withCurrent);
  return described(compareRows(stored, complete, options.removeOthers, {}));
}

}  // namespace vexnumkr::numbers
