// Finds the rows of a user, booking circle and number key without scanning the table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <unordered_set>
#include <vector>

#include "data/table/live_rows.h"
#include "data/table/range_row.h"

namespace vexnumkr {

/// What rows are looked up by; never written in a row that is in a table.
struct RangeKey {
  std::uint32_t user = 0;
  std::int32_t circle = 0;
  std::uint32_t numberKey = 0;

  static RangeKey of(const RangeRow& row) {
    return {row.Benutzer.id(), row.Buchungskreis, row.NSchl.id()};
  }
  friend bool operator==(const RangeKey&, const RangeKey&) = default;
};

/// A cache over the rows of a table: it takes in what was appended when it is next asked. Rows that
/// were removed are passed over; whoever moves rows makes a new one. Keeps the rows' positions
/// alone, a quarter of the memory of a map with the keys.
class RowFinder {
 public:
  /// Both are borrowed and stay where they are.
  RowFinder(const std::deque<RangeRow>& rows, const LiveRows& live);

  /// The slots of the live rows with that key, in ascending order; there is rarely more than one.
  std::vector<std::size_t> all(const RangeKey& key);
  /// The first of them.
  std::optional<std::size_t> first(const RangeKey& key);

 private:
  struct Hash {
    using is_transparent = void;
    const std::deque<RangeRow>* rows;

    std::size_t operator()(const RangeKey& key) const;
    std::size_t operator()(std::uint32_t slot) const {
      return (*this)(RangeKey::of((*rows)[slot]));
    }
  };
  struct Equal {
    using is_transparent = void;
    const std::deque<RangeRow>* rows;

    RangeKey keyOf(const RangeKey& key) const { return key; }
    RangeKey keyOf(std::uint32_t slot) const { return RangeKey::of((*rows)[slot]); }
    template <class A, class B>
    bool operator()(const A& a, const B& b) const {
      return keyOf(a) == keyOf(b);
    }
  };

  void takeIn();

  const std::deque<RangeRow>& rows_;
  const LiveRows& live_;
  std::size_t taken_ = 0;
  std::unordered_multiset<std::uint32_t, Hash, Equal> slots_;
};

}  // namespace vexnumkr
