// The editor as the user meets it.
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>

#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

TEST_F(GridTest, StartEditOpensTheCellWithItsWholeTextSelected) {
  grid->StartEdit(2, column::Start);
  ASSERT_TRUE(editorHasFocus());
  EXPECT_TRUE(editor()->isVisible());
  EXPECT_EQ(editor()->text(), QStringLiteral("1002"));
  EXPECT_EQ(editor()->selectedText(), QStringLiteral("1002"));
  EXPECT_EQ(grid->ListIndex(), 2);
  EXPECT_TRUE(cellRect(2, column::Start).contains(editor()->geometry()));
  EXPECT_EQ(editor()->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
  EXPECT_EQ(events(), Lines{});
}

TEST_F(GridTest, StartEditShowsTheItem) {
  rebuild(20, 5, -1);
  view().collapseAll();
  grid->StartEdit(100, column::Start);
  EXPECT_TRUE(inSight(100));
  EXPECT_TRUE(view().viewport()->rect().contains(editor()->geometry()));
}

TEST_F(GridTest, AGroupsCellOpensToo) {
  grid->StartEdit(0, column::Aktuell);
  ASSERT_TRUE(editorHasFocus());
  EXPECT_EQ(editor()->text(), QString());
  press(Qt::Key_Return);
  EXPECT_EQ(events(), Lines{"editor key 13 0 0 3"});
}

TEST_F(GridTest, AHiddenColumnOpensNoEditor) {
  grid->StartEdit(2, column::NSchl);
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(grid->ListIndex(), 2);
}

TEST_F(GridTest, ACellThatDoesNotExistIsError9) {
  EXPECT_THROW(grid->StartEdit(-1, column::Start), Error);
  EXPECT_THROW(grid->StartEdit(8, column::Start), Error);
  EXPECT_THROW(grid->StartEdit(1, 8), Error);
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(grid->ListIndex(), -1);
}

TEST_F(GridTest, EnterKeepsTheText) {
  grid->StartEdit(2, column::Start);
  type("77");
  press(Qt::Key_Return);
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(grid->List(2, column::Start), "77");
  EXPECT_TRUE(grid->widget()->hasFocus());
  EXPECT_EQ(QApplication::focusWidget(), grid->widget());
  EXPECT_EQ(events(), (Lines{"editor key 55 0 2 2", "editor key 55 0 2 2", "editor key 13 0 2 2",
                             "edited 2 2 77"}));
}

TEST_F(GridTest, EscapeDropsTheTextAndStaysInTheDialog) {
  grid->StartEdit(2, column::Start);
  type("77");
  press(Qt::Key_Escape);
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(grid->List(2, column::Start), "1002");
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(QApplication::focusWidget(), grid->widget());
  EXPECT_EQ(grid->ListIndex(), 2);
}

TEST_F(GridTest, EnterInTheEditorPressesNoButton) {
  QSignalSpy pressed(ok, &QPushButton::clicked);
  grid->StartEdit(2, column::Start);
  press(Qt::Key_Enter);
  EXPECT_EQ(pressed.count(), 0);
  EXPECT_FALSE(grid->isEditing());
}

TEST_F(GridTest, AnUntouchedTextEndsSilently) {
  grid->StartEdit(2, column::Maske);
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(grid->List(2, column::Maske), " ");
  grid->StartEdit(2, column::Start);
  type("9");
  press(Qt::Key_Backspace);
  type("1002");
  (void)events();
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_EQ(events(), Lines{});
}

TEST_F(GridTest, EndEditWithoutAnEditIsTrue) {
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_TRUE(grid->EndEdit(false));
}

TEST_F(GridTest, KeysThatMoveNowhereDoNothing) {
  grid->StartEdit(2, column::Start);
  type("55");
  (void)events();
  press(Qt::Key_Tab);
  press(Qt::Key_Backtab, Qt::ShiftModifier);
  press(Qt::Key_Tab, Qt::ControlModifier);
  press(Qt::Key_Left, Qt::ControlModifier);
  press(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_TRUE(editorHasFocus());
  EXPECT_EQ(editor()->text(), QStringLiteral("55"));
  EXPECT_EQ(editor()->cursorPosition(), 2);
  EXPECT_EQ(events(), (Lines{"editor key 9 0 2 2", "editor key 9 1 2 2", "editor key 9 2 2 2",
                             "editor key 37 2 2 2", "editor key 39 2 2 2"}));
}

TEST_F(GridTest, TheArrowsMoveTheCaretAndNotTheItem) {
  grid->StartEdit(2, column::Start);
  press(Qt::Key_Home);
  press(Qt::Key_Right);
  EXPECT_EQ(editor()->cursorPosition(), 1);
  press(Qt::Key_Left);
  EXPECT_EQ(editor()->cursorPosition(), 0);
  for (const auto key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_F10}) press(key);
  EXPECT_TRUE(editorHasFocus());
  EXPECT_EQ(grid->ListIndex(), 2);
  for (const std::string& line : events()) EXPECT_TRUE(line.starts_with("editor key")) << line;
}

TEST_F(GridTest, AClickIntoTheEditorOnlyMovesTheCaret) {
  grid->StartEdit(2, column::Start);
  click(editor()->geometry().center());
  EXPECT_TRUE(editorHasFocus());
  EXPECT_EQ(editor()->selectedText(), QString());
  click(QPoint(cellRect(2, column::Start).center().x(), cellRect(2, column::Start).bottom()));
  EXPECT_TRUE(editorHasFocus());
  EXPECT_EQ(events(), Lines{});
}

TEST_F(GridTest, AClickElsewhereKeepsTheTextAndTakesPlace) {
  grid->StartEdit(2, column::Start);
  type("8");
  (void)events();
  click(pictureOf(1));
  EXPECT_EQ(events(), (Lines{"edited 2 2 8", "click 1 1 picture 1"}));
  EXPECT_EQ(grid->List(2, column::Start), "8");
  EXPECT_EQ(grid->ListIndex(), 1);
  EXPECT_FALSE(grid->isEditing());
}

TEST_F(GridTest, AClickOnTheEditedItemsPictureEndsTheEditToo) {
  grid->StartEdit(2, column::Beschreibung);
  click(pictureOf(2));
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(events(), Lines{"click 2 1 picture 1"});
}

TEST_F(GridTest, AClickBelowTheItemsEndsTheEdit) {
  grid->StartEdit(2, column::Start);
  type("8");
  (void)events();
  click(view().viewport()->rect().bottomLeft() + QPoint(20, -5));
  EXPECT_EQ(events(), Lines{"edited 2 2 8"});
  EXPECT_FALSE(grid->isEditing());
}

TEST_F(GridTest, ARefusedTextStaysWithItsWholeSelected) {
  handler.onAfterEdit = [](bool& cancel, std::string&) { cancel = true; };
  grid->StartEdit(2, column::Start);
  type("abc");
  EXPECT_FALSE(grid->EndEdit(true));
  ASSERT_TRUE(editorHasFocus());
  EXPECT_EQ(editor()->selectedText(), QStringLiteral("abc"));
  EXPECT_EQ(grid->List(2, column::Start), "1002");
}

TEST_F(GridTest, ARefusedTextStopsTheClick) {
  handler.onAfterEdit = [](bool& cancel, std::string&) { cancel = true; };
  grid->StartEdit(2, column::Start);
  type("a");
  (void)events();
  click(pictureOf(5));
  EXPECT_EQ(events(), Lines{"edited 2 2 a"});
  EXPECT_EQ(grid->ListIndex(), 2);
  EXPECT_TRUE(editorHasFocus());
  click(arrowOf(4));
  EXPECT_TRUE(view().isExpanded(cell(4, column::Beschreibung)));
}

TEST_F(GridTest, AHandlerMayAlterTheText) {
  handler.onAfterEdit = [](bool&, std::string& text) { text = text.empty() ? " " : text + "!"; };
  grid->StartEdit(2, column::Maske);
  press(Qt::Key_Delete);
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_EQ(grid->List(2, column::Maske), " ");
  grid->StartEdit(2, column::Maske);
  type("J");
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_EQ(grid->List(2, column::Maske), "J!");
}

TEST_F(GridTest, TheEditorStaysOpenWhileTheFocusIsElsewhere) {
  grid->StartEdit(2, column::Start);
  type("5");
  other->setFocus();
  EXPECT_TRUE(grid->isEditing());
  EXPECT_TRUE(editor()->isVisible());
  QDialog another;
  another.show();
  another.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&another));
  EXPECT_TRUE(grid->isEditing());
  another.close();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_EQ(editor()->text(), QStringLiteral("5"));
  EXPECT_EQ(QApplication::focusWidget(), other);
  grid->widget()->setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(editorHasFocus());
}

