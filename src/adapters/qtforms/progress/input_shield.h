// Keeps the user's input from the whole application.
#pragma once

#include <QObject>

namespace vexnumkr::qtforms {

/// While one lives, whatever the user does goes nowhere: keys, mouse, touch, drops and the close
/// buttons of windows. Only the release of a mouse button that was held before arrives, so that
/// nothing stays pressed for good.
class InputShield final : public QObject {
 public:
  InputShield();
  ~InputShield() override;

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  bool endsEarlierPress(const QEvent& event);

  Qt::MouseButtons held_;
};

}  // namespace vexnumkr::qtforms
