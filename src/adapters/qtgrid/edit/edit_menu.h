// The context menu of a line edit, in German whatever translations the host has installed.
#pragma once

class QLineEdit;
class QPoint;

namespace vexnumkr {

/// Opens a menu with the usual commands on the text of `edit`, those enabled that can do something
/// now. The menu is a child of `edit` and goes when it is closed. `position` is on the screen.
void openEditMenu(QLineEdit& edit, const QPoint& position);

}  // namespace vexnumkr
