// The tree grid of a dialog, for looking at it and for knowing where to click.
#pragma once

#include <QPoint>
#include <cstdint>
#include <string>

#include "adapters/qtgrid/qt_tree_grid.h"
#include "adapters/qtgrid/view/grid_view.h"
#include "platform/forms.h"

class QLineEdit;

namespace vexnumkr::scenario {

class GridAccess {
 public:
  /// Whether the form has a grid.
  static bool isIn(QWidget& form);

  /// Error: CannotDo for a form without a grid.
  explicit GridAccess(QWidget& form);

  QtTreeGrid& grid() const { return *grid_; }
  GridView& view() const { return *view_; }

  /// Error: CannotDo for an item that does not exist.
  void requireItem(std::int32_t item) const;

  /// The middle of a cell or of an item's picture in the view's viewport, scrolled into view.
  /// Errors: CannotDo for what does not exist or is not shown.
  QPoint cellCentre(std::int32_t item, std::int32_t column) const;
  QPoint pictureCentre(std::int32_t item) const;

  /// The open cell editor. Error: CannotDo when none is open.
  QLineEdit& editor() const;

  /// The name of an item's picture, or "-".
  std::string pictureName(std::int32_t item) const;
  /// The style of an item's caption.
  CellStyle captionStyle(std::int32_t item) const;

 private:
  QRect cellRect(std::int32_t item, std::int32_t column) const;

  Form* form_;
  QtTreeGrid* grid_ = nullptr;
  GridView* view_ = nullptr;
};

}  // namespace vexnumkr::scenario
