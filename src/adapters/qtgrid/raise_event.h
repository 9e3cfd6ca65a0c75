// Raising a grid's events.
#pragma once

namespace vexnumkr {

/// Calls `raise`. Handlers report their failures themselves, and Qt must not see any: one that gets
/// here ends here. Whether the handler returned without one.
template <class Raise>
bool raiseEvent(Raise raise) noexcept {
  try {
    raise();
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace vexnumkr
