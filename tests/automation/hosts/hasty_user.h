// A user who is through with all of the component's windows at once.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::test {

/// Works at whatever window of the component takes input on this thread, by messages to it: has the
/// host's booking circles shown, changes a number in the dialog, confirms the special ranges, after
/// switching the first one over, and the settings, and saves. Whoever is told of a failure gives
/// up: cancels what is still open.
class HastyUser {
 public:
  /// Works whenever messages are handled, as a timer of the window `host`.
  explicit HastyUser(HWND host);
  ~HastyUser();
  HastyUser(const HastyUser&) = delete;
  HastyUser& operator=(const HastyUser&) = delete;

  /// Begins anew at the next dialog, and has been told nothing.
  void startOver();
  /// Whether there was a box, other than a question.
  bool wasTold() const { return wasTold_; }

 private:
  static void CALLBACK onTimer(HWND window, UINT message, UINT_PTR id, DWORD time);
  void work();
  void answer(HWND box, std::wstring_view title);
  void workAtSide(HWND window, std::wstring_view title);
  void workAtDialog(HWND dialog);

  HWND host_;
  bool wasTold_ = false;
  std::size_t step_ = 0;  // What is next in the dialog.
  HWND side_ = nullptr;   // The dialog over it that has been worked at.
  bool waitsForSide_ = false;
  int patience_ = 0;
};

}  // namespace vexnumkr::test
