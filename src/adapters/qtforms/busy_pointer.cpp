#include "adapters/qtforms/busy_pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace vexnumkr::qtforms {

BusyPointer::~BusyPointer() { set(false); }

void BusyPointer::set(bool busy) {
  busy_ = busy;
  update();
}

void BusyPointer::update() {
  const bool show = busy_ && pauses_ == 0;
  if (show == shown_) return;
  shown_ = show;
  if (show) {
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

BusyPointer::Pause::Pause(BusyPointer& pointer) : pointer_(pointer) {
  ++pointer_.pauses_;
  pointer_.update();
}

BusyPointer::Pause::~Pause() {
  --pointer_.pauses_;
  pointer_.update();
}

}  // namespace vexnumkr::qtforms
