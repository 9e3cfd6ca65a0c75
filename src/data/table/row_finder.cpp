#include "data/table/row_finder.h"

#include <algorithm>

namespace vexnumkr {

std::size_t RowFinder::Hash::operator()(const RangeKey& key) const {
  std::uint64_t h = (std::uint64_t{key.user} << 32) ^ key.numberKey;
  h ^= std::uint64_t{static_cast<std::uint32_t>(key.circle)} << 20;
  h *= 0x9E3779B97F4A7C15U;
  h ^= h >> 29;
  return static_cast<std::size_t>(h);
}

RowFinder::RowFinder(const std::deque<RangeRow>& rows, const LiveRows& live)
    : rows_(rows), live_(live), slots_(0, Hash{&rows}, Equal{&rows}) {}

void RowFinder::takeIn() {
  for (; taken_ < rows_.size(); ++taken_) slots_.insert(static_cast<std::uint32_t>(taken_));
}

std::vector<std::size_t> RowFinder::all(const RangeKey& key) {
  takeIn();
  std::vector<std::size_t> found;
  const auto [begin, end] = slots_.equal_range(key);
  for (auto slot = begin; slot != end; ++slot)
    if (live_.isLive(*slot)) found.push_back(*slot);
  std::sort(found.begin(), found.end());
  return found;
}

std::optional<std::size_t> RowFinder::first(const RangeKey& key) {
  takeIn();
  std::optional<std::size_t> first;
  const auto [begin, end] = slots_.equal_range(key);
  for (auto slot = begin; slot != end; ++slot)
    if (live_.isLive(*slot) && (!first || *slot < *first)) first = *slot;
  return first;
}

}  // namespace vexnumkr
