// Rows that are copied as lines of tab-separated texts, and pasted.
#include <QApplication>
#include <QClipboard>
#include <algorithm>

#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

class GridRowCopyTest : public GridTest {
 protected:
  ~GridRowCopyTest() override { QGuiApplication::clipboard()->clear(); }

  void paste(int item, const char* copied) {
    QGuiApplication::clipboard()->setText(QString::fromUtf8(copied));
    grid->ListIndex(item);
    view().setFocus();
    press(Qt::Key_V, Qt::ControlModifier);
  }

  Lines edited() {
    Lines lines = events();
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const std::string& line) { return line.rfind("key", 0) == 0; }),
                lines.end());
    return lines;
  }
};

TEST_F(GridRowCopyTest, ARowIsCopiedWithoutTheBlanksOfItsCells) {
  grid->List(2, column::Aktuell, "1010");
  grid->ListIndex(2);
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Filiale 1\t1002\t1010\t\t"));
}

TEST_F(GridRowCopyTest, WithoutACurrentItemNothingIsCopied) {
  QGuiApplication::clipboard()->setText(QStringLiteral("vorher"));
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("vorher"));
}

TEST_F(GridRowCopyTest, ValuesGoIntoTheCellsAsIfTheyWereTyped) {
  paste(2, " 10\t20\t30\tJJNN\r\n40\t50");
  EXPECT_EQ(edited(),
            (Lines{"edited 2 2 10", "edited 2 3 20", "edited 2 4 30", "edited 2 5 JJNN"}));
  EXPECT_EQ(grid->List(2, column::Start) + grid->List(2, column::Maske), "10JJNN");
  EXPECT_FALSE(grid->isEditing());
  EXPECT_TRUE(view().hasFocus());
}

TEST_F(GridRowCopyTest, FewerValuesLeaveTheOtherCells) {
  grid->List(2, column::Ende, "99");
  paste(2, "10\t20");
  EXPECT_EQ(edited(), (Lines{"edited 2 2 10", "edited 2 3 20"}));
  EXPECT_EQ(grid->List(2, column::Ende), "99");
}

TEST_F(GridRowCopyTest, ACopiedRowComesWithoutItsCaption) {
  grid->List(3, column::Aktuell, "1010");
  grid->ListIndex(3);
  press(Qt::Key_C, Qt::ControlModifier);
  paste(2, QGuiApplication::clipboard()->text().toUtf8().constData());
  EXPECT_EQ(grid->List(2, column::Beschreibung), "Filiale 1");
  EXPECT_EQ(grid->List(2, column::Start), "1003");
  EXPECT_EQ(grid->List(2, column::Aktuell), "1010");
}

TEST_F(GridRowCopyTest, ARefusedValueStaysOpenAndStopsTheOthers) {
  handler.onAfterEdit = [](bool& cancel, std::string& text) { cancel = text == "zwanzig"; };
  paste(2, "10\tzwanzig\t30");
  EXPECT_EQ(edited(), (Lines{"edited 2 2 10", "edited 2 3 zwanzig"}));
  ASSERT_TRUE(editorHasFocus());
  EXPECT_EQ(editor()->selectedText(), QStringLiteral("zwanzig"));
  EXPECT_EQ(grid->List(2, column::Ende), "");
}

TEST_F(GridRowCopyTest, WhatTakesNoEntriesTakesNone) {
  paste(0, "10\t20");
  grid->AcceptsEntries(false);
  paste(2, "10\t20");
  grid->AcceptsEntries(true);
  paste(2, " \r\n");
  EXPECT_EQ(edited(), Lines{});
  EXPECT_EQ(grid->List(2, column::Start), "1002");
}

}  // namespace
}  // namespace vexnumkr::test
