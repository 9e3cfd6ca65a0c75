#include "numbers/company_rows.h"

#include "numbers/query.h"

namespace vexnumkr::numbers {
namespace {

std::optional<std::int32_t> numberOf(const Recordset& row, std::string_view field) {
  const Value value = row.Fields(field);
  return value.isNull() ? std::nullopt : std::optional(value.toLong());
}

bool flagOf(const Recordset& row, std::string_view field) {
  const Value value = row.Fields(field);
  return !value.isNull() && value.toBoolean();
}

}  // namespace

Range rangeIn(const Recordset& row) {
  Range range;
  range.circle = row.Fields("Buchungskreis").toLong();
  range.key = textOf(row, "NSchl");
  range.description = textOf(row, "NBezeichnung");
  range.start = numberOf(row, "StartWert");
  range.current = numberOf(row, "AktuellerWert");
  range.end = numberOf(row, "EndWert");
  // The standard range of a key is there for everybody and cannot be switched off.
  range.active = range.circle == 0 || flagOf(row, "Aktiviert");
  range.sortIndex = numberOf(row, "SortierIndex").value_or(0);
  range.sharedKey = textOf(row, "IstNSchlVon");
  range.mask = textOf(row, "Maske");
  return range;
}

Circle circleIn(const Recordset& row) {
  return {row.Fields("Buchungskreis").toLong(), textOf(row, "Beschreibung")};
}

Assignment assignmentIn(const Recordset& row) {
  return {row.Fields("Buchungskreis").toLong(), textOf(row, "NSchl"), textOf(row, "Benutzer")};
}

SpecialRange specialRangeIn(const Recordset& row) {
  return {textOf(row, "U_NSchl"), textOf(row, "NSchl"), textOf(row, "NBezeichnung"),
          flagOf(row, "Aktiviert")};
}

}  // namespace vexnumkr::numbers
