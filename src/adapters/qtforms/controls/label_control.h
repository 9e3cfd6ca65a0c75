// Labels.
#pragma once

#include <QLabel>

#include "adapters/qtforms/controls/widget_control.h"

namespace vexnumkr::qtforms {

/// A label of plain text that can stand for another control.
class Caption final : public QLabel {
 public:
  using QLabel::QLabel;

  void setAccessKey(char key) { accessKey_ = key; }
  /// From now on the label names `control`, and its access key, where it has one, goes there.
  void standFor(QWidget& control);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  char accessKey_ = 0;
};

/// Shows its caption as it is. It wraps where its height has room for two lines; a single line that
/// is slightly too long draws its letters together.
class LabelControl final : public WidgetControl<Label, Caption> {
 public:
  LabelControl(const ControlDescription& description, QWidget& parent);

 private:
  void fit() override;
};

}  // namespace vexnumkr::qtforms
