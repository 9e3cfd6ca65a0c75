// Edits that are still open in the tree grids of a form when the user turns to something else.
#pragma once

#include <vector>

class QWidget;

namespace vexnumkr {
class QtTreeGrid;
}

namespace vexnumkr::qtforms {

/// The tree grids of one form. The controls and the form ask it before they carry out what the user
/// wants of them.
class PendingEdits {
 public:
  /// `grid` is borrowed and outlives the last call of settle.
  void watch(QtTreeGrid& grid);

  /// Whether one of them has a cell's editor open.
  bool areOpen() const;
  /// Ends every open edit, keeping or dropping its text. False when one stays open: then its editor
  /// has the focus and what the user wanted is not to take place.
  bool settle(bool keepText);

 private:
  std::vector<QtTreeGrid*> grids_;
  bool settling_ = false;
};

}  // namespace vexnumkr::qtforms
