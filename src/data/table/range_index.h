// Finds the rows of a user, booking circle and number key without scanning the table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "data/table/live_rows.h"
#include "data/table/row_store.h"

namespace vexnumkr {

/// What the index looks rows up by. A row whose cells are of other kinds is found by no key.
struct RangeKey {
  TextId user = emptyTextId;
  std::int32_t circle = 0;
  TextId numberKey = emptyTextId;  ///< emptyTextId also for a cell that was never set

  friend bool operator==(const RangeKey&, const RangeKey&) = default;
};

/// The key of a stored row, or nothing when no search can find the row.
std::optional<RangeKey> rangeKeyOf(const Cell* row);

/// A hash table of chains: all rows of one key, in ascending order of their slots, so that the
/// first match of a scan is the head of its chain. Rows removed from the table stay in their chains
/// until they are skipped; whoever renumbers slots clears the index.
class RangeIndex {
 public:
  void clear();
  std::size_t indexedRows() const { return next_.size(); }

  /// Takes in the rows from indexedRows() up to the last of `store`.
  void extend(const RowStore& store);

  /// Before and after a key cell of an indexed row is written.
  void unlink(const RowStore& store, std::size_t slot);
  void link(const RowStore& store, std::size_t slot);

  /// The first live row with that key.
  std::optional<std::size_t> first(const RowStore& store, const LiveRows& live,
                                   const RangeKey& key);
  /// All live rows with that key in ascending order.
  std::vector<std::size_t> all(const RowStore& store, const LiveRows& live, const RangeKey& key);

 private:
  static constexpr std::uint32_t none = 0xFFFFFFFF;
  static constexpr std::uint32_t deleted = 0xFFFFFFFE;

  struct Chain {
    std::uint32_t head = none;
    std::uint32_t tail = none;
  };

  void grow(const RowStore& store);
  Chain* find(const RowStore& store, const RangeKey& key);
  Chain& findOrAdd(const RowStore& store, const RangeKey& key);
  void insert(Chain& chain, std::uint32_t slot);

  std::vector<Chain> chains_;  // open addressing, a power of two long
  std::size_t used_ = 0;       // chains that are not `none`, deleted ones included
  std::vector<std::uint32_t> next_;
};

}  // namespace vexnumkr
