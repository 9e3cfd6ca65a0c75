#include "dialogs/main/tree.h"

#include "data/range_table.h"
#include "rules/activity.h"

namespace vexnumkr {
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

// Errors 6 and 13 for what is no number.
ShownValues shownValues(const RangeRow& range) {
  return {range.StartWert.toLong(), range.AktuellerWert.toLong(), range.EndWert.toLong(),
          range.Maske.toText()};
}

bool isShown(const RangeRow& range, const View& view) {
  if (view.showsAllCircles()) return true;
  if (view.showsActiveCircles()) return range.Aktiviert;
  return range.Gruppe == view.filter;
}

}  // namespace

void Tree::SyncDataWithControl(const View& view) {
  reporting("SyncDataWithControl", [&] {
    const GridUpdate update(grid_);
    const std::int32_t current = grid_.ListIndex();
    grid_.Clear();
    grid_.AcceptsEntries(view.isCommon());
    grid_.AcceptsChoices(view.showsAllCircles());
    addItems(view);
    grid_.ListIndex(current);
  });
}

void Tree::addItems(const View& view) {
  for (const RangeRow& range : session_.XArray()) {
    if (range.Benutzer != view.user) continue;
    if (range.isStandard()) addKey(range, view);
    if (isShown(range, view)) AddBuchungskreis(range, shownValues(range), view);
  }
}

void Tree::addKey(const RangeRow& range, const View& view) {
  AddGroup(range);
  if (view.showsOneCircle() && !view.isCommon() && userLacksRange(view, range.NSchl.str()))
    addPlaceholder();
}

bool Tree::userLacksRange(const View& view, const std::string& key) {
  const auto circle = basAllgemein::LookupBuchungskreis(session_.Buchungskreise(),
                                                        session_.reporter(), view.filter);
  return basAllgemein::FoundInXArray(session_.XArray(), session_.reporter(), view.user,
                                     circle.value_or(-1), key) == -1;
}

void Tree::addPlaceholder() {
  const std::int32_t index = grid_.AddItem("");
  grid_.ItemLevel(index, 1);
  grid_.List(index, grid_column::Beschreibung, "keine Zuordnung vorhanden");
  grid_.List(index, grid_column::Type, groupType);
  grid_.ItemPicture(index, pictures_.NotFound);
}

// Adds a group item. Its look depends on the application.
void Tree::AddGroup(const RangeRow& range) {
  reporting("AddGroup", [&] {
    const std::int32_t index = grid_.AddItem("");
    styleGroup(grid_, index, session_.LngApplication());
    grid_.List(index, grid_column::Beschreibung,
               range.NBezeichnung.str() + " (" + range.NSchl.str() + ")");
    grid_.List(index, grid_column::Buchungskreis, 0);
    grid_.List(index, grid_column::NSchl, range.NSchl.str());
    grid_.List(index, grid_column::Type, groupType);
    grid_.List(index, grid_column::IstNSchlVon, range.IstNSchlVon.str());
  });
}

PictureHandle Tree::statePicture(const View& view, bool active) const {
  if (view.isCommon()) return active ? pictures_.Checked : pictures_.Unchecked;
  return active ? pictures_.ValueTrue : pictures_.ValueFalse;
}

void Tree::AddBuchungskreis(const RangeRow& range, const ShownValues& values, const View& view) {
  reporting("AddBuchungskreis", [&] {
    const std::int32_t index = grid_.AddItem("");
    grid_.ItemLevel(index, 1);
    grid_.List(index, grid_column::Beschreibung, range.Gruppe.str());
    grid_.List(index, grid_column::Start, values.StartWert);
    grid_.List(index, grid_column::Ende, values.EndWert);
    grid_.List(index, grid_column::Aktuell, values.AktuellerWert);
    // A blank keeps the cell from being empty.
    grid_.List(index, grid_column::Maske, trimBlanks(values.Maske).empty() ? " " : values.Maske);
    grid_.List(index, grid_column::Buchungskreis, range.Buchungskreis);
    grid_.List(index, grid_column::NSchl, range.NSchl.str());
    grid_.List(index, grid_column::NBezeichnung, range.NBezeichnung.str());
    grid_.List(index, grid_column::SortierIndex, range.SortierIndex);
    grid_.List(index, grid_column::Type, rangeType);
    grid_.List(index, grid_column::IstNSchlVon, range.IstNSchlVon.str());
    grid_.ItemPicture(index, statePicture(view, range.Aktiviert));
  });
}

