// A program that is bound to the interface, with windows and a message loop of its own.
#include <gtest/gtest.h>

#include "adapters/automation/com/bstr.h"
#include "automation/hosts/host_window.h"
#include "automation/hosts/session.h"

namespace vexnumkr::test {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::LateBound;

void close(HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); }

class Host : public testing::Test {
 protected:
  VARIANT_BOOL init(_VXNummernkreise& numbers) {
    IDispatch* connection = connection_.object();
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_EQ(numbers.Init(&connection, 2, user_.get(), nullptr, &result), S_OK);
    EXPECT_EQ(connection, connection_.object());
    return result;
  }

  const Apartment apartment_;
  const Bstr user_{std::string_view("Anna")};
  LateBound connection_ = openConnection();
  HostWindow host_;
};

TEST_F(Host, IsBoundToTheSlots) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  EXPECT_EQ(init(*numbers.Get()), VARIANT_TRUE);
  host_.whenDialogIsShown(close);
  EXPECT_EQ(numbers->ShowDialog(), S_OK);
  EXPECT_EQ(visibleDialog(), nullptr);
}

TEST_F(Host, TakesNoInputWhileTheDialogIsUp) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  bool windowTakesInput = true;
  bool secondTakesInput = true;
  bool dialogTakesInput = false;
  host_.whenDialogIsShown([&](HWND dialog) {
    windowTakesInput = IsWindowEnabled(host_.window()) != FALSE;
    secondTakesInput = IsWindowEnabled(host_.second()) != FALSE;
    dialogTakesInput = IsWindowEnabled(dialog) != FALSE;
    close(dialog);
  });
  numbers->ShowDialog();
  EXPECT_FALSE(windowTakesInput);
  EXPECT_FALSE(secondTakesInput);
  EXPECT_TRUE(dialogTakesInput);
}

TEST_F(Host, GetsItsWindowsAndItsFocusBack) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  ASSERT_EQ(GetFocus(), host_.field());
  host_.whenDialogIsShown(close);
  numbers->ShowDialog();
  EXPECT_TRUE(IsWindowEnabled(host_.window()));
  EXPECT_TRUE(IsWindowEnabled(host_.second()));
  EXPECT_EQ(GetActiveWindow(), host_.window());
  EXPECT_EQ(GetFocus(), host_.field());
}

TEST_F(Host, KeepsWindowsDisabledThatItHasDisabled) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  EnableWindow(host_.second(), FALSE);
  host_.whenDialogIsShown(close);
  numbers->ShowDialog();
  EXPECT_TRUE(IsWindowEnabled(host_.window()));
  EXPECT_FALSE(IsWindowEnabled(host_.second()));
}

TEST_F(Host, GoesOnWhileTheDialogIsUpAndAfterwards) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  int ticksMeanwhile = 0;
  host_.whenDialogIsShown([&](HWND dialog) {
    ticksMeanwhile = host_.ticks();
    close(dialog);
  });
  numbers->ShowDialog();
  EXPECT_GT(ticksMeanwhile, 0);
  const int ticks = host_.ticks();
  EXPECT_TRUE(handleMessagesUntil([&] { return host_.ticks() > ticks + 2; }));
}

TEST_F(Host, IsStillToldToEnd) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  host_.whenDialogIsShown([&](HWND dialog) {
    PostQuitMessage(42);
    close(dialog);
  });
  numbers->ShowDialog();
  MSG message = {};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 42U);
}

TEST_F(Host, IsNotToldToEndByTheDialog) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  host_.whenDialogIsShown(close);
  numbers->ShowDialog();
  const int ticks = host_.ticks();
  EXPECT_TRUE(handleMessagesUntil([&] { return host_.ticks() > ticks + 2; }));
  MSG message = {};
  EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
}

TEST_F(Host, MayReleaseTheObjectWhileTheDialogIsUp) {
  ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  _VXNummernkreise* const bare = numbers.Get();
  host_.whenDialogIsShown([&](HWND dialog) {
    numbers.Reset();
    close(dialog);
  });
  EXPECT_EQ(bare->ShowDialog(), S_OK);
}

BOOL CALLBACK count(HWND /*window*/, LPARAM result) {
  ++*reinterpret_cast<int*>(result);
  return TRUE;
}

// The windows of this thread, hidden ones included.
int windowCount() {
  int windows = 0;
  EnumThreadWindows(GetCurrentThreadId(), count, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

TEST_F(Host, MayCreateShowAndReleaseManyTimes) {
  int windowsAtFirst = 0;
  for (int round = 0; round < 20; ++round) {
    SCOPED_TRACE(round);
    const ComPtr<_VXNummernkreise> numbers = createNumbers();
    ASSERT_EQ(init(*numbers.Get()), VARIANT_TRUE);
    bool wasShown = false;
    host_.whenDialogIsShown([&](HWND dialog) {
      wasShown = true;
      close(dialog);
    });
    ASSERT_EQ(numbers->ShowDialog(), S_OK);
    ASSERT_TRUE(wasShown);
    ASSERT_TRUE(IsWindowEnabled(host_.window()));
    ASSERT_EQ(GetFocus(), host_.field());
    CoFreeUnusedLibraries();
    if (round == 0) windowsAtFirst = windowCount();
  }
  EXPECT_EQ(windowCount(), windowsAtFirst);
}

TEST_F(Host, MayShowTheSameObjectAgain) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  for (int round = 0; round < 3; ++round) {
    ASSERT_EQ(init(*numbers.Get()), VARIANT_TRUE);
    host_.whenDialogIsShown(close);
    ASSERT_EQ(numbers->ShowDialog(), S_OK);
  }
}

}  // namespace
}  // namespace vexnumkr::test
