// The rules that ranges must keep to be saved.
#pragma once

#include <optional>
#include <string>

#include "platform/reporter.h"
#include "rules/range_check.h"

namespace vexnumkr {

/// What checking the ranges has found.
struct Validity {
  /// Whether saving may go on: no rule is broken, as far as the check came.
  bool holds = false;
  std::optional<RangeDefect> defect;
};

/// What the user is told of a defect.
std::string defectMessage(const XArray& table, const RangeDefect& defect);

/// The row that the user is shown, and the value in it that is to be mended.
std::int32_t offendingRow(const RangeDefect& defect);
ValueColumn offendingValue(BrokenRule rule);

namespace basAllgemein {

/// Checks the active common ranges: the end lies above the start, the current value between them,
/// and ranges that draw on one sequence do not overlap. Finds the first broken rule in the order of
/// display.
///
/// The table is sorted for display afterwards; no value changes. A failure while sorting finds that
/// the rules do not hold; one while checking (a value that is no number) is reported and counts as
/// passed: saving then stumbles over the same value and says so.
Validity CheckValidity(XArray& table, Reporter& reporter);

}  // namespace basAllgemein
}  // namespace vexnumkr
