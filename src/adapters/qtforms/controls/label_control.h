// Labels.
#pragma once

#include <QLabel>

#include "adapters/qtforms/controls/widget_control.h"

namespace vexnumkr::qtforms {

/// Shows its caption as it is. It wraps where its height has room for two lines; a single line that
/// is slightly too long draws its letters together.
class LabelControl final : public WidgetControl<Label, QLabel> {
 public:
  LabelControl(const ControlDescription& description, QWidget& parent);

 private:
  void fit() override;
};

}  // namespace vexnumkr::qtforms
