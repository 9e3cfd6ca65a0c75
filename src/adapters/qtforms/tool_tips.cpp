#include "adapters/qtforms/tool_tips.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

namespace vexnumkr::qtforms {

QString PlainToolTips::markup(const QString& text) {
  QString escaped = text.toHtmlEscaped();
  escaped.replace(QLatin1String("\r\n"), QLatin1String("<br>"));
  escaped.replace(QLatin1Char('\n'), QLatin1String("<br>"));
  return QLatin1String("<p>") + escaped + QLatin1String("</p>");
}

bool PlainToolTips::eventFilter(QObject* receiver, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(receiver);
  if (event->type() != QEvent::ToolTip || widget == nullptr || widget->toolTip().isEmpty()) {
    return false;
  }
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), markup(widget->toolTip()),
                     widget);
  return true;
}

}  // namespace vexnumkr::qtforms
