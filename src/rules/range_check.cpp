#include "rules/range_check.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include <vexnumkr/error.h>

#include "data/table/columns.h"
#include "hosting/host_context.h"
#include "rules/stretches.h"

namespace vexnumkr {
namespace {

// What the loops come across for one range.

// By the number of its text.
TextId sequenceOf(const TableRow& row) {
  if (!row.isNull(column::IstNSchlVon)) {
    const TextId sharedWith = row.toTextId(column::IstNSchlVon);
    if (sharedWith != emptyTextId) return sharedWith;
  }
  return row.toTextId(column::NSchl);
}

RangeIdentity identityOf(const TableRow& row) {
  return {row.toTextId(column::NSchl), row.toLong(column::Buchungskreis)};
}

// The rule that a range breaks by itself. Converts its values in the order in which they are
// compared, and only those that are.
std::optional<BrokenRule> ruleBrokenBy(const TableRow& row) {
  const std::int32_t end = row.toLong(column::EndWert);
  const std::int32_t start = row.toLong(column::StartWert);
  if (end <= start) return BrokenRule::EndNotAboveStart;
  const std::int32_t current = row.toLong(column::AktuellerWert);
  if (current < start || current > end) return BrokenRule::CurrentOutsideRange;
  return std::nullopt;
}

// Of two ranges that keep the rules themselves.
bool overlap(const TableRow& a, const TableRow& b) {
  return a.toLong(column::StartWert) <= b.toLong(column::EndWert) &&
         b.toLong(column::StartWert) <= a.toLong(column::EndWert);
}

// A defective range, or one whose values do not convert, stops the loops.
bool isSound(const TableRow& row) {
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

// All ranges that the loops look at, and the first of them that stops them by itself. Such a range
// stops them at all of its partners too, as if it overlapped every one of them: it stretches over
// all numbers.
class CheckedRanges {
 public:
  explicit CheckedRanges(std::size_t atMost) { stretches_.reserve(atMost); }

  // In the table's order.
  void add(std::int32_t i, const TableRow& row) {
    Stretch stretch{.row = i, .sequence = sequences_.of(sequenceOf(row)), .owner = identityOf(row)};
    if (isSound(row)) {
      stretch.low = row.toLong(column::StartWert);
      stretch.high = row.toLong(column::EndWert);
    } else if (!firstUnsound_) {
      firstUnsound_ = i;
    }
    stretches_.push_back(stretch);
  }

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

// The pair of loops over a table in which common rows are marked by the text `everybody`.
class Loops {
 public:
  Loops(const XArray& table, TextId everybody)
      : table_(table),
        everybody_(everybody),
        first_(table.LowerBound(1)),
        last_(table.UpperBound(1)) {}

  // The range that stops the outer loop, found without looping over pairs.
  std::optional<std::int32_t> stop() const {
    try {
      return checkedRanges().whereTheLoopsStop();
    } catch (const Error&) {
      // A flag that does not convert stops the inner loop for whichever range comes first.
      return firstChecked();
    }
  }

  // What the inner loop finds for the range in row i.
  std::optional<RangeDefect> defectOf(std::int32_t i) const {
    const TableRow outer = table_.at(i);
    if (const auto rule = ruleBrokenBy(outer)) return RangeDefect{*rule, i, i};
    const RangeIdentity own = identityOf(outer);
    const TextId sequence = sequenceOf(outer);
    for (std::int32_t j = first_; j <= last_; ++j) {
      const TableRow inner = table_.at(j);
      const bool active = inner.toBoolean(column::Aktiviert);
      if (!active || !isCommon(inner) || sequenceOf(inner) != sequence) continue;
      const RangeIdentity other = identityOf(inner);
      if (other == own) continue;
      if (const auto rule = ruleBrokenBy(inner)) return RangeDefect{*rule, j, j};
      if (!overlap(outer, inner)) continue;
      return RangeDefect{
          other.key == own.key ? BrokenRule::OverlapsOtherCircle : BrokenRule::OverlapsOtherKey, j,
          i};
    }
    return std::nullopt;
  }

 private:
  bool isCommon(const TableRow& row) const { return row.equals(column::Benutzer, everybody_); }

  // Errors of flags that do not convert.
  CheckedRanges checkedRanges() const {
    CheckedRanges ranges(static_cast<std::size_t>(last_ - first_ + 1));
    for (std::int32_t i = first_; i <= last_; ++i) {
      const TableRow row = table_.at(i);
      const bool active = row.toBoolean(column::Aktiviert);
      if (active && isCommon(row)) ranges.add(i, row);
    }
    return ranges;
  }

  std::optional<std::int32_t> firstChecked() const {
    for (std::int32_t i = first_; i <= last_; ++i) {
      const TableRow row = table_.at(i);
      if (isCommon(row) && row.toBoolean(column::Aktiviert)) return i;
    }
    return std::nullopt;
  }

  const XArray& table_;
  TextId everybody_;
  std::int32_t first_;
  std::int32_t last_;
};

}  // namespace

std::optional<RangeDefect> firstDefect(const XArray& table) {
  const auto everybody = table.textId(alleBenutzer);
  if (!everybody) return std::nullopt;
  const Loops loops(table, *everybody);
  const auto stop = loops.stop();
  return stop ? loops.defectOf(*stop) : std::nullopt;
}

}  // namespace vexnumkr
