#include "dialogs/main/cell_editing.h"

#include "data/table/common_names.h"
#include "dialogs/main/grid_columns.h"

namespace vexnumkr {
namespace {

// One group item is jumped over; two in a row are not.
std::int32_t step(const TreeGrid& grid, std::int32_t neighbour) {
  const bool exists = neighbour >= 0 && neighbour < grid.ListCount();
  return exists && isGroup(grid, neighbour) ? 2 : 1;
}

std::int32_t firstRange(const TreeGrid& grid) {
  for (std::int32_t index = 0; index < grid.ListCount(); ++index)
    if (isRange(grid, index)) return index;
  return -1;
}

EditorMove forward(const TreeGrid& grid, std::int32_t index, std::int16_t column,
                   std::int16_t lastColumn) {
  if (column == lastColumn && index == grid.ListCount() - 1)
    return {true, firstRange(grid), grid_column::Start};
  if (index >= grid.ListCount() - 1 && column >= lastColumn) return {};
  if (column >= lastColumn) return {true, index + step(grid, index + 1), grid_column::Start};
  return {true, index, static_cast<std::int16_t>(column + 1)};
}

EditorMove backward(const TreeGrid& grid, std::int32_t index, std::int16_t column,
                    std::int16_t lastColumn) {
  const std::int32_t stepUp = step(grid, index - 1);
  if (index == 1 && column == grid_column::Start) index = grid.ListCount() + 1;
  if (index < 2 && column < grid_column::Aktuell) return {};
  if (column < grid_column::Aktuell) return {true, index - stepUp, lastColumn};
  return {true, index, static_cast<std::int16_t>(column - 1)};
}

// REQUIRES: the text is a number.
bool fitsItsCell(const std::string& text) {
  try {
    static_cast<void>(textToLong(text));
    return true;
  } catch (const Error&) {  // it is too large
    return false;
  }
}

}  // namespace

EditorMove editorMove(const TreeGrid& grid, std::int16_t key, std::int16_t shift,
                      std::int32_t index, std::int16_t column) {
  const bool arrow = key == key_code::left || key == key_code::right;
  const bool ctrl = shift == key_shift::ctrl;
  const std::int16_t lastColumn = arrow && ctrl ? grid_column::Maske : grid_column::Ende;
  const bool isForward = key == key_code::enter ||
                         (key == key_code::tab && shift == key_shift::none) ||
                         (key == key_code::right && ctrl);
  const bool isBackward =
      (key == key_code::tab && shift == key_shift::shift) || (key == key_code::left && ctrl);
  if (isForward) return forward(grid, index, column, lastColumn);
  if (isBackward) return backward(grid, index, column, lastColumn);
  return {};
}

std::string maskToolTip(const std::string& date) {
  const std::string lastDigitOfYear(characterAt(date, 3));
  return "Maske nach der die Belegnummern\r\n"
         "automatisch vorbelegt werden können.\r\n"
         "Gültige Eingaben sind:\r\n"
         "M=Monat, J=Jahr, %=Jahresstelle überspringen\r\n"
         "(z. B. J%%J --> 2" +
         lastDigitOfYear +
         "), N=numerische Stelle\r\n"
         "und numerische Werte (von 0 bis 9).\r\n"
         "Alphanumerische Eingaben werden ignoriert.";
}

namespace basAllgemein {

void CellEditing(TreeGrid& grid, Reporter& reporter, std::int32_t index, std::int16_t column,
                 const std::string& user, bool allowed) {
  reportingFailures(reporter, {generalModule, "CellEditing"}, [&] {
    if (user != alleBenutzer || !allowed) return;
    if (index < 0 || index >= grid.ListCount()) return;
    grid.ListIndex(index);
    grid.Selected(index, true);
    grid.ItemEditFont(grid.CellFont(index, column));
    if (column >= grid_column::Start && column < grid_column::Buchungskreis)
      grid.StartEdit(index, column);
  });
}

bool CheckValue(Boxes& boxes, Reporter& reporter, const std::string& text) {
  bool numeric = true;
  reportingFailures(reporter, {generalModule, "CheckValue"}, [&] {
    if (isNumber(text) && fitsItsCell(text)) return;
    numeric = false;
    boxes.MsgBoxEx(isNumber(text)
                       ? "Bitte geben Sie eine Zahl zwischen -2147483648 und 2147483647 ein."
                       : "Bitte geben Sie einen numerischen Wert ein.",
                   msg_box::okOnly, "Info");
  });
  return numeric;
}

}  // namespace basAllgemein
}  // namespace vexnumkr
