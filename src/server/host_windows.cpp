#include "server/host_windows.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>

namespace vexnumkr::server {
namespace {

HWND handleOf(const QWindow& window) {
  return window.handle() != nullptr ? reinterpret_cast<HWND>(window.winId()) : nullptr;
}

bool isOwn(HWND window) {
  const QWindowList windows = QGuiApplication::topLevelWindows();
  return std::any_of(windows.begin(), windows.end(),
                     [&](const QWindow* own) { return handleOf(*own) == window; });
}

bool isAnotherVisible(HWND hidden) {
  const QWindowList windows = QGuiApplication::topLevelWindows();
  return std::any_of(windows.begin(), windows.end(), [&](const QWindow* own) {
    const HWND window = handleOf(*own);
    return window != nullptr && window != hidden && IsWindowVisible(window);
  });
}

BOOL CALLBACK collectForeign(HWND window, LPARAM result) {
  if (IsWindowVisible(window) && IsWindowEnabled(window) && !isOwn(window))
    reinterpret_cast<std::vector<HWND>*>(result)->push_back(window);
  return TRUE;
}

}  // namespace

HostWindows* HostWindows::current_ = nullptr;

HostWindows::HostWindows()
    : outer_(std::exchange(current_, this)),
      active_(GetActiveWindow()),
      focus_(GetFocus()),
      sentHook_(SetWindowsHookExW(WH_CALLWNDPROC, onSent, nullptr, GetCurrentThreadId())),
      takenHook_(SetWindowsHookExW(WH_GETMESSAGE, onTaken, nullptr, GetCurrentThreadId())) {}

HostWindows::~HostWindows() {
  enable();
  UnhookWindowsHookEx(takenHook_);
  UnhookWindowsHookEx(sentHook_);
  current_ = outer_;
  if (isQuitting_) PostQuitMessage(exitCode_);
}

// Windows about to be shown or hidden are told so before it happens. The host's windows come back
// first: with none left that could be active, Windows would activate another program's.
LRESULT CALLBACK HostWindows::onSent(int code, WPARAM context, LPARAM data) {
  const auto& message = *reinterpret_cast<const CWPSTRUCT*>(data);
  if (code == HC_ACTION && current_ != nullptr && message.message == WM_SHOWWINDOW &&
      message.lParam == 0) {
    if (message.wParam != FALSE)
      current_->windowShown(message.hwnd);
    else
      current_->windowHidden(message.hwnd);
  }
  return CallNextHookEx(nullptr, code, context, data);
}

// Qt's event loop would swallow the request, and the host would never end.
LRESULT CALLBACK HostWindows::onTaken(int code, WPARAM removal, LPARAM data) {
  auto& message = *reinterpret_cast<MSG*>(data);
  if (code == HC_ACTION && current_ != nullptr && removal == PM_REMOVE &&
      message.message == WM_QUIT) {
    current_->isQuitting_ = true;
    current_->exitCode_ = static_cast<int>(message.wParam);
    message.message = WM_NULL;
  }
  return CallNextHookEx(nullptr, code, removal, data);
}

void HostWindows::windowShown(HWND window) {
  if (isOwn(window)) disable();
}

void HostWindows::windowHidden(HWND window) {
  if (isOwn(window) && !isAnotherVisible(window)) enable();
}

void HostWindows::disable() {
  if (!disabled_.empty()) return;
  EnumThreadWindows(GetCurrentThreadId(), collectForeign, reinterpret_cast<LPARAM>(&disabled_));
  for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

void HostWindows::enable() {
  if (disabled_.empty()) return;
  for (const HWND window : disabled_) EnableWindow(window, TRUE);
  disabled_.clear();
  if (IsWindow(active_)) SetActiveWindow(active_);
  if (IsWindow(focus_)) SetFocus(focus_);
}

}  // namespace vexnumkr::server
