// A value of a range as it was loaded, computed or typed.
#pragma once

#include <cstdint>
#include <string>

#include <vexnumkr/value.h>

#include "data/table/text_pool.h"

namespace vexnumkr {

/// Holds nothing, a number, or a text: what a user types stays as it was typed until it is needed
/// as a number. Eight bytes, since a large company's table has a million of them: a number stands
/// in the upper half, marked by the lowest bit, which the address of a text never has set.
class Cell {
 public:
  Cell() = default;
  Cell(std::int32_t number)  // NOLINT(google-explicit-constructor)
      : bits_(std::uint64_t{static_cast<std::uint32_t>(number)} << 32 | numberMark) {}
  Cell(Text text);  // NOLINT(google-explicit-constructor)

  bool isEmpty() const { return bits_ == 0; }
  bool isNumber() const { return (bits_ & numberMark) != 0; }
  bool isText() const { return !isEmpty() && !isNumber(); }

  /// Converted, with the errors of Value's conversions: nothing is 0 and "".
  std::int32_t toLong() const { return isNumber() ? number() : textToNumber(); }
  std::string toText() const;
  Value toValue() const;

  /// The same number only where kind and content are the same; always, in one table.
  std::uint64_t identity() const { return bits_; }
  /// The same kind with the same content.
  friend bool operator==(const Cell& a, const Cell& b) {
    return a.bits_ == b.bits_ || a.toValue() == b.toValue();
  }

 private:
  static constexpr std::uint64_t numberMark = 1;

  std::int32_t number() const { return static_cast<std::int32_t>(bits_ >> 32); }
  const std::string& text() const;
  std::int32_t textToNumber() const;

  std::uint64_t bits_ = 0;
};

}  // namespace vexnumkr
