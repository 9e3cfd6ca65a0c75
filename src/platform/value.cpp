#include <limits>

#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

namespace vexnumkr {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Compares ASCII letters without regard to case; the words compared with have no others.
bool equalsWord(std::string_view text, std::string_view lowerCaseWord) {
  if (text.size() != lowerCaseWord.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const char lower = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    if (lower != lowerCaseWord[i]) return false;
  }
  return true;
}

// A number text taken apart. Whole digits still hold their grouping dots.
struct NumberText {
  bool negative = false;
  std::string_view whole;
  std::string_view fraction;
};

bool isGroupedInThrees(std::string_view digits) {
  const std::size_t first = digits.find('.');
  if (first == 0 || first > 3) return false;
  for (std::size_t i = first; i < digits.size(); i += 4) {
    if (digits[i] != '.' || digits.size() - i < 4) return false;
    for (std::size_t k = i + 1; k < i + 4; ++k)
      if (!isDigit(digits[k])) return false;
  }
  return true;
}

std::optional<NumberText> parseNumber(std::string_view text) {
  text = trimBlanks(text);
  NumberText number;
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    number.negative = text[0] == '-';
    text.remove_prefix(1);
  }
  std::size_t end = 0;
  while (end < text.size() && (isDigit(text[end]) || text[end] == '.')) ++end;
  number.whole = text.substr(0, end);
  text.remove_prefix(end);
  if (!text.empty()) {
    if (text[0] != ',') return std::nullopt;
    number.fraction = text.substr(1);
    if (number.fraction.empty()) return std::nullopt;
    for (const char c : number.fraction)
      if (!isDigit(c)) return std::nullopt;
  } else if (number.whole.empty()) {
    return std::nullopt;
  }
  if (number.whole.find('.') != std::string_view::npos && !isGroupedInThrees(number.whole))
    return std::nullopt;
  return number;
}

// Whether the fraction rounds the whole part up, with ties going to the even number.
bool roundsUp(std::int64_t whole, std::string_view fraction) {
  if (fraction.empty() || fraction[0] < '5') return false;
  if (fraction[0] > '5') return true;
  if (fraction.find_first_not_of('0', 1) != std::string_view::npos) return true;
  return whole % 2 != 0;
}

std::int32_t toLong(const NumberText& number) {
  constexpr std::int64_t limit = std::int64_t{1} << 31;
  std::int64_t whole = 0;
  for (const char c : number.whole) {
    if (c == '.') continue;
    whole = whole * 10 + (c - '0');
    if (whole > limit) throw Error::overflow();
  }
  if (roundsUp(whole, number.fraction)) ++whole;
  if (number.negative) whole = -whole;
  if (whole < std::numeric_limits<std::int32_t>::min() ||
      whole > std::numeric_limits<std::int32_t>::max())
    throw Error::overflow();
  return static_cast<std::int32_t>(whole);
}

// A number is True unless it is 0, also where its size is beyond the integers.
bool isNotZero(const NumberText& number) {
  return number.whole.find_first_not_of("0.") != std::string_view::npos ||
         number.fraction.find_first_not_of('0') != std::string_view::npos;
}

}  // namespace

std::string_view trimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view characterAt(std::string_view text, std::size_t position) {
  const auto continues = [text](std::size_t i) {
    return i < text.size() && (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
  };
  std::size_t begin = 0;
  for (; begin < text.size(); --position) {
    std::size_t end = begin + 1;
    while (continues(end)) ++end;
    if (position == 0) return text.substr(begin, end - begin);
    begin = end;
  }
  return {};
}

bool isNumber(std::string_view text) { return parseNumber(text).has_value(); }

std::int32_t textToLong(std::string_view text) {
  const auto number = parseNumber(text);
  if (!number) throw Error::typeMismatch();
  return toLong(*number);
}

bool textToBoolean(std::string_view text) {
  if (equalsWord(text, "true") || equalsWord(text, "wahr")) return true;
  if (equalsWord(text, "false") || equalsWord(text, "falsch")) return false;
  const auto number = parseNumber(text);
  if (!number) throw Error::typeMismatch();
  return isNotZero(*number);
}

std::int32_t Value::toLong() const {
  if (isLong()) return asLong();
  if (isText()) return textToLong(asText());
  if (isBoolean()) return asBoolean() ? -1 : 0;
  if (isNull()) throw Error::invalidUseOfNull();
  return 0;
}

bool Value::toBoolean() const {
  if (isBoolean()) return asBoolean();
  if (isLong()) return asLong() != 0;
  if (isText()) return textToBoolean(asText());
  if (isNull()) throw Error::invalidUseOfNull();
  return false;
}

std::string Value::toText() const {
  if (isText()) return asText();
  if (isLong()) return std::to_string(asLong());
  if (isBoolean()) return asBoolean() ? "Wahr" : "Falsch";
  if (isNull()) throw Error::invalidUseOfNull();
  return {};
}

}  // namespace vexnumkr
