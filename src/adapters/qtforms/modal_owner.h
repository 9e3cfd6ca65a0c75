// The window that a modal window belongs to.
#pragma once

#include <QPointer>
#include <QWidget>

namespace vexnumkr::qtforms {

/// The modal window that was active when this was made; it is active again when this goes, also on
/// platforms that do not see to it themselves.
class ModalOwner {
 public:
  ModalOwner();
  ~ModalOwner();
  ModalOwner(const ModalOwner&) = delete;
  ModalOwner& operator=(const ModalOwner&) = delete;

  /// Null where there was none.
  QWidget* window() const { return window_; }

 private:
  QPointer<QWidget> window_;
};

}  // namespace vexnumkr::qtforms
