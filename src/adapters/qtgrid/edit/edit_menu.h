// The context menu of a cell's editor, in German whatever translations the host has installed.
#pragma once

class QPoint;

namespace vexnumkr {

class CellEditor;

/// Opens a menu with the usual commands on the text of `edit`, those enabled that can do something
/// now. The menu is a child of `edit` and goes when it is closed. `position` is on the screen.
void openEditMenu(CellEditor& edit, const QPoint& position);

}  // namespace vexnumkr
