// What is wrong with the ranges of a company, or soon will be.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <vexnumkr/export.h>
#include <vexnumkr/number_company.h>

namespace vexnumkr::numbers {

enum class Severity { warning, critical };

enum class FindingKind {
  valueMissing,      ///< a range lacks a value, so the dialog does not open
  endNotAboveStart,  ///< a broken rule, which the dialog does not save; so are the next three
  currentOutsideRange,
  overlapsOtherCircle,  ///< the same key in two circles
  overlapsOtherKey,     ///< two keys that share a sequence
  exhausted,            ///< the last number is issued
  nearlyFull,           ///< a fill level at or above one of the limits
  aboutToCollide,       ///< nearly full, and another range is too near behind it to grow
  maskOfOtherDate,      ///< the values are those of the mask at another year or month
  maskUnreadable,       ///< "Automatisch" fails at it
  sharedRangeMissing,   ///< a special range whose own key's range is not there
  specialRangeUnused,   ///< a special range is switched on and has no ranges yet
  assignmentWithoutRange,
  assignmentOfInactiveRange,
  assignmentWithoutUser,
  userWithoutRange,  ///< for these keys a user can draw nothing
  userAmbiguous,     ///< for these keys several circles serve the user
  numbersReissued,   ///< of an import only: numbers that are issued would be issued again
};

struct Finding {
  FindingKind kind = FindingKind::valueMissing;
  Severity severity = Severity::critical;
  std::int32_t circle = 0;          ///< of the range or assignment; 0 where it is about a user
  std::string key{};                ///< likewise; empty
  std::string user{};               ///< where it is about one
  std::vector<std::string> keys{};  ///< of findings about a user, ascending
  std::string text{};               ///< what it is and what to do about it, for people (German)
};

/// How far a range is used up.
struct RangeLevel {
  const Range* range = nullptr;
  std::int64_t used = 0;
  std::int64_t capacity = 0;  ///< above 0

  std::int64_t left() const { return capacity - used; }
  double percent() const {
    return 100.0 * static_cast<double>(used) / static_cast<double>(capacity);
  }
};

struct CheckOptions {
  std::string date{};  ///< "yyyymmdd"
  std::int32_t warnPercent = 80;
  std::int32_t criticalPercent = 95;
};

struct VEXNUMKR_API CheckResult {
  /// Critical ones first, otherwise in the order of the ranges, assignments and users.
  std::vector<Finding> findings;
  /// Of the active ranges in order whose own numbers are drawn, in the order of the company.
  std::vector<RangeLevel> levels;

  std::size_t count(Severity severity) const;
};

/// Checks `company`, which has to outlive the result. Like the dialog it looks at active ranges,
/// and not at those of special ranges that are switched off. All broken rules are told, and every
/// pair of ranges that overlap. A user draws from the own assignments, otherwise from the common
/// ones, as in numbers.h.
VEXNUMKR_API CheckResult check(const Company& company, const CheckOptions& options);

/// The broken rules alone: what keeps the dialog from saving.
VEXNUMKR_API std::vector<Finding> brokenRules(const Company& company);

/// The name of a kind in English, as JSON and metrics have it: "endNotAboveStart".
VEXNUMKR_API const char* nameOf(FindingKind kind);

}  // namespace vexnumkr::numbers
