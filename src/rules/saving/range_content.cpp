#include "rules/saving/range_content.h"

#include <algorithm>

#include <vexnumkr/error.h>

namespace vexnumkr {
namespace {

constexpr std::size_t firstNumber = 1;  // start, current and end value stand together
constexpr std::size_t numbers = 3;

// Layers have booleans of their own, or numbers in their place.
Value stored(const Recordset& record, std::string_view column) {
  Value value = record.Fields(column);
  return value.isBoolean() ? Value(value.toLong()) : value;
}

}  // namespace

RangeContent writtenContent(const RangeRow& row) {
  return {Value(row.NBezeichnung.str()), row.StartWert.toLong(),   row.AktuellerWert.toLong(),
          row.EndWert.toLong(),          row.Aktiviert ? -1 : 0,   row.SortierIndex,
          Value(row.IstNSchlVon.str()),  Value(row.Maske.toText())};
}

std::optional<RangeContent> storedContent(const Recordset& record) {
  try {
    return RangeContent{stored(record, "NBezeichnung"),  stored(record, "StartWert"),
                        stored(record, "AktuellerWert"), stored(record, "EndWert"),
                        stored(record, "Aktiviert"),     stored(record, "SortierIndex"),
                        stored(record, "IstNSchlVon"),   stored(record, "Maske")};
  } catch (const Error&) {  // it is not what is going to be written, then
    return std::nullopt;
  }
}

bool differInNumbersOnly(RangeContent a, const RangeContent& b) {
  std::copy_n(b.begin() + firstNumber, numbers, a.begin() + firstNumber);
  return a == b;
}

}  // namespace vexnumkr
