#include "rules/range_check.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_map>
#include <vector>

#include <vexnumkr/error.h>

#include "data/table/columns.h"
#include "hosting/host_context.h"

namespace vexnumkr {
namespace {

// What the loops come across for one range.

bool isCommon(const XArray& table, std::int32_t row) {
  return table.equals(row, column::Benutzer, alleBenutzer);
}

bool isChecked(const XArray& table, std::int32_t row) {
  return isCommon(table, row) && table.toBoolean(row, column::Aktiviert);
}

std::string sequenceOf(const XArray& table, std::int32_t row) {
  const Value sharedWith = table.get(row, column::IstNSchlVon);
  if (sharedWith.isNull() || sharedWith.toText().empty()) return table.toText(row, column::NSchl);
  return sharedWith.toText();
}

// Ranges of one number key in one booking circle are the same range.
struct Identity {
  Identity(const XArray& table, std::int32_t row)
      : key(table.toText(row, column::NSchl)), circle(table.toLong(row, column::Buchungskreis)) {}
  friend bool operator==(const Identity&, const Identity&) = default;

  std::string key;
  std::int32_t circle;
};

// The rule that a range breaks by itself. Converts its values in the order in which they are
// compared, and only those that are.
std::optional<BrokenRule> ruleBrokenBy(const XArray& table, std::int32_t row) {
  const std::int32_t end = table.toLong(row, column::EndWert);
  const std::int32_t start = table.toLong(row, column::StartWert);
  if (end <= start) return BrokenRule::EndNotAboveStart;
  const std::int32_t current = table.toLong(row, column::AktuellerWert);
  if (current < start || current > end) return BrokenRule::CurrentOutsideRange;
  return std::nullopt;
}

// Of two ranges that keep the rules themselves.
bool overlap(const XArray& table, std::int32_t a, std::int32_t b) {
  return table.toLong(a, column::StartWert) <= table.toLong(b, column::EndWert) &&
         table.toLong(b, column::StartWert) <= table.toLong(a, column::EndWert);
}

std::optional<RangeDefect> defectOf(const XArray& table, std::int32_t i) {
  if (const auto rule = ruleBrokenBy(table, i)) return RangeDefect{*rule, i, i};
  const Identity own(table, i);
  const std::string sequence = sequenceOf(table, i);
  for (std::int32_t j = table.LowerBound(1); j <= table.UpperBound(1); ++j) {
    const bool active = table.toBoolean(j, column::Aktiviert);
    if (!active || !isCommon(table, j) || sequenceOf(table, j) != sequence) continue;
    const Identity other(table, j);
    if (other == own) continue;
    if (const auto rule = ruleBrokenBy(table, j)) return RangeDefect{*rule, j, j};
    if (!overlap(table, i, j)) continue;
    return RangeDefect{
        other.key == own.key ? BrokenRule::OverlapsOtherCircle : BrokenRule::OverlapsOtherKey, j,
        i};
  }
  return std::nullopt;
}

// Where the loops stop, found without looping over pairs.

constexpr std::int64_t beyond = std::int64_t{1} << 32;  // every value of a range

// A range as a stretch of numbers. A defective one stops the loops at all of its partners, as if it
// overlapped every one of them.
struct Stretch {
  std::int32_t row;
  Identity identity;
  std::int64_t low = -beyond;
  std::int64_t high = beyond;
  bool stopsTheLoops = true;
};

Stretch stretchAt(const XArray& table, std::int32_t row) {
  Stretch stretch{row, Identity(table, row)};
  try {
    if (ruleBrokenBy(table, row)) return stretch;
    stretch.low = table.toLong(row, column::StartWert);
    stretch.high = table.toLong(row, column::EndWert);
    stretch.stopsTheLoops = false;
  } catch (const Error&) {  // NOLINT(bugprone-empty-catch): the loops raise it again
  }
  return stretch;
}

// The highest of the numbers added so far, and the highest that another than its owner has added.
class HighestOfOthers {
 public:
  void add(const Identity& owner, std::int64_t number) {
    if (owns(owner)) {
      highest_ = std::max(highest_, number);
    } else if (number > highest_) {
      ofOthers_ = highest_;
      highest_ = number;
      owner_ = &owner;
    } else {
      ofOthers_ = std::max(ofOthers_, number);
    }
  }

  // Whether anybody but `owner` has added `number` or a higher one.
  bool reaches(std::int64_t number, const Identity& owner) const {
    return (owns(owner) ? ofOthers_ : highest_) >= number;
  }

 private:
  bool owns(const Identity& owner) const { return owner_ != nullptr && *owner_ == owner; }

  const Identity* owner_ = nullptr;
  std::int64_t highest_ = std::numeric_limits<std::int64_t>::min();
  std::int64_t ofOthers_ = std::numeric_limits<std::int64_t>::min();
};

using Sequence = std::vector<Stretch*>;

// Marks every range of a sequence that overlaps a partner: one that starts before it and ends
// within or behind it, or one that starts behind its start but not behind its end.
void markOverlaps(Sequence& sequence) {
  std::sort(sequence.begin(), sequence.end(),
            [](const Stretch* a, const Stretch* b) { return a->low < b->low; });
  HighestOfOthers ends;
  for (Stretch* stretch : sequence) {
    if (ends.reaches(stretch->low, stretch->identity)) stretch->stopsTheLoops = true;
    ends.add(stretch->identity, stretch->high);
  }
  HighestOfOthers starts;  // negated, so that the lowest one is the highest
  for (auto stretch = sequence.rbegin(); stretch != sequence.rend(); ++stretch) {
    if (starts.reaches(-(*stretch)->high, (*stretch)->identity)) (*stretch)->stopsTheLoops = true;
    starts.add((*stretch)->identity, -(*stretch)->low);
  }
}

std::optional<std::int32_t> firstChecked(const XArray& table) {
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    if (isChecked(table, row)) return row;
  return std::nullopt;
}

std::optional<std::int32_t> firstThatStops(const XArray& table) {
  std::vector<Stretch> stretches;
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    if (isChecked(table, row)) stretches.push_back(stretchAt(table, row));
  std::unordered_map<std::string, Sequence> sequences;
  for (Stretch& stretch : stretches) sequences[sequenceOf(table, stretch.row)].push_back(&stretch);
  for (auto& [key, sequence] : sequences) markOverlaps(sequence);
  for (const Stretch& stretch : stretches)
    if (stretch.stopsTheLoops) return stretch.row;
  return std::nullopt;
}

bool everyFlagConverts(const XArray& table) {
  try {
    for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
      static_cast<void>(table.toBoolean(row, column::Aktiviert));
    return true;
  } catch (const Error&) {
    return false;
  }
}

}  // namespace

std::optional<RangeDefect> firstDefect(const XArray& table) {
  // A flag that does not convert stops the inner loop for whichever range comes first.
  const auto stop = everyFlagConverts(table) ? firstThatStops(table) : firstChecked(table);
  return stop ? defectOf(table, *stop) : std::nullopt;
}

}  // namespace vexnumkr
