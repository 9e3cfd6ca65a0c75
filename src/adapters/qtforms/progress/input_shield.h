// Keeps the user's input from the whole application.
#pragma once

#include <QObject>

namespace vexnumkr::qtforms {

/// While one lives, whatever the user does goes nowhere: keys, mouse, touch, drops and the close
/// buttons of windows, and the actions of assistive technology. What was pressed with the mouse
/// before is let go of first without being clicked, so that nothing stays pressed for good.
class InputShield final : public QObject {
 public:
  InputShield();
  ~InputShield() override;

  bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace vexnumkr::qtforms
