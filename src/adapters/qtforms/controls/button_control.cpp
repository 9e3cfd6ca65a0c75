#include "adapters/qtforms/controls/button_control.h"

#include <QKeyEvent>

#include "adapters/qtforms/guarded.h"

namespace vexnumkr::qtforms {
namespace {

constexpr int frameWidth = 4;

}  // namespace

void PushButton::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
    click();
  } else {
    QPushButton::keyPressEvent(event);
  }
}

ButtonControl::ButtonControl(const ControlDescription& description, QWidget& parent,
                             PendingEdits& edits)
    : WidgetControl(description, parent), edits_(edits), role_(description.role) {
  widget_.setText(toQt(description.caption));
  widget_.setAutoDefault(false);
  widget_.setDefault(role_ == ButtonRole::Default);
  QObject::connect(&widget_, &QPushButton::clicked, &widget_, [this] { click(); });
  ButtonControl::fit();
}

void ButtonControl::OnClick(std::function<void()> handler) { handler_ = std::move(handler); }

void ButtonControl::fit() {
  widget_.setFont(fitted(widget_.font(), plainCaption(fromQt(widget_.text())),
                         widget_.width() - 2 * frameWidth));
}

void ButtonControl::click() {
  if (!edits_.settle(role_ != ButtonRole::Cancel)) return;
  if (handler_) guarded("Click", handler_);
}

}  // namespace vexnumkr::qtforms
