// A cell as the range table keeps it: eight bytes, a text by its number in the table's pool.
#pragma once

#include <cstdint>

#include "data/table/text_pool.h"

namespace vexnumkr {

struct Cell {
  enum class Kind : std::uint32_t { Empty, Null, Long, Boolean, Text };

  Kind kind = Kind::Empty;
  std::uint32_t bits = 0;  ///< the number, 0 or 1 for a boolean, or the TextId

  static Cell ofLong(std::int32_t number) {
    return {Kind::Long, static_cast<std::uint32_t>(number)};
  }
  static Cell ofText(TextId id) { return {Kind::Text, id}; }

  bool isText() const { return kind == Kind::Text; }
  bool isLong() const { return kind == Kind::Long; }
  std::int32_t number() const { return static_cast<std::int32_t>(bits); }
  TextId textId() const { return bits; }

  friend bool operator==(const Cell&, const Cell&) = default;
};

}  // namespace vexnumkr
