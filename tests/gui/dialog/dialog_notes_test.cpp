// What the list tells of its ranges besides their values, and of entries while they are made.
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "adapters/qtgrid/view/grid_colours.h"
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

class DialogNotesTest : public DialogSession {
 protected:
  CellNote note(std::int32_t item, std::int16_t column) {
    GridView& view = gridAccess().view();
    return view.noteOf(item, view.gridModel().sectionOf(column));
  }
  /// Types over the whole text of the open entry.
  void retype(const std::string& text) {
    gridAccess().editor().selectAll();
    type(text);
  }
  /// What is said of the open entry; empty for nothing.
  std::string said() {
    const auto* bubble = gridAccess().view().findChild<QLabel*>(QStringLiteral("entryNote"));
    return bubble->isVisible() ? bubble->text().toStdString() : "";
  }
};

TEST_F(DialogNotesTest, AktuellShowsHowFullARangeIs) {
  inCompany(2, [&] {
    EXPECT_EQ(toolTip(2, grid_column::Aktuell), "noch 49 Nummern frei");
    ASSERT_TRUE(note(2, grid_column::Aktuell).fill);
    EXPECT_EQ(note(2, grid_column::Aktuell).fill->thousandths, 50 * 1000 / 99);
    EXPECT_EQ(note(2, grid_column::Aktuell).fill->stage, FillStage::Plenty);
    EXPECT_FALSE(note(2, grid_column::Start).fill);
    EXPECT_FALSE(note(3, grid_column::Aktuell).fill) << "nobody draws from it";
    click(2, grid_column::Aktuell);
    type("180");
    key("Tab");
    type("198");
    key("Enter");
    key("Escape");
    EXPECT_EQ(note(2, grid_column::Aktuell).fill->stage, FillStage::Low);
    click(2, grid_column::Aktuell);
    type("197");
    key("Tab");
    key("Escape");
    EXPECT_EQ(note(2, grid_column::Aktuell).fill->stage, FillStage::Critical);
    EXPECT_EQ(toolTip(2, grid_column::Aktuell), "noch 1 Nummer frei\nGeladen: 150");
  });
}

TEST_F(DialogNotesTest, ChangedCellsTellTheLoadedValueUntilItIsBack) {
  inCompany(2, [&] {
    EXPECT_FALSE(note(2, grid_column::Ende).changed);
    click(2, grid_column::Ende);
    type("188");
    key("Enter");
    key("Escape");
    EXPECT_TRUE(note(2, grid_column::Ende).changed);
    EXPECT_FALSE(note(2, grid_column::Aktuell).changed);
    EXPECT_EQ(toolTip(2, grid_column::Ende), "Geladen: 199");
    click(2, grid_column::Ende);
    type("199");
    key("Enter");
    key("Escape");
    EXPECT_FALSE(note(2, grid_column::Ende).changed);
    click(1, grid_column::Maske);
    type("JN");
    key("Enter");
    key("Escape");
    EXPECT_TRUE(note(1, grid_column::Maske).changed);
    EXPECT_EQ(toolTip(1, grid_column::Maske).substr(0, 14), "Geladen: leer\n");
    select("cboUser", "Max");
    EXPECT_TRUE(note(1, grid_column::Maske).changed) << "in every view";
  });
}

TEST_F(DialogNotesTest, AnOverlapIsSaidWhileItIsTypedAndThePartnerIsTinted) {
  inCompany(2, [&] {
    clickPicture(3);
    click(2, grid_column::Ende);
    EXPECT_EQ(said(), "");
    type("200");
    EXPECT_EQ(said(), "Überschneidet sich mit Angebot, Süd (200 bis 299).");
    EXPECT_TRUE(note(3, grid_column::Beschreibung).involved);
    EXPECT_FALSE(note(1, grid_column::Beschreibung).involved);
    QTest::keyClick(&gridAccess().editor(), Qt::Key_Backspace);
    EXPECT_EQ(said(), "Der Endwert muss größer sein als der Startwert.");
    EXPECT_FALSE(note(3, grid_column::Beschreibung).involved);
    retype("198");
    EXPECT_EQ(said(), "");
    retype("200");
    key("Escape");
    EXPECT_FALSE(note(3, grid_column::Beschreibung).involved);
    EXPECT_EQ(values(2), "100|150|199|JNN");
  });
}

TEST_F(DialogNotesTest, AHintDoesNotKeepAnEntryFromItsCell) {
  inCompany(2, [&] {
    click(2, grid_column::Ende);
    type("50");
    EXPECT_EQ(said(), "Der Endwert muss größer sein als der Startwert.");
    key("Enter");
    EXPECT_EQ(cell(2, grid_column::Ende), "50");
    EXPECT_EQ(boxes(), Boxes{});
  });
}

TEST_F(DialogNotesTest, AMaskSaysWhatItGives) {
  inCompany(2, [&] {
    click(2, grid_column::Maske);
    EXPECT_EQ(said(), "→ 400 bis 499");
    type("JJNNNN");
    EXPECT_EQ(said(), "→ 240000 bis 249999");
    retype("RE");
    EXPECT_EQ(said(), "Die Maske ergibt keine Zahl.");
    key("Escape");
    EXPECT_EQ(said(), "");
  });
}

TEST_F(DialogNotesTest, AnEmptyCellOfAGroupSaysNothing) {
  inCompany(2, [&] {
    click(0, grid_column::Start);
    EXPECT_EQ(said(), "");
    type("500");
    EXPECT_EQ(said(), "Der Endwert muss größer sein als der Startwert.");
  });
}

TEST_F(DialogNotesTest, NothingIsSentForAnyOfIt) {
  inCompany(2, [&] {
    statements();
    toolTip(2, grid_column::Aktuell);
    click(2, grid_column::Ende);
    type("200");
    EXPECT_EQ(statements(), Lines{});
    EXPECT_FALSE(changed());
    key("Escape");
  });
}

}  // namespace
}  // namespace vexnumkr::test
