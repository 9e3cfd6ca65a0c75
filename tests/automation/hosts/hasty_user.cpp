#include "automation/hosts/hasty_user.h"

#include <array>
#include <string>

#include "automation/hosts/host_window.h"

namespace vexnumkr::test {
namespace {

constexpr UINT interval = 10;  // milliseconds
// How often to look in all, in one dialog, whether something has come at last.
constexpr int patience = 300;

struct Step {
  std::vector<WPARAM> keys;
  bool opensDialog;
};

// From the grid, which has the focus at first, around to the button beside the filter, back to the
// grid, and over the buttons below it.
const std::array<Step, 4> steps = {{
    {{VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_SPACE}, false},
    {{VK_TAB, VK_TAB, VK_DOWN, VK_DOWN, VK_DOWN, VK_F2, '1', '1', '0', VK_RETURN, '1', '1', '1',
      VK_RETURN, VK_ESCAPE, VK_TAB, VK_TAB, VK_SPACE},
     true},
    {{VK_TAB, VK_SPACE}, true},
    {{VK_F9}, false},
}};

void press(HWND window, const std::vector<WPARAM>& keys) {
  constexpr LPARAM released = static_cast<LPARAM>(0xC0000001);
  for (const WPARAM key : keys) {
    PostMessageW(window, WM_KEYDOWN, key, 1);
    PostMessageW(window, WM_KEYUP, key, released);
  }
}

std::wstring titleOf(HWND window) {
  wchar_t title[40] = {};
  GetWindowTextW(window, title, 40);
  return title;
}

bool isBox(std::wstring_view title) {
  return title.starts_with(L"Fehler") || title == L"Info" || title == L"Abfrage";
}

bool isSide(std::wstring_view title) {
  return title == L"Sonderkreise" || title == L"Einstellungen";
}

// What is shown over the dialog, null where there is none.
struct Over {
  HWND box = nullptr;
  HWND side = nullptr;
};

BOOL CALLBACK find(HWND window, LPARAM found) {
  if (!IsWindowVisible(window)) return TRUE;
  const std::wstring title = titleOf(window);
  auto& over = *reinterpret_cast<Over*>(found);
  if (isBox(title)) over.box = window;
  if (isSide(title)) over.side = window;
  return TRUE;
}

}  // namespace

HastyUser::HastyUser(HWND host) : host_(host) {
  SetTimer(host, reinterpret_cast<UINT_PTR>(this), interval, onTimer);
}

HastyUser::~HastyUser() { KillTimer(host_, reinterpret_cast<UINT_PTR>(this)); }

void CALLBACK HastyUser::onTimer(HWND /*window*/, UINT /*message*/, UINT_PTR id, DWORD /*time*/) {
  reinterpret_cast<HastyUser*>(id)->work();
}

void HastyUser::startOver() {
  wasTold_ = false;
  step_ = 0;
  side_ = nullptr;
  waitsForSide_ = false;
  patience_ = patience;
}

void HastyUser::work() {
  Over over;
  EnumThreadWindows(GetCurrentThreadId(), find, reinterpret_cast<LPARAM>(&over));
  const HWND dialog = visibleDialog();
  if (over.box != nullptr) {
    answer(over.box, titleOf(over.box));
  } else if (over.side != nullptr) {
    workAtSide(over.side, titleOf(over.side));
  } else if (dialog != nullptr && IsWindowEnabled(dialog)) {
    workAtDialog(dialog);
  }
}

void HastyUser::answer(HWND box, std::wstring_view title) {
  if (title == L"Abfrage") return press(box, {'N'});
  wasTold_ = true;
  PostMessageW(box, WM_CLOSE, 0, 0);
}

void HastyUser::workAtSide(HWND window, std::wstring_view title) {
  if (!IsWindowEnabled(window)) return;
  waitsForSide_ = false;
  if (window == side_) {
    if (wasTold_ || --patience_ < 0) press(window, {VK_ESCAPE});
    return;
  }
  side_ = window;
  if (title == L"Sonderkreise") press(window, {VK_SPACE});
  press(window, {VK_RETURN});
}

void HastyUser::workAtDialog(HWND dialog) {
  if (wasTold_ || patience_ < 0) return press(dialog, {VK_ESCAPE});
  if (waitsForSide_ || step_ == steps.size()) {
    --patience_;
    return;
  }
  side_ = nullptr;
  const Step& step = steps[step_++];
  waitsForSide_ = step.opensDialog;
  press(dialog, step.keys);
}

}  // namespace vexnumkr::test
