#include "data/table/row_order.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <span>
#include <utility>
#include <variant>

#include "data/table/radix_order.h"

namespace vexnumkr {
namespace {

using Key = std::variant<Text RangeRow::*, std::int32_t RangeRow::*>;
using Ordinals = std::vector<std::uint32_t>;
using Rows = std::deque<RangeRow>;

constexpr unsigned packedBits = 64;

std::span<const Key> keysOf(RowOrder order) {
  static constexpr Key display[] = {&RangeRow::Benutzer, &RangeRow::SortierIndex, &RangeRow::NSchl,
                                    &RangeRow::Buchungskreis};
  static constexpr Key tree[] = {&RangeRow::Benutzer, &RangeRow::NSchl, &RangeRow::Buchungskreis};
  static constexpr Key circleAndKey[] = {&RangeRow::Buchungskreis, &RangeRow::NSchl};
  switch (order) {
    case RowOrder::display:
      return display;
    case RowOrder::tree:
      return tree;
    case RowOrder::circleAndKey:
      return circleAndKey;
    case RowOrder::none:
      break;
  }
  return {};
}

// Numbers from 0 up in the order of the column's texts.
Ordinals ordinals(const Rows& rows, Text RangeRow::*column) {
  std::vector<Text> distinct;
  Ordinals rank;  // by the text's number in the pool; first whether it was met at all
  for (const RangeRow& row : rows) {
    const Text text = row.*column;
    if (text.id() >= rank.size()) rank.resize(text.id() + 1, 0);
    if (std::exchange(rank[text.id()], 1U) == 0) distinct.push_back(text);
  }
  std::sort(distinct.begin(), distinct.end(), [](Text a, Text b) { return a.str() < b.str(); });
  for (std::uint32_t i = 0; i < distinct.size(); ++i) rank[distinct[i].id()] = i;
  Ordinals result;
  result.reserve(rows.size());
  for (const RangeRow& row : rows) result.push_back(rank[(row.*column).id()]);
  return result;
}

// The numbers less the lowest of them, which leaves few bits to sort by.
Ordinals ordinals(const Rows& rows, std::int32_t RangeRow::*column) {
  const auto at = [column](const RangeRow& row) -> std::int32_t { return row.*column; };
  std::int32_t lowest = rows.empty() ? 0 : at(rows.front());
  for (const RangeRow& row : rows) lowest = std::min(lowest, at(row));
  Ordinals result;
  result.reserve(rows.size());
  for (const RangeRow& row : rows)
    result.push_back(static_cast<std::uint32_t>(at(row)) - static_cast<std::uint32_t>(lowest));
  return result;
}

unsigned bitsOf(const Ordinals& values) {
  return static_cast<unsigned>(std::bit_width(*std::max_element(values.begin(), values.end())));
}

// Joins the keys of each row into one number, the first key highest.
std::vector<std::uint64_t> pack(const std::vector<Ordinals>& columns) {
  std::vector<std::uint64_t> packed(columns.front().size(), 0);
  for (const Ordinals& values : columns) {
    const unsigned bits = bitsOf(values);
    for (std::size_t i = 0; i < packed.size(); ++i) packed[i] = (packed[i] << bits) | values[i];
  }
  return packed;
}

// For keys too wide to be joined.
std::vector<std::uint32_t> comparedOrder(const std::vector<Ordinals>& columns) {
  std::vector<std::uint32_t> order(columns.front().size());
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(), [&columns](std::uint32_t a, std::uint32_t b) {
    for (const Ordinals& values : columns)
      if (values[a] != values[b]) return values[a] < values[b];
    return false;
  });
  return order;
}

}  // namespace

std::vector<std::uint32_t> sortedPositions(const Rows& rows, RowOrder order) {
  if (rows.empty()) return {};
  std::vector<Ordinals> columns;
  unsigned bits = 0;
  for (const Key& key : keysOf(order)) {
    columns.push_back(std::visit([&rows](auto column) { return ordinals(rows, column); }, key));
    bits += bitsOf(columns.back());
  }
  return bits <= packedBits ? radixOrder(pack(columns), bits) : comparedOrder(columns);
}

}  // namespace vexnumkr
