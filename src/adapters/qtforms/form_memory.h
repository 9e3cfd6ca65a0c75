// What users have made of the windows, from one opening to the next.
#pragma once

#include <QSettings>
#include <QSize>
#include <QString>

#include "adapters/qtgrid/qt_tree_grid.h"

namespace vexnumkr::qtforms {

/// Sizes of windows and looks of grids by the names of forms and controls, in a file of the user's.
/// What cannot be read is as if it had never been kept, what cannot be written is forgotten.
class FormMemory {
 public:
  /// An empty name: nothing is kept.
  explicit FormMemory(const QString& fileName) : fileName_(fileName) {}

  bool keeps() const { return !fileName_.isEmpty(); }
  /// Invalid for a form whose size is not known.
  QSize size(const QString& form) const;
  GridLook look(const QString& form, const QString& grid) const;

  void keepSize(const QString& form, const QSize& size);
  void keepLook(const QString& form, const QString& grid, const GridLook& look);

 private:
  const QString fileName_;
};

}  // namespace vexnumkr::qtforms