TEST_F(GridTest, AnEditEndedFromElsewhereLeavesTheFocusThere) {
  grid->StartEdit(2, column::Start);
  other->setFocus();
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_EQ(QApplication::focusWidget(), other);
}

TEST_F(GridTest, ARefusalFetchesTheFocusBack) {
  handler.onAfterEdit = [](bool& cancel, std::string&) { cancel = true; };
  grid->StartEdit(2, column::Start);
  type("a");
  other->setFocus();
  EXPECT_FALSE(grid->EndEdit(true));
  EXPECT_TRUE(editorHasFocus());
}

TEST_F(GridTest, TheEditorFollowsItsCell) {
  rebuild(20, 5, -1);
  grid->StartEdit(9, column::Aktuell);
  const auto follows = [&] { return cellRect(9, column::Aktuell).contains(editor()->geometry()); };
  ASSERT_TRUE(follows());
  view().verticalScrollBar()->setValue(40);
  EXPECT_TRUE(follows());
  view().verticalScrollBar()->setValue(1000);
  EXPECT_FALSE(view().viewport()->rect().intersects(editor()->geometry()));
  EXPECT_TRUE(editorHasFocus());
  view().verticalScrollBar()->setValue(0);
  EXPECT_TRUE(follows());
  grid->ColWidth(column::Start, 120);
  EXPECT_TRUE(follows());
  view().header()->resizeSection(2, 60);
  EXPECT_TRUE(follows());
  EXPECT_GE(editor()->width(), 58);
  grid->Position({150, 150, 9000, 3000});
  QCoreApplication::processEvents();
  EXPECT_TRUE(follows());
  view().collapse(cell(0, column::Beschreibung));
  EXPECT_TRUE(follows());
  view().collapse(cell(6, column::Beschreibung));
  EXPECT_FALSE(view().viewport()->rect().intersects(editor()->geometry()));
  view().expand(cell(6, column::Beschreibung));
  EXPECT_TRUE(follows());
}

