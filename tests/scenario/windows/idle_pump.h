// Knowing when an application has nothing left to do.
#pragma once

#include <QObject>
#include <functional>

namespace vexnumkr::scenario {

/// Calls back whenever a whole round of the event loop has delivered nothing: no posted event, no
/// input, no timer that is due. It does so in whatever event loop is running, also in those of
/// modal windows that the callback itself opens, and again for as long as the pump runs.
///
/// REQUIRES: a QCoreApplication, whose thread this is.
class IdlePump : public QObject {
 public:
  explicit IdlePump(std::function<void()> onIdle);

  void start();
  void stop();

  bool eventFilter(QObject* receiver, QEvent* event) override;

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  std::function<void()> onIdle_;
  int timer_ = 0;
  bool isBusy_ = true;
};

}  // namespace vexnumkr::scenario
