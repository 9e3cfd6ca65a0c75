// Keeps the user's input from the whole application.
#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace vexnumkr::qtforms {

/// While one lives, whatever the user does goes nowhere: keys, mouse, touch, drops and the close
/// buttons of windows, and the actions of assistive technology. What was pressed with the mouse
/// before is let go of first without being clicked, so that nothing stays pressed for good.
class InputShield final : public QObject {
 public:
  InputShield();
  ~InputShield() override;

  /// Lets the mouse through to `window`, and has `escape` called for the key of that name. Both are
  /// borrowed or copied for as long as this lives.
  void spare(const QWidget& window, std::function<void()> escape);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  bool isSpared(const QObject* receiver, const QEvent& event) const;

  const QWidget* spared_ = nullptr;
  std::function<void()> escape_;
};

}  // namespace vexnumkr::qtforms
