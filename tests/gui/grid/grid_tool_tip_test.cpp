#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include "adapters/qt/tool_tips.h"
#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

class GridToolTipTest : public GridTest {
 protected:
  QString tipAt(const QPoint& position) {
    QHelpEvent event(QEvent::ToolTip, position, view().viewport()->mapToGlobal(position));
    QApplication::sendEvent(view().viewport(), &event);
    return toolTipText(QToolTip::text());
  }
  void TearDown() override { QToolTip::hideText(); }
};

TEST_F(GridToolTipTest, AFittingTextProposesNothing) {
  EXPECT_EQ(tipAt(textOf(2, column::Start)), QString());
  EXPECT_EQ(events(), Lines{"tip 2 "});
}

TEST_F(GridToolTipTest, ATextThatIsCutOffIsProposedInFull) {
  const std::string longText(60, 'W');
  grid->List(2, column::Maske, longText);
  EXPECT_EQ(tipAt(textOf(2, column::Maske)), QString::fromStdString(longText));
  EXPECT_EQ(events(), Lines{"tip 5 " + longText});
}

TEST_F(GridToolTipTest, TheHandlerHasTheLastWord) {
  handler.onToolTip = [](std::int16_t column, std::string& text) {
    if (column == column::Maske) text = "<b>eins</b>\r\nzwei";
    if (column == column::Start) text = "J%%J --> 24\r\nM=Monat";
  };
  EXPECT_EQ(tipAt(textOf(2, column::Maske)), QStringLiteral("<b>eins</b>\nzwei"));
  EXPECT_EQ(tipAt(textOf(2, column::Start)), QStringLiteral("J%%J --> 24\nM=Monat"));
  handler.onToolTip = [](std::int16_t, std::string& text) { text.clear(); };
  grid->List(2, column::Maske, std::string(60, 'W'));
  (void)tipAt(textOf(2, column::Maske));
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(GridToolTipTest, ThereIsATipOverTheEditorToo) {
  handler.onToolTip = [](std::int16_t, std::string& text) { text = "Maske"; };
  grid->StartEdit(2, column::Maske);
  const QPoint position = editor()->rect().center();
  QHelpEvent event(QEvent::ToolTip, position, editor()->mapToGlobal(position));
  QApplication::sendEvent(editor(), &event);
  EXPECT_EQ(toolTipText(QToolTip::text()), QStringLiteral("Maske"));
}

TEST_F(GridToolTipTest, TheGridsOwnTipIsForWhereNoCellHasOne) {
  grid->ToolTipText("Alle Nummernkreise");
  EXPECT_EQ(tipAt(view().viewport()->rect().bottomLeft() + QPoint(20, -5)),
            QStringLiteral("Alle Nummernkreise"));
  EXPECT_EQ(events(), Lines{});
}

TEST_F(GridToolTipTest, AFailingHandlerLeavesTheProposal) {
  grid->List(2, column::Maske, std::string(60, 'W'));
  handler.onToolTip = [](std::int16_t, std::string&) { throw Error::overflow(); };
  EXPECT_EQ(tipAt(textOf(2, column::Maske)), QString(60, QLatin1Char('W')));
}

}  // namespace
}  // namespace vexnumkr::test
