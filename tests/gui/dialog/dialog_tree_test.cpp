// What the items of the tree hold and how they look.
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

constexpr GridColour paleGrey = 0xF0F0F0;

class DialogTreeTest : public DialogSession {
 protected:
  /// All cells of an item from column 1 on.
  std::string cells(std::int32_t item) const {
    std::string line = cell(item, grid_column::Beschreibung);
    for (std::int16_t column = 2; column <= 11; ++column) line += "|" + cell(item, column);
    return line;
  }
};

TEST_F(DialogTreeTest, ItemsHoldTheirRange) {
  inCompany(2, [&] {
    EXPECT_EQ(cells(0), "Angebot (AN)|||||0|AN|||Group|");
    EXPECT_EQ(cells(1), "Standard|1|5|99| |0|AN|Angebot|1|Pos|");
    EXPECT_EQ(cells(2), "Nord|100|150|199|JNN|1|AN|Angebot|1|Pos|");
    EXPECT_EQ(cells(7), "Süd|0|0|0|0|2|RE|Rechnung|2|Pos|");
    for (const std::int32_t group : {0, 4}) EXPECT_EQ(picture(group), "-");
  });
}

TEST_F(DialogTreeTest, AMaskOfBlanksIsOneBlank) {
  sql("INSERT INTO Nummernkreise VALUES (0, 'LI', 'Liste', 1, 1, 9, -1, 3, '', '   ')");
  sql("INSERT INTO Nummernkreise VALUES (0, 'ZZ', 'Zettel', 1, 1, 9, -1, 4, 'LI', ' N ')");
  init(2);
  show([&] {
    EXPECT_EQ(cell(1, grid_column::Maske), " ");
    EXPECT_EQ(cell(3, grid_column::Maske), " N ");
    press("cmdCancel");
  });
}

TEST_F(DialogTreeTest, AKeyThatSharesARangeSaysWhose) {
  sql("INSERT INTO Nummernkreise VALUES (0, 'AX', 'Export', 1, 1, 9, -1, 3, 'AN', '')");
  init(2);
  show([&] {
    EXPECT_EQ(cell(0, grid_column::IstNSchlVon), "AN");
    EXPECT_EQ(cell(1, grid_column::IstNSchlVon), "AN");
    press("cmdCancel");
  });
}

TEST_F(DialogTreeTest, GroupsOfApplication1StandOnTheToolTipColour) {
  inCompany(1, [&] {
    const CellStyle style = gridAccess().captionStyle(0);
    EXPECT_EQ(style.background, toolTipBackground);
    EXPECT_FALSE(style.bold);
    EXPECT_EQ(gridAccess().captionStyle(1).background, gridDefaultColour);
  });
}

TEST_F(DialogTreeTest, GroupsOfApplication2AreBoldOnGrey) {
  inCompany(2, [&] {
    for (const std::int32_t group : {0, 4}) {
      EXPECT_EQ(gridAccess().captionStyle(group).background, paleGrey);
      EXPECT_TRUE(gridAccess().captionStyle(group).bold);
    }
    EXPECT_FALSE(gridAccess().captionStyle(1).bold);
    EXPECT_FALSE(grid().CellFont(0, grid_column::Start).bold);  // the caption only
  });
}

TEST_F(DialogTreeTest, GroupsOfOtherApplicationsHaveNoLookOfTheirOwn) {
  inCompany(3, [&] {
    ASSERT_EQ(grid().ListCount(), 8);
    EXPECT_EQ(gridAccess().captionStyle(0).background, gridDefaultColour);
    EXPECT_FALSE(gridAccess().captionStyle(0).bold);
  });
}

TEST_F(DialogTreeTest, PlaceholdersHaveNoLookOfTheirOwn) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    select("cboBuchungskreis", "Süd");
    EXPECT_EQ(cells(1), "keine Zuordnung vorhanden|||||||||Group|");
    EXPECT_FALSE(gridAccess().captionStyle(1).bold);
  });
}

TEST_F(DialogTreeTest, GroupsAreExpandedAgainAfterEveryRebuild) {
  inCompany(2, [&] {
    click(0, grid_column::Beschreibung);
    key("Left");
    const QModelIndex group = gridAccess().view().gridModel().indexOf(0);
    EXPECT_FALSE(gridAccess().view().isExpanded(group));
    EXPECT_EQ(cell(2, grid_column::Beschreibung), "Nord");  // collapsing changes no index
    select("cboUser", "Alle Benutzer");
    EXPECT_TRUE(gridAccess().view().isExpanded(gridAccess().view().gridModel().indexOf(0)));
  });
}

}  // namespace
}  // namespace vexnumkr::test
