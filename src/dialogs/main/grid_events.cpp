// What the main dialog does about clicks, keys and edits in its grid.
#include <limits>

#include "data/range_table.h"
#include "data/table/columns.h"
#include "dialogs/main/cell_editing.h"
#include "dialogs/main/frmNummernkreise.h"
#include "dialogs/main/tree.h"

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
      basAllgemein::CheckBoxHandling(context_, index, cboUser_.Text(), cboBuchungskreis_.Text());
    if (area == GridArea::Cell)
      basAllgemein::CellEditing(context_, index, column, cboUser_.Text(), true);
  });
}

void frmNummernkreise::KeyDown(std::int16_t key) {
  onInput("sftNummernkreise_KeyDown", [&] {
    if (key != key_code::space && key != key_code::f2) return;
    const std::int32_t index = currentItem(sftNummernkreise_);
    if (index < 0 || isGroup(sftNummernkreise_, index)) return;
    if (key == key_code::space)
      basAllgemein::CheckBoxHandling(context_, index, cboUser_.Text(), cboBuchungskreis_.Text());
    else
      basAllgemein::CellEditing(context_, index, grid_column::Start, cboUser_.Text(), true);
  });
}

void frmNummernkreise::CEKeyDown(std::int16_t& key, std::int16_t shift, std::int32_t index,
                                 std::int16_t column) {
  onInput("sftNummernkreise_CEKeyDown", [&] {
    const EditorMove move = editorMove(sftNummernkreise_, key, shift, index, column);
    if (!move.moves) return;
    key = 0;
    const bool ended = sftNummernkreise_.EndEdit(true);
    basAllgemein::CellEditing(context_, move.index, move.column, cboUser_.Text(), ended);
  });
}

void frmNummernkreise::AfterEdit(std::int32_t index, std::int16_t column, bool& cancel,
                                 std::string& text) {
  cancel = context_.progress().isWorking();
  onInput("sftNummernkreise_AfterEdit", [&] {
    const bool numeric = column >= grid_column::Start && column < grid_column::Maske;
    if (numeric && (!basAllgemein::CheckValue(context_, text) || text.empty())) {
      cancel = true;
      return;
    }
    if (text != sftNummernkreise_.List(index, column)) context_.blnChanged(true);
    storeValue(index, column, text);
  });
}

// Writes an entry into the range table, for every user.
void frmNummernkreise::storeValue(std::int32_t index, std::int16_t column, std::string& text) {
  using basAllgemein::SetValueAll;
  const std::string key = sftNummernkreise_.List(index, grid_column::NSchl);
  const std::int32_t circle = textToLong(sftNummernkreise_.List(index, grid_column::Buchungskreis));
  if (column == grid_column::Start) {
    SetValueAll(context_, key, circle, column::StartWert, text);
    dragCurrentValue(index, circle, key, text);
  } else if (column == grid_column::Aktuell) {
    SetValueAll(context_, key, circle, column::AktuellerWert, text);
  } else if (column == grid_column::Ende) {
    SetValueAll(context_, key, circle, column::EndWert, text);
  } else if (column == grid_column::Maske) {
    if (text.empty()) text = " ";
    SetValueAll(context_, key, circle, column::Maske, trimBlanks(text));
  }
}

// Raising the start raises a current value that it passes; lowering it changes nothing else.
void frmNummernkreise::dragCurrentValue(std::int32_t index, std::int32_t circle,
                                        const std::string& key, const std::string& text) {
  const std::string current = sftNummernkreise_.List(index, grid_column::Aktuell);
  if (textToLong(current) >= textToLong(text)) return;
  sftNummernkreise_.List(index, grid_column::Aktuell, text);
  basAllgemein::SetValueAll(context_, key, circle, column::AktuellerWert, text);
}

void frmNummernkreise::ToolTipText(std::int16_t column, std::string& text) {
  if (column == grid_column::Maske) text = maskToolTip(context_.strVerarbeitungsdatum());
}

}  // namespace vexnumkr
