// Keys that a form sees before its controls do.
#pragma once

#include <QObject>
#include <cstdint>
#include <functional>

class QEvent;
class QWidget;

namespace vexnumkr::qtforms {

/// An event filter for the application that hands every key press meant for a widget of one window
/// to a handler first, once per press, and then to the widget and its parents as usual.
///
/// A widget that is gone or hidden after the handler does not see the key any more.
class FormKeys final : public QObject {
 public:
  using Handler = std::function<void(std::int16_t keyCode, std::int16_t shift)>;

  /// `window` is borrowed and outlives this.
  FormKeys(const QWidget& window, Handler handler);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  const QWidget& window_;
  Handler handler_;
  const QEvent* delivering_ = nullptr;
};

}  // namespace vexnumkr::qtforms
