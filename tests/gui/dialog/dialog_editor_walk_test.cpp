// Opening the cell editor, and where it goes from a cell.
#include <QApplication>
#include <QLineEdit>

#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

class DialogEditorWalkTest : public DialogSession {
 protected:
  /// Where the editor stands: item/column, or "none".
  std::string place() const {
    const std::string text = editor();
    return text.substr(0, text.find(' '));
  }
  /// The places that the editor visits with `times` presses.
  Lines walk(const std::string& chord, int times) {
    Lines places;
    for (; times > 0; --times) {
      key(chord);
      places.push_back(place());
    }
    return places;
  }
};

TEST_F(DialogEditorWalkTest, F2BeginsInStartWithTheWholeTextSelected) {
  inCompany(2, [&] {
    click(2, grid_column::Beschreibung);
    key("F2");
    EXPECT_EQ(editor(), "2/2 100");
    EXPECT_EQ(selectedText(), "100");
    EXPECT_TRUE(gridAccess().editor().hasFocus());
  });
}

TEST_F(DialogEditorWalkTest, F2LeavesGroupsAlone) {
  inCompany(2, [&] {
    click(4, grid_column::Beschreibung);
    key("F2");
    EXPECT_EQ(editor(), "none");
  });
}

TEST_F(DialogEditorWalkTest, AClickOpensEveryValueCell) {
  inCompany(2, [&] {
    const Lines texts{"2/2 100", "2/3 150", "2/4 199", "2/5 JNN"};
    for (std::int32_t column = 2; column <= 5; ++column) {
      click(2, column);
      EXPECT_EQ(editor(), texts[static_cast<std::size_t>(column - 2)]);
    }
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogEditorWalkTest, AClickOnADescriptionOnlySelects) {
  inCompany(2, [&] {
    click(2, grid_column::Start);
    click(6, grid_column::Beschreibung);
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(grid().ListIndex(), 6);
  });
}

TEST_F(DialogEditorWalkTest, OnlyTheLeftButtonOpens) {
  inCompany(2, [&] {
    click(2, grid_column::Start, Qt::RightButton);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    menu->close();
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(grid().ListIndex(), 2);
  });
}

TEST_F(DialogEditorWalkTest, AGroupsEmptyCellsOpenToo) {
  inCompany(2, [&] {
    click(0, grid_column::Aktuell);
    EXPECT_EQ(editor(), "0/3 ");
    key("Enter");  // untouched, it is left without a word
    EXPECT_EQ(editor(), "0/4 ");
  });
}

TEST_F(DialogEditorWalkTest, TheEditorIsSetInTheCellsOwnFont) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    EXPECT_EQ(gridAccess().editor().font().family(), QStringLiteral("Tahoma"));
    EXPECT_FALSE(gridAccess().editor().font().bold());
    grid().CellFontBold(3, grid_column::Aktuell, true);
    click(3, grid_column::Aktuell);
    EXPECT_TRUE(gridAccess().editor().font().bold());
  });
}

TEST_F(DialogEditorWalkTest, AUsersViewOpensNothing) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    for (std::int32_t column = 2; column <= 5; ++column) {
      click(1, column);
      EXPECT_EQ(editor(), "none") << column;
    }
    EXPECT_EQ(grid().ListIndex(), 1);
    key("F2");
    EXPECT_EQ(editor(), "none");
  });
}

TEST_F(DialogEditorWalkTest, AClickIntoTheOpenCellOnlyMovesTheCaret) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("1234");
    click(2, grid_column::Aktuell);
    EXPECT_EQ(editor(), "2/3 1234");
    EXPECT_EQ(selectedText(), "");
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogEditorWalkTest, TabGoesThroughTheNumbersAndAround) {
  inCompany(2, [&] {
    click(2, grid_column::Start);
    EXPECT_EQ(walk("Tab", 15), (Lines{"2/3", "2/4", "3/2", "3/3", "3/4",         // over the group
                                      "5/2", "5/3", "5/4", "6/2", "6/3", "6/4",  //
                                      "7/2", "7/3", "7/4",                       // around
                                      "1/2"}));
    EXPECT_EQ(selectedText(), "1");
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogEditorWalkTest, EnterGoesTheSameWayWithEveryModifier) {
  inCompany(2, [&] {
    click(3, grid_column::Aktuell);
    EXPECT_EQ(walk("Enter", 1), Lines{"3/4"});
    EXPECT_EQ(walk("Ctrl+Enter", 1), Lines{"5/2"});
    EXPECT_EQ(walk("Shift+Enter", 1), Lines{"5/3"});
    click(7, grid_column::Ende);
    EXPECT_EQ(walk("Enter", 1), Lines{"1/2"});
    EXPECT_TRUE(isOpen());  // the default button is not meant
  });
}

TEST_F(DialogEditorWalkTest, ShiftTabGoesBackAndAround) {
  inCompany(2, [&] {
    click(5, grid_column::Aktuell);
    EXPECT_EQ(walk("Shift+Tab", 12), (Lines{"5/2", "3/4", "3/3", "3/2", "2/4", "2/3", "2/2", "1/4",
                                            "1/3", "1/2", "7/4", "7/3"}));
  });
}

TEST_F(DialogEditorWalkTest, CtrlRightReachesTheMasks) {
  inCompany(2, [&] {
    click(3, grid_column::Ende);
    EXPECT_EQ(walk("Ctrl+Right", 4), (Lines{"3/5", "5/2", "5/3", "5/4"}));
    click(7, grid_column::Ende);
    EXPECT_EQ(walk("Ctrl+Right", 2), (Lines{"7/5", "1/2"}));
  });
}

TEST_F(DialogEditorWalkTest, CtrlLeftReachesTheMasks) {
  inCompany(2, [&] {
    click(5, grid_column::Start);
    EXPECT_EQ(walk("Ctrl+Left", 2), (Lines{"3/5", "3/4"}));
    click(1, grid_column::Aktuell);
    EXPECT_EQ(walk("Ctrl+Left", 3), (Lines{"1/2", "7/5", "7/4"}));
  });
}

TEST_F(DialogEditorWalkTest, PlainArrowsMoveTheCaret) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    key("Left");
    EXPECT_EQ(editor(), "2/3 150");
    EXPECT_EQ(gridAccess().editor().cursorPosition(), 2);
    key("Right");
    EXPECT_EQ(gridAccess().editor().cursorPosition(), 3);
    EXPECT_EQ(place(), "2/3");
  });
}

