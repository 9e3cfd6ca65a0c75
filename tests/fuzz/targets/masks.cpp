// Numbering masks, against their rule written down anew from the left.
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include <vexnumkr/error.h>
#include <vexnumkr/number_masks.h>
#include <vexnumkr/value.h>

#include "fuzz/support/input.h"
#include "fuzz/support/property.h"
#include "rules/mask_numbering.h"

namespace vexnumkr::fuzz {
namespace {

bool isOneOf(char c, std::string_view characters) {
  return characters.find(c) != std::string_view::npos;
}

// How many characters behind `at` take a digit of the same part of the date.
std::size_t takersBehind(std::string_view mask, std::size_t at, std::string_view takers) {
  return static_cast<std::size_t>(std::count_if(mask.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                                                mask.end(),
                                                [takers](char c) { return isOneOf(c, takers); }));
}

MaskTexts expectedTexts(std::string_view mask, std::string_view date) {
  MaskTexts texts;
  for (std::size_t i = 0; i < mask.size(); ++i) {
    std::string digit;
    if (isOneOf(mask[i], "0123456789")) digit = mask[i];
    if (isOneOf(mask[i], "Jj")) digit = characterAt(date, 3 - takersBehind(mask, i, "Jj%") % 4);
    if (isOneOf(mask[i], "Mm")) digit = characterAt(date, 5 - takersBehind(mask, i, "Mm") % 2);
    // The parts of a character of the date stand in reverse, as everything is read from the right.
    std::reverse(digit.begin(), digit.end());
    const bool isFree = isOneOf(mask[i], "Nn");
    texts.low += isFree ? "0" : digit;
    texts.high += isFree ? "9" : digit;
  }
  return texts;
}

std::string outcome(std::string_view mask, std::string_view date) {
  try {
    const auto bounds = maskBounds(mask, date);
    if (!bounds) return "nothing";
    return std::to_string(bounds->low) + " to " + std::to_string(bounds->high);
  } catch (const Error& error) {
    return "error " + std::to_string(error.number());
  }
}

std::string expectedOutcome(std::string_view mask, std::string_view date) {
  if (mask.find_first_not_of(' ') == std::string_view::npos) return "nothing";
  const MaskTexts texts = expectedTexts(trimBlanks(mask), date);
  try {
    const std::int32_t low = textToLong(texts.low);
    return std::to_string(low) + " to " + std::to_string(textToLong(texts.high));
  } catch (const Error& error) {
    return "error " + std::to_string(error.number());
  }
}

bool areDigits(std::string_view text, std::size_t count) {
  return text.size() == count && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool isMonth(std::string_view text) {
  return areDigits(text, 6) && text.substr(4) >= "01" && text.substr(4) <= "12";
}

// Every free place counts for all that stand on the places behind it.
void checkBounds(const MaskBounds& bounds, const MaskTexts& texts) {
  require(texts.low.size() == texts.high.size(), "both numbers have the places of the mask");
  std::int64_t span = 0;
  for (std::size_t i = 0; i < texts.low.size(); ++i)
    span = span * 10 + (texts.high[i] - texts.low[i]);
  require(std::int64_t{bounds.high} - bounds.low == span, "free places alone make the difference");
}

void attackMonths(const std::string& mask, const std::string& date, std::int32_t start) {
  std::string month;
  try {
    month = numbers::monthOfStart(mask, start, date);
    require(isMonth(date.substr(0, 6)), "what is no date has no month", {date});
  } catch (const Error& error) {
    require(error.number() == error_number::typeMismatch && !isMonth(date.substr(0, 6)),
            "only what is no date is refused", {date});
  }
  if (month.empty()) return;
  require(isMonth(month), "a month is six digits", {mask, date, month});
  const auto numbers = numbers::maskNumbers(mask, month + "01");
  require(numbers && numbers->low == start, "the mask starts so in that month", {mask, date});
  const auto now = numbers::maskNumbers(mask, date.substr(0, 6) + "01");
  require(now->low != start || month == date.substr(0, 6), "the date's own month comes first",
          {mask, date, month});
}

void attack(const std::string& mask, const std::string& date) {
  const MaskTexts texts = readMask(mask, date);
  const MaskTexts expected = expectedTexts(mask, date);
  require(texts.low == expected.low && texts.high == expected.high, "a mask reads as its rule says",
          {mask, date, texts.low, expected.low});
  const std::string found = outcome(mask, date);
  require(found == expectedOutcome(mask, date), "its bounds are numbers by their rule",
          {mask, date, found});
  if (areDigits(date, 8) && found.find(" to ") != std::string::npos)
    checkBounds(*maskBounds(mask, date), expectedTexts(trimBlanks(mask), date));
}

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  Input input(data, size);
  constexpr std::size_t seldom = 26;  // Up to 1,200 months are looked at.
  const bool withMonths = input.choice(seldom) == 0;
  const std::string date = input.text();
  const std::string mask = input.text();
  attack(mask, date);
  if (withMonths) attackMonths(mask, date, input.number());
  return 0;
}
