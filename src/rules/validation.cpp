#include "rules/validation.h"

#include "data/table/range_place.h"

namespace vexnumkr {

std::string defectMessage(const XArray& table, const RangeDefect& defect) {
  const RangeRow& range = table.at(defect.row);
  const RangeRow& other = table.at(defect.otherRow);
  const std::string& name = range.NBezeichnung.str();
  const std::string& circle = range.Gruppe.str();
  const std::string place = placeOf(range);
  const std::string overlap =
      "Bei der Belegart '" + name + "' überschneidet sich der Buchungskreis '" + circle + "' mit ";
  switch (defect.rule) {
    case BrokenRule::EndNotAboveStart:
      return "Der Endwert muss größer sein als der Startwert." + place;
    case BrokenRule::CurrentOutsideRange:
      return "Der aktuelle Wert muss zwischen dem Start- und Endwert liegen." + place;
    case BrokenRule::OverlapsOtherCircle:
      return overlap + "dem Buchungskreis '" + other.Gruppe.str() + "'.";
    case BrokenRule::OverlapsOtherKey:
      break;
  }
  return overlap + "der Belegart '" + other.NBezeichnung.str() + "' und dem Buchungskreis '" +
         other.Gruppe.str() + "'.";
}

// An overlap of two keys is shown at the earlier of the two ranges, any other at the later one.
std::int32_t offendingRow(const RangeDefect& defect) {
  return defect.rule == BrokenRule::OverlapsOtherKey ? defect.otherRow : defect.row;
}

ValueColumn offendingValue(BrokenRule rule) {
  if (rule == BrokenRule::EndNotAboveStart) return &RangeRow::EndWert;
  if (rule == BrokenRule::CurrentOutsideRange) return &RangeRow::AktuellerWert;
  return &RangeRow::StartWert;
}

namespace basAllgemein {

Validity CheckValidity(XArray& table, Reporter& reporter) {
  Validity validity;
  reportingFailures(reporter, {generalModule, "CheckValidity"}, [&] {
    table.sort(RowOrder::display);
    validity.holds = true;
    validity.defect = firstDefect(table);
    validity.holds = !validity.defect;
  });
  return validity;
}

}  // namespace basAllgemein
}  // namespace vexnumkr
