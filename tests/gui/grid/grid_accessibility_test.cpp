// The grid as a screen reader finds it, and as it can work it.
#include <QAccessible>
#include <QHeaderView>

#include "gui/grid/grid_fixture.h"
#include "support/screen_reader.h"

namespace vexnumkr::test {
namespace {

using Actions = QAccessibleActionInterface;

class GridAccessibilityTest : public GridTest {
 protected:
  QAccessibleInterface* tree() { return QAccessible::queryAccessibleInterface(&view()); }
  QAccessibleTableInterface* table() { return tree()->tableInterface(); }
  QAccessibleInterface* cellAt(int row, int column) {
    return table()->cellAt(row, sectionOf(column));
  }
  Actions* actionsAt(int row, int column) { return cellAt(row, column)->actionInterface(); }
  void setPicture(int item, PictureKind kind) { grid->ItemPicture(item, pictureHandle(kind)); }
};

QString name(QAccessibleInterface* part) { return part->text(QAccessible::Name); }
QString description(QAccessibleInterface* part) { return part->text(QAccessible::Description); }

TEST_F(GridAccessibilityTest, TheGridIsANamedTreeOfRowsAndColumns) {
  ASSERT_NE(tree(), nullptr);
  EXPECT_EQ(tree()->role(), QAccessible::Tree);
  EXPECT_EQ(name(tree()), QStringLiteral("Nummernkreise"));
  ASSERT_NE(table(), nullptr);
  EXPECT_EQ(table()->columnCount(), 5);
  EXPECT_EQ(table()->rowCount(), 8);
  EXPECT_EQ(table()->columnDescription(1), QStringLiteral("Start"));
  EXPECT_EQ(table()->rowDescription(2), QStringLiteral("Filiale 1"));
  EXPECT_EQ(table()->cellAt(8, 0), nullptr);
  EXPECT_EQ(table()->cellAt(0, 5), nullptr);
}

TEST_F(GridAccessibilityTest, EveryChildKnowsItsPlace) {
  ASSERT_EQ(tree()->childCount(), (8 + 1) * 5);
  for (int index = 0; index < tree()->childCount(); ++index) {
    QAccessibleInterface* child = tree()->child(index);
    ASSERT_NE(child, nullptr) << index;
    EXPECT_TRUE(child->isValid()) << index;
    EXPECT_EQ(child->parent(), tree()) << index;
    EXPECT_EQ(tree()->indexOfChild(child), index);
    EXPECT_EQ(tree()->child(index), child) << index;
  }
  EXPECT_EQ(tree()->child(-1), nullptr);
  EXPECT_EQ(tree()->child(tree()->childCount()), nullptr);
}

TEST_F(GridAccessibilityTest, ColumnsHaveHeaders) {
  QAccessibleInterface* header = tree()->child(3);
  EXPECT_EQ(header->role(), QAccessible::ColumnHeader);
  EXPECT_EQ(name(header), QStringLiteral("Ende"));
  const auto headers = cellAt(2, column::Ende)->tableCellInterface()->columnHeaderCells();
  ASSERT_EQ(headers.size(), 1);
  EXPECT_EQ(headers.front(), header);
}

TEST_F(GridAccessibilityTest, CellsTellTheirValuesAndTheirPlace) {
  QAccessibleInterface* cell = cellAt(2, column::Start);
  EXPECT_EQ(cell->role(), QAccessible::Cell);
  EXPECT_EQ(name(cell), QStringLiteral("1002"));
  EXPECT_EQ(cell->text(QAccessible::Value), QStringLiteral("1002"));
  EXPECT_EQ(description(cell), QStringLiteral("Start, Filiale 1, Gruppe 0"));
  QAccessibleTableCellInterface* place = cell->tableCellInterface();
  ASSERT_NE(place, nullptr);
  EXPECT_EQ(place->rowIndex(), 2);
  EXPECT_EQ(place->columnIndex(), 1);
  EXPECT_EQ(place->table(), tree());
  ASSERT_EQ(place->rowHeaderCells().size(), 1);
  EXPECT_EQ(name(place->rowHeaderCells().front()), QStringLiteral("Filiale 1"));
  EXPECT_EQ(name(cellAt(2, column::Maske)), QString());  // the mask holds a blank
}

TEST_F(GridAccessibilityTest, RowsTellTheirLevel) {
  EXPECT_EQ(cellAt(0, column::Beschreibung)->role(), QAccessible::TreeItem);
  EXPECT_EQ(description(cellAt(0, column::Beschreibung)), QStringLiteral("Ebene 1"));
  EXPECT_TRUE(description(cellAt(2, column::Beschreibung)).endsWith(QStringLiteral("Ebene 2")));
}

TEST_F(GridAccessibilityTest, ARowTellsAllItsValues) {
  grid->List(2, column::Aktuell, 1500);
  grid->List(2, column::Maske, "JNN");
  EXPECT_EQ(description(cellAt(2, column::Beschreibung)),
            QStringLiteral("nicht aktiviert, Start 1002, Aktuell 1500, Maske JNN, Ebene 2"));
}

TEST_F(GridAccessibilityTest, GroupsTellWhetherTheyAreExpanded) {
  EXPECT_TRUE(cellAt(0, column::Beschreibung)->state().expandable);
  EXPECT_TRUE(cellAt(0, column::Beschreibung)->state().expanded);
  EXPECT_FALSE(cellAt(0, column::Beschreibung)->state().collapsed);
  EXPECT_FALSE(cellAt(2, column::Beschreibung)->state().expandable);
  view().setExpanded(cell(0, column::Beschreibung), false);
  EXPECT_FALSE(cellAt(0, column::Beschreibung)->state().expanded);
  EXPECT_TRUE(cellAt(0, column::Beschreibung)->state().collapsed);
}

TEST_F(GridAccessibilityTest, RowsOfClosedGroupsAreNone) {
  view().setExpanded(cell(0, column::Beschreibung), false);
  EXPECT_EQ(table()->rowCount(), 5);
  EXPECT_EQ(tree()->childCount(), 30);
  EXPECT_EQ(name(cellAt(1, column::Beschreibung)), QStringLiteral("Gruppe 1"));
  EXPECT_EQ(tree()->indexOfChild(cellAt(1, column::Beschreibung)), 10);
  view().setExpanded(cell(0, column::Beschreibung), true);
  EXPECT_EQ(table()->rowCount(), 8);
}

TEST_F(GridAccessibilityTest, ACheckBoxTellsItsState) {
  EXPECT_TRUE(cellAt(2, column::Beschreibung)->state().checkable);
  EXPECT_FALSE(cellAt(2, column::Beschreibung)->state().checked);
  ASSERT_EQ(cellAt(2, column::Beschreibung)->childCount(), 1);
  QAccessibleInterface* box = cellAt(2, column::Beschreibung)->child(0);
  EXPECT_EQ(box->role(), QAccessible::CheckBox);
  EXPECT_EQ(name(box), QStringLiteral("Filiale 1"));
  EXPECT_EQ(description(box), QStringLiteral("nicht aktiviert"));
  EXPECT_EQ(box->parent(), cellAt(2, column::Beschreibung));
  EXPECT_EQ(cellAt(2, column::Beschreibung)->indexOfChild(box), 0);
  setPicture(2, PictureKind::CheckedBox);
  EXPECT_TRUE(cellAt(2, column::Beschreibung)->state().checked);
  EXPECT_TRUE(box->state().checked);
  EXPECT_EQ(description(box), QStringLiteral("aktiviert"));
}

TEST_F(GridAccessibilityTest, AnOptionButtonTellsItsState) {
  setPicture(2, PictureKind::OptionOff);
  QAccessibleInterface* option = cellAt(2, column::Beschreibung)->child(0);
  EXPECT_EQ(option->role(), QAccessible::RadioButton);
  EXPECT_TRUE(option->state().checkable);
  EXPECT_FALSE(option->state().checked);
  setPicture(2, PictureKind::OptionOn);
  EXPECT_TRUE(option->state().checked);
  EXPECT_TRUE(cellAt(2, column::Beschreibung)->state().checked);
  EXPECT_TRUE(
      description(cellAt(2, column::Beschreibung)).startsWith(QStringLiteral("ausgewählt, ")));
}

TEST_F(GridAccessibilityTest, APlaceholderCannotBeChecked) {
  setPicture(2, PictureKind::NotFound);
  EXPECT_FALSE(cellAt(2, column::Beschreibung)->state().checkable);
  EXPECT_EQ(cellAt(2, column::Beschreibung)->childCount(), 0);
  EXPECT_TRUE(
      description(cellAt(2, column::Beschreibung)).startsWith(QStringLiteral("keine Zuordnung, ")));
  EXPECT_FALSE(cellAt(0, column::Beschreibung)->state().checkable);
  EXPECT_EQ(cellAt(0, column::Beschreibung)->childCount(), 0);
}

TEST_F(GridAccessibilityTest, TheCurrentRowIsSelectedAndHasTheFocus) {
  grid->ListIndex(3);
  EXPECT_TRUE(cellAt(3, column::Start)->state().selected);
  EXPECT_FALSE(cellAt(2, column::Start)->state().selected);
  EXPECT_TRUE(cellAt(3, column::Beschreibung)->state().focused);
  EXPECT_EQ(tree()->focusChild(), cellAt(3, column::Beschreibung));
  EXPECT_EQ(table()->selectedRows(), QList<int>{3});
  EXPECT_EQ(table()->selectedCells().size(), 5);
  EXPECT_TRUE(table()->isRowSelected(3));
  other->setFocus();
  EXPECT_FALSE(cellAt(3, column::Beschreibung)->state().focused);
  EXPECT_TRUE(cellAt(3, column::Beschreibung)->state().selected);
}

TEST_F(GridAccessibilityTest, SelectingARowMakesItCurrent) {
  EXPECT_TRUE(table()->selectRow(5));
  EXPECT_EQ(grid->ListIndex(), 5);
  EXPECT_FALSE(table()->selectRow(8));
  EXPECT_TRUE(table()->unselectRow(5));
  EXPECT_FALSE(table()->isRowSelected(5));
}

TEST_F(GridAccessibilityTest, CellsTellWhetherTheyTakeEntries) {
  EXPECT_TRUE(cellAt(2, column::Start)->state().editable);
  EXPECT_TRUE(cellAt(0, column::Maske)->state().editable);
  EXPECT_FALSE(cellAt(2, column::Beschreibung)->state().editable);
  EXPECT_TRUE(cellAt(2, column::Beschreibung)->state().readOnly);
  grid->AcceptsEntries(false);
  EXPECT_FALSE(cellAt(2, column::Start)->state().editable);
  EXPECT_TRUE(cellAt(2, column::Start)->state().readOnly);
  EXPECT_FALSE(actionsAt(2, column::Start)->actionNames().contains(Actions::pressAction()));
}

TEST_F(GridAccessibilityTest, PartsAreFoundWhereTheyAre) {
  const QRect cell = cellAt(2, column::Start)->rect();
  EXPECT_EQ(cell, QRect(view().viewport()->mapToGlobal(cellRect(2, column::Start).topLeft()),
                        cellRect(2, column::Start).size()));
  EXPECT_EQ(tree()->childAt(cell.center().x(), cell.center().y()), cellAt(2, column::Start));
  const QPoint box = view().viewport()->mapToGlobal(pictureOf(2));
  EXPECT_TRUE(cellAt(2, column::Beschreibung)->child(0)->rect().contains(box));
  const QPoint header = tree()->child(2)->rect().center();
  EXPECT_EQ(tree()->childAt(header.x(), header.y()), tree()->child(2));
  EXPECT_EQ(tree()->childAt(-1, -1), nullptr);
}

TEST_F(GridAccessibilityTest, CellsOutOfSightAreOffscreen) {
  rebuild(20, 3, -1);
  EXPECT_FALSE(cellAt(2, column::Beschreibung)->state().offscreen);
  EXPECT_TRUE(cellAt(70, column::Beschreibung)->state().offscreen);
}

TEST_F(GridAccessibilityTest, ACheckBoxIsToggledLikeByAClick) {
  EXPECT_TRUE(actionsAt(2, column::Beschreibung)->actionNames().contains(Actions::toggleAction()));
  actionsAt(2, column::Beschreibung)->doAction(Actions::toggleAction());
  EXPECT_EQ(events(), Lines{"click 2 1 picture 1"});
  cellAt(3, column::Beschreibung)->child(0)->actionInterface()->doAction(Actions::toggleAction());
  EXPECT_EQ(events(), Lines{"click 3 1 picture 1"});
  EXPECT_EQ(
      actionsAt(3, column::Beschreibung)->keyBindingsForAction(Actions::toggleAction()).size(), 1);
}

TEST_F(GridAccessibilityTest, AnOptionButtonIsPressedLikeByAClick) {
  setPicture(2, PictureKind::OptionOff);
  EXPECT_TRUE(actionsAt(2, column::Beschreibung)->actionNames().contains(Actions::pressAction()));
  EXPECT_FALSE(actionsAt(2, column::Beschreibung)->actionNames().contains(Actions::toggleAction()));
  actionsAt(2, column::Beschreibung)->doAction(Actions::pressAction());
  EXPECT_EQ(events(), Lines{"click 2 1 picture 1"});
}

TEST_F(GridAccessibilityTest, AGroupIsOpenedAndClosed) {
  actionsAt(0, column::Beschreibung)->doAction(Actions::pressAction());
  EXPECT_FALSE(view().isExpanded(cell(0, column::Beschreibung)));
  EXPECT_EQ(actionsAt(0, column::Beschreibung)->localizedActionName(Actions::pressAction()),
            QStringLiteral("Aufklappen"));
  actionsAt(0, column::Beschreibung)->doAction(Actions::showMenuAction());
  EXPECT_TRUE(view().isExpanded(cell(0, column::Beschreibung)));
}

TEST_F(GridAccessibilityTest, ACellThatTakesEntriesIsPressed) {
  actionsAt(2, column::Start)->doAction(Actions::pressAction());
  EXPECT_EQ(events(), Lines{"click 2 2 cell 1"});
  EXPECT_EQ(actionsAt(2, column::Start)->localizedActionName(Actions::pressAction()),
            QStringLiteral("Bearbeiten"));
  EXPECT_EQ(actionsAt(2, column::Start)->keyBindingsForAction(Actions::pressAction()),
            QStringList{QStringLiteral("F2")});
}

TEST_F(GridAccessibilityTest, TheFocusGoesToACell) {
  other->setFocus();
  actionsAt(5, column::Beschreibung)->doAction(Actions::setFocusAction());
  EXPECT_EQ(grid->ListIndex(), 5);
  EXPECT_TRUE(view().hasFocus());
  EXPECT_EQ(tree()->focusChild(), cellAt(5, column::Beschreibung));
}

TEST_F(GridAccessibilityTest, AnActionThatIsNotOfferedDoesNothing) {
  grid->AcceptsEntries(false);
  actionsAt(2, column::Start)->doAction(Actions::pressAction());
  actionsAt(2, column::Beschreibung)->doAction(Actions::pressAction());
  EXPECT_EQ(events(), Lines{});
}

TEST_F(GridAccessibilityTest, TheEditorIsNamedAfterItsCell) {
  grid->StartEdit(2, column::Start);
  QAccessibleInterface* line = QAccessible::queryAccessibleInterface(editor());
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->role(), QAccessible::EditableText);
  EXPECT_EQ(name(line), QStringLiteral("Start, Filiale 1, Gruppe 0"));
  EXPECT_EQ(line->text(QAccessible::Value), QStringLiteral("1002"));
  EXPECT_TRUE(line->state().focused);
  EXPECT_EQ(tree()->focusChild(), line);
  EXPECT_FALSE(cellAt(2, column::Beschreibung)->state().focused);
}

TEST_F(GridAccessibilityTest, HelpIsTheToolTipOfTheColumn) {
  handler.onToolTip = [](std::int16_t column, std::string& text) {
    if (column == column::Maske) text = "Maske nach der";
  };
  EXPECT_EQ(cellAt(2, column::Maske)->text(QAccessible::Help), QStringLiteral("Maske nach der"));
  EXPECT_EQ(cellAt(2, column::Start)->text(QAccessible::Help), QString());
}

TEST_F(GridAccessibilityTest, PartsOutliveNoChangeOfTheList) {
  const ScreenReader reader;
  const QAccessible::Id first = QAccessible::uniqueId(cellAt(7, column::Beschreibung));
  ASSERT_NE(QAccessible::accessibleInterface(first), nullptr);
  rebuild(1, 1, -1);
  EXPECT_EQ(QAccessible::accessibleInterface(first), nullptr);
  EXPECT_EQ(table()->rowCount(), 2);
  EXPECT_EQ(name(cellAt(1, column::Beschreibung)), QStringLiteral("Filiale 0"));
}

TEST_F(GridAccessibilityTest, TheInterfaceGoesWithTheGrid) {
  const ScreenReader reader;
  const QAccessible::Id tree_ = QAccessible::uniqueId(tree());
  const QAccessible::Id cell_ = QAccessible::uniqueId(cellAt(2, column::Beschreibung));
  delete &view();
  EXPECT_EQ(QAccessible::accessibleInterface(tree_), nullptr);
  EXPECT_EQ(QAccessible::accessibleInterface(cell_), nullptr);
}

TEST_F(GridAccessibilityTest, TheOpenEditorStandsInTheTreeOfObjects) {
  const int before = tree()->childCount();
  grid->StartEdit(2, column::Start);
  ASSERT_EQ(tree()->childCount(), before + 1);
  QAccessibleInterface* place = tree()->child(before);
  ASSERT_NE(place, nullptr);
  EXPECT_EQ(tree()->indexOfChild(place), before);
  EXPECT_EQ(place->parent(), tree());
  ASSERT_EQ(place->childCount(), 2) << "the editor and the note on what is typed";
  EXPECT_EQ(place->child(0), QAccessible::queryAccessibleInterface(editor()));
  EXPECT_EQ(place->child(0)->parent(), place);
  const QPoint middle = editor()->mapToGlobal(editor()->rect().center());
  EXPECT_EQ(tree()->childAt(middle.x(), middle.y()), place);
  grid->EndEdit(false);
  EXPECT_EQ(tree()->childCount(), before);
}

TEST_F(GridAccessibilityTest, F2IsTheKeyOfRangesAlone) {
  const QString press = Actions::pressAction();
  EXPECT_EQ(cellAt(1, column::Start)->actionInterface()->keyBindingsForAction(press).size(), 1);
  EXPECT_TRUE(cellAt(0, column::Start)->actionInterface()->actionNames().contains(press));
  EXPECT_TRUE(cellAt(0, column::Start)->actionInterface()->keyBindingsForAction(press).isEmpty());
}

}  // namespace
}  // namespace vexnumkr::test
