#include "numbers/gaps/number_set.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace vexnumkr::numbers {
namespace {

constexpr std::size_t longestList = 4096;  // as large as the bits
constexpr std::size_t wordsOfBlock = 65536 / 64;

// In the order of the numbers.
std::uint32_t unsignedOf(std::int32_t number) {
  return static_cast<std::uint32_t>(number) ^ 0x8000'0000U;
}
std::int32_t signedOf(std::uint32_t number) {
  return static_cast<std::int32_t>(number ^ 0x8000'0000U);
}

}  // namespace

bool NumberSet::insert(std::int32_t number) {
  const std::uint32_t place = unsignedOf(number);
  const bool isNew = blocks_[place >> 16].insert(static_cast<std::uint16_t>(place & 0xFFFFU));
  if (isNew) ++size_;
  return isNew;
}

bool NumberSet::Block::insert(std::uint16_t low) {
  if (!bits.empty()) {
    std::uint64_t& word = bits[low / 64];
    const std::uint64_t bit = std::uint64_t{1} << (low % 64);
    const bool isNew = (word & bit) == 0;
    word |= bit;
    return isNew;
  }
  const auto place = sorted.empty() || sorted.back() < low
                         ? sorted.end()
                         : std::lower_bound(sorted.begin(), sorted.end(), low);
  if (place != sorted.end() && *place == low) return false;
  sorted.insert(place, low);
  if (sorted.size() > longestList) turnIntoBits();
  return true;
}

void NumberSet::Block::turnIntoBits() {
  bits.resize(wordsOfBlock);
  for (const std::uint16_t low : sorted) bits[low / 64] |= std::uint64_t{1} << (low % 64);
  sorted = {};
}

template <class Visit>
void NumberSet::Block::forEach(std::uint16_t from, std::uint16_t to, Visit&& visit) const {
  for (auto at = std::lower_bound(sorted.begin(), sorted.end(), from);
       at != sorted.end() && *at <= to; ++at)
    visit(*at);
  if (bits.empty()) return;
  for (std::size_t i = from / 64; i <= to / 64U; ++i) {
    for (std::uint64_t word = bits[i]; word != 0; word &= word - 1) {
      const std::size_t low = i * 64 + static_cast<std::size_t>(std::countr_zero(word));
      if (low >= from && low <= to) visit(static_cast<std::uint16_t>(low));
    }
  }
}

void NumberSet::forEachIn(Interval within, const Visitor& visit) const {
  const std::uint32_t from = unsignedOf(within.first);
  const std::uint32_t to = unsignedOf(within.last);
  bool isOpen = false;
  Interval current;
  const auto add = [&](std::int32_t number) {
    if (isOpen && number == std::int64_t{current.last} + 1) {
      current.last = number;
      return;
    }
    if (isOpen) visit(current);
    current = {number, number};
    isOpen = true;
  };
  for (std::uint32_t upper = from >> 16; upper <= to >> 16; ++upper) {
    const bool isFirst = upper == from >> 16;
    const bool isLast = upper == to >> 16;
    blocks_[upper].forEach(isFirst ? static_cast<std::uint16_t>(from & 0xFFFFU) : std::uint16_t{0},
                           isLast ? static_cast<std::uint16_t>(to & 0xFFFFU)
                                  : std::numeric_limits<std::uint16_t>::max(),
                           [&](std::uint16_t low) { add(signedOf((upper << 16) | low)); });
  }
  if (isOpen) visit(current);
}

void NumberSet::forEachMissing(Interval within, const Visitor& visit) const {
  std::int64_t next = within.first;
  forEachIn(within, [&](Interval present) {
    if (present.first > next) visit({static_cast<std::int32_t>(next), present.first - 1});
    next = std::int64_t{present.last} + 1;
  });
  if (next <= within.last) visit({static_cast<std::int32_t>(next), within.last});
}

}  // namespace vexnumkr::numbers
