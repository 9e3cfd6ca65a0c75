#include "data/table/row_sort.h"

#include <algorithm>
#include <bit>
#include <numeric>

#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

#include "data/table/radix_order.h"

namespace vexnumkr {
namespace {

constexpr std::uint32_t signBit = 0x80000000;
constexpr unsigned packedBits = 64;

std::int32_t asLong(const Cell& cell, const TextPool& texts) {
  switch (cell.kind) {
    case Cell::Kind::Long:
      return cell.number();
    case Cell::Kind::Boolean:
      return cell.bits != 0 ? -1 : 0;
    case Cell::Kind::Text:
      return textToLong(texts.text(cell.textId()));
    case Cell::Kind::Null:
      throw Error::invalidUseOfNull();
    case Cell::Kind::Empty:
      break;
  }
  return 0;
}

TextId asText(const Cell& cell, TextPool& texts) {
  switch (cell.kind) {
    case Cell::Kind::Text:
      return cell.textId();
    case Cell::Kind::Long:
      return texts.add(std::to_string(cell.number()));
    case Cell::Kind::Boolean:
      return texts.add(Value(cell.bits != 0).toText());
    case Cell::Kind::Null:
      throw Error::invalidUseOfNull();
    case Cell::Kind::Empty:
      break;
  }
  return emptyTextId;
}

// Replaces the numbers of texts by their ranks among each other.
void rankTexts(std::vector<std::uint32_t>& ids, const TextPool& texts) {
  std::vector<std::uint32_t> distinct;
  std::vector<std::uint32_t> rank;
  for (const std::uint32_t id : ids) {
    if (id >= rank.size()) rank.resize(id + 1, 0);
    if (rank[id] == 0) {
      rank[id] = 1;
      distinct.push_back(id);
    }
  }
  std::sort(distinct.begin(), distinct.end(),
            [&texts](std::uint32_t a, std::uint32_t b) { return texts.text(a) < texts.text(b); });
  for (std::size_t i = 0; i < distinct.size(); ++i)
    rank[distinct[i]] = static_cast<std::uint32_t>(i);
  for (std::uint32_t& id : ids) id = rank[id];
}

// One key's values of all rows as unsigned numbers from 0 that sort like the cells.
std::vector<std::uint32_t> ordinals(const RowStore& store, TextPool& texts, std::size_t first,
                                    std::size_t last, const SortKey& key) {
  std::vector<std::uint32_t> values(last - first);
  const auto column = static_cast<std::size_t>(key.column);
  const bool asNumbers = key.comparison == Comparison::Number;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Cell& cell = store.row(first + i)[column];
    values[i] =
        asNumbers ? static_cast<std::uint32_t>(asLong(cell, texts)) ^ signBit : asText(cell, texts);
  }
  if (!asNumbers) rankTexts(values, texts);
  if (values.empty()) return values;
  const auto [low, high] = std::minmax_element(values.begin(), values.end());
  const std::uint32_t lowest = *low;
  const std::uint32_t highest = *high;
  for (std::uint32_t& value : values) value = key.ascending ? value - lowest : highest - value;
  return values;
}

using Columns = std::vector<std::vector<std::uint32_t>>;

unsigned bitsOf(const std::vector<std::uint32_t>& values) {
  return static_cast<unsigned>(std::bit_width(*std::max_element(values.begin(), values.end())));
}

// Joins the keys of each row into one number, the first key highest.
std::vector<std::uint64_t> pack(const Columns& columns) {
  std::vector<std::uint64_t> packed(columns.front().size(), 0);
  for (const auto& values : columns) {
    const unsigned bits = bitsOf(values);
    for (std::size_t i = 0; i < packed.size(); ++i) packed[i] = (packed[i] << bits) | values[i];
  }
  return packed;
}

// For keys too wide to be joined.
std::vector<std::uint32_t> comparedOrder(const Columns& columns) {
  std::vector<std::uint32_t> order(columns.front().size());
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(), [&columns](std::uint32_t a, std::uint32_t b) {
    for (const auto& values : columns)
      if (values[a] != values[b]) return values[a] < values[b];
    return false;
  });
  return order;
}

}  // namespace

std::vector<std::uint32_t> sortedSlots(const RowStore& store, TextPool& texts, std::size_t first,
                                       std::size_t last, std::span<const SortKey> keys) {
  std::vector<std::uint32_t> order(last - first);
  std::iota(order.begin(), order.end(), 0U);
  if (!order.empty() && !keys.empty()) {
    Columns columns;
    unsigned bits = 0;
    for (const SortKey& key : keys) {
      columns.push_back(ordinals(store, texts, first, last, key));
      bits += bitsOf(columns.back());
    }
    order = bits <= packedBits ? radixOrder(pack(columns), bits) : comparedOrder(columns);
  }
  for (std::uint32_t& slot : order) slot += static_cast<std::uint32_t>(first);
  return order;
}

}  // namespace vexnumkr
