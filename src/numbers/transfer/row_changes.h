// Two companies compared row by row.
#pragma once

#include <set>
#include <vector>

#include <vexnumkr/number_transfer.h>

namespace vexnumkr::numbers {

/// A row as it is stored and as it is wanted; one of them is null where it is added or removed.
template <class Row>
struct RowChange {
  const Row* stored = nullptr;
  const Row* wanted = nullptr;

  ChangeKind kind() const {
    if (stored == nullptr) return ChangeKind::added;
    return wanted == nullptr ? ChangeKind::removed : ChangeKind::changed;
  }
};

/// Whether rows of one key hold the same.
bool isSame(const Circle& a, const Circle& b);
bool isSame(const Range& a, const Range& b);
bool isSame(const Assignment& a, const Assignment& b);
bool isSame(const SpecialRange& a, const SpecialRange& b);

/// What differs, by key within each table. The rows belong to the companies compared.
struct RowChanges {
  std::vector<RowChange<Circle>> circles;
  std::vector<RowChange<Range>> ranges;
  std::vector<RowChange<Assignment>> assignments;
  std::vector<RowChange<SpecialRange>> specialRanges;

  bool isEmpty() const {
    return circles.empty() && ranges.empty() && assignments.empty() && specialRanges.empty();
  }
};

/// REQUIRES: in `wanted` every range has the current value that it is to get (see completed).
/// `sharedCircles` are those that the other application has, too.
RowChanges compareRows(const Company& stored, const Company& wanted, bool removeOthers,
                       const std::set<std::int32_t>& sharedCircles);

/// `wanted` with the current values that its ranges are to get.
Company completed(const Company& stored, Company wanted, bool withCurrent);

/// `stored` as it is after the changes.
Company applied(const Company& stored, const RowChanges& changes);

/// For people.
std::vector<Change> described(const RowChanges& changes);

}  // namespace vexnumkr::numbers
