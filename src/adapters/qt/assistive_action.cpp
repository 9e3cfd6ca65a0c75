#include "adapters/qt/assistive_action.h"

#include <QApplication>
#include <QWidget>

namespace vexnumkr {

QEvent::Type assistiveActionEvent() {
  static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
  return type;
}

bool takesAssistiveActions(QWidget& widget) {
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal != nullptr && modal != widget.window()) return false;
  QEvent action(assistiveActionEvent());
  QCoreApplication::sendEvent(&widget, &action);
  return action.isAccepted();
}

}  // namespace vexnumkr
