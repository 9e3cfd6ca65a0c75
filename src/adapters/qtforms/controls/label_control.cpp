#include "adapters/qtforms/controls/label_control.h"

namespace vexnumkr::qtforms {

LabelControl::LabelControl(const ControlDescription& description, QWidget& parent)
    : WidgetControl(description, parent) {
  widget_.setTextFormat(Qt::PlainText);
  widget_.setText(toQtLines(description.caption));
  LabelControl::fit();
}

void LabelControl::fit() {
  const bool wraps = widget_.height() >= 2 * widget_.fontMetrics().lineSpacing();
  widget_.setWordWrap(wraps);
  widget_.setAlignment(Qt::AlignLeft | (wraps ? Qt::AlignTop : Qt::AlignVCenter));
  widget_.setFont(
      fitted(widget_.font(), widget_.text(), wraps ? QWIDGETSIZE_MAX : widget_.width()));
}

}  // namespace vexnumkr::qtforms
