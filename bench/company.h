// The data that is measured.
#pragma once

#include <cstdint>
#include <string>

#include "data/table/xarray.h"

namespace vexnumkr::bench {

/// How large a sample company is (see scaledCompany).
struct CompanySize {
  explicit CompanySize(int scale);

  std::int32_t circles = 0;
  std::int32_t keys = 0;
  std::int32_t users = 0;

  /// Each booking circle, and the standard range, of every key.
  std::int32_t ranges() const { return (circles + 1) * keys; }
  /// Of the range table: every range for every user and for all of them.
  std::int32_t rows() const { return ranges() * (users + 1); }
};

/// The range table of a sample company, its rows in no order that a rule needs; each range has a
/// mask.
XArray companyTable(int scale);

/// Common ranges only, about `items` of them: 40 booking circles and as many keys as it takes. In
/// the order of the tree.
XArray commonTable(std::int32_t items);

/// `rows` active common ranges that all draw on one sequence, one behind the other without a gap,
/// in an order that is not that of their numbers.
XArray oneSequence(std::int32_t rows);

}  // namespace vexnumkr::bench
