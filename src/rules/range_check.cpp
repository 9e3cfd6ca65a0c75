#include "rules/range_check.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include <vexnumkr/error.h>

#include "rules/stretches.h"

namespace vexnumkr {
namespace {

bool isChecked(const RangeRow& row) { return row.Aktiviert && row.isCommon(); }

RangeIdentity identityOf(const RangeRow& row) { return {row.NSchl.id(), row.Buchungskreis}; }

// A defective range, or one whose values do not convert, stops the loops.
bool isSound(const RangeRow& row) {
  try {
    return !ruleBrokenBy(row);
  } catch (const Error&) {  // the loops raise it again
    return false;
  }
}

// Numbers the sequences from 0 in the order in which they are come across. Rows of one sequence
// mostly follow each other.
class SequenceNumbers {
 public:
  std::uint32_t of(std::uint32_t sequence) {
    if (sequence != last_) {
      const auto next = static_cast<std::uint32_t>(numbers_.size());
      number_ = numbers_.try_emplace(sequence, next).first->second;
      last_ = sequence;
    }
    return number_;
  }

 private:
  std::unordered_map<std::uint32_t, std::uint32_t> numbers_;
  std::optional<std::uint32_t> last_;
  std::uint32_t number_ = 0;
};

// All ranges that the loops look at, and the first of them that stops them by itself. Such a range
// stops them at all of its partners too, as if it overlapped every one of them: it stretches over
// all numbers.
class CheckedRanges {
 public:
  // In the table's order.
  void add(std::int32_t i, const RangeRow& row) {
    Stretch stretch{
        .row = i, .sequence = sequences_.of(row.sequence().id()), .owner = identityOf(row)};
    if (isSound(row)) {
      stretch.low = row.StartWert.toLong();
      stretch.high = row.EndWert.toLong();
    } else if (!firstUnsound_) {
      firstUnsound_ = i;
    }
    stretches_.push_back(stretch);
  }

  // The range that stops the outer loop, found without looping over pairs.
  std::optional<std::int32_t> whereTheLoopsStop() const {
    const auto overlapping = firstOverlapping(stretches_);
    if (!overlapping || !firstUnsound_) return overlapping ? overlapping : firstUnsound_;
    return std::min(*overlapping, *firstUnsound_);
  }

 private:
  SequenceNumbers sequences_;
  std::vector<Stretch> stretches_;
  std::optional<std::int32_t> firstUnsound_;
};

// What the inner loop finds for the range in row i.
std::optional<RangeDefect> defectOf(const XArray& table, std::int32_t i) {
  const RangeRow& outer = table.at(i);
  if (const auto rule = ruleBrokenBy(outer)) return RangeDefect{*rule, i, i};
  std::int32_t j = -1;
  for (const RangeRow& inner : table) {
    ++j;
    if (!isChecked(inner) || !(inner.sequence() == outer.sequence()) ||
        identityOf(inner) == identityOf(outer))
      continue;
    if (const auto rule = ruleBrokenBy(inner)) return RangeDefect{*rule, j, j};
    if (overlap(outer, inner))
      return RangeDefect{inner.NSchl == outer.NSchl ? BrokenRule::OverlapsOtherCircle
                                                    : BrokenRule::OverlapsOtherKey,
                         j, i};
  }
  return std::nullopt;
}

}  // namespace

std::optional<BrokenRule> ruleBrokenBy(const RangeRow& row) {
  const std::int32_t end = row.EndWert.toLong();
  const std::int32_t start = row.StartWert.toLong();
  if (end <= start) return BrokenRule::EndNotAboveStart;
  const std::int32_t current = row.AktuellerWert.toLong();
  if (current < start || current > end) return BrokenRule::CurrentOutsideRange;
  return std::nullopt;
}

bool overlap(const RangeRow& a, const RangeRow& b) {
  return a.StartWert.toLong() <= b.EndWert.toLong() && b.StartWert.toLong() <= a.EndWert.toLong();
}

std::optional<RangeDefect> firstDefect(const XArray& table) {
  CheckedRanges ranges;
  std::int32_t i = 0;
  for (const RangeRow& row : table) {
    if (isChecked(row)) ranges.add(i, row);
    ++i;
  }
  const auto stop = ranges.whereTheLoopsStop();
  return stop ? defectOf(table, *stop) : std::nullopt;
}

}  // namespace vexnumkr
