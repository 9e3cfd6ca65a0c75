// What is wrong with the ranges of a company, or soon will be.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <vexnumkr/export.h>
#include <vexnumkr/number_company.h>

namespace vexnumkr::numbers {

/// Critical are a missing value, a broken rule, and a range that is used up to the critical limit
/// or entirely: nobody can work with it, or soon nobody will. Everything else is a warning.
enum class Severity { warning, critical };

/// What was found. New kinds may follow behind the last one; a program that does not know one goes
/// by the severity and shows the text.
enum class FindingKind {
  /// A range lacks a value, so the dialog does not open.
  valueMissing,
  /// A broken rule, which the dialog does not save; so are the next three.
  endNotAboveStart,
  currentOutsideRange,
  /// The same key in two circles: one number would stand on two documents.
  overlapsOtherCircle,
  /// Two keys that share a sequence, likewise.
  overlapsOtherKey,
  /// The last number is issued.
  exhausted,
  /// A fill level at or above one of the limits.
  nearlyFull,
  /// Nearly full or exhausted, and another range is too near behind it for as many numbers more.
  aboutToCollide,
  /// The values are those of the mask at another year or month: nobody has turned the year.
  maskOfOtherDate,
  /// "Automatisch" fails at it, and so does turning the year.
  maskUnreadable,
  /// A special range whose numbers are those of a range that its circle does not have. Nothing is
  /// drawn from it.
  sharedRangeMissing,
  /// A special range is switched on and has no ranges yet.
  specialRangeUnused,
  /// An assignment that leads to nothing: its range is not stored, or not active.
  assignmentWithoutRange,
  assignmentOfInactiveRange,
  /// The assigned user is neither known nor everybody.
  assignmentWithoutUser,
  /// For these keys a user can draw nothing.
  userWithoutRange,
  /// For these keys several circles serve the user, so that each draw has to name one.
  userAmbiguous,
  /// Of an import only: numbers that are issued would be issued again.
  numbersReissued,
  /// Like sharedRangeMissing: the range is there, and nobody uses it.
  sharedRangeInactive,
};

/// One thing that is wrong, with the place where it is and the words for it.
struct Finding {
  FindingKind kind = FindingKind::valueMissing;
  Severity severity = Severity::critical;
  std::int32_t circle = 0;          ///< of the range or assignment; 0 where it is about a user
  std::string key{};                ///< likewise; empty
  std::string user{};               ///< where it is about one
  std::vector<std::string> keys{};  ///< of findings about a user, ascending
  std::string text{};               ///< what it is and what to do about it, for people (German)
};

/// How far a range is used up. Counted in 64 bits, since from the lowest number to the highest
/// it is more than 32 hold.
struct RangeLevel {
  /// One of the company's, never null.
  const Range* range = nullptr;
  /// How many numbers are issued, from 0 (only its start, which nobody draws) to `capacity`.
  std::int64_t used = 0;
  /// How many it can issue; above 0.
  std::int64_t capacity = 0;

  std::int64_t left() const { return capacity - used; }
  double percent() const {
    return 100.0 * static_cast<double>(used) / static_cast<double>(capacity);
  }
};

/// By what a company is judged.
struct CheckOptions {
  /// The day for which masks are read, "yyyymmdd"; the host's processing date rather than the
  /// clock's where it has one.
  std::string date{};
  /// From which fill level on a range is nearly full, in percent and at or above it. A critical
  /// limit below the other one leaves no warnings of fill levels, one above 100 nothing that is
  /// critical before the last number is issued.
  std::int32_t warnPercent = 80;
  std::int32_t criticalPercent = 95;
};

struct VEXNUMKR_API CheckResult {
  /// Critical ones first, otherwise in the order of the ranges, assignments and users.
  std::vector<Finding> findings;
  /// Of the active ranges in order whose own numbers are drawn, in the order of the company.
  std::vector<RangeLevel> levels;
  /// The ranges that were looked at, those without a level among them, in the order of the company.
  std::vector<const Range*> checked{};

  /// How many findings have that severity.
  std::size_t count(Severity severity) const;
};

/// Checks `company`, which has to outlive the result. Like the dialog it looks at active ranges,
/// and not at those of special ranges that are switched off. All broken rules are told, and every
/// pair of ranges that overlap. A user draws from the own assignments, otherwise from the common
/// ones, as in numbers.h. Plain computation, in which nothing is asked or changed.
///
/// Error: 13 for a date that is none, where a mask depends on it.
VEXNUMKR_API CheckResult check(const Company& company, const CheckOptions& options);

/// The broken rules alone: what keeps the dialog from saving. All of them are critical, and a
/// company without any can be stored.
VEXNUMKR_API std::vector<Finding> brokenRules(const Company& company);

/// The name of a kind in English, as JSON and metrics have it: "endNotAboveStart". It stays the
/// same from version to version.
VEXNUMKR_API const char* nameOf(FindingKind kind);

}  // namespace vexnumkr::numbers
