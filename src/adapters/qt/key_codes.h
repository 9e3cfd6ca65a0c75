// Keys as the dialogs know them (key_code and key_shift in forms.h).
#pragma once

#include <cstdint>

class QKeyEvent;

namespace vexnumkr {

/// The code of a key that has no code of its own here.
inline constexpr std::int16_t otherKey = 255;

/// The code of the key pressed: letters and digits have their ASCII codes, F1 to F24 are 112 to
/// 135, a back tab is a Tab; otherKey for a key without a code.
std::int16_t keyCode(const QKeyEvent& event);

/// Shift 1, Ctrl 2, Alt 4, added up. A back tab counts as a Tab with Shift.
std::int16_t keyShift(const QKeyEvent& event);

}  // namespace vexnumkr
