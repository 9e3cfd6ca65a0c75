#include "windows/host_windows.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <utility>

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

bool isForeign(HWND window) { return !isOwn(window); }

bool isAnotherVisible(HWND hidden) {
  const QWindowList windows = QGuiApplication::topLevelWindows();
  return std::any_of(windows.begin(), windows.end(), [&](const QWindow* own) {
    const HWND window = handleOf(*own);
    return window != nullptr && window != hidden && IsWindowVisible(window);
  });
}

}  // namespace

HostWindows* HostWindows::current_ = nullptr;

HostWindows::HostWindows()
    : outer_(std::exchange(current_, this)),
      sentHook_(SetWindowsHookExW(WH_CALLWNDPROC, onSent, nullptr, GetCurrentThreadId())),
      takenHook_(SetWindowsHookExW(WH_GETMESSAGE, onTaken, nullptr, GetCurrentThreadId())) {
  // Without a word of windows being shown it is disabled for all of the time.
  if (sentHook_ == nullptr) host_.disable(isForeign);
}

HostWindows::~HostWindows() {
  host_.enable();
  UnhookWindowsHookEx(takenHook_);
  UnhookWindowsHookEx(sentHook_);
  current_ = outer_;
  if (isQuitting_) PostQuitMessage(exitCode_);
}

// A window is asked before it is shown or hidden in any way. The host's windows come back first:
// with none left that could be active, Windows would activate another program's.
LRESULT CALLBACK HostWindows::onSent(int code, WPARAM context, LPARAM data) {
  const auto& message = *reinterpret_cast<const CWPSTRUCT*>(data);
  if (code == HC_ACTION && current_ != nullptr && message.message == WM_WINDOWPOSCHANGING) {
    const UINT change = reinterpret_cast<const WINDOWPOS*>(message.lParam)->flags;
    if ((change & SWP_SHOWWINDOW) != 0) current_->windowShown(message.hwnd);
    if ((change & SWP_HIDEWINDOW) != 0) current_->windowHidden(message.hwnd);
  }
  return CallNextHookEx(nullptr, code, context, data);
}

// Qt's event loop would swallow the request, and the host would never end.
LRESULT CALLBACK HostWindows::onTaken(int code, WPARAM removal, LPARAM data) {
  auto& message = *reinterpret_cast<MSG*>(data);
  if (code == HC_ACTION && current_ != nullptr && (removal & PM_REMOVE) != 0 &&
      message.message == WM_QUIT) {
    current_->isQuitting_ = true;
    current_->exitCode_ = static_cast<int>(message.wParam);
    message.message = WM_NULL;
  }
  return CallNextHookEx(nullptr, code, removal, data);
}

void HostWindows::windowShown(HWND window) {
  if (isOwn(window)) host_.disable(isForeign);
}

void HostWindows::windowHidden(HWND window) {
  if (isOwn(window) && !isAnotherVisible(window)) host_.enable();
}

}  // namespace vexnumkr::server
