// The companies that are measured.
#pragma once

#include <cstdint>
#include <string>

#include "data/table/xarray.h"

namespace vexnumkr::bench {

/// How many of what a company has. Each of its ranges is active for each of its users; besides the
/// booking circles there is the standard range of every key.
struct CompanySize {
  std::int32_t circles = 0;
  std::int32_t keys = 0;
  std::int32_t users = 0;

  std::int32_t ranges() const { return (circles + 1) * keys; }
  /// Of the range table: every range for every user and for all of them.
  std::int32_t rows() const { return ranges() * (users + 1); }
};

/// Makes a new SQLite file with that company, for application 2, and returns its connection string.
/// The ranges of a key follow one
/// another without overlaps.
std::string createCompanyFile(const std::string& file, const CompanySize& size);

/// The range table of that company, its rows in no order that a rule needs.
XArray companyTable(const CompanySize& size);

/// `rows` active common ranges of one booking circle each that all draw on one sequence, one behind
/// the other without a gap, in an order that is not that of their numbers.
XArray oneSequence(std::int32_t rows);

}  // namespace vexnumkr::bench
