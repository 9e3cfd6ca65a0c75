#include "adapters/automation/com/disabled_windows.h"

#include <gtest/gtest.h>

namespace vexnumkr::automation {
namespace {

// A visible window of this thread with a field in it.
class Window {
 public:
  Window()
      : frame_(CreateWindowExW(0, L"STATIC", L"Fenster", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                               200, 100, nullptr, nullptr, nullptr, nullptr)),
        field_(CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, frame_,
                               nullptr, nullptr, nullptr)) {}
  ~Window() { DestroyWindow(frame_); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND frame() const { return frame_; }
  HWND field() const { return field_; }
  bool isEnabled() const { return IsWindowEnabled(frame_) != FALSE; }

 private:
  HWND frame_;
  HWND field_;
};

bool everyWindow(HWND /*window*/) { return true; }

}  // namespace

TEST(DisabledWindows, TakesWindowsOutOfUseAndGivesThemBackWithTheFocus) {
  const Window first;
  const Window second;
  SetFocus(second.field());
  ASSERT_EQ(GetFocus(), second.field());
  {
    DisabledWindows windows;
    windows.disable(everyWindow);
    EXPECT_FALSE(first.isEnabled());
    EXPECT_FALSE(second.isEnabled());
    SetFocus(nullptr);
  }
  EXPECT_TRUE(first.isEnabled());
  EXPECT_TRUE(second.isEnabled());
  EXPECT_EQ(GetFocus(), second.field());
}

TEST(DisabledWindows, LeavesOthersAlone) {
  const Window own;
  const Window other;
  DisabledWindows windows;
  windows.disable([&](HWND window) { return window == other.frame(); });
  EXPECT_TRUE(own.isEnabled());
  EXPECT_FALSE(other.isEnabled());
}

TEST(DisabledWindows, DoesNotEnableWhatWasDisabledBefore) {
  const Window window;
  EnableWindow(window.frame(), FALSE);
  {
    DisabledWindows windows;
    windows.disable(everyWindow);
  }
  EXPECT_FALSE(window.isEnabled());
}

TEST(DisabledWindows, SurvivesAWindowThatIsGoneMeanwhile) {
  const Window stays;
  DisabledWindows windows;
  {
    const Window goes;
    SetFocus(goes.field());
    windows.disable(everyWindow);
  }
  windows.enable();
  EXPECT_TRUE(stays.isEnabled());
}

}  // namespace vexnumkr::automation
