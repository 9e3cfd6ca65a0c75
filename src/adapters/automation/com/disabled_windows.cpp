#include "adapters/automation/com/disabled_windows.h"

namespace vexnumkr::automation {
namespace {

BOOL CALLBACK collect(HWND window, LPARAM windows) {
  if (IsWindowVisible(window) && IsWindowEnabled(window))
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  return TRUE;
}

}  // namespace

DisabledWindows::DisabledWindows() : active_(GetActiveWindow()), focus_(GetFocus()) {}

DisabledWindows::~DisabledWindows() { enable(); }

void DisabledWindows::disable(const Concerned& concerned) {
  std::vector<HWND> usable;
  EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&usable));
  for (const HWND window : usable) {
    if (!concerned(window)) continue;
    disabled_.push_back(window);
    EnableWindow(window, FALSE);
  }
}

void DisabledWindows::enable() {
  if (disabled_.empty()) return;
  for (const HWND window : disabled_) EnableWindow(window, TRUE);
  disabled_.clear();
  // Another program's window may have become active while none of these could.
  if (IsWindow(active_) && GetActiveWindow() != active_) SetForegroundWindow(active_);
  if (IsWindow(active_)) SetActiveWindow(active_);
  if (IsWindow(focus_)) SetFocus(focus_);
}

}  // namespace vexnumkr::automation
