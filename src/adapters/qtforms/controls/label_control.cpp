#include "adapters/qtforms/controls/label_control.h"

#include <QPainter>
#include <QShortcut>
#include <QStyle>

#include "adapters/qtforms/controls/access_key.h"

namespace vexnumkr::qtforms {

void Caption::standFor(QWidget& control) {
  setBuddy(&control);
  if (accessKey_ == 0) return;
  // A child of the control: the key works while the control can be seen.
  const auto* shortcut = new QShortcut(accessKeySequence(accessKey_), &control);
  connect(shortcut, &QShortcut::activated, &control,
          [&control] { control.setFocus(Qt::ShortcutFocusReason); });
}

void Caption::paintEvent(QPaintEvent* event) {
  if (accessKey_ == 0) {
    QLabel::paintEvent(event);
    return;
  }
  QPainter painter(this);
  const bool underline = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
  const int flags = static_cast<int>(alignment()) |
                    (underline ? Qt::TextShowMnemonic : Qt::TextHideMnemonic) |
                    (wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
  style()->drawItemText(&painter, contentsRect(), flags, palette(), isEnabled(),
                        withAccessKey(text(), accessKey_), foregroundRole());
}

LabelControl::LabelControl(const ControlDescription& description, QWidget& parent)
    : WidgetControl(description, parent) {
  widget_.setTextFormat(Qt::PlainText);
  widget_.setText(toQtLines(description.caption));
  widget_.setAccessKey(description.accessKey);
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
