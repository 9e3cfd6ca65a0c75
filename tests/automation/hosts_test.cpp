// A program that is bound to the interface, with windows and a message loop of its own.
#include <gtest/gtest.h>

#include <functional>
#include <thread>

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

  /// Shows the dialog; `action` happens when it is there, which it has to be.
  void show(_VXNummernkreise& numbers, const std::function<void(HWND)>& action = close) {
    bool wasShown = false;
    host_.whenDialogIsShown([&](HWND dialog) {
      wasShown = true;
      action(dialog);
    });
    EXPECT_EQ(numbers.ShowDialog(), S_OK);
    EXPECT_TRUE(wasShown);
  }

  /// How many references the host's connection has.
  ULONG references() const {
    connection_.object()->AddRef();
    return connection_.object()->Release();
  }

  const Apartment apartment_;
  const Bstr user_{std::string_view("Anna")};
  LateBound connection_ = openConnection();
  HostWindow host_;
};

TEST_F(Host, IsBoundToTheSlots) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  EXPECT_EQ(init(*numbers.Get()), VARIANT_TRUE);
  show(*numbers.Get());
  EXPECT_EQ(visibleDialog(), nullptr);
}

TEST_F(Host, TakesNoInputWhileTheDialogIsUp) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  bool windowTakesInput = true;
  bool secondTakesInput = true;
  bool dialogTakesInput = false;
  show(*numbers.Get(), [&](HWND dialog) {
    windowTakesInput = IsWindowEnabled(host_.window()) != FALSE;
    secondTakesInput = IsWindowEnabled(host_.second()) != FALSE;
    dialogTakesInput = IsWindowEnabled(dialog) != FALSE;
    close(dialog);
  });
  EXPECT_FALSE(windowTakesInput);
  EXPECT_FALSE(secondTakesInput);
  EXPECT_TRUE(dialogTakesInput);
}

TEST_F(Host, GetsItsWindowsAndItsFocusBack) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  ASSERT_EQ(GetFocus(), host_.field());
  show(*numbers.Get());
  EXPECT_TRUE(IsWindowEnabled(host_.window()));
  EXPECT_TRUE(IsWindowEnabled(host_.second()));
  EXPECT_EQ(GetActiveWindow(), host_.window());
  EXPECT_EQ(GetFocus(), host_.field());
}

TEST_F(Host, KeepsWindowsDisabledThatItHasDisabled) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  EnableWindow(host_.second(), FALSE);
  show(*numbers.Get());
  EXPECT_TRUE(IsWindowEnabled(host_.window()));
  EXPECT_FALSE(IsWindowEnabled(host_.second()));
}

TEST_F(Host, GoesOnWhileTheDialogIsUpAndAfterwards) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  int ticksAtFirst = 0;
  show(*numbers.Get(), [&](HWND dialog) {
    ticksAtFirst = host_.ticks();
    host_.afterTicks(3, [dialog] { close(dialog); });
  });
  EXPECT_GE(host_.ticks(), ticksAtFirst + 3);
  const int ticks = host_.ticks();
  EXPECT_TRUE(handleMessagesUntil([&] { return host_.ticks() > ticks + 2; }));
}

TEST_F(Host, IsStillToldToEnd) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  show(*numbers.Get(), [&](HWND dialog) {
    PostQuitMessage(42);
    close(dialog);
  });
  MSG message = {};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 42U);
}

TEST_F(Host, IsNotToldToEndByTheDialog) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  show(*numbers.Get());
  MSG message = {};
  EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
  const int ticks = host_.ticks();
  EXPECT_TRUE(handleMessagesUntil([&] { return host_.ticks() > ticks + 2; }));
}

TEST_F(Host, MayReleaseTheObjectWhileTheDialogIsUp) {
  const ULONG referencesAtFirst = references();
  ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  _VXNummernkreise* const bare = numbers.Get();
  host_.whenDialogIsShown([&](HWND dialog) {
    numbers.Reset();
    close(dialog);
  });
  EXPECT_EQ(bare->ShowDialog(), S_OK);
  EXPECT_EQ(numbers, nullptr);
  EXPECT_EQ(references(), referencesAtFirst);
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
  const ULONG referencesAtFirst = references();
  int windowsAtFirst = 0;
  for (int round = 0; round < 20; ++round) {
    SCOPED_TRACE(round);
    const ComPtr<_VXNummernkreise> numbers = createNumbers();
    ASSERT_EQ(init(*numbers.Get()), VARIANT_TRUE);
    show(*numbers.Get());
    ASSERT_TRUE(IsWindowEnabled(host_.window()));
    ASSERT_EQ(GetFocus(), host_.field());
    CoFreeUnusedLibraries();
    if (round == 0) windowsAtFirst = windowCount();
  }
  EXPECT_EQ(windowCount(), windowsAtFirst);
  EXPECT_EQ(references(), referencesAtFirst);
}

TEST_F(Host, MayShowTheSameObjectAgain) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  ASSERT_EQ(init(*numbers.Get()), VARIANT_TRUE);
  for (int round = 0; round < 3; ++round) show(*numbers.Get());
}

TEST_F(Host, GetsNoDialogWithinTheDialog) {
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  VARIANT_BOOL again = VARIANT_TRUE;
  bool takesInput = true;
  show(*numbers.Get(), [&](HWND dialog) {
    again = init(*numbers.Get());
    EXPECT_EQ(numbers->ShowDialog(), S_OK);
    takesInput = IsWindowEnabled(host_.window()) != FALSE;
    close(dialog);
  });
  EXPECT_EQ(again, VARIANT_FALSE);
  EXPECT_FALSE(takesInput);
  EXPECT_EQ(GetFocus(), host_.field());
}

bool closeWindow(const wchar_t* title) {
  const HWND window = FindWindowW(nullptr, title);
  return window != nullptr && PostMessageW(window, WM_CLOSE, 0, 0) != FALSE;
}

TEST_F(Host, HasItsDialogsOnOneThread) {
  const ComPtr<_VXNummernkreise> here = createNumbers();
  init(*here.Get());
  VARIANT_BOOL elsewhere = VARIANT_TRUE;
  std::thread other([&] {
    const Apartment apartment;
    const ComPtr<_VXNummernkreise> numbers = createNumbers();
    numbers->Init(nullptr, 2, nullptr, nullptr, &elsewhere);
  });
  EXPECT_TRUE(handleMessagesUntil([] { return closeWindow(L"Fehler 440"); }));
  other.join();
  EXPECT_EQ(elsewhere, VARIANT_FALSE);
  show(*here.Get());
}

TEST_F(Host, IsScaledAsBefore) {
  const auto awareness = [] {
    return GetAwarenessFromDpiAwarenessContext(GetThreadDpiAwarenessContext());
  };
  const DPI_AWARENESS before = awareness();
  const ComPtr<_VXNummernkreise> numbers = createNumbers();
  init(*numbers.Get());
  show(*numbers.Get());
  EXPECT_EQ(awareness(), before);
}

}  // namespace
}  // namespace vexnumkr::test
