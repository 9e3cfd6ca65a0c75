#include "dialogs/main/tree.h"

#include "data/booking_circles.h"
#include "data/range_table.h"
#include "data/table/columns.h"
#include "hosting/reporting.h"
#include "rules/activity.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr GridColour paleGrey = 0xF0F0F0;

// Keeps the grid from painting and laying out while its items change.
class GridUpdate {
 public:
  explicit GridUpdate(TreeGrid& grid) : grid_(grid) { grid_.BeginUpdate(); }
  GridUpdate(const GridUpdate&) = delete;
  GridUpdate& operator=(const GridUpdate&) = delete;
  ~GridUpdate() {
    ignoringFailures([this] { grid_.EndUpdate(); });
  }

 private:
  TreeGrid& grid_;
};

void styleGroup(TreeGrid& grid, std::int32_t index, std::int32_t application) {
  if (application == 1) {
    grid.CellBackColor(index, grid_column::Beschreibung, toolTipBackground);
  } else if (application == 2) {
    grid.CellFontBold(index, grid_column::Beschreibung, true);
    grid.CellBackColor(index, grid_column::Beschreibung, paleGrey);
  }
}

PictureHandle statePicture(const StatePictures& pictures, bool commonView, bool active) {
  if (commonView) return active ? pictures.Checked : pictures.Unchecked;
  return active ? pictures.ValueTrue : pictures.ValueFalse;
}

void addPlaceholder(HostContext& context) {
  TreeGrid& grid = context.sftNummernkreise();
  const std::int32_t index = grid.AddItem("");
  grid.ItemLevel(index, 1);
  grid.List(index, grid_column::Beschreibung, "keine Zuordnung vorhanden");
  grid.List(index, grid_column::Type, groupType);
  grid.ItemPicture(index, context.pictures().NotFound);
}

RangeItem rangeItemAt(const XArray& table, std::int32_t row) {
  RangeItem range;
  range.Gruppe = table.toText(row, column::Gruppe);
  range.StartWert = table.toLong(row, column::StartWert);
  range.EndWert = table.toLong(row, column::EndWert);
  range.AktuellerWert = table.toLong(row, column::AktuellerWert);
  range.Buchungskreis = table.toLong(row, column::Buchungskreis);
  range.Aktiviert = table.toBoolean(row, column::Aktiviert);
  range.NSchl = table.toText(row, column::NSchl);
  range.NBezeichnung = table.toText(row, column::NBezeichnung);
  range.SortierIndex = table.toLong(row, column::SortierIndex);
  range.IstNSchlVon = table.toText(row, column::IstNSchlVon);
  range.Maske = table.toText(row, column::Maske);
  return range;
}

// What the grid is being built for.
struct View {
  const std::string& filter;
  const std::string& user;

  bool isCommon() const { return user == alleBenutzer; }
  bool showsAllCircles() const { return filter == alleBuchungskreise; }
  bool showsActiveCircles() const { return filter == aktiveBuchungskreise; }
  bool showsOneCircle() const { return !showsAllCircles() && !showsActiveCircles(); }
};

bool userLacksRange(HostContext& context, const View& view, const std::string& key) {
  const Value circle = LookupBuchungskreis(context, circle_column::Buchungskreis, view.filter);
  return FoundInXArray(context, view.user, circle.toLong(), key) == -1;
}

void addKey(HostContext& context, const View& view, std::int32_t row) {
  const XArray& table = context.XArray();
  const std::string key = table.toText(row, column::NSchl);
  AddGroup(context, key, table.toText(row, column::NBezeichnung), key,
           table.toText(row, column::IstNSchlVon));
  if (view.showsOneCircle() && !view.isCommon() && userLacksRange(context, view, key))
    addPlaceholder(context);
}

bool isShown(const XArray& table, std::int32_t row, const View& view) {
  if (view.showsAllCircles()) return true;
  if (view.showsActiveCircles()) return table.toBoolean(row, column::Aktiviert);
  return table.equals(row, column::Gruppe, view.filter);
}

void addItems(HostContext& context, const View& view) {
  const XArray& table = context.XArray();
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row) {
    if (!table.equals(row, column::Benutzer, view.user)) continue;
    if (table.toLong(row, column::Buchungskreis) == 0) addKey(context, view, row);
    if (isShown(table, row, view)) AddBuchungskreis(context, rangeItemAt(table, row), view.user);
  }
}

std::int32_t circleOf(const TreeGrid& grid, std::int32_t index) {
  return textToLong(grid.List(index, grid_column::Buchungskreis));
}

// Shows the item's new state and writes it into the range table.
void setActive(HostContext& context, std::int32_t index, const std::string& user,
               PictureHandle picture, bool active) {
  TreeGrid& grid = context.sftNummernkreise();
  grid.ItemPicture(index, picture);
  SetValue(context, grid.List(index, grid_column::NSchl),
           grid.List(index, grid_column::Beschreibung), user, column::Aktiviert, active);
}

void untick(HostContext& context, std::int32_t index, const std::string& user) {
  const TreeGrid& grid = context.sftNummernkreise();
  if (user == alleBenutzer)
    DeleteInXArray(context, circleOf(grid, index), grid.List(index, grid_column::NSchl), false);
  setActive(context, index, user, context.pictures().Unchecked, false);
}

