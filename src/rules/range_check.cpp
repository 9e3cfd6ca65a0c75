#include "rules/range_check.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_map>
#include <vector>

#include <vexnumkr/error.h>

#include "data/columns.h"
#include "hosting/host_context.h"

namespace vexnumkr {
namespace {

// Whether the row's values are compared at all.
bool isChecked(const XArray& table, std::int32_t row) {
  return table.equals(row, column::Benutzer, alleBenutzer) &&
         table.toBoolean(row, column::Aktiviert);
}

std::string sequenceOf(const XArray& table, std::int32_t row) {
  const Value sharedWith = table.get(row, column::IstNSchlVon);
  if (sharedWith.isNull() || sharedWith.toText().empty()) return table.toText(row, column::NSchl);
  return sharedWith.toText();
}

struct Range {
  std::int32_t row = 0;
  std::int32_t circle = 0;
  std::string key;
  std::int32_t start = 0;
  std::int32_t current = 0;
  std::int32_t end = 0;
  std::size_t sequence = 0;
  bool converts = false;
  bool suspect = false;  // breaks a rule itself, does not convert, or meets another of its sequence
};

// The rule that a range breaks by itself.
std::optional<BrokenRule> ownDefect(const Range& range) {
  if (range.end <= range.start) return BrokenRule::EndNotAboveStart;
  if (range.current < range.start || range.current > range.end)
    return BrokenRule::CurrentOutsideRange;
  return std::nullopt;
}

bool isPartner(const Range& a, const Range& b) { return a.key != b.key || a.circle != b.circle; }

bool overlap(const Range& a, const Range& b) { return !(b.end < a.start || b.start > a.end); }

class Checker {
 public:
  explicit Checker(const XArray& table) : table_(table) { collect(); }

  std::optional<RangeDefect> firstDefect() {
    for (auto& members : sequences_) markSuspects(members);
    for (const Range& range : ranges_) {
      if (const auto defect = check(range)) return defect;
    }
    return std::nullopt;
  }

 private:
  void collect() {
    std::unordered_map<std::string, std::size_t> numbers;
    for (std::int32_t row = table_.LowerBound(1); row <= table_.UpperBound(1); ++row) {
      if (!isChecked(table_, row)) continue;
      Range range;
      range.row = row;
      range.key = table_.toText(row, column::NSchl);
      range.sequence = numbers.try_emplace(sequenceOf(table_, row), numbers.size()).first->second;
      if (range.sequence == sequences_.size()) sequences_.emplace_back();
      decode(range);
      sequences_[range.sequence].members.push_back(ranges_.size());
      ranges_.push_back(std::move(range));
    }
  }

  void decode(Range& range) const {
    range.circle = table_.toLong(range.row, column::Buchungskreis);
    try {
      convert(range);
      range.converts = true;
    } catch (const Error&) {
      range.suspect = true;  // raised again when the loops come across it
    }
  }

  // In the order in which the rules look at the values.
  void convert(Range& range) const {
    range.end = table_.toLong(range.row, column::EndWert);
    range.start = table_.toLong(range.row, column::StartWert);
    if (range.end <= range.start) return;
    range.current = table_.toLong(range.row, column::AktuellerWert);
  }

  struct Sequence {
    std::vector<std::size_t> members;  // places in ranges_, in the table's order
    bool hasDefectiveMember = false;
  };

  // Every range that breaks a rule or meets another one gets marked; the rest of a sequence without
  // a defective range has nothing to fear from its partners.
  void markSuspects(Sequence& sequence) {
    for (const std::size_t member : sequence.members) {
      Range& range = ranges_[member];
      if (!range.converts || ownDefect(range)) range.suspect = sequence.hasDefectiveMember = true;
    }
    if (sequence.hasDefectiveMember) return;
    std::vector<std::size_t> byStart = sequence.members;
    std::sort(byStart.begin(), byStart.end(),
              [this](std::size_t a, std::size_t b) { return ranges_[a].start < ranges_[b].start; });
    std::int64_t highestEnd = std::numeric_limits<std::int64_t>::min();
    for (std::size_t i = 0; i < byStart.size(); ++i) {
      Range& range = ranges_[byStart[i]];
      const bool meetsNext = i + 1 < byStart.size() && ranges_[byStart[i + 1]].start <= range.end;
      if (range.start <= highestEnd || meetsNext) range.suspect = true;
      highestEnd = std::max<std::int64_t>(highestEnd, range.end);
    }
  }

  std::optional<RangeDefect> check(const Range& range) const {
    const Sequence& sequence = sequences_[range.sequence];
    if (!range.suspect && !sequence.hasDefectiveMember) return std::nullopt;
    if (const auto rule = ruleBrokenBy(range)) return RangeDefect{*rule, range.row, range.row};
    for (const std::size_t member : sequence.members) {
      const Range& other = ranges_[member];
      if (!isPartner(other, range)) continue;
      if (const auto rule = ruleBrokenBy(other)) return RangeDefect{*rule, other.row, other.row};
      if (!overlap(range, other)) continue;
      const bool sameKey = other.key == range.key;
      return RangeDefect{sameKey ? BrokenRule::OverlapsOtherCircle : BrokenRule::OverlapsOtherKey,
                         other.row, range.row};
    }
    return std::nullopt;
  }

  std::optional<BrokenRule> ruleBrokenBy(const Range& range) const {
    if (!range.converts) {
      Range again = range;
      convert(again);
    }
    return ownDefect(range);
  }

  const XArray& table_;
  std::vector<Range> ranges_;
  std::vector<Sequence> sequences_;
};

}  // namespace

std::optional<RangeDefect> firstDefect(const XArray& table) { return Checker(table).firstDefect(); }

}  // namespace vexnumkr
