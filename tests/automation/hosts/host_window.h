// The windows of a host program, and what its user does at the component's dialog.
#pragma once

#include <functional>
#include <string>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::test {

/// A window with a text field that has the focus, and a second window. Its timer runs in whatever
/// message loop the thread is in, as a host's timers do.
class HostWindow {
 public:
  /// Shows the windows and waits until the first is the active one.
  HostWindow();
  ~HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  HWND window() const { return window_; }
  HWND second() const { return second_; }
  HWND field() const { return field_; }

  /// Calls `action` once, with the dialog's window, as soon as that is visible.
  void whenDialogIsShown(std::function<void(HWND dialog)> action);

  /// Calls `action` once, when the timer has run so often again.
  void afterTicks(int ticks, std::function<void()> action);

  /// How often the timer has run.
  int ticks() const { return ticks_; }

 private:
  static LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM first, LPARAM second);
  void tick();

  HWND window_ = nullptr;
  HWND second_ = nullptr;
  HWND field_ = nullptr;
  int ticks_ = 0;
  std::function<void(HWND)> action_;
  int ticksLeft_ = 0;
  std::function<void()> later_;
};

/// Handles the messages that are waiting, until `done` or for ten seconds at most; says whether it
/// was done. A message that tells the program to end stays where it is.
bool handleMessagesUntil(const std::function<bool()>& done);

/// The component's dialog, when it is visible; else null.
HWND visibleDialog();

}  // namespace vexnumkr::test
