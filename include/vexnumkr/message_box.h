// The standard message box, for hosts whose own boxes shall look and act like the component's.
#pragma once

#include <cstdint>
#include <string>

#include <vexnumkr/export.h>

namespace vexnumkr {

/// Shows a modal box over the window in use and returns the code of the button pressed: 1 OK,
/// 2 Cancel, 6 Yes, 7 No. Error 429 when there is no QApplication or this is not its thread.
///
/// `prompt` and `title` are plain text (UTF-8). `style` is the sum of the buttons (0 OK, 1 OK and
/// Cancel, 3 Yes, No and Cancel, 4 Yes and No), the icon (16 critical, 32 question, 48 exclamation,
/// 64 information) and the default button (0 the first, 256 the second, 512 the third). Captions
/// are German.
VEXNUMKR_API std::int32_t showMessageBox(const std::string& prompt, std::int32_t style,
                                         const std::string& title);

}  // namespace vexnumkr
