// Editing the ranges' values in the grid.
#pragma once

#include <cstdint>
#include <string>

#include "hosting/boxes.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

/// Where the editor goes from one cell, or nowhere.
struct EditorMove {
  bool moves = false;
  std::int32_t index = -1;  ///< -1 with `moves`: the edit just ends
  std::int16_t column = 0;
};

/// The move that a key asks for: forward with Enter, Tab and Ctrl+Right, backward with Shift+Tab
/// and Ctrl+Left, from "Start" to "Ende" (with Ctrl to "Maske") and over a group item on to the
/// next range, around at both ends.
EditorMove editorMove(const TreeGrid& grid, std::int16_t key, std::int16_t shift,
                      std::int32_t index, std::int16_t column);

/// The tool tip of the mask column; its example is for the year of `date` ("yyyymmdd").
std::string maskToolTip(const std::string& date);

namespace basAllgemein {

/// Makes the item current and opens the editor in its cell, in the common view and for the columns
/// "Start" to "Maske" only. Does nothing unless `allowed`, and for an item outside the list.
/// Failures are reported.
void CellEditing(TreeGrid& grid, Reporter& reporter, std::int32_t index, std::int16_t column,
                 const std::string& user, bool allowed);

/// Whether an entry is a number of 32 bits, when rounded; if it is not, the user is told. True
/// after a failure, which is reported.
bool CheckValue(Boxes& boxes, Reporter& reporter, const std::string& text);

}  // namespace basAllgemein
}  // namespace vexnumkr