TEST_F(DialogEditorWalkTest, InAMaskTabGoesOnToTheNextRange) {
  inCompany(2, [&] {
    click(3, grid_column::Maske);
    EXPECT_EQ(walk("Tab", 1), Lines{"5/2"});
    click(5, grid_column::Maske);
    EXPECT_EQ(walk("Shift+Tab", 1), Lines{"5/4"});
  });
}

TEST_F(DialogEditorWalkTest, InTheLastMaskTabGoesNowhereAndEnterEnds) {
  inCompany(2, [&] {
    click(7, grid_column::Maske);
    type("NNN");
    key("Tab");
    EXPECT_EQ(editor(), "7/5 NNN");
    EXPECT_EQ(cell(7, grid_column::Maske), "0");
    key("Enter");
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(cell(7, grid_column::Maske), "NNN");
    EXPECT_TRUE(isOpen());
  });
}

TEST_F(DialogEditorWalkTest, AtTheTopTheWayBackEnds) {
  inCompany(2, [&] {
    click(0, grid_column::Start);
    EXPECT_EQ(walk("Shift+Tab", 1), Lines{"0/2"});
    EXPECT_EQ(walk("Ctrl+Left", 1), Lines{"0/2"});
    EXPECT_EQ(walk("Tab", 2), (Lines{"0/3", "0/4"}));
    EXPECT_EQ(walk("Tab", 1), Lines{"1/2"});
  });
}

// One group is jumped over, the second of two in a row is not.
TEST_F(DialogEditorWalkTest, TwoGroupsInARow) {
  inCompany(2, [&] {
    XArray& table = session().XArray();
    for (std::int32_t row = 0; row < table.size(); ++row)
      if (table.at(row).NSchl == "AN") table.setAktiviert(row, false);
    select("cboBuchungskreis", "Aktive Buchungskreise");
    ASSERT_EQ(tree(), (Lines{"Angebot (AN)", "Rechnung (RE)", "Checked Standard", "Checked Nord"}));
    click(2, grid_column::Start);
    EXPECT_EQ(walk("Shift+Tab", 1), Lines{"0/4"});
    click(3, grid_column::Ende);
    EXPECT_EQ(walk("Tab", 1), Lines{"2/2"});  // around, to the first range
  });
}

TEST_F(DialogEditorWalkTest, WithoutAnyRangeTheWayAroundJustEnds) {
  inCompany(2, [&] {
    XArray& table = session().XArray();
    for (std::int32_t row = 0; row < table.size(); ++row) table.setAktiviert(row, false);
    select("cboBuchungskreis", "Aktive Buchungskreise");
    click(1, grid_column::Ende);
    EXPECT_EQ(walk("Tab", 1), Lines{"none"});
    EXPECT_EQ(focus(), "sftNummernkreise");
  });
}

TEST_F(DialogEditorWalkTest, TheWalkOpensACollapsedGroup) {
  inCompany(2, [&] {
    click(4, grid_column::Beschreibung);
    key("Left");
    click(3, grid_column::Ende);
    EXPECT_EQ(walk("Tab", 1), Lines{"5/2"});
    EXPECT_TRUE(gridAccess().editor().isVisible());
    const QModelIndex group = gridAccess().view().gridModel().indexOf(4);
    EXPECT_TRUE(gridAccess().view().isExpanded(group));
  });
}

TEST_F(DialogEditorWalkTest, EscapeDropsTheEntryAndKeepsTheDialog) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("160");
    key("Escape");
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(cell(2, grid_column::Aktuell), "150");
    EXPECT_FALSE(changed());
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(focus(), "sftNummernkreise");
    EXPECT_EQ(grid().ListIndex(), 2);
  });
}

// The host applications address items with 16 bits.
TEST_F(DialogEditorWalkTest, BeyondTheReachOf16BitsKeysOverflow) {
  inCompany(2, [&] {
    grid().BeginUpdate();
    while (grid().ListCount() <= 32768) grid().AddItem("");
    grid().EndUpdate();
    grid().ListIndex(32767);
    key("F2");
    key("Escape");
    EXPECT_EQ(boxes(), Boxes{});
    grid().ListIndex(32768);
    key("Space");
    EXPECT_EQ(boxes(),
              (Boxes{errorBox(6, "frmNummernkreise", "sftNummernkreise_KeyDown", "Überlauf")}));
    select("cboUser", "Alle Benutzer");
  });
}

}  // namespace
}  // namespace vexnumkr::test
