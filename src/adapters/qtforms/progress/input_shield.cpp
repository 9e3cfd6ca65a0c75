#include "adapters/qtforms/progress/input_shield.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include "adapters/qt/assistive_action.h"

namespace vexnumkr::qtforms {
namespace {

bool isInput(const QEvent& event) {
  if (event.type() == assistiveActionEvent()) return true;
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::NonClientAreaMouseButtonRelease:
    case QEvent::NonClientAreaMouseButtonDblClick:
    case QEvent::NonClientAreaMouseMove:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::NativeGesture:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return true;
    case QEvent::Close:
      return event.spontaneous();  // code may close its windows
    default:
      return false;
  }
}

bool isKey(const QEvent& event) {
  return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease ||
         event.type() == QEvent::Shortcut || event.type() == QEvent::ShortcutOverride;
}

// Where no widget is: what is released there is not clicked.
constexpr QPointF nowhere{-20000, -20000};

QWindow* windowInFront() {
  const QWidget* modal = QApplication::activeModalWidget();
  const QWidget* window = modal != nullptr ? modal : QApplication::activeWindow();
  return window != nullptr ? window->windowHandle() : nullptr;
}

// The window passes a release on to the widget that was pressed, wherever it takes place.
void releaseHeldButtons() {
  QWindow* window = windowInFront();
  if (window == nullptr) return;
  Qt::MouseButtons held = QGuiApplication::mouseButtons();
  for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    if (!held.testFlag(button)) continue;
    held.setFlag(button, false);
    QMouseEvent release(QEvent::MouseButtonRelease, nowhere, nowhere, nowhere, button, held,
                        QGuiApplication::keyboardModifiers());
    QCoreApplication::sendEvent(window, &release);
  }
}

}  // namespace

InputShield::InputShield() {
  releaseHeldButtons();
  QCoreApplication::instance()->installEventFilter(this);
}

InputShield::~InputShield() { QCoreApplication::instance()->removeEventFilter(this); }

void InputShield::spare(const QWidget& window, std::function<void()> escape) {
  spared_ = &window;
  escape_ = std::move(escape);
}

bool InputShield::isSpared(const QObject* receiver, const QEvent& event) const {
  if (spared_ == nullptr || isKey(event)) return false;
  const auto* widget = qobject_cast<const QWidget*>(receiver);
  if (widget != nullptr) return widget->window() == spared_;
  return receiver == spared_->windowHandle();
}

bool InputShield::eventFilter(QObject* receiver, QEvent* event) {
  if (!isInput(*event) || isSpared(receiver, *event)) return false;
  if (escape_ && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
    escape_();
  // A key asked for as a shortcut is looked for among the shortcuts unless somebody takes it; a
  // window whose close is not refused closes.
  event->setAccepted(event->type() == QEvent::ShortcutOverride);
  return true;
}

}  // namespace vexnumkr::qtforms
