#include "adapters/qtgrid/accessible/header_accessible.h"

#include <QHeaderView>

namespace vexnumkr {

bool HeaderAccessible::isValid() const {
  return grid().isValid() && section_ < model().columnCount();
}

QAccessible::State HeaderAccessible::state() const {
  QAccessible::State state;
  state.invalid = !isValid();
  state.readOnly = true;
  return state;
}

QString HeaderAccessible::text(QAccessible::Text kind) const {
  return isValid() && kind == QAccessible::Name ? grid().columnDescription(section_) : QString();
}

QRect HeaderAccessible::rect() const {
  if (!isValid()) return {};
  const QHeaderView& header = *view().header();
  const QPoint left(header.sectionViewportPosition(section_), 0);
  return {header.viewport()->mapToGlobal(left),
          QSize(header.sectionSize(section_), header.height())};
}

}  // namespace vexnumkr
