// Qt's application object in a process that belongs to somebody else.
#pragma once

#include <vexnumkr/error.h>

namespace vexnumkr::server {

/// Sees to it that there is a QApplication on this thread. It is made by the first call, takes
/// nothing from the host's command line and folders (Qt's own QT_... variables apply, but for the
/// platform), does not change how Windows scales the host, never ends the host's message loop, and
/// stays until the process ends, as does the library file.
///
/// Error 440 on any other thread than that of the first call (dialogs have one thread), and where
/// the host has an application of Qt's own that shows no windows.
void requireDialogApplication();

/// Shows a failure before or outside of Qt, in the form in which the component shows all of them.
void showPlainFailure(const Error& error, const char* procedure);

}  // namespace vexnumkr::server
