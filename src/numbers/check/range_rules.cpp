// The rules that a range keeps or breaks, its fill level and its mask.
#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <unordered_map>

#include <vexnumkr/error.h>
#include <vexnumkr/number_masks.h>

#include "numbers/check/checked_ranges.h"

namespace vexnumkr::numbers {
namespace {

std::string number(std::int64_t value) { return std::to_string(value); }

std::string span(const Range& range) { return number(*range.start) + "–" + number(*range.end); }

bool isComplete(const Range& range) { return range.start && range.current && range.end; }

bool hasNumbers(const Range& range) { return isComplete(range) && *range.start < *range.end; }

bool isSound(const Range& range) {
  return hasNumbers(range) && *range.start <= *range.current && *range.current <= *range.end;
}

// The ranges with numbers of each sequence, by their start.
std::map<std::string_view, std::vector<const Range*>> sequencesOf(
    const std::vector<const Range*>& ranges) {
  std::map<std::string_view, std::vector<const Range*>> sequences;
  for (const Range* range : ranges)
    if (hasNumbers(*range)) sequences[range->sequence()].push_back(range);
  for (auto& [key, members] : sequences)
    std::stable_sort(members.begin(), members.end(),
                     [](const Range* a, const Range* b) { return *a->start < *b->start; });
  return sequences;
}

void addOwnRules(const Company& company, const Range& range, std::vector<Finding>& findings) {
  const auto add = [&](FindingKind kind, const std::string& text) {
    findings.push_back(
        findingAt(range, kind, Severity::critical, describe(company, range) + ": " + text));
  };
  if (!isComplete(range)) {
    add(FindingKind::valueMissing,
        "Ein Wert fehlt (NULL). So öffnet der Dialog nicht; der Wert muss in der Datenbank gesetzt "
        "werden.");
  } else if (*range.end <= *range.start) {
    add(FindingKind::endNotAboveStart, "Der Endwert " + number(*range.end) +
                                           " muss größer sein als der Startwert " +
                                           number(*range.start) + ".");
  } else if (*range.current < *range.start || *range.current > *range.end) {
    add(FindingKind::currentOutsideRange, "Der aktuelle Wert " + number(*range.current) +
                                              " muss zwischen " + number(*range.start) + " und " +
                                              number(*range.end) + " liegen.");
  }
}

void addOverlap(const Company& company, const Range& first, const Range& second,
                std::vector<Finding>& findings) {
  const bool sameKey = first.key == second.key;
  findings.push_back(
      findingAt(first, sameKey ? FindingKind::overlapsOtherCircle : FindingKind::overlapsOtherKey,
                Severity::critical,
                describe(company, first) + " (" + span(first) + ") überschneidet sich mit " +
                    describe(company, second) + " (" + span(second) + ")."));
}

// Sorted by their start, the ones that a range overlaps follow it directly.
void addOverlaps(const Company& company, const std::vector<const Range*>& members,
                 std::vector<Finding>& findings) {
  for (std::size_t i = 0; i < members.size(); ++i)
    for (std::size_t j = i + 1; j < members.size() && *members[j]->start <= *members[i]->end; ++j)
      addOverlap(company, *members[i], *members[j], findings);
}

// Where the numbers end that a range could still be given; beyond 32 bits where nothing follows.
std::int64_t firstTakenBehind(const Range& range, const std::vector<const Range*>& members) {
  const auto behind =
      std::upper_bound(members.begin(), members.end(), *range.end,
                       [](std::int32_t end, const Range* other) { return end < *other->start; });
  return behind == members.end() ? std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1
                                 : std::int64_t{*(*behind)->start};
}

class Levels {
 public:
  Levels(const Company& company, const CheckOptions& options, CheckResult& result)
      : company_(company), options_(options), result_(result) {}

