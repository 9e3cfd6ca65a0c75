#include "adapters/qtforms/form_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QWidget>

#include "adapters/qt/key_codes.h"

namespace vexnumkr::qtforms {

FormKeys::FormKeys(const QWidget& window, Handler handler)
    : window_(window), handler_(std::move(handler)) {}

bool FormKeys::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::KeyPress || event == delivering_) return false;
  const QPointer<QWidget> target = qobject_cast<QWidget*>(receiver);
  if (target == nullptr || target->window() != &window_) return false;

  const auto& key = *static_cast<QKeyEvent*>(event);
  handler_(keyCode(key), keyShift(key));
  if (target != nullptr && target->isVisible()) {
    // Qt offers the same event to the parents of a widget that ignores it. Delivering it from here
    // keeps that walk inside one call, so that it is told from the next press.
    const QScopedValueRollback<const QEvent*> delivering(delivering_, event);
    QCoreApplication::instance()->notify(target, event);
  }
  event->accept();
  return true;
}

}  // namespace vexnumkr::qtforms
