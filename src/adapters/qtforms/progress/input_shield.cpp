#include "adapters/qtforms/progress/input_shield.h"

#include <QGuiApplication>
#include <QMouseEvent>

#include "adapters/qtgrid/accessible/assistive_action.h"

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

}  // namespace

InputShield::InputShield() : held_(QGuiApplication::mouseButtons()) {
  QCoreApplication::instance()->installEventFilter(this);
}

InputShield::~InputShield() { QCoreApplication::instance()->removeEventFilter(this); }

bool InputShield::eventFilter(QObject* /*receiver*/, QEvent* event) {
  if (!isInput(*event) || endsEarlierPress(*event)) return false;
  // A key asked for as a shortcut is looked for among the shortcuts unless somebody takes it; a
  // window whose close is not refused closes.
  event->setAccepted(event->type() == QEvent::ShortcutOverride);
  return true;
}

bool InputShield::endsEarlierPress(const QEvent& event) {
  if (event.type() != QEvent::MouseButtonRelease) return false;
  const Qt::MouseButton button = static_cast<const QMouseEvent&>(event).button();
  return held_.testFlag(button);
}

}  // namespace vexnumkr::qtforms
