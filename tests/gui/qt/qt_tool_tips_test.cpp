#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

#include "adapters/qt/tool_tips.h"

namespace vexnumkr {
namespace {

QStringList linesOf(const QString& text) {
  QTextDocument shown;
  shown.setHtml(toolTipMarkup(text, QFont()));
  return shown.toPlainText().split(QLatin1Char('\n'));
}

QString word(qsizetype length) { return QString(length, QLatin1Char('w')); }

TEST(ToolTipsTest, NothingGivesNoTip) { EXPECT_EQ(toolTipMarkup({}, QFont()), QString()); }

TEST(ToolTipsTest, TheTextIsReadBackAsItWas) {
  for (const QString& text :
       {QStringLiteral("Maske"), QStringLiteral("<b>eins</b>\nzwei &amp; \"drei\""),
        QStringLiteral("  zwei  Blanks "), word(200), (word(7) + QLatin1Char(' ')).repeated(40),
        QStringLiteral("J%%J --> 24\n\nLeerzeile")}) {
    EXPECT_EQ(toolTipText(toolTipMarkup(text, QFont())), text) << text.toStdString();
  }
  EXPECT_EQ(toolTipText(toolTipMarkup(QStringLiteral("eins\r\nzwei"), QFont())),
            QStringLiteral("eins\nzwei"));
}

TEST(ToolTipsTest, LongLinesAreBrokenBetweenWords) {
  const QStringList lines = linesOf((word(9) + QLatin1Char(' ')).repeated(13).trimmed());
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0].trimmed().size(), 59);
  EXPECT_EQ(lines[2], word(9));
}

TEST(ToolTipsTest, AWordLongerThanALineIsBrokenInItsMiddle) {
  const QStringList lines = linesOf(word(150));
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0].size(), toolTipColumns);
  EXPECT_EQ(lines[2].size(), 30);
}

TEST(ToolTipsTest, ALineThatFitsStaysWhole) {
  EXPECT_EQ(linesOf(word(toolTipColumns)).size(), 1);
  EXPECT_EQ(linesOf(word(30) + QLatin1Char(' ') + word(29)).size(), 1);
  EXPECT_EQ(linesOf(QStringLiteral("eins\r\nzwei")).size(), 2);
}

TEST(ToolTipsTest, ATipIsNeitherATowerNorAsWideAsTheScreen) {
  QWidget window;
  QFont font;
  font.setPixelSize(11);
  window.setFont(font);
  window.setToolTip((word(7) + QLatin1Char(' ')).repeated(30));
  PlainToolTips tips;
  window.installEventFilter(&tips);
  window.resize(200, 100);
  window.show();
  QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), window.mapToGlobal(QPoint(5, 5)));
  QCoreApplication::sendEvent(&window, &event);
  ASSERT_TRUE(QToolTip::isVisible());
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto tip = std::find_if(windows.begin(), windows.end(), [](const QWidget* candidate) {
    return candidate->inherits("QTipLabel") && candidate->isVisible();
  });
  ASSERT_NE(tip, windows.end());
  const int character = QFontMetrics(font).horizontalAdvance(word(1));
  EXPECT_GT((*tip)->width(), 40 * character);
  EXPECT_LT((*tip)->width(), 70 * character);
  QToolTip::hideText();
}

TEST(ToolTips, AHintIsShownWhereThereIsNoTip) {
  QWidget widget;
  PlainToolTips tips;
  widget.installEventFilter(&tips);
  giveHint(widget, QStringLiteral("Speichert (F9)."));
  const auto shown = [&] {
    QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(&widget, &event);
    return toolTipText(QToolTip::text());
  };
  EXPECT_EQ(shown(), QStringLiteral("Speichert (F9)."));
  EXPECT_EQ(widget.accessibleDescription(), QStringLiteral("Speichert (F9)."));
  widget.setToolTip(QStringLiteral("Eigener Hinweis"));
  EXPECT_EQ(shown(), QStringLiteral("Eigener Hinweis"));
  QToolTip::hideText();
}

}  // namespace
}  // namespace vexnumkr
