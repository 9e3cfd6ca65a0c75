#include "adapters/qtgrid/accessible/grid_part.h"

#include "adapters/qt/assistive_action.h"

namespace vexnumkr {

// Without the blanks that keep a cell from being empty.
QString GridPart::textOf(int item, int section) const {
  return model().indexOf(item, section).data().toString().trimmed();
}

QRect GridPart::onScreen(const QRect& area) const {
  if (area.isEmpty()) return {};
  return {view().viewport()->mapToGlobal(area.topLeft()), area.size()};
}

bool GridPart::takesActions() const { return takesAssistiveActions(view()); }

void GridPart::click(int item, int section, GridArea area, bool onArrow) const {
  view().click({item, model().columnOf(section), area, onArrow});
}

}  // namespace vexnumkr
