// Where dialogs can be shown.
#pragma once

namespace vexnumkr {

/// Whether there is a QApplication, and this is its thread. One without windows (QCoreApplication,
/// QGuiApplication) is not enough.
bool isDialogThread();

}  // namespace vexnumkr
