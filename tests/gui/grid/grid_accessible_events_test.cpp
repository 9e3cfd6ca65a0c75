// What a screen reader is told without having asked.
#include <algorithm>
#include <iterator>

#include "gui/grid/grid_fixture.h"
#include "support/screen_reader.h"

namespace vexnumkr::test {
namespace {

using GridAccessibleEventsTest = GridTest;

std::size_t count(const Lines& lines, const std::string& line) {
  return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), line));
}

Lines focusLines(const Lines& lines) {
  Lines found;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
               [](const std::string& line) { return line.rfind("focus ", 0) == 0; });
  return found;
}

std::string lastFocus(const Lines& lines) {
  const Lines found = focusLines(lines);
  return found.empty() ? std::string() : found.back();
}

TEST_F(GridAccessibleEventsTest, TheFocusFollowsTheCurrentRow) {
  ScreenReader reader;
  press(Qt::Key_Down);
  EXPECT_EQ(count(reader.heard(), "focus Gruppe 0"), 1U);
  press(Qt::Key_Down);
  EXPECT_EQ(count(reader.heard(), "focus Filiale 0"), 1U);
}

TEST_F(GridAccessibleEventsTest, TheFocusIsToldWhenItComesToTheGrid) {
  grid->ListIndex(2);
  other->setFocus();
  ScreenReader reader;
  view().setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(lastFocus(reader.heard()), "focus Filiale 1");
}

TEST_F(GridAccessibleEventsTest, ATickIsTold) {
  cell(2, column::Beschreibung);
  ScreenReader reader;
  grid->ItemPicture(2, pictureHandle(PictureKind::CheckedBox));
  EXPECT_EQ(count(reader.heard(), "checked Filiale 1"), 2U);  // the row's and the box's
}

TEST_F(GridAccessibleEventsTest, AValueIsTold) {
  ScreenReader reader;
  grid->List(2, column::Aktuell, 4711);
  EXPECT_EQ(reader.heard(), (Lines{"name 4711", "value 4711"}));
  grid->List(2, column::Type, "hidden");
  EXPECT_EQ(reader.heard(), Lines{});
}

TEST_F(GridAccessibleEventsTest, ClosingAGroupIsTold) {
  grid->ListIndex(0);
  ScreenReader reader;
  press(Qt::Key_Minus);
  const Lines lines = reader.heard();
  EXPECT_GE(count(lines, "expanded Gruppe 0"), 1U);
  EXPECT_GE(count(lines, "rows Nummernkreise"), 1U);
}

TEST_F(GridAccessibleEventsTest, ARebuiltListIsToldAsOneChange) {
  grid->ListIndex(2);
  ScreenReader reader;
  rebuild(2, groupSize - 1, 2);
  const Lines lines = reader.heard();
  EXPECT_EQ(count(lines, "rows Nummernkreise"), 1U);
  EXPECT_EQ(count(lines, "focus Filiale 1"), 1U);
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& line) { return line.rfind("rows", 0) != 0; }),
            1);
}

TEST_F(GridAccessibleEventsTest, TheFocusGoesToTheEditorAndBack) {
  grid->ListIndex(2);
  QCoreApplication::processEvents();
  ScreenReader reader;
  grid->StartEdit(2, column::Start);
  EXPECT_EQ(count(reader.heard(), "focus Start, Filiale 1, Gruppe 0"), 1U);
  press(Qt::Key_Escape);
  QCoreApplication::processEvents();
  const Lines lines = reader.heard();
  EXPECT_EQ(count(lines, "focus Filiale 1"), 1U);
  EXPECT_EQ(lastFocus(lines), "focus Filiale 1");
}

TEST_F(GridAccessibleEventsTest, GoingFromCellToCellTellsOfTheCellsAlone) {
  handler.onEditorKey = [&](std::int16_t& key, std::int16_t) {
    key = 0;
    ASSERT_TRUE(grid->EndEdit(true));
    grid->ListIndex(3);
    grid->StartEdit(3, column::Aktuell);
  };
  grid->StartEdit(2, column::Start);
  ScreenReader reader;
  press(Qt::Key_Tab);
  QCoreApplication::processEvents();
  const Lines lines = reader.heard();
  EXPECT_EQ(focusLines(lines), Lines{"focus Aktuell, Filiale 2, Gruppe 0"});
  EXPECT_GE(count(lines, "name Aktuell, Filiale 2, Gruppe 0"), 1U);
  EXPECT_TRUE(editorHasFocus());
}

TEST_F(GridAccessibleEventsTest, AKeyThatOnlyEndsTheEditGivesTheFocusBack) {
  handler.onEditorKey = [&](std::int16_t& key, std::int16_t) {
    key = 0;
    ASSERT_TRUE(grid->EndEdit(true));
  };
  grid->StartEdit(2, column::Start);
  press(Qt::Key_Return);
  EXPECT_TRUE(view().hasFocus());
  EXPECT_EQ(editor(), nullptr);
  EXPECT_FALSE(view().viewport()->findChild<QLineEdit*>()->isVisible());
}

}  // namespace
}  // namespace vexnumkr::test