void Tree::CheckBoxHandling(std::int32_t index, const View& view) {
  reporting("CheckBoxHandling", [&] {
    // The standard range is always active for everybody.
    if (view.isCommon() && circleOf(index) == 0) return;
    const PictureHandle picture = grid_.ItemPicture(index);
    if (picture == pictures_.Checked) {
      untick(index, view.user);
    } else if (picture == pictures_.Unchecked) {
      tick(index, view.user);
    } else if (picture == pictures_.ValueFalse && view.showsAllCircles()) {
      // Under another filter the sibling that would have to be switched off may be out of sight.
      SetRadioButton(index, view.user);
    }
    session_.blnChanged(true);
    const RangeData data = session_.data();
    basAllgemein::CheckActivity(data.table, data.users, session_.reporter());
  });
}

std::int32_t Tree::circleOf(std::int32_t index) const {
  return textToLong(grid_.List(index, grid_column::Buchungskreis));
}

// Shows the item's new state and writes it into the range table.
void Tree::setActive(std::int32_t index, const std::string& user, PictureHandle picture,
                     bool active) {
  grid_.ItemPicture(index, picture);
  basAllgemein::SetValue(session_.XArray(), session_.reporter(),
                         grid_.List(index, grid_column::NSchl),
                         grid_.List(index, grid_column::Beschreibung), user, active);
}

void Tree::untick(std::int32_t index, const std::string& user) {
  const RangeData data = session_.data();
  if (user == alleBenutzer &&
      basAllgemein::DeleteInXArray(data.table, data.users, session_.reporter(), circleOf(index),
                                   grid_.List(index, grid_column::NSchl), false))
    session_.blnChanged(true);
  setActive(index, user, pictures_.Unchecked, false);
}

void Tree::tick(std::int32_t index, const std::string& user) {
  const RangeData data = session_.data();
  if (user == alleBenutzer)
    basAllgemein::AddInXArray(data.table, data.users, session_.reporter(), rangeOf(index), false);
  setActive(index, user, pictures_.Checked, true);
}

// The common range of an item, with the values as they are shown.
RangeRow Tree::rangeOf(std::int32_t index) {
  const auto text = [&](std::int16_t column) {
    return session_.XArray().text(grid_.List(index, column));
  };
  RangeRow range;
  range.Benutzer = session_.XArray().text(alleBenutzer);
  range.Buchungskreis = circleOf(index);
  range.Gruppe = text(grid_column::Beschreibung);
  range.NSchl = text(grid_column::NSchl);
  range.NBezeichnung = text(grid_column::NBezeichnung);
  range.StartWert = text(grid_column::Start);
  range.AktuellerWert = text(grid_column::Aktuell);
  range.EndWert = text(grid_column::Ende);
  range.SortierIndex = textToLong(grid_.List(index, grid_column::SortierIndex));
  range.IstNSchlVon = text(grid_column::IstNSchlVon);
  return range;
}

// Makes the item the user's only active range among the ranges of its group.
void Tree::SetRadioButton(std::int32_t index, const std::string& user) {
  reporting("SetRadioButton", [&] {
    const auto deselect = [&](std::int32_t sibling) {
      setActive(sibling, user, pictures_.ValueFalse, false);
    };
    for (std::int32_t above = index - 1; above >= 0 && isRange(grid_, above); --above)
      deselect(above);
    for (std::int32_t below = index + 1; below < grid_.ListCount() && isRange(grid_, below);
         ++below)
      deselect(below);
    setActive(index, user, pictures_.ValueTrue, true);
  });
}

}  // namespace vexnumkr
