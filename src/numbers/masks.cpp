#include <vexnumkr/error.h>
#include <vexnumkr/number_masks.h>
#include <vexnumkr/value.h>

#include "rules/mask_numbering.h"

namespace vexnumkr::numbers {
namespace {

constexpr int monthsOfYear = 12;

std::string twoDigits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

std::string monthText(int year, int month) {
  return twoDigits(year / 100) + twoDigits(year % 100) + twoDigits(month);
}

// The months of a date since the year 0.
int monthsOf(std::string_view date) {
  const bool isDate = date.size() >= 6 &&
                      date.substr(0, 6).find_first_not_of("0123456789") == std::string_view::npos;
  if (!isDate) throw Error::typeMismatch();
  const int month = textToLong(date.substr(4, 2));
  if (month < 1 || month > monthsOfYear) throw Error::typeMismatch();
  return textToLong(date.substr(0, 4)) * monthsOfYear + month - 1;
}

bool startsThere(std::string_view mask, std::int32_t start, const std::string& month) {
  const auto numbers = maskNumbers(mask, month + "01");
  return numbers && numbers->low == start;
}

}  // namespace

std::optional<MaskNumbers> maskNumbers(std::string_view mask, std::string_view date) {
  const auto bounds = maskBounds(mask, date);
  if (!bounds) return std::nullopt;
  return MaskNumbers{bounds->low, bounds->high};
}

bool isDated(std::string_view mask) { return mask.find_first_of("JjMm") != std::string_view::npos; }

std::string monthOfStart(std::string_view mask, std::int32_t start, std::string_view date) {
  const int years = isDated(mask) ? 50 : 0;
  constexpr int end = 10'000 * monthsOfYear;  // A year has four digits.
  const int now = monthsOf(date);
  try {
    for (int away = 0; away <= years * monthsOfYear; ++away) {
      for (const int month : {now - away, now + away}) {
        if (month < 0 || month >= end) continue;
        const std::string text = monthText(month / monthsOfYear, month % monthsOfYear + 1);
        if (startsThere(mask, start, text)) return text;
      }
    }
  } catch (const Error&) {  // a mask that cannot be read has no month
  }
  return {};
}

}  // namespace vexnumkr::numbers
