#include "scenario/windows/windows.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMessageBox>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "scenario/windows/failure.h"

namespace vexnumkr::scenario {
namespace {

QWidget* asForm(QObject* object) {
  auto* form = qobject_cast<QDialog*>(object);
  if (form == nullptr || !form->isWindow() || form->objectName().isEmpty()) return nullptr;
  return qobject_cast<QMessageBox*>(form) == nullptr ? form : nullptr;
}

}  // namespace

Windows::Windows(std::function<void(const char*, const std::string&)> onChange)
    : onChange_(std::move(onChange)) {
  QApplication::instance()->installEventFilter(this);
  connect(qApp, &QGuiApplication::focusWindowChanged, this, [this] { hasTriedFocus_ = false; });
}

QWidget& Windows::activeForm() const {
  if (forms_.empty()) throw CannotDo("no dialog is open");
  return *forms_.back();
}

QMessageBox* Windows::box() const {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  return box != nullptr && box->isVisible() ? box : nullptr;
}

bool Windows::handBackFocus() {
  QWidget* front = QApplication::activeModalWidget();
  if (front == nullptr || QGuiApplication::focusWindow() != nullptr) return false;
  if (std::exchange(hasTriedFocus_, true)) return false;
  front->activateWindow();
  return true;
}

bool Windows::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::Show && !event->spontaneous()) {
    if (QWidget* form = asForm(receiver)) opened(*form);
  } else if (event->type() == QEvent::Hide && !event->spontaneous()) {
    if (QWidget* form = asForm(receiver)) closed(*form);
  }
  return QObject::eventFilter(receiver, event);
}

void Windows::opened(QWidget& form) {
  if (std::find(forms_.begin(), forms_.end(), &form) != forms_.end()) return;
  forms_.push_back(&form);
  onChange_("opened", form.objectName().toStdString());
}

void Windows::closed(QWidget& form) {
  const auto found = std::find(forms_.begin(), forms_.end(), &form);
  if (found == forms_.end()) return;
  forms_.erase(found);
  onChange_("closed", form.objectName().toStdString());
}

}  // namespace vexnumkr::scenario
