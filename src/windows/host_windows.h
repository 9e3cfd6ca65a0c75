// The host's own windows while the component shows some.
#pragma once

#include "adapters/automation/com/disabled_windows.h"

namespace vexnumkr::server {

/// As long as it lives, the host's windows on this thread take no input while a window of the
/// component is visible; at the latest its end gives them back, with the focus. A request to end
/// the program that arrives meanwhile is passed on to the host's message loop at the end.
class HostWindows {
 public:
  HostWindows();
  ~HostWindows();
  HostWindows(const HostWindows&) = delete;
  HostWindows& operator=(const HostWindows&) = delete;

 private:
  static LRESULT CALLBACK onSent(int code, WPARAM context, LPARAM data);
  static LRESULT CALLBACK onTaken(int code, WPARAM removal, LPARAM data);

  void windowShown(HWND window);
  void windowHidden(HWND window);

  // The innermost one, on the one thread that has dialogs; the hooks know nothing else.
  static HostWindows* current_;

  HostWindows* const outer_;
  automation::DisabledWindows host_;
  HHOOK sentHook_;
  HHOOK takenHook_;
  bool isQuitting_ = false;
  int exitCode_ = 0;
};

}  // namespace vexnumkr::server
