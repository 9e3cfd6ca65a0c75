// What is told apart when several write the same ranges.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

#include <vexnumkr/database.h>

#include "data/table/xarray.h"

namespace vexnumkr {

/// What addresses a stored range.
struct RangeId {
  std::int32_t Buchungskreis = 0;
  std::string NSchl;

  static RangeId of(const RangeRow& row) { return {row.Buchungskreis, row.NSchl.str()}; }
  friend auto operator<=>(const RangeId&, const RangeId&) = default;
};

/// The four values of a range that hosts and users change, as they are written: numbers as
/// integers, the mask without blanks around it.
struct RangeValues {
  std::int32_t StartWert = 0;
  std::int32_t AktuellerWert = 0;
  std::int32_t EndWert = 0;
  std::string Maske;

  /// Errors 6 and 13 for a value that does not convert.
  static RangeValues of(const RangeRow& row);
  friend bool operator==(const RangeValues&, const RangeValues&) = default;
};

/// The same, or nothing for values that cannot be written.
std::optional<RangeValues> writableValues(const RangeRow& row);

/// Which stored range a record is; nothing for one that can be no range of a table.
std::optional<RangeId> rangeIdOf(const Recordset& record);

/// Errors 6, 13 and 94 for a value that does not convert.
RangeValues rangeValuesOf(const Recordset& record);

/// What is known of the stored ranges since the dialog opened.
class KnownRanges {
 public:
  void clear();

  /// A range was read from the database, whether or not it came into the table.
  void read(const RangeId& range) { read_.insert(range); }
  bool wasRead(const RangeId& range) const { return read_.contains(range); }

  /// Follows the table after rows have come and gone: takes the values that a common row has been
  /// given as those that are known of its range, and forgets ranges that are gone.
  void follow(const XArray& table);

  /// Null for a range that no common row stands for.
  const RangeValues* values(const RangeId& range) const;
  void values(const RangeId& range, const RangeValues& values) { values_[range] = values; }

 private:
  std::set<RangeId> read_;
  std::map<RangeId, RangeValues> values_;
};

}  // namespace vexnumkr
