// The report for administrators and auditors: one HTML page that needs nothing else.
#pragma once

#include <iosfwd>
#include <string>

#include <vexnumkr/number_check.h>
#include <vexnumkr/number_company.h>

namespace vexnumkr::cli {

/// What stands above the report.
struct ReportHeading {
  std::string date;      ///< by which masks were read, "yyyymmdd"
  std::string made;      ///< day and time of the report, for people
  std::string database;  ///< without a password
};

/// Writes the page: findings first, then the fill level of each range, each sequence as a number
/// line to scale with its ranges and the free numbers between them, and the users with their
/// ranges. No script and no network; light or dark as its reader has it, and on paper light.
///
/// The rows of the fill levels carry their figures as attributes (data-key, data-circle,
/// data-start, data-current, data-end, data-left), for programs. Ranges whose values contradict
/// each other stand among them, marked as broken and without data-left.
void writeReport(std::ostream& out, const numbers::Company& company,
                 const numbers::CheckResult& result, const ReportHeading& heading);

}  // namespace vexnumkr::cli
