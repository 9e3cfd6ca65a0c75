// The input of a fuzzer, taken apart into what a target asks for.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vexnumkr::fuzz {

/// Reads an input from its beginning: choices are single characters, texts and numbers end at a
/// unit separator, so that a corpus can be read and written by people. At its end everything is
/// empty or 0.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  bool isAtEnd() const { return rest_.empty(); }

  /// One of `count` choices by the next character: `a` is the first one.
  std::size_t choice(std::size_t count) {
    if (rest_.empty()) return 0;
    const auto letter = static_cast<std::uint8_t>(rest_.front() - 'a');
    rest_.remove_prefix(1);
    return letter % count;
  }
  bool flag() { return choice(2) == 1; }

  /// The text before the next separator.
  std::string text() {
    constexpr char separator = '\x1F';
    const std::size_t end = std::min(rest_.find(separator), rest_.size());
    std::string text(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return text;
  }

  /// A number in decimal; 0 for what is none.
  std::int32_t number() {
    const std::string digits = text();
    std::int32_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
  }

  /// All that is left.
  std::string rest() {
    std::string text(rest_);
    rest_ = {};
    return text;
  }

 private:
  std::string_view rest_;
};

}  // namespace vexnumkr::fuzz