  void add(const Range& range, const std::vector<const Range*>& members) {
    const RangeLevel level{&range, std::int64_t{*range.current} - *range.start,
                           std::int64_t{*range.end} - *range.start};
    result_.levels.push_back(level);
    if (level.left() == 0) {
      addFinding(range, FindingKind::exhausted, Severity::critical,
                 "Die letzte Nummer " + number(*range.end) + " ist vergeben.");
    } else if (reaches(level, options_.criticalPercent)) {
      addFinding(range, FindingKind::nearlyFull, Severity::critical, fullText(level));
    } else if (reaches(level, options_.warnPercent)) {
      addFinding(range, FindingKind::nearlyFull, Severity::warning, fullText(level));
    } else {
      return;
    }
    addCollision(level, members);
  }

 private:
  static bool reaches(const RangeLevel& level, std::int32_t percent) {
    return level.used * 100 >= level.capacity * percent;
  }

  static std::string fullText(const RangeLevel& level) {
    return "Zu " + number(level.used * 100 / level.capacity) + " % belegt, noch " +
           number(level.left()) + (level.left() == 1 ? " Nummer frei." : " Nummern frei.");
  }

  void addCollision(const RangeLevel& level, const std::vector<const Range*>& members) {
    const std::int64_t room = firstTakenBehind(*level.range, members) - *level.range->end - 1;
    if (room >= level.capacity) return;
    addFinding(*level.range, FindingKind::aboutToCollide, Severity::warning,
               "Hinter dem Endwert sind nur " + number(room) +
                   " Nummern frei; zum Erweitern wird ein anderer Bereich gebraucht.");
  }

  void addFinding(const Range& range, FindingKind kind, Severity severity,
                  const std::string& text) {
    result_.findings.push_back(
        findingAt(range, kind, severity, describe(company_, range) + ": " + text));
  }

  const Company& company_;
  const CheckOptions& options_;
  CheckResult& result_;
};

// As exact as the mask is.
std::string monthName(const std::string& mask, const std::string& month) {
  const bool hasMonth = mask.find_first_of("Mm") != std::string::npos;
  return (hasMonth ? month.substr(4, 2) + "/" : std::string()) + month.substr(0, 4);
}

std::optional<MaskNumbers> readable(const Range& range, const CheckOptions& options, bool& fails) {
  try {
    return maskNumbers(range.mask, options.date);
  } catch (const Error&) {
    fails = true;
    return std::nullopt;
  }
}

void addMask(const Company& company, const Range& range, const CheckOptions& options,
             std::vector<Finding>& findings) {
  bool fails = false;
  const auto numbers = readable(range, options, fails);
  const std::string name = describe(company, range);
  if (fails) {
    findings.push_back(findingAt(range, FindingKind::maskUnreadable, Severity::warning,
                                 name + ": Die Maske \"" + range.mask +
                                     "\" ergibt keine Nummern; \"Automatisch\" bricht daran ab."));
    return;
  }
  if (!numbers || !range.start || *range.start == numbers->low || !isDated(range.mask)) return;
  const std::string month = monthOfStart(range.mask, *range.start, options.date);
  if (month.empty()) return;  // numbers that somebody has chosen
  findings.push_back(findingAt(range, FindingKind::maskOfOtherDate, Severity::warning,
                               name + ": Die Nummern " + span(range) + " sind nach der Maske \"" +
                                   range.mask + "\" von " + monthName(range.mask, month) +
                                   "; jetzt wären es " + number(numbers->low) + "–" +
                                   number(numbers->high) + "."));
}

}  // namespace

void addBrokenRules(const Company& company, const std::vector<const Range*>& ranges,
                    std::vector<Finding>& findings) {
  for (const Range* range : ranges) addOwnRules(company, *range, findings);
  for (const auto& [sequence, members] : sequencesOf(ranges))
    addOverlaps(company, members, findings);
}

void addLevels(const Company& company, const std::vector<const Range*>& ranges,
               const CheckOptions& options, CheckResult& result) {
  const auto sequences = sequencesOf(ranges);
  Levels levels(company, options, result);
  for (const Range* range : ranges)
    if (range->sharedKey.empty() && isSound(*range))
      levels.add(*range, sequences.at(range->sequence()));
}

void addMasks(const Company& company, const std::vector<const Range*>& ranges,
              const CheckOptions& options, std::vector<Finding>& findings) {
  for (const Range* range : ranges)
    if (range->start && range->end) addMask(company, *range, options, findings);
}

}  // namespace vexnumkr::numbers
