// What the component needs of a process that may belong to somebody else.
#pragma once

namespace vexnumkr {

/// Keeps the library loaded until the process ends: Qt remembers what was registered from it, so a
/// host that closes it after a dialog would crash later. Does nothing where it is no library.
void stayLoaded() noexcept;

/// Whether windows can be shown; where they cannot, Qt would end the process.
bool hasDisplay();

/// Error 429 unless there is a QApplication and this is its thread.
void requireDialogThread();

/// Makes the QApplication that dialogs need, for hosts that know nothing of Qt. It takes nothing
/// from the host's command line, leaves the C locale as it was, never ends the host, and stays
/// until the process ends. True when there is one and this is its thread; false also where it could
/// not be made, since there is no display.
bool haveApplication();

}  // namespace vexnumkr
