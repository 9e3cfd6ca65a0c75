#include "app/dark_palette.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

namespace vexnumkr::app {
namespace {

QPalette darkPalette() {
  const QColor text(230, 230, 230);
  const QColor faint(130, 130, 130);
  QPalette palette(QColor(58, 58, 62), QColor(45, 45, 48));
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, QColor(30, 30, 32));
  palette.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::ButtonText, text);
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::Highlight, QColor(38, 110, 185));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(110, 175, 240));
  palette.setColor(QPalette::ToolTipBase, QColor(62, 62, 50));
  palette.setColor(QPalette::ToolTipText, text);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, faint);
  // What disabled texts are embossed with.
  palette.setColor(QPalette::Disabled, QPalette::Light, Qt::transparent);
  return palette;
}

// Menus and drop-down lists stand out from the lists below them, though nothing dark casts a shadow
// on them.
QPalette raisedPalette() {
  QPalette palette = darkPalette();
  palette.setColor(QPalette::Base, QColor(60, 60, 65));
  return palette;
}

}  // namespace

void makeDark() {
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setPalette(darkPalette());
  QApplication::setPalette(raisedPalette(), "QMenu");
  QApplication::setPalette(raisedPalette(), "QComboBoxListView");
  QToolTip::setPalette(darkPalette());
}

}  // namespace vexnumkr::app
