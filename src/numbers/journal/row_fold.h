// What is left of rows that were deleted, inserted and updated.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <vexnumkr/number_company.h>

#include "numbers/transfer/row_changes.h"

namespace vexnumkr::numbers {

/// A row, and the origin that it belongs to; empty for ranges.
template <class Row>
struct OwnedRow {
  std::string origin;
  Row row;
};

/// The rows of one table. What goes and comes back as it was has not been changed, in either order
/// and however often.
template <class Row>
class RowFold {
 public:
  void gone(OwnedRow<Row> row) { settle(std::move(row), &Difference::come, &Difference::gone); }
  void come(OwnedRow<Row> row) { settle(std::move(row), &Difference::gone, &Difference::come); }

  bool isEmpty() const { return left_.empty(); }

  /// Calls `visit` with the origin and the change of each row that is different, in order. The rows
  /// are this object's.
  template <class Visit>
  void forEachChange(Visit&& visit) const {
    for (const auto& [key, difference] : left_) {
      const std::size_t count = std::max(difference.gone.size(), difference.come.size());
      for (std::size_t i = 0; i < count; ++i) {
        const OwnedRow<Row>* const before = at(difference.gone, i);
        const OwnedRow<Row>* const after = at(difference.come, i);
        visit((before == nullptr ? after : before)->origin,
              RowChange<Row>{before == nullptr ? nullptr : &before->row,
                             after == nullptr ? nullptr : &after->row});
      }
    }
  }

 private:
  using Rows = std::vector<OwnedRow<Row>>;
  struct Difference {
    Rows gone;
    Rows come;
  };
  // Origin and what identifies a row in it.
  using Key = std::tuple<std::string, std::string, std::int32_t, std::string>;

  static Key keyOf(const OwnedRow<Range>& row) { return {{}, row.row.key, row.row.circle, {}}; }
  static Key keyOf(const OwnedRow<Circle>& row) { return {row.origin, {}, row.row.number, {}}; }
  static Key keyOf(const OwnedRow<Assignment>& row) {
    return {row.origin, row.row.key, row.row.circle, row.row.user};
  }
  static Key keyOf(const OwnedRow<SpecialRange>& row) {
    return {row.origin, row.row.ownKey, 0, {}};
  }

  static const OwnedRow<Row>* at(const Rows& rows, std::size_t i) {
    return i < rows.size() ? &rows[i] : nullptr;
  }

  void settle(OwnedRow<Row> row, Rows Difference::*opposite, Rows Difference::*own) {
    const auto place = left_.try_emplace(keyOf(row)).first;
    Rows& others = place->second.*opposite;
    const auto same = std::find_if(others.begin(), others.end(), [&](const OwnedRow<Row>& other) {
      return isSame(other.row, row.row);
    });
    if (same == others.end()) {
      (place->second.*own).push_back(std::move(row));
      return;
    }
    others.erase(same);
    if (place->second.gone.empty() && place->second.come.empty()) left_.erase(place);
  }

  std::map<Key, Difference> left_;
};

}  // namespace vexnumkr::numbers
