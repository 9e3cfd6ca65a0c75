#include "cli/numbers_file.h"

#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

#include "cli/byte_order_mark.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

std::string_view trimmed(std::string_view line) {
  static constexpr std::string_view blanks = " \t\r";
  const std::size_t first = line.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(blanks) + 1 - first);
}

std::optional<std::int32_t> numberIn(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(text.starts_with("+-") ? 0 : 1);
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// One line after the other, and of a long one the beginning.
class Lines {
 public:
  explicit Lines(std::istream& in) : in_(in) {}

  bool next() {
    in_.getline(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    if (in_.bad() || (in_.eof() && in_.gcount() == 0)) return false;
    isLong_ = in_.fail();
    length_ = static_cast<std::size_t>(in_.gcount());
    if (!isLong_ && !in_.eof()) --length_;  // The line's end counts, but is not in it.
    if (isLong_) cut();
    return true;
  }

  std::string_view text() const { return {buffer_.data(), length_}; }
  bool isLong() const { return isLong_; }

 private:
  // Goes to the line's end, and back to that of a whole character.
  void cut() {
    in_.clear(in_.rdstate() & ~std::ios::failbit);
    in_.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    const auto continues = [this] {
      return (static_cast<unsigned char>(buffer_[length_ - 1]) & 0xC0U) == 0x80U;
    };
    while (length_ > 1 && continues()) --length_;
    --length_;
  }

  std::istream& in_;
  std::array<char, 257> buffer_{};
  std::size_t length_ = 0;
  bool isLong_ = false;
};

}  // namespace

void readNumbers(std::istream& in, const NumberLines& told) {
  constexpr std::uint64_t often = 65536;
  Lines lines(in);
  std::uint64_t at = 0;
  while (lines.next()) {
    ++at;
    std::string_view line = lines.text();
    if (at == 1 && line.starts_with(byteOrderMark)) line.remove_prefix(byteOrderMark.size());
    const std::string_view text = trimmed(line);
    const auto number = lines.isLong() ? std::nullopt : numberIn(text);
    if (number) told.number(*number);
    if (!number && (lines.isLong() || !text.empty())) told.unreadable(at, std::string(text));
    if (at % often == 0) told.progress(at);
  }
  if (in.bad()) throw UsageError("Die Nummern sind nicht zu Ende zu lesen.");
}

}  // namespace vexnumkr::cli
