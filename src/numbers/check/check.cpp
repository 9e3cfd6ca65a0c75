#include <algorithm>

#include <vexnumkr/number_check.h>

#include "numbers/check/checked_ranges.h"

namespace vexnumkr::numbers {

std::size_t CheckResult::count(Severity severity) const {
  return static_cast<std::size_t>(
      std::count_if(findings.begin(), findings.end(),
                    [&](const Finding& finding) { return finding.severity == severity; }));
}

SwitchedOffKeys::SwitchedOffKeys(const Company& company) {
  for (const SpecialRange& special : company.specialRanges)
    if (!special.active) keys_.insert(special.ownKey);
}

RangeUse useOf(const Range& range, const SwitchedOffKeys& switchedOff) {
  return {.isActive = range.active, .isSwitchedOff = switchedOff.contains(range.key)};
}

std::vector<const Range*> checkedRanges(const Company& company) {
  const SwitchedOffKeys switchedOff(company);
  std::vector<const Range*> ranges;
  for (const Range& range : company.ranges)
    if (useOf(range, switchedOff).isUsed()) ranges.push_back(&range);
  return ranges;
}

std::string describeKey(const Range& range) {
  return range.description.empty() ? range.key : range.description + " (" + range.key + ")";
}

std::string describe(const Company& company, const Range& range) {
  return describeKey(range) + ", " + company.circleName(range.circle);
}

Finding findingAt(const Range& range, FindingKind kind, Severity severity, std::string text) {
  return {.kind = kind,
          .severity = severity,
          .circle = range.circle,
          .key = range.key,
          .text = std::move(text)};
}

CheckResult check(const Company& company, const CheckOptions& options) {
  CheckResult result;
  result.checked = checkedRanges(company);
  const std::vector<const Range*>& ranges = result.checked;
  addBrokenRules(company, ranges, result.findings);
  addLevels(company, ranges, options, result);
  addMasks(company, ranges, options, result.findings);
  addAssignments(company, result.findings);
  // Whoever reads the first line only has read the worst.
  std::stable_partition(result.findings.begin(), result.findings.end(), [](const Finding& finding) {
    return finding.severity == Severity::critical;
  });
  return result;
}

std::vector<Finding> brokenRules(const Company& company) {
  std::vector<Finding> findings;
  addBrokenRules(company, checkedRanges(company), findings);
  return findings;
}

const char* nameOf(FindingKind kind) {
  static constexpr const char* names[] = {"valueMissing",
                                          "endNotAboveStart",
                                          "currentOutsideRange",
                                          "overlapsOtherCircle",
                                          "overlapsOtherKey",
                                          "exhausted",
                                          "nearlyFull",
                                          "aboutToCollide",
                                          "maskOfOtherDate",
                                          "maskUnreadable",
                                          "sharedRangeMissing",
                                          "specialRangeUnused",
                                          "assignmentWithoutRange",
                                          "assignmentOfInactiveRange",
                                          "assignmentWithoutUser",
                                          "userWithoutRange",
                                          "userAmbiguous",
                                          "numbersReissued",
                                          "sharedRangeInactive"};
  return names[static_cast<std::size_t>(kind)];
}

}  // namespace vexnumkr::numbers
