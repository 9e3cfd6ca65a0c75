// Prints the text that is copied next, or has been already, in UTF-8, and empties the clipboard.
// Fails when nothing has come after ten seconds.
#include <chrono>
#include <cstdio>
#include <string>

#include "adapters/automation/com/bstr.h"

namespace {

using vexnumkr::automation::toUtf8;

constexpr int shortWait = 20;  // milliseconds

// Takes the text out of the clipboard; false when there is none, or somebody else is at it. One
// that is only promised may be withdrawn before it is there.
bool take(std::string& text) {
  if (!IsClipboardFormatAvailable(CF_UNICODETEXT) || !OpenClipboard(nullptr)) return false;
  const HANDLE data = GetClipboardData(CF_UNICODETEXT);
  const auto* const copied = static_cast<const wchar_t*>(GlobalLock(data));
  if (copied != nullptr) {
    text = toUtf8(std::wstring_view(copied));
    GlobalUnlock(data);
    EmptyClipboard();
  }
  CloseClipboard();
  return copied != nullptr;
}

}  // namespace

int main() {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  std::string text;
  while (!take(text)) {
    if (std::chrono::steady_clock::now() > deadline) return 1;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, shortWait, QS_ALLINPUT);
  }
  std::fputs(text.c_str(), stdout);
  return 0;
}
