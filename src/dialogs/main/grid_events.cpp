// What the main dialog does about clicks, keys and edits in its grid.
#include <limits>

#include "data/range_table.h"
#include "dialogs/main/cell_editing.h"
#include "dialogs/main/frmNummernkreise.h"

namespace vexnumkr {
namespace {

constexpr std::int16_t leftButton = 1;

// The host applications address the current item with 16 bits.
std::int32_t currentItem(const TreeGrid& grid) {
  const std::int32_t index = grid.ListIndex();
  if (index > std::numeric_limits<std::int16_t>::max()) throw Error::overflow();
  return index;
}

}  // namespace

void frmNummernkreise::ItemClick(std::int32_t index, std::int16_t column, GridArea area,
                                 std::int16_t button) {
  onInput("sftNummernkreise_ItemClick", [&] {
    if (button != leftButton) return;
    if (area == GridArea::Picture && !isGroup(sftNummernkreise_, index))
      tree_.CheckBoxHandling(index, shownView());
    if (area == GridArea::Cell)
      basAllgemein::CellEditing(sftNummernkreise_, session_.reporter(), index, column,
                                cboUser_.Text(), true);
  });
}

void frmNummernkreise::KeyDown(std::int16_t key) {
  onInput("sftNummernkreise_KeyDown", [&] {
    if (key != key_code::space && key != key_code::f2) return;
    const std::int32_t index = currentItem(sftNummernkreise_);
    if (index < 0 || isGroup(sftNummernkreise_, index)) return;
    if (key == key_code::space)
      tree_.CheckBoxHandling(index, shownView());
    else
      basAllgemein::CellEditing(sftNummernkreise_, session_.reporter(), index, grid_column::Start,
                                cboUser_.Text(), true);
  });
}

void frmNummernkreise::CEKeyDown(std::int16_t& key, std::int16_t shift, std::int32_t index,
                                 std::int16_t column) {
  onInput("sftNummernkreise_CEKeyDown", [&] {
    const EditorMove move = editorMove(sftNummernkreise_, key, shift, index, column);
    if (!move.moves) return;
    key = 0;
    const bool ended = sftNummernkreise_.EndEdit(true);
    basAllgemein::CellEditing(sftNummernkreise_, session_.reporter(), move.index, move.column,
                              cboUser_.Text(), ended);
  });
}

void frmNummernkreise::AfterEdit(std::int32_t index, std::int16_t column, bool& cancel,
                                 std::string& text) {
  cancel = session_.progress().isWorking();
  onInput("sftNummernkreise_AfterEdit", [&] {
    const bool numeric = column >= grid_column::Start && column < grid_column::Maske;
    if (numeric &&
        (!basAllgemein::CheckValue(session_.boxes(), session_.reporter(), text) || text.empty())) {
      cancel = true;
      return;
    }
    if (text != currentText(index, column)) session_.blnChanged(true);
    storeValue(index, column, text);
    if (isGroup(sftNummernkreise_, index)) text.clear();
  });
}

// What a cell holds before the entry; those of a group stand for its standard range.
std::string frmNummernkreise::currentText(std::int32_t index, std::int16_t column) {
  if (!isGroup(sftNummernkreise_, index)) return sftNummernkreise_.List(index, column);
  const XArray& table = session_.XArray();
  const std::int32_t row =
      table.findRange(alleBenutzer, 0, sftNummernkreise_.List(index, grid_column::NSchl));
  return (table.at(row).*valueShownIn(column)).toText();
}

// Writes an entry into the range table, for every user.
void frmNummernkreise::storeValue(std::int32_t index, std::int16_t column, std::string& text) {
  if (column < grid_column::Start || column > grid_column::Maske) return;
  const bool isMask = column == grid_column::Maske;
  // A blank keeps the cell from being empty.
  if (isMask && text.empty()) text = " ";
  writeValue(index, column, isMask ? std::string(trimBlanks(text)) : text);
  showInStandardItem(index, column, text);
  if (column == grid_column::Start) dragCurrentValue(index, text);
}

// Raising the start raises a current value that it passes; lowering it changes nothing else.
void frmNummernkreise::dragCurrentValue(std::int32_t index, const std::string& text) {
  if (textToLong(currentText(index, grid_column::Aktuell)) >= textToLong(text)) return;
  if (!isGroup(sftNummernkreise_, index)) sftNummernkreise_.List(index, grid_column::Aktuell, text);
  writeValue(index, grid_column::Aktuell, text);
  showInStandardItem(index, grid_column::Aktuell, text);
}

// An entry into a group's cell shows in the item of its standard range, where there is one.
void frmNummernkreise::showInStandardItem(std::int32_t index, std::int16_t column,
                                          const std::string& text) {
  if (!isGroup(sftNummernkreise_, index)) return;
  for (std::int32_t item = index + 1;
       item < sftNummernkreise_.ListCount() && isRange(sftNummernkreise_, item); ++item)
    if (sftNummernkreise_.List(item, grid_column::Buchungskreis) == "0")
      sftNummernkreise_.List(item, column, text);
}

void frmNummernkreise::writeValue(std::int32_t index, std::int16_t column,
                                  const std::string& text) {
  const RangeData data = session_.data();
  basAllgemein::SetValueAll(data.table, data.users, session_.reporter(),
                            sftNummernkreise_.List(index, grid_column::NSchl),
                            textToLong(sftNummernkreise_.List(index, grid_column::Buchungskreis)),
                            valueShownIn(column), text);
}

// A hint that cannot be given is no failure of what the user does.
void frmNummernkreise::DescribeCell(std::int32_t index, std::int16_t column, CellNote& note) {
  ignoringFailures([&] { note = notes_.ofCell(index, column, view_.user); });
}

void frmNummernkreise::CEChange(std::int32_t index, std::int16_t column, const std::string& text,
                                EntryNote& note) {
  ignoringFailures([&] { note = notes_.ofEntry(index, column, text); });
}

void frmNummernkreise::ToolTipText(std::int16_t column, std::string& text) {
  if (column == grid_column::Maske) text = maskToolTip(session_.strVerarbeitungsdatum());
}

}  // namespace vexnumkr
