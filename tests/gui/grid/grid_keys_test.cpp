#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

TEST_F(GridTest, GettingTheFocusChoosesNothing) {
  other->setFocus();
  grid->widget()->setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(grid->widget()->hasFocus());
  EXPECT_EQ(grid->ListIndex(), -1);
  EXPECT_FALSE(view().selectionModel()->hasSelection());
}

TEST_F(GridTest, DownChoosesTheFirstItemWhenThereIsNone) {
  press(Qt::Key_Down);
  EXPECT_EQ(grid->ListIndex(), 0);
  press(Qt::Key_Down);
  EXPECT_EQ(grid->ListIndex(), 1);
  press(Qt::Key_Up);
  EXPECT_EQ(grid->ListIndex(), 0);
  EXPECT_EQ(events(), (Lines{"key 40", "key 40", "key 38"}));
}

TEST_F(GridTest, EndAndPageDownGoTheirWayFromTheTopWhenThereIsNoItem) {
  press(Qt::Key_End);
  EXPECT_EQ(grid->ListIndex(), 7);
  grid->ListIndex(-1);
  press(Qt::Key_Home);
  EXPECT_EQ(grid->ListIndex(), 0);
  rebuild(12, 3, -1);
  press(Qt::Key_PageDown);
  const int page = view().viewport()->height() / cellRect(0, column::Beschreibung).height();
  EXPECT_NEAR(grid->ListIndex(), page, 1);
}

TEST_F(GridTest, KeysThatLeadAsideOrUpLeadNowhereWhenThereIsNoItem) {
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Left, Qt::Key_Right, Qt::Key_Plus,
                            Qt::Key_Minus, Qt::Key_Asterisk}) {
    press(key);
    EXPECT_EQ(grid->ListIndex(), -1) << key;
  }
  EXPECT_TRUE(view().isExpanded(cell(0, column::Beschreibung)));
}

TEST_F(GridTest, AnEmptyListHasNothingToChoose) {
  grid->Clear();
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown}) press(key);
  EXPECT_EQ(grid->ListIndex(), -1);
}

TEST_F(GridTest, TheArrowKeysOpenAndCloseGroups) {
  grid->ListIndex(4);
  press(Qt::Key_Left);
  EXPECT_FALSE(view().isExpanded(cell(4, column::Beschreibung)));
  press(Qt::Key_Right);
  EXPECT_TRUE(view().isExpanded(cell(4, column::Beschreibung)));
  press(Qt::Key_Minus);
  EXPECT_FALSE(view().isExpanded(cell(4, column::Beschreibung)));
  press(Qt::Key_Plus);
  EXPECT_TRUE(view().isExpanded(cell(4, column::Beschreibung)));
  EXPECT_EQ(grid->ListCount(), 8);
}

TEST_F(GridTest, HomeAndEndReachTheOutermostItems) {
  grid->ListIndex(2);
  press(Qt::Key_End);
  EXPECT_EQ(grid->ListIndex(), 7);
  press(Qt::Key_Home);
  EXPECT_EQ(grid->ListIndex(), 0);
}

TEST_F(GridTest, SpaceAndF2AreTheFormsAlone) {
  grid->ListIndex(2);
  grid->Selected(2, false);
  press(Qt::Key_Space);
  press(Qt::Key_Space, Qt::ControlModifier);
  press(Qt::Key_F2);
  EXPECT_EQ(events(), (Lines{"key 32", "key 32", "key 113"}));
  EXPECT_FALSE(view().selectionModel()->hasSelection());
  EXPECT_FALSE(grid->isEditing());
}

TEST_F(GridTest, LettersAreTheFormsTooBeforeTheySearch) {
  grid->ListIndex(1);
  type("x");
  EXPECT_EQ(grid->ListIndex(), 1);
  EXPECT_EQ(events(), Lines{"key 88"});
}

TEST_F(GridTest, FunctionKeysAndDigitsHaveTheirCodes) {
  press(Qt::Key_F1);
  press(Qt::Key_F12);
  press(Qt::Key_7);
  press(Qt::Key_Delete);
  press(Qt::Key_Adiaeresis);
  EXPECT_EQ(events(), (Lines{"key 112", "key 123", "key 55", "key 46", "key 255"}));
}

TEST_F(GridTest, EnterPressesTheDefaultButton) {
  QSignalSpy pressed(ok, &QPushButton::clicked);
  grid->ListIndex(1);
  press(Qt::Key_Return);
  EXPECT_EQ(pressed.count(), 1);
  EXPECT_EQ(events(), Lines{"key 13"});
}

TEST_F(GridTest, EscapeClosesTheDialog) {
  press(Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(events(), Lines{"key 27"});
}

TEST_F(GridTest, TabLeavesTheGrid) {
  press(Qt::Key_Tab);
  EXPECT_FALSE(grid->widget()->hasFocus());
  EXPECT_EQ(grid->ListIndex(), -1);
}

TEST_F(GridTest, AKeyThatOpensTheEditorIsNotTypedIntoIt) {
  grid->ListIndex(1);
  handler.onKey = [&](std::int16_t key) {
    if (key == key_code::f2 || key == 'X') grid->StartEdit(grid->ListIndex(), 2);
  };
  press(Qt::Key_F2);
  ASSERT_TRUE(editorHasFocus());
  EXPECT_EQ(editor()->text(), QStringLiteral("1001"));
  grid->EndEdit(false);
  type("x");
  ASSERT_TRUE(editorHasFocus());
  EXPECT_EQ(editor()->text(), QStringLiteral("1001"));
}

TEST_F(GridTest, AFailingKeyHandlerDoesNotReachTheEventLoop) {
  handler.onKey = [](std::int16_t) { throw Error::overflow(); };
  press(Qt::Key_Down);
  EXPECT_EQ(grid->ListIndex(), 0);
}

TEST_F(GridTest, AListIndexOutsideTheListLeavesNone) {
  for (const int outside : {-1, -7, 8, 4000}) {
    grid->ListIndex(3);
    grid->ListIndex(outside);
    EXPECT_EQ(grid->ListIndex(), -1);
    EXPECT_FALSE(view().currentIndex().isValid());
    EXPECT_FALSE(view().selectionModel()->hasSelection());
  }
}

TEST_F(GridTest, AnItemThatBecomesCurrentIsShown) {
  rebuild(20, 5, -1);
  view().collapseAll();
  grid->ListIndex(100);
  EXPECT_TRUE(view().isExpanded(cell(96, column::Beschreibung)));
  EXPECT_TRUE(inSight(100));
}

}  // namespace
}  // namespace vexnumkr::test
