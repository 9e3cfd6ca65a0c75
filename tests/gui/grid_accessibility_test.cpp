#include <QAccessible>

#include "gui/grid_fixture.h"

namespace vexnumkr::test {
namespace {

class GridAccessibilityTest : public GridTest {
 protected:
  QAccessibleInterface* table() { return QAccessible::queryAccessibleInterface(&view()); }
  QAccessibleInterface* cellAt(int row, int column) {
    return table()->tableInterface()->cellAt(row, column);
  }
};

TEST_F(GridAccessibilityTest, TheGridIsANamedTreeOfRowsAndColumns) {
  ASSERT_NE(table(), nullptr);
  EXPECT_EQ(table()->role(), QAccessible::Tree);
  EXPECT_EQ(table()->text(QAccessible::Name), QStringLiteral("Nummernkreise"));
  ASSERT_NE(table()->tableInterface(), nullptr);
  EXPECT_EQ(table()->tableInterface()->columnCount(), 5);
  EXPECT_EQ(table()->tableInterface()->rowCount(), 8);
  EXPECT_EQ(table()->tableInterface()->columnDescription(1), QStringLiteral("Start"));
}

TEST_F(GridAccessibilityTest, CellsTellTheirValues) {
  EXPECT_EQ(cellAt(2, 1)->text(QAccessible::Name), QStringLiteral("1002"));
  EXPECT_EQ(cellAt(0, 0)->text(QAccessible::Name), QStringLiteral("Gruppe 0"));
  EXPECT_TRUE(cellAt(0, 0)->state().expandable);
  EXPECT_TRUE(cellAt(0, 0)->state().expanded);
  EXPECT_FALSE(cellAt(2, 0)->state().expandable);
}

TEST_F(GridAccessibilityTest, PicturesAreToldAsStates) {
  EXPECT_TRUE(cellAt(2, 0)->state().checkable);
  EXPECT_FALSE(cellAt(2, 0)->state().checked);
  EXPECT_EQ(cellAt(2, 0)->text(QAccessible::Description), QStringLiteral("nicht aktiviert"));
  grid->ItemPicture(2, pictureHandle(PictureKind::CheckedBox));
  EXPECT_TRUE(cellAt(2, 0)->state().checked);
  EXPECT_EQ(cellAt(2, 0)->text(QAccessible::Description), QStringLiteral("aktiviert"));
  grid->ItemPicture(2, pictureHandle(PictureKind::NotFound));
  EXPECT_FALSE(cellAt(2, 0)->state().checkable);
  EXPECT_EQ(cellAt(2, 0)->text(QAccessible::Description), QStringLiteral("keine Zuordnung"));
  EXPECT_FALSE(cellAt(0, 0)->state().checkable);
}

TEST_F(GridAccessibilityTest, TheCurrentRowIsSelected) {
  grid->ListIndex(3);
  EXPECT_TRUE(cellAt(3, 1)->state().selected);
  EXPECT_FALSE(cellAt(2, 1)->state().selected);
}

TEST_F(GridAccessibilityTest, TheEditorIsNamedAfterItsColumn) {
  grid->StartEdit(2, 2);
  QAccessibleInterface* line = QAccessible::queryAccessibleInterface(editor());
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->role(), QAccessible::EditableText);
  EXPECT_EQ(line->text(QAccessible::Name), QStringLiteral("Start"));
}

}  // namespace
}  // namespace vexnumkr::test
