#include "rules/validation.h"

#include "data/booking_circles.h"
#include "data/table/columns.h"
#include "hosting/reporting.h"
#include "rules/range_check.h"
#include "rules/sort_orders.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr std::int16_t captionColumn = 1;  // of the grid
constexpr std::int32_t gridToTable = 3;    // from the grid column of a value to that of the table

// The grid column of the offending value.
std::int16_t errorColumn(BrokenRule rule) {
  switch (rule) {
    case BrokenRule::EndNotAboveStart:
      return 4;
    case BrokenRule::CurrentOutsideRange:
      return 3;
    case BrokenRule::OverlapsOtherCircle:
    case BrokenRule::OverlapsOtherKey:
      break;
  }
  return 2;
}

std::string message(const XArray& table, const RangeDefect& defect) {
  const std::string name = table.toText(defect.row, column::NBezeichnung);
  const std::string circle = table.toText(defect.row, column::Gruppe);
  const std::string otherName = table.toText(defect.otherRow, column::NBezeichnung);
  const std::string otherCircle = table.toText(defect.otherRow, column::Gruppe);
  const std::string place = "\r\n(Belegart: " + name + ", Buchungskreis: " + circle + ")";
  const std::string overlap =
      "Bei der Belegart '" + name + "' überschneidet sich der Buchungskreis '" + circle + "' mit ";
  switch (defect.rule) {
    case BrokenRule::EndNotAboveStart:
      return "Der Endwert muss größer sein als der Startwert." + place;
    case BrokenRule::CurrentOutsideRange:
      return "Der aktuelle Wert muss zwischen dem Start- und Endwert liegen." + place;
    case BrokenRule::OverlapsOtherCircle:
      return overlap + "dem Buchungskreis '" + otherCircle + "'.";
    case BrokenRule::OverlapsOtherKey:
      break;
  }
  return overlap + "der Belegart '" + otherName + "' und dem Buchungskreis '" + otherCircle + "'.";
}

bool showsEverything(const HostContext& context) {
  return context.strFilterBuchungskreis() == alleBuchungskreise &&
         context.strFilterUser() == alleBenutzer;
}

// Opens the editor on the value of `row` in the grid column: found by the key's description, from
// there by the circle's caption, from there by the value itself.
void editValue(HostContext& context, std::int32_t row, std::int16_t gridColumn) {
  const XArray& table = context.XArray();
  TreeGrid& grid = context.sftNummernkreise();
  std::int32_t item = grid.FindString(0, captionColumn, table.toText(row, column::NBezeichnung));
  if (item < 0) return;
  item = grid.FindString(item, captionColumn, table.toText(row, column::Gruppe));
  if (item < 0) return;
  item = grid.FindString(item, gridColumn, table.toText(row, gridColumn + gridToTable));
  grid.StartEdit(item, gridColumn);
}

void showDefect(HostContext& context, const RangeDefect& defect, bool& viewReset,
                GridRefill SyncDataWithControl) {
  if (!showsEverything(context)) {
    ignoringFailures([&] { SyncDataWithControl(context, alleBuchungskreise, alleBenutzer); });
    viewReset = true;
  }
  // An overlap of two keys is shown at the earlier of the two ranges, any other at the later one.
  const std::int32_t target =
      defect.rule == BrokenRule::OverlapsOtherKey ? defect.otherRow : defect.row;
  ignoringFailures([&] { editValue(context, target, errorColumn(defect.rule)); });
}

}  // namespace

bool CheckValidity(HostContext& context, bool& viewReset, GridRefill SyncDataWithControl) {
  bool valid = false;
  reportingFailures(context, {moduleName, "CheckValidity"}, [&] {
    XArray& table = context.XArray();
    sortRows(table, displayOrder);
    valid = true;
    const auto defect = firstDefect(table);
    if (!defect) return;
    MsgBoxEx(context, message(table, *defect), msg_box::okOnly, "Info");
    valid = false;
    showDefect(context, *defect, viewReset, SyncDataWithControl);
  });
  return valid;
}

}  // namespace vexnumkr::basAllgemein
