#include "rules/saving/range_content.h"

#include <algorithm>

#include <vexnumkr/error.h>

namespace vexnumkr {
namespace {

// Layers have booleans of their own, or numbers in their place.
Value stored(const Recordset& record, std::string_view column) {
  Value value = record.Fields(column);
  return value.isBoolean() ? Value(value.toLong()) : value;
}

}  // namespace

RangeContent writtenContent(const RangeRow& row) {
  return {row.StartWert.toLong(),       row.AktuellerWert.toLong(), row.EndWert.toLong(),
          row.Aktiviert ? -1 : 0,       row.SortierIndex,           Value(row.NBezeichnung.str()),
          Value(row.IstNSchlVon.str()), Value(row.Maske.toText())};
}

std::optional<RangeContent> storedContent(const Recordset& record) {
  try {
    return RangeContent{stored(record, "StartWert"),    stored(record, "AktuellerWert"),
                        stored(record, "EndWert"),      stored(record, "Aktiviert"),
                        stored(record, "SortierIndex"), stored(record, "NBezeichnung"),
                        stored(record, "IstNSchlVon"),  stored(record, "Maske")};
  } catch (const Error&) {  // it is not what is going to be written, then
    return std::nullopt;
  }
}

statement::RangeColumns differentColumns(const RangeContent& a, const RangeContent& b) {
  const auto first = std::ranges::mismatch(a, b).in1 - a.begin();
  const auto last = std::mismatch(a.rbegin(), a.rend(), b.rbegin()).first.base() - a.begin();
  return {static_cast<std::size_t>(first), static_cast<std::size_t>(last)};
}

}  // namespace vexnumkr
