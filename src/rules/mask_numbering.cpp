#include "rules/mask_numbering.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

#include "data/table/columns.h"
#include "hosting/reporting.h"
#include "rules/sort_orders.h"

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

// The lowest and the highest number of a range.
struct Bounds {
  std::int32_t low = 0;
  std::int32_t high = 0;
};

// Nothing for a mask without a character.
std::optional<Bounds> boundsOf(std::string_view mask, std::string_view date) {
  mask = trimBlanks(mask);
  if (mask.empty()) return std::nullopt;
  const MaskTexts texts = readMask(mask, date);
  const std::int32_t low = textToLong(texts.low);
  return Bounds{low, textToLong(texts.high)};
}

// Thousands of ranges share a few masks, so each mask is read once.
class Masks {
 public:
  Masks(const XArray& table, std::string date) : table_(table), date_(std::move(date)) {}

  std::optional<Bounds> boundsAt(std::int32_t row) {
    const TextId mask = table_.toTextId(row, column::Maske);
    const auto known = read_.find(mask);
    if (known != read_.end()) return known->second;
    return read_.emplace(mask, boundsOf(table_.text(mask), date_)).first->second;
  }

 private:
  const XArray& table_;
  std::string date_;
  std::unordered_map<TextId, std::optional<Bounds>> read_;
};

void numberRow(HostContext& context, Masks& masks, std::int32_t row) {
  const auto bounds = masks.boundsAt(row);
  if (!bounds) return;
  XArray& table = context.XArray();
  table.set(row, column::StartWert, bounds->low);
  table.set(row, column::AktuellerWert, bounds->low);
  table.set(row, column::EndWert, bounds->high);
  context.blnChanged(true);
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

namespace basAllgemein {

bool StartAutoNum(HostContext& context) {
  bool finished = false;
  reportingFailures(context, {moduleName, "StartAutoNum"}, [&] {
    const std::int32_t answer =
        MsgBoxEx(context,
                 "Diese Option startet eine automatische Nummernvergabe nach Maske.\r\n"
                 "Alle bisherigen Nummern werden hiermit überschrieben!\r\n\r\n"
                 "Möchten Sie trotzdem fortfahren?",
                 msg_box::yesNoCancel + msg_box::question, "Abfrage");
    if (answer != msg_box::yes) return;
    const Work work(context.progress(), "Automatische Nummerierung…");
    XArray& table = context.XArray();
    sortRows(table, displayOrder);
    context.progress().expect(table.UpperBound(1) - table.LowerBound(1) + 1);
    Masks masks(table, context.strVerarbeitungsdatum());
    for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row) {
      numberRow(context, masks, row);
      context.progress().advance();
    }
    finished = true;
  });
  return finished;
}

}  // namespace basAllgemein
}  // namespace vexnumkr
