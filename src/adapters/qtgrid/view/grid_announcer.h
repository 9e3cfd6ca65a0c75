// Who passes on to assistive technology what happens in a grid.
#pragma once

namespace vexnumkr {

/// What a grid's view tells while assistive technology listens. Sections are those of the model.
class GridAnnouncer {
 public:
  virtual ~GridAnnouncer() = default;
  /// The group has been expanded or collapsed.
  virtual void expansionChanged(int item) = 0;
  virtual void checkChanged(int item) = 0;
  virtual void textChanged(int item, int section) = 0;
  /// The focus is on the cell now.
  virtual void focusMoved(int item, int section) = 0;

 protected:
  GridAnnouncer() = default;
  GridAnnouncer(const GridAnnouncer&) = default;
  GridAnnouncer& operator=(const GridAnnouncer&) = default;
};

}  // namespace vexnumkr
