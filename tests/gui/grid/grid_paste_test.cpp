// What was copied elsewhere and comes into the editor, by every way that there is.
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QToolTip>

#include "adapters/qt/tool_tips.h"
#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

class GridPasteTest : public GridTest {
 protected:
  ~GridPasteTest() override { QGuiApplication::clipboard()->clear(); }

  static void copied(const char* text) {
    QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
  }

  /// What the cell of the first range holds after pasting by keys.
  std::string pasted(const char* text) {
    copied(text);
    grid->StartEdit(2, column::Maske);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(grid->EndEdit(true));
    return grid->List(2, column::Maske);
  }
};

TEST_F(GridPasteTest, LineEndsAndBlanksAroundTheTextGo) {
  EXPECT_EQ(pasted("  4711\r\n"), "4711");
  EXPECT_EQ(pasted("\t4712\n"), "4712");
  EXPECT_EQ(pasted("\u00a04713\u2029"), "4713");
}

TEST_F(GridPasteTest, BreaksInsideOfTheTextBecomeABlank) {
  EXPECT_EQ(pasted("J%%J\r\nNNN"), "J%%J NNN");
  EXPECT_EQ(pasted("1 \t 2\n\n3"), "1 2 3");
}

TEST_F(GridPasteTest, BlanksInsideOfTheTextStay) { EXPECT_EQ(pasted("A  B"), "A  B"); }

TEST_F(GridPasteTest, TheTextGoesWhereTheCaretIs) {
  grid->StartEdit(2, column::Start);
  press(Qt::Key_End);
  copied(" 55\n");
  press(Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(editor()->text(), QStringLiteral("100255"));
}

TEST_F(GridPasteTest, UndoTakesBackWhatWasPastedAlone) {
  grid->StartEdit(2, column::Maske);
  editor()->clear();
  type("AB");
  copied("CD\n");
  press(Qt::Key_V, Qt::ControlModifier);
  type("EF");
  editor()->undo();
  EXPECT_EQ(editor()->text(), QStringLiteral("ABCD"));
  editor()->undo();
  EXPECT_EQ(editor()->text(), QStringLiteral("AB"));
}

TEST_F(GridPasteTest, AColumnMayTakeSoManyCharactersOnlyAndSaysSo) {
  grid->ColTextLimit(column::Maske, 4);
  EXPECT_EQ(pasted("J%%JNNN"), "J%%J");
  EXPECT_EQ(toolTipText(QToolTip::text()), QStringLiteral("höchstens 4 Zeichen"));
  QToolTip::hideText();
  grid->StartEdit(2, column::Maske);
  type("12345");
  EXPECT_EQ(editor()->text(), QStringLiteral("1234"));
  EXPECT_EQ(toolTipText(QToolTip::text()), QStringLiteral("höchstens 4 Zeichen"));
  EXPECT_EQ(pasted("12"), "12");
}

TEST_F(GridPasteTest, TextsThatAreLongerAlreadyAreNotCut) {
  grid->List(2, column::Maske, "JJJJMMNNN");
  grid->ColTextLimit(column::Maske, 4);
  grid->StartEdit(2, column::Maske);
  EXPECT_EQ(editor()->text(), QStringLiteral("JJJJMMNNN"));
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_EQ(grid->List(2, column::Maske), "JJJJMMNNN");
}

TEST_F(GridPasteTest, TypedBlanksStay) {
  grid->StartEdit(2, column::Maske);
  type(" M ");
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_EQ(grid->List(2, column::Maske), " M ");
}

TEST_F(GridPasteTest, ADroppedTextIsTreatedAlike) {
  grid->StartEdit(2, column::Maske);
  editor()->clear();
  QMimeData data;
  data.setText(QStringLiteral(" JJNN\r\n"));
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(editor(), &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(editor(), &drop);
  EXPECT_EQ(editor()->text(), QStringLiteral("JJNN"));
}

}  // namespace
}  // namespace vexnumkr::test
