#include "adapters/qtforms/controls/pending_edits.h"

#include <QScopedValueRollback>
#include <QWidget>
#include <algorithm>

#include "adapters/qt/guarded.h"
#include "adapters/qtgrid/qt_tree_grid.h"

namespace vexnumkr::qtforms {
namespace {

bool endEdit(QtTreeGrid& grid, bool keepText) {
  bool ended = false;
  guarded("EndEdit", [&] { ended = grid.EndEdit(keepText); });
  return ended || !grid.isEditing();
}

}  // namespace

void PendingEdits::watch(QtTreeGrid& grid) { grids_.push_back(&grid); }

bool PendingEdits::areOpen() const {
  return std::any_of(grids_.begin(), grids_.end(),
                     [](const QtTreeGrid* grid) { return grid->isEditing(); });
}

bool PendingEdits::settle(bool keepText) {
  // An edit that is just being ended, its message box still up, does not let anything else through.
  if (settling_) return false;
  const QScopedValueRollback<bool> settling(settling_, true);
  for (QtTreeGrid* grid : grids_) {
    if (!grid->isEditing() || endEdit(*grid, keepText)) continue;
    if (QWidget* widget = grid->widget()) widget->setFocus(Qt::OtherFocusReason);
    return false;
  }
  return true;
}

}  // namespace vexnumkr::qtforms
