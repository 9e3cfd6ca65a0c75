// The standard message box.
#pragma once

#include <cstdint>
#include <string>

namespace vexnumkr::qtforms {

class OpenWindows;

/// Shows a box over the active modal window and returns the code of the button pressed (see
/// msg_box).
///
/// `style` is the sum of the buttons (0 OK, 1 OK and Cancel, 3 Yes, No and Cancel, 4 Yes and No;
/// any other counts as 0), the icon (16 critical, 32 question, 48 exclamation, 64 information) and
/// the default button (0 the first, 256 the second, 512 the third; the first where there are not so
/// many). The prompt is plain text, in the font of the window below. Escape and the close button
/// stand for Cancel, or for an OK that is alone; a box with neither can only be answered.
std::int32_t showMessageBox(const std::string& prompt, std::int32_t style,
                            const std::string& title);
/// The same for a box that is closed with others: the answer is 0 then, and where they are closed
/// already.
std::int32_t showMessageBox(const std::string& prompt, std::int32_t style, const std::string& title,
                            OpenWindows& windows);

}  // namespace vexnumkr::qtforms
