#include "adapters/qtgrid/plain_text.h"

#include <QTextDocument>

namespace vexnumkr {

QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString asPlainToolTip(QString text) {
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  if (!Qt::mightBeRichText(text)) return text;
  return QStringLiteral("<p style='white-space:pre'>") + text.toHtmlEscaped() +
         QStringLiteral("</p>");
}

}  // namespace vexnumkr
