// The distinct texts of a grid's cells, each kept once and known by a number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexnumkr {

/// Grids repeat a few texts thousands of times, and are filled and emptied again and again: all
/// texts stand in one buffer, and emptying keeps the memory for the next filling.
class GridTexts {
 public:
  using Id = std::uint32_t;
  static constexpr Id emptyText = 0;

  GridTexts();

  /// The number of `text`, which is added when it is new. "" is always emptyText.
  Id add(std::string_view text);
  /// Good until the next add() or clear().
  std::string_view text(Id id) const;
  /// Forgets every text but "".
  void clear();

 private:
  std::size_t slotOf(std::string_view text) const;
  Id append(std::string_view text);
  void grow();

  std::string buffer_;
  std::vector<std::size_t> ends_;  // text i is buffer_[ends_[i], ends_[i + 1])
  std::vector<Id> slots_;          // open addressing; emptyText marks a free slot
};

}  // namespace vexnumkr
