// A user for programs that are tested from outside: presses buttons, one after the other.
//
// Qt loads it as an input device into any program that uses it, nothing is built into that:
//
//   QT_PLUGIN_PATH=build/dev/tests/plugins QT_QPA_GENERIC_PLUGINS=buttonpresser:cmdAuto/yes/cmdOK
//
// A button is named by its object name. It is clicked once its window is in front, the pointer is
// not busy, and the program has nothing left to do; a window in front that lacks it ends the
// program.
#include <QAbstractButton>
#include <QApplication>
#include <QGenericPlugin>
#include <QTest>

#include "scenario/windows/idle_pump.h"

namespace vexnumkr::test {
namespace {

class ButtonPresser : public QObject {
 public:
  explicit ButtonPresser(const QString& buttons)
      : buttons_(buttons.split(u'/')), pump_([this] { pressNext(); }) {
    pump_.start();
  }

 private:
  void pressNext() {
    const QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible()) return;
    if (QGuiApplication::overrideCursor() != nullptr) return;
    const QString name = buttons_.takeFirst();
    if (buttons_.isEmpty()) pump_.stop();
    auto* button = window->findChild<QAbstractButton*>(name);
    if (button == nullptr)
      qFatal("no button %s in the window %s", qPrintable(name), qPrintable(window->windowTitle()));
    QTest::mouseClick(button, Qt::LeftButton);
  }

  QStringList buttons_;
  scenario::IdlePump pump_;
};

}  // namespace

class ButtonPresserPlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "button_presser.json")

 public:
  QObject* create(const QString& /*name*/, const QString& buttons) override {
    return new ButtonPresser(buttons);  // owned by the application object
  }
};

}  // namespace vexnumkr::test

#include "button_presser.moc"
