// Option buttons.
#pragma once

#include <QRadioButton>

#include "adapters/qtforms/controls/widget_control.h"

namespace vexnumkr::qtforms {

/// A radio button that looks like those of the tree grid and can be clicked anywhere in its place,
/// not only on its text.
class RadioButton final : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};

/// One of the buttons of its parent widget, of which the user can have only one on at a time.
class OptionButtonControl final : public WidgetControl<OptionButton, RadioButton> {
 public:
  OptionButtonControl(const ControlDescription& description, QWidget& parent);

  bool Value() const override;
  void Value(bool selected) override;

 private:
  void fit() override;
};

}  // namespace vexnumkr::qtforms
