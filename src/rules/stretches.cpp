#include "rules/stretches.h"

#include <algorithm>
#include <bit>
#include <limits>

#include "data/table/radix_order.h"

namespace vexnumkr {
namespace {

// Sequence after sequence, each by where its stretches begin.
std::vector<std::uint32_t> orderOf(const std::vector<Stretch>& stretches) {
  constexpr unsigned numberBits = 32;
  constexpr std::uint32_t signBit = 0x80000000;
  std::vector<std::uint64_t> keys;
  keys.reserve(stretches.size());
  std::uint32_t highestSequence = 0;
  for (const Stretch& stretch : stretches) {
    const std::uint32_t low = static_cast<std::uint32_t>(stretch.low) ^ signBit;
    keys.push_back(std::uint64_t{stretch.sequence} << numberBits | low);
    highestSequence = std::max(highestSequence, stretch.sequence);
  }
  return radixOrder(keys, numberBits + static_cast<unsigned>(std::bit_width(highestSequence)));
}

// Of one sequence: the highest of the numbers added so far, and the highest that another than its
// owner has added.
class HighestOfOthers {
 public:
  // Forgets everything when another sequence begins.
  void enter(std::uint32_t sequence) {
    if (sequence == sequence_) return;
    *this = HighestOfOthers();
    sequence_ = sequence;
  }

  void add(const RangeIdentity& owner, std::int64_t number) {
    if (owner == owner_) {
      highest_ = std::max(highest_, number);
    } else if (number > highest_) {
      ofOthers_ = highest_;
      highest_ = number;
      owner_ = owner;
    } else {
      ofOthers_ = std::max(ofOthers_, number);
    }
  }

  // Whether anybody but `owner` has added `number` or a higher one.
  bool reaches(std::int64_t number, const RangeIdentity& owner) const {
    return (owner == owner_ ? ofOthers_ : highest_) >= number;
  }

 private:
  static constexpr std::int64_t none = std::numeric_limits<std::int64_t>::min();

  std::uint32_t sequence_ = 0;
  RangeIdentity owner_;  // of no consequence until a number was added
  std::int64_t highest_ = none;
  std::int64_t ofOthers_ = none;
};

std::optional<std::int32_t> firstBeginningInAnother(const std::vector<Stretch>& stretches,
                                                    const std::vector<std::uint32_t>& order) {
  std::optional<std::int32_t> first;
  HighestOfOthers ends;
  for (const std::uint32_t place : order) {
    const Stretch& stretch = stretches[place];
    ends.enter(stretch.sequence);
    if (ends.reaches(stretch.low, stretch.owner))
      first = std::min(stretch.row, first.value_or(stretch.row));
    ends.add(stretch.owner, stretch.high);
  }
  return first;
}

std::optional<std::int32_t> firstInWhichAnotherBegins(const std::vector<Stretch>& stretches,
                                                      const std::vector<std::uint32_t>& order) {
  std::optional<std::int32_t> first;
  HighestOfOthers begins;  // negated, so that the lowest one is the highest
  for (auto place = order.rbegin(); place != order.rend(); ++place) {
    const Stretch& stretch = stretches[*place];
    begins.enter(stretch.sequence);
    if (begins.reaches(-std::int64_t{stretch.high}, stretch.owner))
      first = std::min(stretch.row, first.value_or(stretch.row));
    begins.add(stretch.owner, -std::int64_t{stretch.low});
  }
  return first;
}

}  // namespace

// Of two stretches that overlap, the one that begins later or at the same number begins in the
// other: where none does, as is the rule, there is nothing else to look for.
std::optional<std::int32_t> firstOverlapping(const std::vector<Stretch>& stretches) {
  const std::vector<std::uint32_t> order = orderOf(stretches);
  const auto first = firstBeginningInAnother(stretches, order);
  if (!first) return first;
  return std::min(*first, firstInWhichAnotherBegins(stretches, order).value_or(*first));
}

}  // namespace vexnumkr
