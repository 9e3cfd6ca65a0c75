#include "scenario/language/chord.h"

#include <gtest/gtest.h>

namespace vexnumkr::scenario {
namespace {

void expectChord(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers,
                 const QString& text) {
  const std::optional<Chord> chord = readChord(name);
  ASSERT_TRUE(chord) << name;
  EXPECT_EQ(chord->key, key) << name;
  EXPECT_EQ(chord->modifiers, modifiers) << name;
  EXPECT_EQ(chord->text, text) << name;
}

TEST(Chord, ReadsNamedKeysInAnyCase) {
  expectChord("F2", Qt::Key_F2, {}, {});
  expectChord("f10", Qt::Key_F10, {}, {});
  expectChord("Space", Qt::Key_Space, {}, QStringLiteral(" "));
  expectChord("ENTER", Qt::Key_Return, {}, QStringLiteral("\r"));
  expectChord("Escape", Qt::Key_Escape, {}, QStringLiteral("\x1b"));
  expectChord("Home", Qt::Key_Home, {}, {});
  expectChord("PageDown", Qt::Key_PageDown, {}, {});
}

TEST(Chord, ReadsModifiers) {
  expectChord("Ctrl+Enter", Qt::Key_Return, Qt::ControlModifier, {});
  expectChord("Ctrl+Right", Qt::Key_Right, Qt::ControlModifier, {});
  expectChord("Ctrl+Shift+End", Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier, {});
  expectChord("Alt+o", Qt::Key_O, Qt::AltModifier, {});
}

TEST(Chord, TypesOneCharacterAtMost) {
  expectChord("Shift+ä", Qt::Key_Adiaeresis, Qt::ShiftModifier, QStringLiteral("Ä"));
  expectChord("Shift+ß", Qt::Key_ssharp, Qt::ShiftModifier, QStringLiteral("ß"));
}

TEST(Chord, ReportsShiftAndTabAsKeyboardsDo) {
  expectChord("Shift+Tab", Qt::Key_Backtab, Qt::ShiftModifier, QStringLiteral("\t"));
}

TEST(Chord, ReadsCharacters) {
  expectChord("7", Qt::Key_7, {}, QStringLiteral("7"));
  expectChord("a", Qt::Key_A, {}, QStringLiteral("a"));
  expectChord("Shift+a", Qt::Key_A, Qt::ShiftModifier, QStringLiteral("A"));
  expectChord("+", Qt::Key_Plus, {}, QStringLiteral("+"));
  expectChord("Ctrl++", Qt::Key_Plus, Qt::ControlModifier, {});
}

TEST(Chord, RefusesWhatIsNoKey) {
  for (const char* name : {"", "F0", "F25", "Fx", "Hyper+a", "Ctrl+", "Ctrl", "++a", "ab"})
    EXPECT_FALSE(readChord(name)) << name;
}

TEST(Chord, TypesCapitalsWithShift) {
  EXPECT_EQ(typingChord(u'J').modifiers, Qt::ShiftModifier);
  EXPECT_EQ(typingChord(u'J').text, QStringLiteral("J"));
  EXPECT_EQ(typingChord(u'j').modifiers, Qt::NoModifier);
  EXPECT_EQ(typingChord(u'%').text, QStringLiteral("%"));
  EXPECT_EQ(typingChord(u'ü').text, QString(QChar(u'ü')));
  EXPECT_EQ(typingChord(u'\n').key, Qt::Key_Return);
}

}  // namespace
}  // namespace vexnumkr::scenario
