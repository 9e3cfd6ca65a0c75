#include "scenario/windows/idle_pump.h"

#include <QCoreApplication>
#include <QTimerEvent>
#include <utility>

namespace vexnumkr::scenario {

IdlePump::IdlePump(std::function<void()> onIdle) : onIdle_(std::move(onIdle)) {
  QCoreApplication::instance()->installEventFilter(this);
}

void IdlePump::start() {
  isBusy_ = true;
  timer_ = startTimer(0);
}

void IdlePump::stop() {
  killTimer(timer_);
  timer_ = 0;
}

bool IdlePump::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver != this) isBusy_ = true;
  return QObject::eventFilter(receiver, event);
}

void IdlePump::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_) return;
  if (std::exchange(isBusy_, false)) return;
  // A timer is not delivered while its own handler runs, and the callback may well start an event
  // loop: that one needs a timer of its own.
  stop();
  start();
  onIdle_();
}

}  // namespace vexnumkr::scenario
