// Palettes that a desktop may have.
#pragma once

#include <QPalette>

namespace vexnumkr::test {

inline QPalette lightPalette() {
  QPalette palette(QColor(239, 239, 239));
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 220));
  palette.setColor(QPalette::ToolTipText, Qt::black);
  return palette;
}

inline QPalette darkPalette() {
  QPalette palette(QColor(58, 58, 62), QColor(45, 45, 48));
  palette.setColor(QPalette::Base, QColor(30, 30, 32));
  palette.setColor(QPalette::Text, QColor(230, 230, 230));
  palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor(66, 66, 50));
  palette.setColor(QPalette::ToolTipText, QColor(240, 240, 220));
  return palette;
}

/// A dark palette whose tool tips have stayed light, as on many desktops.
inline QPalette darkPaletteWithLightToolTips() {
  QPalette palette = darkPalette();
  palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 220));
  palette.setColor(QPalette::ToolTipText, Qt::black);
  return palette;
}

inline QPalette blackPalette() {
  QPalette palette = darkPalette();
  palette.setColor(QPalette::Base, Qt::black);
  palette.setColor(QPalette::Text, Qt::white);
  palette.setColor(QPalette::Highlight, Qt::yellow);
  palette.setColor(QPalette::HighlightedText, Qt::black);
  return palette;
}

}  // namespace vexnumkr::test
