#include "adapters/qtforms/controls/combo_control.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QScreen>
#include <QWheelEvent>
#include <algorithm>

#include "adapters/qt/guarded.h"
#include "adapters/qt/scroll_bar.h"

namespace vexnumkr::qtforms {

void DropDownList::showPopup() {
  if (edits_ != nullptr && !edits_->settle(true)) {
    hidePopup();
    return;
  }
  const int wanted = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
  view()->window()->installEventFilter(this);
  view()->setMinimumWidth(std::min(wanted, screen()->availableGeometry().width()));
  QComboBox::showPopup();
}

// A list that opens right behind a message box hides from Qt that its window is active again; the
// keys would go nowhere after it.
bool DropDownList::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::Hide && QApplication::activeWindow() == nullptr) {
    window()->activateWindow();
  }
  return QComboBox::eventFilter(receiver, event);
}

void DropDownList::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

ComboControl::ComboControl(const ControlDescription& description, QWidget& parent,
                           PendingEdits& edits)
    : WidgetControl(description, parent), edits_(edits) {
  widget_.watch(edits);
  if (description.tabIndex >= 0) widget_.setFocusPolicy(Qt::StrongFocus);  // none by the wheel
  widget_.view()->setVerticalScrollBar(new ScrollBar(Qt::Vertical));
  QObject::connect(&widget_, &QComboBox::activated, &widget_,
                   [this](int index) { chosenByUser(index); });
}

void ComboControl::Clear() {
  widget_.clear();
  chosen_ = -1;
}

void ComboControl::AddItem(const std::string& text) {
  widget_.addItem(toQt(text));
  widget_.setCurrentIndex(chosen_);  // Qt chooses the first entry of an empty list by itself
}

std::int32_t ComboControl::ListCount() const { return widget_.count(); }

std::string ComboControl::List(std::int32_t index) const {
  if (index < 0 || index >= widget_.count()) throw Error::invalidPropertyValue();
  return widget_.itemText(index).toStdString();
}

std::int32_t ComboControl::ListIndex() const { return chosen_; }

void ComboControl::ListIndex(std::int32_t index) {
  if (index == chosen_) return;
  show(index);
  click();
}

std::string ComboControl::Text() const { return widget_.itemText(chosen_).toStdString(); }

void ComboControl::Text(const std::string& text) {
  const int index = widget_.findText(toQt(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (index < 0) throw Error::invalidPropertyValue();
  ListIndex(index);
}

void ComboControl::SelectSilently(std::int32_t index) { show(index); }

void ComboControl::OnClick(std::function<void()> handler) { handler_ = std::move(handler); }

void ComboControl::show(int index) {
  if (index < -1 || index >= widget_.count()) throw Error::invalidPropertyValue();
  chosen_ = index;
  widget_.setCurrentIndex(index);
}

void ComboControl::click() {
  if (handler_) guarded("Click", handler_);
}

void ComboControl::chosenByUser(int index) {
  widget_.setCurrentIndex(chosen_);
  if (!edits_.settle(true) || index >= widget_.count()) return;
  show(index);
  click();
}

}  // namespace vexnumkr::qtforms
