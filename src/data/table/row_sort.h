// The order of a table's rows by several keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "data/table/row_store.h"
#include "data/table/text_pool.h"

namespace vexnumkr {

/// How a sort compares the cells of a column: as texts by code point, or as 32-bit integers.
enum class Comparison { Text, Number };

struct SortKey {
  std::int32_t column = 0;
  bool ascending = true;
  Comparison comparison = Comparison::Text;

  friend bool operator==(const SortKey&, const SortKey&) = default;
};

/// The slots `first` to `last` - 1 of `store` in the order of `keys`; stable. Cells convert as
/// Values do: error 94 for Null, 13 and 6 for texts that are no integer where numbers are compared.
std::vector<std::uint32_t> sortedSlots(const RowStore& store, TextPool& texts, std::size_t first,
                                       std::size_t last, std::span<const SortKey> keys);

}  // namespace vexnumkr
