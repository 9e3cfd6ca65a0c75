#include "automation/hosts/host_window.h"

#include <gtest/gtest.h>

#include <chrono>
#include <utility>

namespace vexnumkr::test {
namespace {

constexpr const wchar_t* className = L"vexnumkr-test-host";
constexpr UINT_PTR timer = 1;
constexpr UINT interval = 10;  // milliseconds

}  // namespace

HostWindow::HostWindow() {
  WNDCLASSW description = {};
  description.lpfnWndProc = onMessage;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  description.lpszClassName = className;
  RegisterClassW(&description);
  const auto create = [&](const wchar_t* title, int x) {
    return CreateWindowExW(0, className, title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, 20, 300, 200,
                           nullptr, nullptr, description.hInstance, nullptr);
  };
  second_ = create(L"Zweites Fenster", 700);
  window_ = create(L"Warenwirtschaft", 20);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  field_ = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 10, 200, 30, window_,
                           nullptr, description.hInstance, nullptr);
  SetForegroundWindow(window_);
  SetFocus(field_);
  SetTimer(window_, timer, interval, nullptr);
  EXPECT_TRUE(handleMessagesUntil(
      [&] { return GetForegroundWindow() == window_ && GetFocus() == field_; }));
}

HostWindow::~HostWindow() {
  DestroyWindow(window_);
  DestroyWindow(second_);
}

void HostWindow::whenDialogIsShown(std::function<void(HWND)> action) {
  action_ = std::move(action);
}

void HostWindow::afterTicks(int ticks, std::function<void()> action) {
  ticksLeft_ = ticks;
  later_ = std::move(action);
}

void HostWindow::tick() {
  ++ticks_;
  if (later_ && --ticksLeft_ == 0) std::exchange(later_, nullptr)();
  const HWND dialog = visibleDialog();
  if (dialog != nullptr && action_) std::exchange(action_, nullptr)(dialog);
}

LRESULT CALLBACK HostWindow::onMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* const host = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_TIMER && host != nullptr) host->tick();
  return DefWindowProcW(window, message, first, second);
}

bool handleMessagesUntil(const std::function<bool()>& done) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!done()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));
        return false;
      }
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  return true;
}

HWND visibleDialog() {
  const HWND dialog = FindWindowW(nullptr, L"Nummernkreise");
  DWORD process = 0;
  GetWindowThreadProcessId(dialog, &process);
  return process == GetCurrentProcessId() && IsWindowVisible(dialog) ? dialog : nullptr;
}

}  // namespace vexnumkr::test
