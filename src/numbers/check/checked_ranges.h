// The ranges that are checked, and how messages call them.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include <vexnumkr/number_check.h>

#include "numbers/check/drawable.h"

namespace vexnumkr::numbers {

/// The keys of the special ranges that are switched off.
class SwitchedOffKeys {
 public:
  explicit SwitchedOffKeys(const Company& company);
  bool contains(const std::string& key) const { return keys_.contains(key); }

 private:
  std::unordered_set<std::string> keys_;
};

RangeUse useOf(const Range& range, const SwitchedOffKeys& switchedOff);

/// Active, and not of a special range that is switched off; in the order of the company.
std::vector<const Range*> checkedRanges(const Company& company);

/// "Rechnung (RE), Werk".
std::string describe(const Company& company, const Range& range);

/// "Rechnung (RE)".
std::string describeKey(const Range& range);

Finding findingAt(const Range& range, FindingKind kind, Severity severity, std::string text);

/// What the checks of one kind each add to `findings`.
void addBrokenRules(const Company& company, const std::vector<const Range*>& ranges,
                    std::vector<Finding>& findings);
void addLevels(const Company& company, const std::vector<const Range*>& ranges,
               const CheckOptions& options, CheckResult& result);
void addMasks(const Company& company, const std::vector<const Range*>& ranges,
              const CheckOptions& options, std::vector<Finding>& findings);
void addAssignments(const Company& company, std::vector<Finding>& findings);

}  // namespace vexnumkr::numbers
