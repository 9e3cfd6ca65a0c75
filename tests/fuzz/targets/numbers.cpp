// Texts and the engines' numbers as 32-bit integers, against the rule for them written down anew,
// by comparing digits as texts.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string>

#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

#include "fuzz/support/input.h"
#include "fuzz/support/property.h"
#include "platform/number_value.h"

namespace vexnumkr::fuzz {
namespace {

bool areDigits(std::string_view text) {
  return text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string grouped(const std::string& digits) {
  std::string text = digits;
  for (std::size_t behind = 3; behind < digits.size(); behind += 3)
    text.insert(digits.size() - behind, 1, '.');
  return text;
}

struct Decimal {
  bool isNegative = false;
  std::string digits;    // Without zeros in front.
  std::string fraction;  // Without zeros behind.
};

std::optional<Decimal> decimalOf(std::string text) {
  text.erase(0, text.find_first_not_of(' '));
  text.erase(text.find_last_not_of(' ') + 1);
  Decimal decimal;
  if (text.starts_with('-') || text.starts_with('+')) {
    decimal.isNegative = text[0] == '-';
    text.erase(0, 1);
  }
  const std::size_t comma = text.find(',');
  const std::string whole = text.substr(0, comma);
  std::copy_if(whole.begin(), whole.end(), std::back_inserter(decimal.digits),
               [](char c) { return c != '.'; });
  if (!areDigits(decimal.digits)) return std::nullopt;
  if (whole != decimal.digits && whole != grouped(decimal.digits)) return std::nullopt;
  if (comma == std::string::npos ? whole.empty() : comma + 1 == text.size()) return std::nullopt;
  if (comma != std::string::npos) decimal.fraction = text.substr(comma + 1);
  if (!areDigits(decimal.fraction)) return std::nullopt;
  decimal.digits.erase(0, decimal.digits.find_first_not_of('0'));
  decimal.fraction.erase(decimal.fraction.find_last_not_of('0') + 1);
  return decimal;
}

// Nothing where it is beyond 32 bits.
std::optional<std::int32_t> rounded(const Decimal& decimal) {
  constexpr std::size_t longest = 10;
  if (decimal.digits.size() > longest) return std::nullopt;
  long long number = decimal.digits.empty() ? 0 : std::stoll(decimal.digits);
  if (decimal.fraction > "5" || (decimal.fraction == "5" && number % 2 == 1)) ++number;
  if (decimal.isNegative) number = -number;
  if (number != static_cast<std::int32_t>(number)) return std::nullopt;
  return static_cast<std::int32_t>(number);
}

// The number, or the error's number as a text.
std::string answer(const std::optional<std::int32_t>& number, std::int32_t error) {
  return number ? std::to_string(*number) : "error " + std::to_string(error);
}

template <typename Convert>
std::string outcome(Convert&& convert) {
  try {
    return answer(convert(), 0);
  } catch (const Error& error) {
    return answer(std::nullopt, error.number());
  }
}

void attackText(const std::string& text) {
  const auto decimal = decimalOf(text);
  const std::string expected = decimal ? answer(rounded(*decimal), error_number::overflow)
                                       : answer(std::nullopt, error_number::typeMismatch);
  const std::string found = outcome([&] { return textToLong(text); });
  require(found == expected, "a text is read as the rule says", {text, expected, found});
  require(isNumber(text) == decimal.has_value(), "it is a number when it reads as one", {text});
  require(outcome([&] { return Value(text).toLong(); }) == expected, "values agree", {text});
  if (decimal)
    require(textToBoolean(text) == !(decimal->digits.empty() && decimal->fraction.empty()),
            "a number is true unless it is 0", {text});
  std::string characters;
  for (std::size_t i = 0; i < text.size(); ++i) characters += characterAt(text, i);
  require(characters == text, "a text is made of its characters", {text});
}

void attackReal(const std::string& bytes) {
  double real = 0;
  std::memcpy(&real, bytes.data(), std::min(bytes.size(), sizeof real));
  const std::string found = outcome([&] { return realValue(real).toLong(); });
  using Limits = std::numeric_limits<std::int32_t>;
  const double nearest = std::nearbyint(real);
  const bool fits = nearest >= Limits::min() && nearest <= Limits::max();
  const std::string expected =
      fits ? answer(static_cast<std::int32_t>(nearest), 0)
           : answer(std::nullopt,
                    std::isfinite(real) ? error_number::overflow : error_number::typeMismatch);
  require(found == expected, "a real number is rounded half to even",
          {std::to_string(real), expected, found});
}

void attackInteger(const std::string& bytes) {
  std::int64_t number = 0;
  std::memcpy(&number, bytes.data(), std::min(bytes.size(), sizeof number));
  const bool fits = number == static_cast<std::int32_t>(number);
  const std::string expected =
      fits ? std::to_string(number) : answer(std::nullopt, error_number::overflow);
  require(outcome([&] { return integerValue(number).toLong(); }) == expected,
          "a whole number is itself", {expected});
}

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  Input input(data, size);
  switch (input.choice(3)) {
    case 0:
      attackText(input.rest());
      break;
    case 1:
      attackReal(input.rest());
      break;
    default:
      attackInteger(input.rest());
  }
  return 0;
}
