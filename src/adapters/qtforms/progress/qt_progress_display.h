// Progress of long work in a window of its own.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "platform/progress_display.h"

namespace vexnumkr {

using ProgressClock = std::function<std::chrono::steady_clock::time_point()>;

/// How long work goes on unseen.
inline constexpr std::chrono::milliseconds progressDelay{500};

/// Shows a small window over the modal window that is active, or over the application's active
/// one, once the work has lasted for progressDelay. It takes no focus. Where the work may be given
/// up, a button, the close button and Escape do that; otherwise it cannot be closed.
///
/// While it is up, windows are repainted every now and then. Events queued by the host may run
/// then (socket notifiers and, except on Windows, timers wait); the user's do not.
///
/// Needs a QApplication, whose thread calls it. For tools that look at the widgets: the window's
/// object name is "progress", its bar's "bar", the caption's "caption", the button's "cancel".
std::unique_ptr<ProgressDisplay> makeQtProgressDisplay(
    ProgressClock now = std::chrono::steady_clock::now);

}  // namespace vexnumkr
