#include "rules/entry_check.h"

#include <vexnumkr/error.h>

#include "rules/mask_numbering.h"
#include "rules/range_check.h"

namespace vexnumkr {
namespace {

// As the entry would leave it: a start above the current value takes that along.
RangeRow withEntry(const RangeRow& range, ValueColumn column, std::int32_t number) {
  RangeRow entered = range;
  entered.*column = Cell(number);
  if (column == &RangeRow::StartWert && entered.AktuellerWert.toLong() < number)
    entered.AktuellerWert = Cell(number);
  return entered;
}

bool sharesSequence(const RangeRow& range, const RangeRow& other) {
  const bool isItself = other.Buchungskreis == range.Buchungskreis && other.NSchl == range.NSchl;
  return other.Aktiviert && other.isCommon() && !isItself && other.sequence() == range.sequence();
}

bool overlapsSound(const RangeRow& range, const RangeRow& other) {
  try {
    return !ruleBrokenBy(other) && overlap(range, other);
  } catch (const Error&) {  // a value of the other is no number
    return false;
  }
}

std::string overlapText(const RangeRow& other) {
  return "Überschneidet sich mit " + other.NBezeichnung.str() + ", " + other.Gruppe.str() + " (" +
         other.StartWert.toText() + " bis " + other.EndWert.toText() + ").";
}

std::optional<EntryDefect> ruleDefect(const XArray& table, const RangeRow& entered,
                                      ValueColumn column) {
  // A new range is all zeros. Until its end is typed its values contradict each other, which is no
  // mistake of the user's.
  const bool isBeingGiven = entered.EndWert.toLong() == 0 && column != &RangeRow::EndWert;
  if (!entered.Aktiviert || isBeingGiven) return std::nullopt;
  if (const auto rule = ruleBrokenBy(entered))
    return EntryDefect{*rule == BrokenRule::EndNotAboveStart
                           ? "Der Endwert muss größer sein als der Startwert."
                           : "Der aktuelle Wert muss zwischen dem Start- und Endwert liegen.",
                       std::nullopt};
  for (const RangeRow& other : table)
    if (sharesSequence(entered, other) && overlapsSound(entered, other))
      return EntryDefect{overlapText(other), other};
  return std::nullopt;
}

}  // namespace

std::optional<EntryDefect> entryDefect(const XArray& table, const RangeRow& range,
                                       ValueColumn column, const std::string& text) {
  if (!isNumber(text)) return EntryDefect{"Das ist keine Zahl.", std::nullopt};
  std::int32_t number = 0;
  try {
    number = textToLong(text);
  } catch (const Error&) {
    return EntryDefect{"Die Zahl liegt nicht zwischen -2147483648 und 2147483647.", std::nullopt};
  }
  try {
    return ruleDefect(table, withEntry(range, column, number), column);
  } catch (const Error&) {  // another value of the range is no number
    return std::nullopt;
  }
}

MaskPreview maskPreview(const std::string& mask, const std::string& date) {
  try {
    const auto bounds = maskBounds(mask, date);
    if (!bounds) return {};
    const std::string span =
        "→ " + std::to_string(bounds->low) + " bis " + std::to_string(bounds->high);
    if (bounds->low < bounds->high) return {span, false};
    return {span + "\nOhne freie Stelle (N) ist der Endwert nicht größer als der Startwert.", true};
  } catch (const Error& error) {
    return {error.number() == error_number::overflow ? "Die Maske ergibt eine zu große Zahl."
                                                     : "Die Maske ergibt keine Zahl.",
            true};
  }
}

}  // namespace vexnumkr
