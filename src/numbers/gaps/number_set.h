// A set of 32-bit numbers that stays small however many they are.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include <vexnumkr/number_gaps.h>

namespace vexnumkr::numbers {

/// Numbers are kept in blocks of 65,536: a sorted list of their lower halves while that is shorter,
/// a bit for each otherwise. So a number takes two bytes at most, and a block eight kilobytes.
class NumberSet {
 public:
  /// False when it was in already.
  bool insert(std::int32_t number);
  std::uint64_t size() const { return size_; }

  using Visitor = std::function<void(Interval)>;
  /// Tells the longest intervals that are in the set, within `from` to `to`, ascending.
  void forEachIn(Interval within, const Visitor& visit) const;
  /// The same for those that are not in it.
  void forEachMissing(Interval within, const Visitor& visit) const;

 private:
  struct Block {
    std::vector<std::uint16_t> sorted;
    std::vector<std::uint64_t> bits;

    bool insert(std::uint16_t low);
    void turnIntoBits();
    // Tells each number in it from `from` to `to`, ascending.
    template <class Visit>
    void forEach(std::uint16_t from, std::uint16_t to, Visit&& visit) const;
  };

  std::vector<Block> blocks_ = std::vector<Block>(65536);  // by the numbers' upper halves
  std::uint64_t size_ = 0;
};

}  // namespace vexnumkr::numbers
