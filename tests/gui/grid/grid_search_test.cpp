// Finding an item by typing, and by the search field.
#include <QApplication>
#include <QLabel>

#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

class GridSearchTest : public GridTest {
 protected:
  void SetUp() override {
    GridTest::SetUp();
    grid->List(2, column::Beschreibung, "Ulm");
    grid->List(6, column::Beschreibung, "Ulm-Nord");
    grid->List(7, column::Beschreibung, "Dresden");
    view().setFocus();
  }
  QLineEdit& field() const { return *window.findChild<QLineEdit*>(QStringLiteral("searchField")); }
  std::string result() const {
    return window.findChild<QLabel*>(QStringLiteral("searchResult"))->text().toStdString();
  }
  void openField() { press(Qt::Key_F, Qt::ControlModifier); }
  void inField(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&field(), key, modifiers);
  }
};

TEST_F(GridSearchTest, TypingGoesToTheNextItemThatBeginsSo) {
  type("d");
  EXPECT_EQ(grid->ListIndex(), 7);
  EXPECT_TRUE(inSight(7));
}

TEST_F(GridSearchTest, WhatIsTypedQuicklyIsOneWord) {
  type("ulm-");
  EXPECT_EQ(grid->ListIndex(), 6);
}

TEST_F(GridSearchTest, KeysOfCommandsAreNoWords) {
  grid->ListIndex(1);
  press(Qt::Key_D, Qt::ControlModifier);
  press(Qt::Key_D, Qt::AltModifier);
  press(Qt::Key_Space);
  EXPECT_EQ(grid->ListIndex(), 1);
}

TEST_F(GridSearchTest, TheFieldFindsAnywhereInACaption) {
  openField();
  ASSERT_TRUE(field().isVisible());
  EXPECT_TRUE(field().hasFocus());
  QTest::keyClicks(&field(), QStringLiteral("ESD"));
  EXPECT_EQ(grid->ListIndex(), 7);
  EXPECT_EQ(result(), "1 von 1");
  EXPECT_EQ(grid->ListCount(), 8) << "nothing is filtered";
}

TEST_F(GridSearchTest, EnterGoesOnAndShiftEnterBackRoundTheEnds) {
  openField();
  QTest::keyClicks(&field(), QStringLiteral("ulm"));
  EXPECT_EQ(grid->ListIndex(), 2);
  EXPECT_EQ(result(), "1 von 2");
  inField(Qt::Key_Return);
  EXPECT_EQ(grid->ListIndex(), 6);
  EXPECT_EQ(result(), "2 von 2");
  inField(Qt::Key_F3);
  EXPECT_EQ(grid->ListIndex(), 2);
  inField(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(grid->ListIndex(), 6);
  EXPECT_TRUE(window.isVisible()) << "Enter pressed no button";
}

TEST_F(GridSearchTest, AGroupThatIsFoundShowsItsRows) {
  rebuild(20, 3, 0);
  grid->List(12 * groupSize, column::Beschreibung, "Proforma");
  type("prof");
  EXPECT_EQ(grid->ListIndex(), 12 * groupSize);
  EXPECT_TRUE(inSight(12 * groupSize));
  EXPECT_TRUE(inSight(12 * groupSize + 3));
  openField();
  QTest::keyClicks(&field(), QStringLiteral("gruppe 15"));
  EXPECT_EQ(grid->ListIndex(), 15 * groupSize);
  EXPECT_TRUE(inSight(15 * groupSize));
  EXPECT_TRUE(inSight(15 * groupSize + 3));
}

TEST_F(GridSearchTest, AClosedGroupThatIsFoundStaysClosed) {
  rebuild(20, 3, 0);
  grid->List(12 * groupSize, column::Beschreibung, "Proforma");
  grid->ListIndex(12 * groupSize);
  press(Qt::Key_Left);
  grid->ListIndex(0);
  type("prof");
  EXPECT_EQ(grid->ListIndex(), 12 * groupSize);
  EXPECT_FALSE(view().isExpanded(cell(12 * groupSize, column::Beschreibung)));
}

TEST_F(GridSearchTest, TheFieldDoesNotStandOverWhatItHasFound) {
  rebuild(20, 3, 0);
  grid->List(7 * groupSize + 2, column::Beschreibung, "Ulm");
  grid->ListIndex(19 * groupSize + 3);
  openField();
  QTest::keyClicks(&field(), QStringLiteral("lm"));
  EXPECT_EQ(grid->ListIndex(), 7 * groupSize + 2);
  const QRect row = cellRect(7 * groupSize + 2, column::Maske)
                        .translated(view().viewport()->mapTo(&window, QPoint()));
  const QWidget& search = *field().parentWidget();
  EXPECT_FALSE(row.intersects(QRect(search.mapTo(&window, QPoint()), search.size())));
}

TEST_F(GridSearchTest, WhatIsNotThereIsSaidAndChoosesNothing) {
  grid->ListIndex(1);
  openField();
  QTest::keyClicks(&field(), QStringLiteral("xyz"));
  EXPECT_EQ(result(), "nichts gefunden");
  EXPECT_EQ(field().accessibleDescription(), QStringLiteral("nichts gefunden"));
  EXPECT_EQ(grid->ListIndex(), 1);
}

TEST_F(GridSearchTest, AMatchInAClosedGroupIsShown) {
  view().collapseAll();
  openField();
  QTest::keyClicks(&field(), QStringLiteral("dresden"));
  EXPECT_TRUE(inSight(7));
}

TEST_F(GridSearchTest, EscapeGoesBackToTheListAndLeavesTheDialogOpen) {
  openField();
  inField(Qt::Key_Escape);
  EXPECT_FALSE(field().isVisible());
  EXPECT_TRUE(view().hasFocus());
  EXPECT_TRUE(window.isVisible());
}

TEST_F(GridSearchTest, TurningToSomethingElseClosesIt) {
  openField();
  other->setFocus();
  EXPECT_FALSE(field().isVisible());
}

TEST_F(GridSearchTest, AnOpenEntryIsKeptFirst) {
  grid->StartEdit(2, column::Start);
  type("55");
  press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(grid->List(2, column::Start), "55");
  EXPECT_TRUE(field().hasFocus());
}

TEST_F(GridSearchTest, ARefusedEntryKeepsItClosed) {
  handler.onAfterEdit = [](bool& cancel, std::string&) { cancel = true; };
  grid->StartEdit(2, column::Start);
  type("55");
  press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_FALSE(field().isVisible());
  EXPECT_TRUE(editorHasFocus());
}

}  // namespace
}  // namespace vexnumkr::test
