// Names of keys.
#pragma once

#include <QString>
#include <optional>
#include <string_view>

namespace vexnumkr::scenario {

/// A key with the modifiers held down, as a keyboard reports it.
struct Chord {
  Qt::Key key = Qt::Key_unknown;
  Qt::KeyboardModifiers modifiers;
  QString text;  ///< what the key types
};

/// Reads "F2", "Shift+Tab", "Ctrl+Enter", "a": any of Shift, Ctrl and Alt, then one key, in any
/// case. Nothing for a name that is not known.
std::optional<Chord> readChord(std::string_view name);

/// The key that types `character`, e.g. in an editor.
Chord typingChord(QChar character);

}  // namespace vexnumkr::scenario
