#include "adapters/qt/key_codes.h"

#include <QKeyEvent>
#include <algorithm>
#include <iterator>

#include "platform/forms.h"

namespace vexnumkr {
namespace {

struct KeyPair {
  int qtKey;
  std::int16_t code;
};

// The handlers of dialogs know keys by the numbers that they have on Windows.
constexpr KeyPair namedKeys[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, key_code::tab},
    {Qt::Key_Backtab, key_code::tab},
    {Qt::Key_Return, key_code::enter},
    {Qt::Key_Enter, key_code::enter},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, key_code::escape},
    {Qt::Key_Space, key_code::space},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, key_code::left},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, key_code::right},
    {Qt::Key_Down, 40},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
};

constexpr std::int16_t firstFunctionKey = 112;

}  // namespace

std::int16_t keyCode(const QKeyEvent& event) {
  const int key = event.key();
  if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z)) {
    return static_cast<std::int16_t>(key);
  }
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
    return static_cast<std::int16_t>(firstFunctionKey + (key - Qt::Key_F1));
  }
  const auto* found = std::find_if(std::begin(namedKeys), std::end(namedKeys),
                                   [key](const KeyPair& pair) { return pair.qtKey == key; });
  return found == std::end(namedKeys) ? otherKey : found->code;
}

std::int16_t keyShift(const QKeyEvent& event) {
  int shift = key_shift::none;
  if (event.modifiers().testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab) {
    shift += key_shift::shift;
  }
  if (event.modifiers().testFlag(Qt::ControlModifier)) shift += key_shift::ctrl;
  if (event.modifiers().testFlag(Qt::AltModifier)) shift += key_shift::alt;
  return static_cast<std::int16_t>(shift);
}

}  // namespace vexnumkr
