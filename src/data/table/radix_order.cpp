#include "data/table/radix_order.h"

#include <array>
#include <numeric>

namespace vexnumkr {
namespace {

constexpr unsigned digitBits = 11;

}  // namespace

// Least significant digit first; each pass is stable, so the whole is.
std::vector<std::uint32_t> radixOrder(const std::vector<std::uint64_t>& keys, unsigned bits) {
  constexpr std::size_t buckets = std::size_t{1} << digitBits;
  std::vector<std::uint32_t> order(keys.size());
  std::vector<std::uint32_t> target(keys.size());
  std::iota(order.begin(), order.end(), 0U);
  for (unsigned shift = 0; shift < bits; shift += digitBits) {
    std::array<std::uint32_t, buckets> start{};
    const auto digit = [&](std::uint32_t position) {
      return static_cast<std::size_t>(keys[position] >> shift) & (buckets - 1);
    };
    for (const std::uint32_t position : order) ++start[digit(position)];
    std::exclusive_scan(start.begin(), start.end(), start.begin(), 0U);
    for (const std::uint32_t position : order) target[start[digit(position)]++] = position;
    order.swap(target);
  }
  return order;
}

}  // namespace vexnumkr
