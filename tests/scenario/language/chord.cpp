#include "scenario/language/chord.h"

#include <array>

#include "adapters/qt/text.h"

namespace vexnumkr::scenario {
namespace {

struct NamedKey {
  const char* name;
  Qt::Key key;
  const char* text;
};

constexpr std::array namedKeys = {
    NamedKey{"space", Qt::Key_Space, " "},
    NamedKey{"tab", Qt::Key_Tab, "\t"},
    NamedKey{"enter", Qt::Key_Return, "\r"},
    NamedKey{"return", Qt::Key_Return, "\r"},
    NamedKey{"escape", Qt::Key_Escape, "\x1b"},
    NamedKey{"esc", Qt::Key_Escape, "\x1b"},
    NamedKey{"backspace", Qt::Key_Backspace, "\b"},
    NamedKey{"delete", Qt::Key_Delete, "\x7f"},
    NamedKey{"del", Qt::Key_Delete, "\x7f"},
    NamedKey{"insert", Qt::Key_Insert, ""},
    NamedKey{"home", Qt::Key_Home, ""},
    NamedKey{"end", Qt::Key_End, ""},
    NamedKey{"left", Qt::Key_Left, ""},
    NamedKey{"right", Qt::Key_Right, ""},
    NamedKey{"up", Qt::Key_Up, ""},
    NamedKey{"down", Qt::Key_Down, ""},
    NamedKey{"pageup", Qt::Key_PageUp, ""},
    NamedKey{"pgup", Qt::Key_PageUp, ""},
    NamedKey{"pagedown", Qt::Key_PageDown, ""},
    NamedKey{"pgdown", Qt::Key_PageDown, ""},
};

Qt::KeyboardModifier modifierOf(const QString& name) {
  if (name == u"shift") return Qt::ShiftModifier;
  if (name == u"ctrl") return Qt::ControlModifier;
  if (name == u"alt") return Qt::AltModifier;
  return Qt::NoModifier;
}

std::optional<Chord> functionKey(const QString& name) {
  bool isNumber = false;
  const int number = name.mid(1).toInt(&isNumber);
  if (!name.startsWith(u'f') || !isNumber || number < 1 || number > 24) return std::nullopt;
  return Chord{static_cast<Qt::Key>(Qt::Key_F1 + number - 1), {}, {}};
}

std::optional<Chord> keyOf(const QString& name) {
  for (const NamedKey& named : namedKeys)
    if (name == QLatin1String(named.name))
      return Chord{named.key, {}, QString::fromLatin1(named.text)};
  if (name.size() == 1) return typingChord(name[0]);
  return functionKey(name);
}

// Keyboards report Shift+Tab as a key of its own, capitals for Shift and no text for Ctrl and Alt.
Chord pressedWith(Chord chord, Qt::KeyboardModifiers modifiers) {
  chord.modifiers = modifiers;
  if (modifiers & Qt::ShiftModifier) {
    if (chord.key == Qt::Key_Tab) chord.key = Qt::Key_Backtab;
    // Not the text's capitals: no key types the two of "ß".
    for (QChar& character : chord.text) character = character.toUpper();
  }
  if (modifiers & (Qt::ControlModifier | Qt::AltModifier)) chord.text.clear();
  return chord;
}

}  // namespace

std::optional<Chord> readChord(std::string_view name) {
  QString rest = toQt(name).toLower();
  Qt::KeyboardModifiers modifiers;
  for (qsizetype plus = rest.indexOf(u'+'); plus > 0; plus = rest.indexOf(u'+')) {
    const Qt::KeyboardModifier modifier = modifierOf(rest.left(plus));
    if (modifier == Qt::NoModifier) return std::nullopt;
    modifiers |= modifier;
    rest.remove(0, plus + 1);
  }
  const std::optional<Chord> key = keyOf(rest);
  if (!key) return std::nullopt;
  return pressedWith(*key, modifiers);
}

Chord typingChord(QChar character) {
  if (character == u'\n') return Chord{Qt::Key_Return, {}, QStringLiteral("\r")};
  // Keys are named by their capitals; beyond Latin-1 the text alone says what is typed.
  const char16_t capital = character.toUpper().unicode();
  const Qt::Key key = capital < 0x100 ? static_cast<Qt::Key>(capital) : Qt::Key_unknown;
  const bool isShifted = character.isUpper();
  return Chord{key, isShifted ? Qt::ShiftModifier : Qt::NoModifier, QString(character)};
}

}  // namespace vexnumkr::scenario
