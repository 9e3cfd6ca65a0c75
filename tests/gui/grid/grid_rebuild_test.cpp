#include <QAbstractItemModelTester>
#include <QScrollBar>

#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

TEST_F(GridTest, ARebuildIsOneResetAndNoOtherSignal) {
  QSignalSpy resets(view().model(), &QAbstractItemModel::modelReset);
  QSignalSpy inserts(view().model(), &QAbstractItemModel::rowsInserted);
  QSignalSpy changes(view().model(), &QAbstractItemModel::dataChanged);
  grid->BeginUpdate();
  rebuild(5, 3, -1);
  grid->CellBackColor(0, column::Beschreibung, 0xF0F0F0);
  EXPECT_EQ(resets.count(), 0);
  EXPECT_FALSE(view().updatesEnabled());
  grid->EndUpdate();
  EXPECT_EQ(resets.count(), 1);
  EXPECT_EQ(inserts.count() + changes.count(), 0);
  EXPECT_TRUE(view().updatesEnabled());
}

TEST_F(GridTest, EverythingIsExpandedAfterARebuild) {
  view().collapseAll();
  rebuild(3, 2, -1);
  ASSERT_TRUE(view().visualRect(cell(8, column::Beschreibung)).isValid());
  for (const int group : {0, 3, 6})
    EXPECT_TRUE(view().isExpanded(cell(group, column::Beschreibung)));
}

TEST_F(GridTest, WhatIsAddedItemByItemIsExpandedToo) {
  QAbstractItemModelTester tester(view().model(),
                                  QAbstractItemModelTester::FailureReportingMode::Fatal);
  addGroup("Neu", 2);
  EXPECT_EQ(grid->ListCount(), 11);
  EXPECT_TRUE(view().isExpanded(cell(8, column::Beschreibung)));
  EXPECT_TRUE(view().visualRect(cell(10, column::Beschreibung)).isValid());
  EXPECT_EQ(grid->ItemLevel(8), 0);
  EXPECT_EQ(grid->ItemLevel(10), 1);
}

TEST_F(GridTest, LevelsChangedLaterKeepTheCurrentItem) {
  grid->ListIndex(6);
  grid->ItemLevel(4, 1);
  EXPECT_EQ(grid->ListIndex(), 6);
  EXPECT_EQ(view().model()->rowCount(), 1);
  EXPECT_TRUE(view().currentIndex().isValid());
}

TEST_F(GridTest, ClearLeavesNoCurrentItem) {
  grid->ListIndex(2);
  grid->Clear();
  EXPECT_EQ(grid->ListCount(), 0);
  EXPECT_EQ(grid->ListIndex(), -1);
}

TEST_F(GridTest, TheScrollPositionOutlivesARebuildWithTheSameCurrentItem) {
  rebuild(50, 4, -1);
  grid->ListIndex(100);
  view().verticalScrollBar()->setValue(777);
  rebuild(50, 4, 100);
  (void)view().visualRect(cell(0, column::Beschreibung));
  EXPECT_EQ(view().verticalScrollBar()->value(), 777);
  EXPECT_EQ(grid->ListIndex(), 100);
  // Two rebuilds before the next paint count like one.
  rebuild(50, 4, 100);
  rebuild(50, 4, 100);
  (void)view().visualRect(cell(0, column::Beschreibung));
  EXPECT_EQ(view().verticalScrollBar()->value(), 777);
}

TEST_F(GridTest, WithoutItsCurrentItemARebuiltListStartsAtTheTop) {
  rebuild(50, 4, -1);
  grid->ListIndex(240);
  ASSERT_GT(view().verticalScrollBar()->value(), 0);
  rebuild(10, 4, 240);
  (void)view().visualRect(cell(0, column::Beschreibung));
  EXPECT_EQ(grid->ListIndex(), -1);
  EXPECT_EQ(view().verticalScrollBar()->value(), 0);
}

TEST_F(GridTest, AnotherCurrentItemIsShownAfterARebuild) {
  rebuild(50, 4, 3);
  rebuild(50, 4, 200);
  EXPECT_TRUE(inSight(200));
  EXPECT_EQ(grid->ListIndex(), 200);
}

TEST_F(GridTest, AnUpdateThatOnlyChangesCellsScrollsNowhere) {
  rebuild(50, 4, -1);
  grid->ListIndex(100);
  view().verticalScrollBar()->setValue(0);
  grid->BeginUpdate();
  grid->ItemPicture(1, pictureHandle(PictureKind::CheckedBox));
  grid->EndUpdate();
  EXPECT_EQ(view().verticalScrollBar()->value(), 0);
  EXPECT_EQ(grid->ListIndex(), 100);
}

TEST_F(GridTest, ListIndexIsKnownDuringAnUpdate) {
  grid->BeginUpdate();
  grid->ListIndex(5);
  EXPECT_EQ(grid->ListIndex(), 5);
  grid->ListIndex(8);
  EXPECT_EQ(grid->ListIndex(), -1);
  grid->ListIndex(5);
  grid->EndUpdate();
  EXPECT_EQ(grid->ListIndex(), 5);
  EXPECT_EQ(view().currentIndex(), cell(5, column::Beschreibung));
}

TEST_F(GridTest, TheCurrentItemIsInSightWhenTheWindowComesUp) {
  window.hide();
  rebuild(50, 4, 200);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  EXPECT_TRUE(inSight(200));
}

TEST_F(GridTest, AHundredThousandItemsKeepTheirOrder) {
  rebuild(20000, 4, 99998);
  ASSERT_EQ(grid->ListCount(), 100000);
  EXPECT_EQ(grid->ListIndex(), 99998);
  EXPECT_TRUE(inSight(99998));
  EXPECT_EQ(grid->List(99998, column::Start), "100998");
  EXPECT_EQ(grid->FindString(0, 2, "100998"), 99998);
  EXPECT_EQ(view().model()->rowCount(), 20000);
  click(textOf(99999, column::Start));
  EXPECT_EQ(events(), Lines{"click 99999 2 cell 1"});
}

TEST_F(GridTest, CellsOutsideTheListAreError9) {
  const auto number = [](const std::function<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  };
  for (const int outside : {-1, 8}) {
    EXPECT_EQ(number([&] { (void)grid->List(outside, column::Beschreibung); }), 9);
    EXPECT_EQ(number([&] { grid->List(outside, column::Beschreibung, "x"); }), 9);
    EXPECT_EQ(number([&] { grid->List(outside, column::Beschreibung, 5); }), 9);
    EXPECT_EQ(number([&] { (void)grid->ItemLevel(outside); }), 9);
    EXPECT_EQ(number([&] { grid->ItemLevel(outside, 1); }), 9);
    EXPECT_EQ(number([&] { (void)grid->ItemPicture(outside); }), 9);
    EXPECT_EQ(number([&] { grid->ItemPicture(outside, noPicture); }), 9);
    EXPECT_EQ(number([&] { (void)grid->CellFont(outside, column::Beschreibung); }), 9);
    EXPECT_EQ(number([&] { grid->CellFontBold(outside, column::Beschreibung, true); }), 9);
    EXPECT_EQ(number([&] { grid->CellBackColor(outside, column::Beschreibung, 0); }), 9);
  }
  EXPECT_EQ(number([&] { (void)grid->List(0, 8); }), 9);
  EXPECT_EQ(number([&] { (void)grid->ColWidth(8); }), 9);
  EXPECT_EQ(number([&] { grid->ColWidth(-1, 5); }), 9);
  EXPECT_TRUE(view().updatesEnabled());
}

}  // namespace
}  // namespace vexnumkr::test
