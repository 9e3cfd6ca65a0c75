// The border between the dialogs' event handlers and Qt's event loop.
#pragma once

#include <QtGlobal>
#include <exception>

namespace vexnumkr {

/// Runs an event handler; `event` names it in the log. Handlers report their failures themselves;
/// one that escapes all the same is logged and goes no further, since an exception must not pass
/// through Qt. Whether the handler returned without one.
template <class Handler>
bool guarded(const char* event, Handler&& handler) noexcept {
  try {
    handler();
    return true;
  } catch (const std::exception& failure) {
    qWarning("%s: %s", event, failure.what());
  } catch (...) {
    qWarning("%s: unknown failure", event);
  }
  return false;
}

}  // namespace vexnumkr
