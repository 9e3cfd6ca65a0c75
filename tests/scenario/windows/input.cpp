#include "scenario/windows/input.h"

#include <QGuiApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include "scenario/windows/failure.h"

namespace vexnumkr::scenario {

void clickAt(QWidget& widget, const QPoint& position, Qt::MouseButton button) {
  QWidget* top = widget.window();
  const QPoint inWindow = widget.mapTo(top, position);
  if (!top->rect().contains(inWindow) || top->windowHandle() == nullptr)
    throw CannotDo("the place to click lies outside of the window");
  QTest::mouseClick(top->windowHandle(), button, {}, inWindow);
}

void pressKey(const Chord& chord) {
  QWindow* window = QGuiApplication::focusWindow();
  if (window == nullptr) throw CannotDo("no window has the focus");
  QTest::sendKeyEvent(QTest::Click, window, chord.key, chord.text, chord.modifiers);
}

void typeText(const QString& text) {
  for (const QChar character : text) pressKey(typingChord(character));
}

}  // namespace vexnumkr::scenario