TEST_F(GridTest, TheEditorTakesTheFontItIsGiven) {
  grid->ItemEditFont({"Liberation Serif", 12, true});
  grid->StartEdit(2, column::Start);
  EXPECT_EQ(editor()->font().family(), QStringLiteral("Liberation Serif"));
  EXPECT_EQ(editor()->font().pixelSize(), 16);
  EXPECT_TRUE(editor()->font().bold());
}

TEST_F(GridTest, ClearDropsTheEdit) {
  grid->StartEdit(2, column::Start);
  type("9");
  (void)events();
  grid->Clear();
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(events(), Lines{});
  EXPECT_EQ(QApplication::focusWidget(), grid->widget());
}

TEST_F(GridTest, AnEditBegunInAnUpdateIsShownAtItsEnd) {
  grid->BeginUpdate();
  grid->Clear();
  fill(20, 5);
  grid->StartEdit(100, column::Start);
  EXPECT_TRUE(grid->isEditing());
  grid->EndUpdate();
  EXPECT_TRUE(editorHasFocus());
  EXPECT_TRUE(cellRect(100, column::Start).contains(editor()->geometry()));
  EXPECT_TRUE(inSight(100));
}

TEST_F(GridTest, GoingToTheFirstRangeShowsItsHeadingToo) {
  rebuild(12, 5, -1);
  grid->StartEdit(60, column::Start);
  ASSERT_FALSE(inSight(0));
  grid->StartEdit(1, column::Start);
  EXPECT_TRUE(inSight(0));
  EXPECT_TRUE(inSight(1));
}

TEST_F(GridTest, AClickAnywhereInAValuesCellIsOneIntoTheCell) {
  const QRect mask = cellRect(2, column::Maske);
  click({mask.left() + 1, mask.center().y()});
  EXPECT_EQ(events(), Lines{"click 2 5 cell 1"});
}

}  // namespace
}  // namespace vexnumkr::test
