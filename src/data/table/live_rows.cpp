#include "data/table/live_rows.h"

#include <bit>

namespace vexnumkr {
namespace {

constexpr std::size_t wordBits = 64;

std::size_t lowestBit(std::size_t i) { return i & (~i + 1); }

}  // namespace

void LiveRows::reset(std::size_t slots) {
  slots_ = slots;
  removed_ = 0;
  words_.clear();
  counts_.clear();
  lastSlot_.reset();
}

// Builds the counts from the bits in one pass.
void LiveRows::startTracking() {
  counts_.assign(words_.size() + 1, 0);
  for (std::size_t i = 1; i <= words_.size(); ++i) {
    counts_[i] += static_cast<std::uint32_t>(std::popcount(words_[i - 1]));
    const std::size_t parent = i + lowestBit(i);
    if (parent < counts_.size()) counts_[parent] += counts_[i];
  }
}

void LiveRows::remove(std::size_t slot) {
  if (removed_ == 0) {
    words_.assign((slots_ + wordBits - 1) / wordBits, ~std::uint64_t{0});
    if (slots_ % wordBits != 0) words_.back() = (std::uint64_t{1} << (slots_ % wordBits)) - 1;
    startTracking();
  }
  words_[slot / wordBits] &= ~(std::uint64_t{1} << (slot % wordBits));
  for (std::size_t i = slot / wordBits + 1; i < counts_.size(); i += lowestBit(i)) --counts_[i];
  ++removed_;
  lastSlot_.reset();
}

std::size_t LiveRows::slotAt(std::size_t position) const {
  if (removed_ == 0) return position;
  if (lastSlot_ && position == lastPosition_) return *lastSlot_;
  const bool isNext = lastSlot_ && position == lastPosition_ + 1;
  lastSlot_ = isNext ? nextLive(*lastSlot_) : findSlot(position);
  lastPosition_ = position;
  return *lastSlot_;
}

// REQUIRES: there is one.
std::size_t LiveRows::nextLive(std::size_t slot) const {
  std::size_t word = ++slot / wordBits;
  std::uint64_t bits = words_[word] & (~std::uint64_t{0} << (slot % wordBits));
  while (bits == 0) bits = words_[++word];
  return word * wordBits + static_cast<std::size_t>(std::countr_zero(bits));
}

std::size_t LiveRows::findSlot(std::size_t position) const {
  std::size_t word = 0;
  for (std::size_t step = std::bit_floor(counts_.size() - 1); step != 0; step /= 2) {
    const std::size_t next = word + step;
    if (next < counts_.size() && counts_[next] <= position) {
      position -= counts_[next];
      word = next;
    }
  }
  std::uint64_t bits = words_[word];
  for (; position != 0; --position) bits &= bits - 1;
  return word * wordBits + static_cast<std::size_t>(std::countr_zero(bits));
}

std::size_t LiveRows::positionOf(std::size_t slot) const {
  if (removed_ == 0) return slot;
  std::size_t before = 0;
  for (std::size_t i = slot / wordBits; i != 0; i -= lowestBit(i)) before += counts_[i];
  const std::uint64_t below = (std::uint64_t{1} << (slot % wordBits)) - 1;
  return before + static_cast<std::size_t>(std::popcount(words_[slot / wordBits] & below));
}

}  // namespace vexnumkr
