#include "adapters/qtforms/open_windows.h"

#include <QApplication>
#include <QWidget>
#include <utility>

namespace vexnumkr::qtforms {
namespace {

bool belongsTo(const QObject* object, const QWidget& window) {
  while (object != nullptr && object != &window) object = object->parent();
  return object != nullptr;
}

}  // namespace

OpenWindows::Entry::Entry(OpenWindows& windows, std::function<void()> close) : windows_(windows) {
  windows_.close_.push_back(std::move(close));
}

OpenWindows::Entry::~Entry() { windows_.close_.pop_back(); }

void OpenWindows::closeAll() noexcept {
  areClosed_ = true;
  for (std::size_t left = close_.size(); left > 0; --left) close_[left - 1]();
}

void closePopups(const QWidget& window) {
  for (QWidget* popup = QApplication::activePopupWidget(); belongsTo(popup, window);) {
    popup->hide();
    QWidget* const next = QApplication::activePopupWidget();
    if (next == popup) return;
    popup = next;
  }
}

}  // namespace vexnumkr::qtforms
