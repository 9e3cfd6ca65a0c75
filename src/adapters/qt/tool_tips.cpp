#include "adapters/qt/tool_tips.h"

#include <QHelpEvent>
#include <QRect>
#include <QStringList>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <QWidget>

namespace vexnumkr {
namespace {

// Two spellings of one break tell the text's own from those of the layout.
constexpr QLatin1String ownBreak("<br>");
constexpr QLatin1String layoutBreak("<br/>");

constexpr const char* hintProperty = "hint";

// Where a line that is too long ends: behind the last blank that has room, or in the middle of a
// word that is too long by itself.
qsizetype endOfFirstLine(const QString& line) {
  const qsizetype blank = line.lastIndexOf(QLatin1Char(' '), toolTipColumns);
  return blank > 0 ? blank + 1 : toolTipColumns;
}

QString broken(QString line) {
  QStringList lines;
  while (line.size() > toolTipColumns) {
    const qsizetype end = endOfFirstLine(line);
    lines << line.left(end).toHtmlEscaped();
    line.remove(0, end);
  }
  lines << line.toHtmlEscaped();
  return lines.join(layoutBreak);
}

QString styleOf(const QFont& font) {
  const QString size = font.pixelSize() > 0 ? QStringLiteral("%1px").arg(font.pixelSize())
                                            : QStringLiteral("%1pt").arg(font.pointSizeF());
  return QStringLiteral("white-space:pre; font-family:\"%1\"; font-size:%2")
      .arg(font.family(), size)
      .toHtmlEscaped();
}

}  // namespace

QString toolTipMarkup(const QString& text, const QFont& font) {
  if (text.isEmpty()) return {};
  QString plain = text;
  plain.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  QStringList lines;
  for (const QString& line : plain.split(QLatin1Char('\n'))) lines << broken(line);
  return QStringLiteral("<p style=\"%1\">").arg(styleOf(font)) + lines.join(ownBreak) +
         QLatin1String("</p>");
}

QString toolTipText(const QString& markup) {
  return QTextDocumentFragment::fromHtml(QString(markup).remove(layoutBreak)).toPlainText();
}

void showToolTip(const QHelpEvent& event, const QString& text, QWidget& widget, const QRect& area) {
  if (text.isEmpty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(event.globalPos(), toolTipMarkup(text, widget.font()), &widget, area);
  }
}

void giveHint(QWidget& widget, const QString& hint) {
  widget.setProperty(hintProperty, hint);
  widget.setAccessibleDescription(hint);
}

bool PlainToolTips::eventFilter(QObject* receiver, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(receiver);
  if (event->type() != QEvent::ToolTip || widget == nullptr) return false;
  const QString text =
      widget->toolTip().isEmpty() ? widget->property(hintProperty).toString() : widget->toolTip();
  if (text.isEmpty()) return false;
  showToolTip(*static_cast<QHelpEvent*>(event), text, *widget, QRect());
  return true;
}

}  // namespace vexnumkr
