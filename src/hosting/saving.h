// Ending the dialog's transaction by saving.
#pragma once

#include "hosting/session.h"
#include "rules/range_check.h"

namespace vexnumkr {

/// Whoever shows the ranges while they are saved.
class RangeDisplay {
 public:
  virtual ~RangeDisplay() = default;
  /// Tells of a broken rule and leads the user to the offending value.
  virtual void showDefect(const RangeDefect& defect) = 0;
  /// Rows have taken over what others have stored: shows them as they are now.
  virtual void showChanges() = 0;

 protected:
  RangeDisplay() = default;
  RangeDisplay(const RangeDisplay&) = default;
  RangeDisplay& operator=(const RangeDisplay&) = default;
};

namespace basAllgemein {

/// Nothing changed, or the user answers No: rolled back, True. The user cancels or cannot be asked,
/// the ranges could not be read completely, the user gives up values that somebody else has changed
/// too, or the ranges are not valid: the transaction stays open, False.
///
/// Otherwise the ranges and assignments of the origin are written (row by row anew and in the order
/// of display, in sets where they differ from what is stored), read back and committed: True. What
/// hosts have drawn and others have stored since the ranges were read is kept: it is taken over
/// where the user has left a range alone, and asked about where not. Nothing is locked before the
/// ranges have been found valid.
///
/// A failure on the way is reported; then everything is rolled back, a new transaction begins, and
/// False is returned. The range table keeps the user's values. `askFirst` says whether the user is
/// asked.
bool Save(Session& session, RangeDisplay& display, bool askFirst);

}  // namespace basAllgemein
}  // namespace vexnumkr
