#include "rules/mask_numbering.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

#include "data/table/range_place.h"

namespace vexnumkr {
namespace {

// The digits of a part of the date, taken from its last one on, over and over.
class DateDigits {
 public:
  DateDigits(std::string_view date, std::size_t end, std::size_t length)
      : date_(date), end_(end), length_(length) {}

  void skip() {
    if (used_ == length_) used_ = 0;
    ++used_;
  }

  // The next digit; nothing where the date is too short to have it.
  std::string_view next() {
    skip();
    return characterAt(date_, end_ - used_);
  }

 private:
  std::string_view date_;
  std::size_t end_;
  std::size_t length_;
  std::size_t used_ = 0;
};

std::string reversed(std::string text) {
  std::reverse(text.begin(), text.end());
  return text;
}

// Thousands of ranges of a table share a few masks, so each mask is read once.
class Masks {
 public:
  explicit Masks(std::string date) : date_(std::move(date)) {}

  std::optional<MaskBounds> boundsOf(const Cell& mask) {
    const auto known = read_.find(mask.identity());
    if (known != read_.end()) return known->second;
    return read_.emplace(mask.identity(), maskBounds(mask.toText(), date_)).first->second;
  }

 private:
  std::string date_;
  std::unordered_map<std::uint64_t, std::optional<MaskBounds>> read_;
};

// In the table's order; all of them, before anything is written.
std::vector<std::optional<MaskBounds>> boundsOfAll(const XArray& table, const std::string& date) {
  Masks masks(date);
  std::vector<std::optional<MaskBounds>> bounds;
  bounds.reserve(static_cast<std::size_t>(table.size()));
  for (const RangeRow& row : table) {
    try {
      bounds.push_back(masks.boundsOf(row.Maske));
    } catch (const Error& error) {
      throw Error(error.number(), error.source(), error.description() + placeOf(row));
    }
  }
  return bounds;
}

}  // namespace

MaskTexts readMask(std::string_view mask, std::string_view date) {
  DateDigits year(date, 4, 4);
  DateDigits month(date, 6, 2);
  MaskTexts texts;
  const auto add = [&texts](std::string_view low, std::string_view high) {
    texts.low += low;
    texts.high += high;
  };
  for (auto c = mask.rbegin(); c != mask.rend(); ++c) {
    if (*c >= '0' && *c <= '9') {
      add({&*c, 1}, {&*c, 1});
    } else if (*c == 'N' || *c == 'n') {
      add("0", "9");
    } else if (*c == 'J' || *c == 'j') {
      const auto digit = year.next();
      add(digit, digit);
    } else if (*c == '%') {
      year.skip();
    } else if (*c == 'M' || *c == 'm') {
      const auto digit = month.next();
      add(digit, digit);
    }
  }
  return {reversed(std::move(texts.low)), reversed(std::move(texts.high))};
}

std::optional<MaskBounds> maskBounds(std::string_view mask, std::string_view date) {
  mask = trimBlanks(mask);
  if (mask.empty()) return std::nullopt;
  const MaskTexts texts = readMask(mask, date);
  const std::int32_t low = textToLong(texts.low);
  return MaskBounds{low, textToLong(texts.high)};
}

bool numberFromMasks(XArray& table, const std::string& date, Progress& progress) {
  table.sort(RowOrder::display);
  progress.expect(table.size());
  const auto bounds = boundsOfAll(table, date);
  bool changed = false;
  for (std::int32_t row = 0; row < table.size(); ++row) {
    if (const auto& numbers = bounds[static_cast<std::size_t>(row)]) {
      table.setNumber(row, &RangeRow::StartWert, numbers->low);
      table.setNumber(row, &RangeRow::AktuellerWert, numbers->low);
      table.setNumber(row, &RangeRow::EndWert, numbers->high);
      changed = true;
    }
    progress.advance();
  }
  return changed;
}

}  // namespace vexnumkr
