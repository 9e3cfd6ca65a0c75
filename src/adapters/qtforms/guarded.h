// The border between the dialogs' event handlers and Qt's event loop.
#pragma once

#include <QtGlobal>
#include <exception>

namespace vexnumkr::qtforms {

/// Runs an event handler. Handlers report their failures themselves; one that escapes all the same
/// is logged and goes no further, since an exception must not pass through Qt.
template <class Handler>
void guarded(const char* event, Handler&& handler) noexcept {
  try {
    handler();
  } catch (const std::exception& failure) {
    qWarning("%s: %s", event, failure.what());
  } catch (...) {
    qWarning("%s: unknown failure", event);
  }
}

}  // namespace vexnumkr::qtforms
