#include "rules/range_check.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <ranges>
#include <span>
#include <unordered_map>
#include <vector>

#include <vexnumkr/error.h>

#include "data/table/columns.h"
#include "data/table/radix_order.h"
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

// By the number of its text.
TextId sequenceOf(const XArray& table, std::int32_t row) {
  if (!table.isNull(row, column::IstNSchlVon)) {
    const TextId sharedWith = table.toTextId(row, column::IstNSchlVon);
    if (sharedWith != emptyTextId) return sharedWith;
  }
  return table.toTextId(row, column::NSchl);
}

// Ranges of one number key in one booking circle are the same range.
struct Identity {
  Identity(const XArray& table, std::int32_t row)
      : key(table.toTextId(row, column::NSchl)), circle(table.toLong(row, column::Buchungskreis)) {}
  friend bool operator==(const Identity&, const Identity&) = default;

  TextId key;
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
  const TextId sequence = sequenceOf(table, i);
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

// A range as a stretch of numbers. A defective one stops the loops at all of its partners, as if it
// overlapped every one of them: it stretches over all numbers.
struct Stretch {
  std::int32_t row;
  std::uint32_t sequence;  // from 0, in the order in which the sequences are come across
  Identity identity;
  std::int32_t low = std::numeric_limits<std::int32_t>::min();
  std::int32_t high = std::numeric_limits<std::int32_t>::max();
  bool stopsTheLoops = true;
};

using Stretches = std::vector<Stretch>;

Stretch stretchAt(const XArray& table, std::int32_t row, std::uint32_t sequence) {
  Stretch stretch{row, sequence, Identity(table, row)};
  try {
    if (ruleBrokenBy(table, row)) return stretch;
    stretch.low = table.toLong(row, column::StartWert);
    stretch.high = table.toLong(row, column::EndWert);
    stretch.stopsTheLoops = false;
  } catch (const Error&) {  // NOLINT(bugprone-empty-catch): the loops raise it again
  }
  return stretch;
}

// Numbers the sequences from 0 in the order in which they are come across. Rows of one sequence
// mostly follow each other.
class SequenceNumbers {
 public:
  std::uint32_t of(TextId sequence) {
    if (sequence != last_) {
      const auto next = static_cast<std::uint32_t>(numbers_.size());
      number_ = numbers_.try_emplace(sequence, next).first->second;
      last_ = sequence;
    }
    return number_;
  }

 private:
  std::unordered_map<TextId, std::uint32_t> numbers_;
  std::optional<TextId> last_;
  std::uint32_t number_ = 0;
};

// Of all ranges that the loops look at, in the table's order. Errors of flags that do not convert.
Stretches checkedStretches(const XArray& table) {
  Stretches stretches;
  const std::int32_t rows = table.UpperBound(1) - table.LowerBound(1) + 1;
  stretches.reserve(static_cast<std::size_t>(rows));
  SequenceNumbers sequences;
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row) {
    const bool active = table.toBoolean(row, column::Aktiviert);
    if (!active || !isCommon(table, row)) continue;
    stretches.push_back(stretchAt(table, row, sequences.of(sequenceOf(table, row))));
  }
  return stretches;
}

// Sequence after sequence, each by where its stretches begin.
std::vector<std::uint32_t> orderOf(const Stretches& stretches) {
  constexpr unsigned numberBits = 32;
  constexpr std::uint32_t signBit = 0x80000000;
  std::vector<std::uint64_t> keys;
  keys.reserve(stretches.size());
  std::uint32_t highestSequence = 0;
  for (const Stretch& stretch : stretches) {
    const std::uint32_t low = static_cast<std::uint32_t>(stretch.low) ^ signBit;
    keys.push_back(std::uint64_t{stretch.sequence} << numberBits | low);
    highestSequence = std::max(highestSequence, stretch.sequence);
  }
  return radixOrder(keys, numberBits + static_cast<unsigned>(std::bit_width(highestSequence)));
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
      owner_ = owner;
    } else {
      ofOthers_ = std::max(ofOthers_, number);
    }
  }

  // Whether anybody but `owner` has added `number` or a higher one.
  bool reaches(std::int64_t number, const Identity& owner) const {
    return (owns(owner) ? ofOthers_ : highest_) >= number;
  }

 private:
  bool owns(const Identity& owner) const { return owner_ == owner; }

  std::optional<Identity> owner_;
  std::int64_t highest_ = std::numeric_limits<std::int64_t>::min();
  std::int64_t ofOthers_ = std::numeric_limits<std::int64_t>::min();
};

// Marks every range of one sequence that overlaps a partner: one that starts before it and ends
// within or behind it, or one that starts behind its start but not behind its end. They stand in
// the order of where they begin.
void markOverlaps(std::span<Stretch> sequence) {
  HighestOfOthers ends;
  for (Stretch& stretch : sequence) {
    if (ends.reaches(stretch.low, stretch.identity)) stretch.stopsTheLoops = true;
    ends.add(stretch.identity, stretch.high);
  }
  HighestOfOthers starts;  // negated, so that the lowest one is the highest
  for (Stretch& stretch : std::views::reverse(sequence)) {
    if (starts.reaches(-std::int64_t{stretch.high}, stretch.identity)) stretch.stopsTheLoops = true;
    starts.add(stretch.identity, -std::int64_t{stretch.low});
  }
}

Stretches inOrder(const Stretches& stretches) {
  Stretches ordered;
  ordered.reserve(stretches.size());
  for (const std::uint32_t place : orderOf(stretches)) ordered.push_back(stretches[place]);
  return ordered;
}

std::optional<std::int32_t> firstChecked(const XArray& table) {
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    if (isChecked(table, row)) return row;
  return std::nullopt;
}

std::optional<std::int32_t> firstThatStops(const Stretches& stretches) {
  Stretches ordered = inOrder(stretches);
  for (auto begin = ordered.begin(); begin != ordered.end();) {
    const auto end = std::find_if(begin, ordered.end(), [&](const Stretch& stretch) {
      return stretch.sequence != begin->sequence;
    });
    markOverlaps({begin, end});
    begin = end;
  }
  std::optional<std::int32_t> first;
  for (const Stretch& stretch : ordered)
    if (stretch.stopsTheLoops && (!first || stretch.row < *first)) first = stretch.row;
  return first;
}

std::optional<std::int32_t> whereTheLoopsStop(const XArray& table) {
  Stretches stretches;
  try {
    stretches = checkedStretches(table);
  } catch (const Error&) {
    // A flag that does not convert stops the inner loop for whichever range comes first.
    return firstChecked(table);
  }
  return firstThatStops(stretches);
}

}  // namespace

std::optional<RangeDefect> firstDefect(const XArray& table) {
  const auto stop = whereTheLoopsStop(table);
  return stop ? defectOf(table, *stop) : std::nullopt;
}

}  // namespace vexnumkr
