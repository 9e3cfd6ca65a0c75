#include "app/tour/user_input.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>

#include <vexnumkr/error.h>

namespace vexnumkr::app {
namespace {

template <class Widget>
Widget& child(QWidget& window, const char* name) {
  auto* found = window.findChild<Widget*>(QLatin1String(name));
  if (found == nullptr) throw Error::objectNotSet();
  return *found;
}

void sendKey(QWidget& target, Qt::Key key) {
  const QString text = key == Qt::Key_Space ? QStringLiteral(" ") : QString();
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&target, &event);
  }
}

}  // namespace

void pressKey(QWidget& target, Qt::Key key) {
  target.setFocus();
  sendKey(target, key);
}

void pressKeyInFocus(QWidget& window, Qt::Key key) {
  if (QWidget* focused = window.focusWidget()) sendKey(*focused, key);
}

void chooseEntry(QWidget& window, const char* name, int index) {
  auto& combo = child<QComboBox>(window, name);
  const int wanted = qBound(0, index, combo.count() - 1);
  for (int presses = combo.count(); presses > 0 && combo.currentIndex() != wanted; --presses)
    pressKey(combo, combo.currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
}

void clickButton(QWidget& window, const char* name) {
  child<QAbstractButton>(window, name).click();
}

bool shows(const QWidget& window, const char* name) {
  const auto* found = window.findChild<QWidget*>(QLatin1String(name));
  return found != nullptr && found->isVisible();
}

void editFirstRange(QWidget& window, const char* name) {
  auto& tree = child<QAbstractItemView>(window, name);
  pressKey(tree, Qt::Key_Home);
  pressKey(tree, Qt::Key_Down);
  pressKey(tree, Qt::Key_F2);
}

void tickLastOfFirstGroup(QWidget& window, const char* name) {
  auto& tree = child<QAbstractItemView>(window, name);
  const QModelIndex group = tree.model()->index(0, 0);
  const int lines = tree.model()->rowCount(group);
  pressKey(tree, Qt::Key_Home);
  for (int line = 0; line < lines; ++line) pressKey(tree, Qt::Key_Down);
  pressKey(tree, Qt::Key_Space);
}

}  // namespace vexnumkr::app
