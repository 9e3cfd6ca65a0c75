// Which of the stored rows still count: lets single rows go without moving the others.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vexnumkr {

/// Maps positions (0 to count - 1, what users of a table see) to slots (where a row is stored).
/// Removing a row and translating either way costs log n, so a circle's thousands of rows can be
/// removed one by one; walking from row to row costs a step each, and while nothing is removed,
/// position and slot are the same.
class LiveRows {
 public:
  /// `slots` rows, none removed.
  void reset(std::size_t slots);
  /// One or more rows are stored behind the last slot. REQUIRES: allLive().
  void append(std::size_t rows) { slots_ += rows; }
  /// REQUIRES: the slot is live.
  void remove(std::size_t slot);

  std::size_t count() const { return slots_ - removed_; }
  bool allLive() const { return removed_ == 0; }
  bool isLive(std::size_t slot) const {
    return removed_ == 0 || ((words_[slot / 64] >> (slot % 64)) & 1U) != 0;
  }
  /// REQUIRES: position < count().
  std::size_t slotAt(std::size_t position) const;
  /// REQUIRES: the slot is live.
  std::size_t positionOf(std::size_t slot) const;

 private:
  void startTracking();
  std::size_t findSlot(std::size_t position) const;
  std::size_t nextLive(std::size_t slot) const;

  std::size_t slots_ = 0;
  std::size_t removed_ = 0;
  std::vector<std::uint64_t> words_;   // a bit per slot, 1 = live; empty until the first removal
  std::vector<std::uint32_t> counts_;  // Fenwick tree over the live rows per word
  // What slotAt was last asked and has answered; removing a row forgets it.
  mutable std::size_t lastPosition_ = 0;
  mutable std::optional<std::size_t> lastSlot_;
};

}  // namespace vexnumkr
