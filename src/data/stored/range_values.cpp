#include "data/stored/range_values.h"

#include <vexnumkr/error.h>

#include "data/stored/nz_value.h"

namespace vexnumkr {

RangeValues RangeValues::of(const RangeRow& row) {
  return {row.StartWert.toLong(), row.AktuellerWert.toLong(), row.EndWert.toLong(),
          std::string(trimBlanks(row.Maske.toText()))};
}

std::optional<RangeValues> writableValues(const RangeRow& row) {
  try {
    return RangeValues::of(row);
  } catch (const Error&) {  // saving stumbles over the value and says so
    return std::nullopt;
  }
}

std::optional<RangeId> rangeIdOf(const Recordset& record) {
  const Value circle = record.Fields("Buchungskreis");
  const Value key = record.Fields("NSchl");
  // A row that no range of the table can stand for is none of the dialog's business, and must not
  // keep it from saving.
  if (!circle.isLong() || key.isNull()) return std::nullopt;
  return RangeId{circle.asLong(), key.toText()};
}

RangeValues rangeValuesOf(const Recordset& record) {
  const Value mask = basAllgemein::NzValue(record.Fields("Maske"), Value(""));
  return {record.Fields("StartWert").toLong(), record.Fields("AktuellerWert").toLong(),
          record.Fields("EndWert").toLong(), std::string(trimBlanks(mask.toText()))};
}

void KnownRanges::clear() {
  read_.clear();
  values_.clear();
}

void KnownRanges::follow(const XArray& table) {
  std::map<RangeId, RangeValues> followed;
  for (const RangeRow& row : table) {
    if (!row.isCommon()) continue;
    RangeId id = RangeId::of(row);
    const auto known = values_.find(id);
    // What is known of a range outlives what its user types; only one that is new begins with it.
    if (known != values_.end())
      followed.emplace(std::move(id), known->second);
    else if (const auto values = writableValues(row))
      followed.emplace(std::move(id), *values);
  }
  values_ = std::move(followed);
}

const RangeValues* KnownRanges::values(const RangeId& range) const {
  const auto found = values_.find(range);
  return found == values_.end() ? nullptr : &found->second;
}

}  // namespace vexnumkr