NewRange rangeOf(const TreeGrid& grid, std::int32_t index) {
  NewRange range;
  range.Buchungskreis = circleOf(grid, index);
  range.Gruppe = grid.List(index, grid_column::Beschreibung);
  range.NSchl = grid.List(index, grid_column::NSchl);
  range.NBezeichnung = grid.List(index, grid_column::NBezeichnung);
  range.StartWert = grid.List(index, grid_column::Start);
  range.AktuellerWert = grid.List(index, grid_column::Aktuell);
  range.EndWert = grid.List(index, grid_column::Ende);
  range.SortierIndex = textToLong(grid.List(index, grid_column::SortierIndex));
  range.IstNSchlVon = grid.List(index, grid_column::IstNSchlVon);
  return range;
}

void tick(HostContext& context, std::int32_t index, const std::string& user) {
  if (user == alleBenutzer)
    AddInXArray(context, user, rangeOf(context.sftNummernkreise(), index), false);
  setActive(context, index, user, context.pictures().Checked, true);
}

void deselect(HostContext& context, std::int32_t index, const std::string& user) {
  setActive(context, index, user, context.pictures().ValueFalse, false);
}

}  // namespace

void SyncDataWithControl(HostContext& context, const std::string& filter, const std::string& user) {
  reportingFailures(context, {moduleName, "SyncDataWithControl"}, [&] {
    TreeGrid& grid = context.sftNummernkreise();
    const GridUpdate update(grid);
    const std::int32_t current = grid.ListIndex();
    grid.Clear();
    grid.AcceptsEntries(user == alleBenutzer);
    grid.AcceptsChoices(filter == alleBuchungskreise);
    addItems(context, View{filter, user});
    grid.ListIndex(current);
  });
}

void AddGroup(HostContext& context, const std::string& NSchl, const std::string& NBezeichnung,
              const std::string& NSchl2, const std::string& IstNSchlVon) {
  reportingFailures(context, {moduleName, "AddGroup"}, [&] {
    TreeGrid& grid = context.sftNummernkreise();
    const std::int32_t index = grid.AddItem("");
    styleGroup(grid, index, context.LngApplication());
    grid.List(index, grid_column::Beschreibung, NBezeichnung + " (" + NSchl + ")");
    grid.List(index, grid_column::Buchungskreis, 0);
    grid.List(index, grid_column::NSchl, NSchl2);
    grid.List(index, grid_column::Type, groupType);
    grid.List(index, grid_column::IstNSchlVon, IstNSchlVon);
  });
}

void AddBuchungskreis(HostContext& context, const RangeItem& range, const std::string& user) {
  reportingFailures(context, {moduleName, "AddBuchungskreis"}, [&] {
    TreeGrid& grid = context.sftNummernkreise();
    const std::int32_t index = grid.AddItem("");
    grid.ItemLevel(index, 1);
    grid.List(index, grid_column::Beschreibung, range.Gruppe);
    grid.List(index, grid_column::Start, range.StartWert);
    grid.List(index, grid_column::Ende, range.EndWert);
    grid.List(index, grid_column::Aktuell, range.AktuellerWert);
    // A blank keeps the cell from being empty.
    grid.List(index, grid_column::Maske, trimBlanks(range.Maske).empty() ? " " : range.Maske);
    grid.List(index, grid_column::Buchungskreis, range.Buchungskreis);
    grid.List(index, grid_column::NSchl, range.NSchl);
    grid.List(index, grid_column::NBezeichnung, range.NBezeichnung);
    grid.List(index, grid_column::SortierIndex, range.SortierIndex);
    grid.List(index, grid_column::Type, rangeType);
    grid.List(index, grid_column::IstNSchlVon, range.IstNSchlVon);
    grid.ItemPicture(index,
                     statePicture(context.pictures(), user == alleBenutzer, range.Aktiviert));
  });
}

void CheckBoxHandling(HostContext& context, std::int32_t index, const std::string& user,
                      const std::string& filter) {
  reportingFailures(context, {moduleName, "CheckBoxHandling"}, [&] {
    const TreeGrid& grid = context.sftNummernkreise();
    // The standard range is always active for everybody.
    if (user == alleBenutzer && circleOf(grid, index) == 0) return;
    const PictureHandle picture = grid.ItemPicture(index);
    if (picture == context.pictures().Checked) {
      untick(context, index, user);
    } else if (picture == context.pictures().Unchecked) {
      tick(context, index, user);
    } else if (picture == context.pictures().ValueFalse && filter == alleBuchungskreise) {
      // Under another filter the sibling that would have to be switched off may be out of sight.
      SetRadioButton(context, index, user);
    }
    context.blnChanged(true);
    CheckActivity(context);
  });
}

void SetRadioButton(HostContext& context, std::int32_t index, const std::string& user) {
  reportingFailures(context, {moduleName, "SetRadioButton"}, [&] {
    const TreeGrid& grid = context.sftNummernkreise();
    for (std::int32_t above = index - 1; above >= 0 && isRange(grid, above); --above)
      deselect(context, above, user);
    for (std::int32_t below = index + 1; below < grid.ListCount() && isRange(grid, below); ++below)
      deselect(context, below, user);
    setActive(context, index, user, context.pictures().ValueTrue, true);
  });
}

}  // namespace vexnumkr::basAllgemein
