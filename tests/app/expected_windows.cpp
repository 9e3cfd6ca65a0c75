#include "app/expected_windows.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QTest>

namespace vexnumkr::test {

ExpectedWindows::ExpectedWindows() { QApplication::instance()->installEventFilter(this); }

ExpectedWindows::~ExpectedWindows() {
  for (const Expectation& missing : expected_) {
    ADD_FAILURE() << "The window " << missing.objectName << " has not come up.";
  }
}

void ExpectedWindows::expect(const std::string& objectName, std::function<void(QDialog&)> act) {
  expected_.push_back({objectName, std::move(act)});
}

bool ExpectedWindows::eventFilter(QObject* receiver, QEvent* event) {
  auto* window = qobject_cast<QDialog*>(receiver);
  if (window == nullptr) return false;
  if (event->type() == QEvent::Show) waiting_.insert(window);
  // A window is up once it is the active one; it becomes that again after each box over it.
  if (event->type() == QEvent::WindowActivate && waiting_.erase(window) > 0) {
    QMetaObject::invokeMethod(
        window, [this, window] { actIn(*window); }, Qt::QueuedConnection);
  }
  return false;
}

void ExpectedWindows::actIn(QDialog& window) {
  const std::string name = window.objectName().toStdString();
  if (expected_.empty()) {
    ADD_FAILURE() << "The window " << name << " has come up unexpectedly.";
    window.reject();
    return;
  }
  const Expectation expectation = std::move(expected_.front());
  expected_.pop_front();
  EXPECT_EQ(name, expectation.objectName);
  if (name == expectation.objectName) expectation.act(window);
  if (window.isVisible()) {
    ADD_FAILURE() << "The window " << name << " has been left open.";
    window.reject();
  }
}

void click(QWidget& window, const char* name) {
  auto* button = window.findChild<QAbstractButton*>(QLatin1String(name));
  ASSERT_NE(button, nullptr) << name;
  ASSERT_TRUE(button->isVisible()) << name;
  ASSERT_TRUE(button->isEnabled()) << name;
  QTest::mouseClick(button, Qt::LeftButton);
}

void typeInto(QWidget& window, const char* name, const QString& text) {
  auto* edit = window.findChild<QLineEdit*>(QLatin1String(name));
  ASSERT_NE(edit, nullptr) << name;
  edit->setFocus();
  QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(edit, Qt::Key_Delete);
  typeText(*edit, text);
}

void typeText(QWidget& target, const QString& text) {
  for (const QChar each : text) {
    QTest::sendKeyEvent(QTest::Click, &target, Qt::Key_unknown, QString(each), Qt::NoModifier);
  }
}

}  // namespace vexnumkr::test
