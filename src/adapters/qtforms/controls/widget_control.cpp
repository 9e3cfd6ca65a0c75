#include "adapters/qtforms/controls/widget_control.h"

namespace vexnumkr::qtforms {

QString plainCaption(const std::string& caption) {
  QString result;
  const QString text = toQt(caption);
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (text.at(at) == QLatin1Char('&') && ++at == text.size()) break;
    result += text.at(at);
  }
  return result;
}

namespace {

QString accessibleName(const ControlDescription& description) {
  if (!description.accessibleName.empty()) return toQt(description.accessibleName);
  return description.kind == ControlKind::Label ? toQtLines(description.caption)
                                                : plainCaption(description.caption);
}

}  // namespace

void describeWidget(QWidget& widget, const ControlDescription& description) {
  QString name = toQt(description.name);
  if (description.arrayIndex >= 0) name += QStringLiteral("(%1)").arg(description.arrayIndex);
  widget.setObjectName(name);
  widget.setAccessibleName(accessibleName(description));
  widget.setGeometry(toPixels(description.position));
  widget.setVisible(description.visible);
  if (description.tabIndex < 0) widget.setFocusPolicy(Qt::NoFocus);
}

}  // namespace vexnumkr::qtforms
