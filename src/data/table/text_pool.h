// The distinct texts of the cells of a table, each kept once and known by a number.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vexnumkr {

/// A text in a pool; equal texts have equal numbers.
using TextId = std::uint32_t;
inline constexpr TextId emptyTextId = 0;

/// Range tables repeat a few texts (users, captions, descriptions) thousands of times, so a cell
/// keeps a number instead of a text. Texts are never removed: what a dialog's table ever held is
/// little, and the pool goes with the last table that uses it.
class TextPool {
 public:
  TextPool();
  TextPool(const TextPool&) = delete;
  TextPool& operator=(const TextPool&) = delete;

  /// The number of `text`, which is added when it is new. "" is always emptyTextId.
  TextId add(std::string_view text);
  /// The number of `text`, or nothing when no cell ever held it.
  std::optional<TextId> find(std::string_view text) const;
  const std::string& text(TextId id) const { return texts_[id]; }

 private:
  std::deque<std::string> texts_;  // a deque keeps the texts in place, and the map points to them
  std::unordered_map<std::string_view, TextId> ids_;
};

}  // namespace vexnumkr
