#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

TEST_F(GridTest, AClickMakesTheItemCurrentBeforeItIsTold) {
  int current = -2;
  handler.onClick = [&] { current = grid->ListIndex(); };
  click(textOf(2, column::Aktuell));
  EXPECT_EQ(events(), Lines{"click 2 3 cell 1"});
  EXPECT_EQ(current, 2);
  EXPECT_EQ(grid->ListIndex(), 2);
}

TEST_F(GridTest, PictureTextAndIndentationAreDifferentAreas) {
  click(pictureOf(1));
  click(textOf(1, column::Beschreibung));
  click(arrowOf(1));
  EXPECT_EQ(events(), (Lines{"click 1 1 picture 1", "click 1 1 cell 1", "click 1 1 other 1"}));
}

TEST_F(GridTest, AnItemWithoutAPictureHasNoPictureArea) {
  grid->ItemPicture(1, noPicture);
  click(pictureOf(1));
  EXPECT_EQ(events(), Lines{"click 1 1 cell 1"});
}

TEST_F(GridTest, EveryMouseButtonClicks) {
  click(textOf(1, column::Start), Qt::RightButton);
  EXPECT_EQ(grid->ListIndex(), 1);
  click(textOf(2, column::Start), Qt::MiddleButton);
  EXPECT_EQ(grid->ListIndex(), 2);
  EXPECT_EQ(events(), (Lines{"click 1 2 cell 2", "click 2 2 cell 4"}));
}

TEST_F(GridTest, TheArrowOpensAndClosesTheGroup) {
  ASSERT_TRUE(view().isExpanded(cell(4, column::Beschreibung)));
  click(arrowOf(4));
  EXPECT_FALSE(view().isExpanded(cell(4, column::Beschreibung)));
  EXPECT_EQ(events(), Lines{"click 4 1 other 1"});
  EXPECT_EQ(grid->ListIndex(), 4);
  EXPECT_EQ(grid->ListCount(), 8);
  click(arrowOf(4));
  EXPECT_TRUE(view().isExpanded(cell(4, column::Beschreibung)));
}

TEST_F(GridTest, ItemNumbersCountTheItemsOfClosedGroups) {
  click(arrowOf(0));
  (void)events();
  click(textOf(5, column::Start));
  EXPECT_EQ(events(), Lines{"click 5 2 cell 1"});
  EXPECT_EQ(grid->ListIndex(), 5);
}

TEST_F(GridTest, AGroupThatClosesOverTheCurrentItemBecomesCurrent) {
  grid->ListIndex(2);
  view().collapse(cell(0, column::Beschreibung));
  EXPECT_EQ(grid->ListIndex(), 0);
}

TEST_F(GridTest, ADoubleClickIsASecondClick) {
  click(textOf(4, column::Beschreibung));
  QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, textOf(4, column::Beschreibung));
  EXPECT_TRUE(view().isExpanded(cell(4, column::Beschreibung)));
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(view().viewport()->findChildren<QLineEdit*>().size(), 1);
  for (const std::string& line : events()) EXPECT_EQ(line, "click 4 1 cell 1");
}

TEST_F(GridTest, AClickBelowTheItemsMeansNothing) {
  grid->ListIndex(1);
  click(view().viewport()->rect().bottomLeft() + QPoint(20, -5));
  EXPECT_EQ(events(), Lines{});
  EXPECT_EQ(grid->ListIndex(), 1);
}

TEST_F(GridTest, DraggingSelectsNothing) {
  QTest::mousePress(view().viewport(), Qt::LeftButton, {}, textOf(1, column::Start));
  QTest::mouseMove(view().viewport(), textOf(5, column::Start));
  QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, textOf(5, column::Start));
  EXPECT_EQ(grid->ListIndex(), 1);
  EXPECT_EQ(view().selectionModel()->selectedRows().size(), 1);
}

TEST_F(GridTest, AHandlerMayEmptyTheGrid) {
  handler.onClick = [&] { grid->Clear(); };
  click(arrowOf(0));
  EXPECT_EQ(grid->ListCount(), 0);
  EXPECT_EQ(grid->ListIndex(), -1);
}

TEST_F(GridTest, AFailingHandlerDoesNotReachTheEventLoop) {
  handler.onClick = [] { throw Error::objectNotSet(); };
  click(textOf(1, column::Start));
  EXPECT_EQ(grid->ListIndex(), 1);
}

TEST_F(GridTest, SelectedMarksTheItemAlone) {
  grid->Selected(3, true);
  ASSERT_EQ(view().selectionModel()->selectedRows().size(), 1);
  EXPECT_EQ(view().selectionModel()->selectedRows().first(), cell(3, column::Beschreibung));
  grid->Selected(3, false);
  EXPECT_FALSE(view().selectionModel()->hasSelection());
  EXPECT_THROW(grid->Selected(8, true), Error);
}

TEST_F(GridTest, TheOtherButtonsCountWhenTheyAreReleased) {
  const QPoint place = textOf(2, column::Start);
  QTest::mousePress(view().viewport(), Qt::RightButton, {}, place);
  EXPECT_EQ(events(), Lines{});
  QTest::mouseRelease(view().viewport(), Qt::RightButton, {}, place);
  EXPECT_EQ(events(), Lines{"click 2 2 cell 2"});
  EXPECT_EQ(grid->ListIndex(), 2);
  QTest::mousePress(view().viewport(), Qt::RightButton, {}, place);
  QTest::mouseRelease(view().viewport(), Qt::RightButton, {}, QPoint(-50, -50));
  EXPECT_EQ(events(), Lines{});
}

}  // namespace
}  // namespace vexnumkr::test
