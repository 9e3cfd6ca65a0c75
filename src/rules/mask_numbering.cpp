#include "rules/mask_numbering.h"

#include <algorithm>

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

void numberRow(HostContext& context, std::int32_t row) {
  XArray& table = context.XArray();
  const std::string text = table.toText(row, column::Maske);
  const std::string_view mask = trimBlanks(text);
  if (mask.empty()) return;
  const MaskTexts texts = readMask(mask, context.strVerarbeitungsdatum());
  const std::int32_t low = textToLong(texts.low);
  const std::int32_t high = textToLong(texts.high);
  table.set(row, column::StartWert, low);
  table.set(row, column::AktuellerWert, low);
  table.set(row, column::EndWert, high);
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
    for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row) {
      numberRow(context, row);
      context.progress().advance();
    }
    finished = true;
  });
  return finished;
}

}  // namespace basAllgemein
}  // namespace vexnumkr
