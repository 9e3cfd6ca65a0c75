// The tree grid on Qt's model/view framework.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/tree_grid.h"

class QWidget;

namespace vexnumkr {

/// The place of a cell.
struct GridCell {
  std::int32_t item = -1;
  std::int16_t column = 0;
};

/// What users make of a grid's look.
struct GridLook {
  std::map<int, double> widths;           ///< of the shown columns, by column
  std::vector<std::string> closedGroups;  ///< their captions
};

/// A tree grid that is a Qt widget.
///
/// The widget belongs to its parent, this object to whoever made it; either may go first. Every
/// call after the widget has gone raises error 91. Positions are in twips, 15 to the
/// device-independent pixel; column widths are in device-independent pixels.
///
/// A picture handle is the number of the picture's kind (see picture_art.h).
///
/// No exception leaves a handler of TreeGridEvents towards Qt: handlers report their failures
/// themselves. An AfterEdit that throws counts as one that let the text pass.
class QtTreeGrid : public TreeGrid {
 public:
  virtual QWidget* widget() const = 0;
  /// Whether a cell's editor is open.
  virtual bool isEditing() const = 0;
  /// The cell whose editor is open.
  virtual std::optional<GridCell> editedCell() const = 0;
  virtual GridLook look() const = 0;
  /// Takes over the widths of columns that are shown and closes those groups, as far as there are
  /// such.
  virtual void look(const GridLook& look) = 0;

 protected:
  QtTreeGrid() = default;
  QtTreeGrid(const QtTreeGrid&) = default;
  QtTreeGrid& operator=(const QtTreeGrid&) = default;
};

/// A tree grid inside `parent`, built from its description: name, accessible name, columns,
/// position and visibility. It has the focus policy of a control in the tab order unless `tabIndex`
/// is -1.
std::unique_ptr<QtTreeGrid> makeQtTreeGrid(const ControlDescription& description, QWidget* parent);

}  // namespace vexnumkr
