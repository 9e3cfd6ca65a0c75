// The distinct texts of a table, each kept once.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vexnumkr {

/// A text with its number in its pool; 0 is the empty text's.
struct PooledText {
  std::string text;
  std::uint32_t id = 0;
};

/// A text of a pool, as small as a pointer. Borrows the pool's entry; an empty one needs no pool.
class Text {
 public:
  Text() = default;
  explicit Text(const PooledText& entry) : entry_(&entry) {}

  const std::string& str() const;
  bool empty() const { return entry_ == nullptr; }
  /// Equal texts of one pool have equal numbers.
  std::uint32_t id() const { return entry_ == nullptr ? 0 : entry_->id; }

  friend bool operator==(Text a, Text b) { return a.entry_ == b.entry_ || a.str() == b.str(); }
  friend bool operator==(Text a, std::string_view b) { return a.str() == b; }

 private:
  friend class Cell;

  const PooledText* entry_ = nullptr;
};

/// Range tables repeat a few texts (users, captions, descriptions) thousands of times, so a row
/// keeps pointers instead of texts. Texts are never removed: what a dialog's table ever held is
/// little, and the pool goes with the last table that uses it.
class TextPool {
 public:
  TextPool() = default;
  TextPool(const TextPool&) = delete;
  TextPool& operator=(const TextPool&) = delete;

  /// `text`, which is added when it is new.
  Text add(std::string_view text);
  /// The entry of `text`, or null when it was never added.
  const PooledText* find(std::string_view text) const;

 private:
  std::deque<PooledText> texts_;  // a deque keeps them in place, and the map points to them
  std::unordered_map<std::string_view, const PooledText*> entries_;
};

}  // namespace vexnumkr
