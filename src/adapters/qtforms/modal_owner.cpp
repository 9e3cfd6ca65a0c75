#include "adapters/qtforms/modal_owner.h"

#include <QApplication>

namespace vexnumkr::qtforms {

ModalOwner::ModalOwner() : window_(QApplication::activeModalWidget()) {}

ModalOwner::~ModalOwner() {
  if (window_ != nullptr && window_->isVisible()) window_->activateWindow();
}

}  // namespace vexnumkr::qtforms
