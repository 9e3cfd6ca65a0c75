#include "adapters/qtforms/controls/button_control.h"

#include <QKeyEvent>
#include <QStyleOptionButton>

#include "adapters/qt/assistive_action.h"
#include "adapters/qt/guarded.h"
#include "adapters/qtforms/controls/access_key.h"

namespace vexnumkr::qtforms {
namespace {

constexpr int frameWidth = 4;

}  // namespace

void PushButton::setAccessKey(char key) {
  accessKey_ = key;
  setShortcut(accessKeySequence(key));
}

void PushButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  option->text = withAccessKey(option->text, accessKey_);
}

void PushButton::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
    click();
    return;
  }
  QPushButton::keyPressEvent(event);
  const bool isForTheEdit =
      event->matches(QKeySequence::Cancel) && edits_ != nullptr && edits_->areOpen();
  if (isForTheEdit) event->ignore();
}

ButtonControl::ButtonControl(const ControlDescription& description, QWidget& parent,
                             PendingEdits& edits)
    : WidgetControl(description, parent), edits_(edits), role_(description.role) {
  widget_.setText(toQt(description.caption));
  widget_.setEdits(edits);
  if (description.accessKey != 0) widget_.setAccessKey(description.accessKey);
  widget_.setAutoDefault(false);
  widget_.setDefault(role_ == ButtonRole::Default);
  QObject::connect(&widget_, &QPushButton::clicked, &widget_, [this] { click(); });
  ButtonControl::fit();
}

void ButtonControl::OnClick(std::function<void()> handler) { handler_ = std::move(handler); }

void ButtonControl::fit() {
  widget_.setFont(fitted(widget_.font(), plainCaption(widget_.text().toStdString()),
                         widget_.width() - 2 * frameWidth));
}

// A press by assistive technology is no event that a modal window keeps from the button.
void ButtonControl::click() {
  if (!takesAssistiveActions(widget_)) return;
  if (!edits_.settle(role_ != ButtonRole::Cancel)) return;
  if (handler_) guarded("Click", handler_);
}

}  // namespace vexnumkr::qtforms
