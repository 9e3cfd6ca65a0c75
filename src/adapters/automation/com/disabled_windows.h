// The windows of this thread while others have the user.
#pragma once

#include <functional>
#include <vector>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::automation {

/// Takes windows of this thread out of use for a while. Made while the user is still at them; what
/// is active and has the focus then is to have it again afterwards.
class DisabledWindows {
 public:
  using Concerned = std::function<bool(HWND)>;

  DisabledWindows();
  /// Gives back what is still disabled.
  ~DisabledWindows();
  DisabledWindows(const DisabledWindows&) = delete;
  DisabledWindows& operator=(const DisabledWindows&) = delete;

  /// Disables the visible top-level windows of this thread that are concerned, those included that
  /// have come since the last time.
  void disable(const Concerned& concerned);
  /// Gives them back, with the focus.
  void enable();

 private:
  const HWND active_;
  const HWND focus_;
  std::vector<HWND> disabled_;
};

}  // namespace vexnumkr::automation
