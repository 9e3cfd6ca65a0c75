// What the booking-circle filter and the user filter show.
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

class DialogFiltersTest : public DialogSession {};

const Lines everything{"Angebot (AN)",  "Checked Standard", "Checked Nord", "Unchecked Süd",
                       "Rechnung (RE)", "Checked Standard", "Checked Nord", "Unchecked Süd"};
const Lines everythingOfMax{"Angebot (AN)",  "ValueFalse Standard", "ValueTrue Nord",
                            "Rechnung (RE)", "ValueTrue Standard",  "ValueFalse Nord"};

TEST_F(DialogFiltersTest, OfferEveryCircleAndEveryUser) {
  inCompany(2, [&] {
    EXPECT_EQ(entries("cboBuchungskreis"),
              (Lines{"Alle Buchungskreise", "Aktive Buchungskreise", "Nord", "Süd"}));
    EXPECT_EQ(entries("cboUser"), (Lines{"Alle Benutzer", "Anna", "Max"}));
  });
}

TEST_F(DialogFiltersTest, OpenOnEverything) {
  inCompany(2, [&] {
    EXPECT_EQ(shown("cboBuchungskreis"), "Alle Buchungskreise");
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    EXPECT_EQ(tree(), everything);
  });
}

TEST_F(DialogFiltersTest, AreRememberedForTheRules) {
  inCompany(2, [&] {
    select("cboBuchungskreis", "Süd");
    select("cboUser", "Anna");
  });
}

TEST_F(DialogFiltersTest, ActiveCirclesKeepEveryGroup) {
  inCompany(2, [&] {
    select("cboBuchungskreis", "Aktive Buchungskreise");
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Checked Standard", "Checked Nord", "Rechnung (RE)",
                             "Checked Standard", "Checked Nord"}));
  });
}

TEST_F(DialogFiltersTest, AGroupWithoutActiveRangesStaysToo) {
  inCompany(2, [&] {
    XArray& table = session().XArray();
    for (std::int32_t row = 0; row < table.size(); ++row) table.setAktiviert(row, false);
    select("cboBuchungskreis", "Aktive Buchungskreise");
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Rechnung (RE)"}));
  });
}

TEST_F(DialogFiltersTest, OneCircleInTheCommonViewHasNoPlaceholder) {
  inCompany(2, [&] {
    select("cboBuchungskreis", "Süd");
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Unchecked Süd", "Rechnung (RE)", "Unchecked Süd"}));
  });
}

TEST_F(DialogFiltersTest, NorDoesAKeyThatLacksTheCircleAltogether) {
  inCompany(2, [&] {
    XArray& table = session().XArray();
    table.remove(table.findRange("Alle Benutzer", 2, "RE"));
    select("cboBuchungskreis", "Süd");
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Unchecked Süd", "Rechnung (RE)"}));
  });
}

TEST_F(DialogFiltersTest, AUserSeesTheActiveRangesAsAChoice) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    EXPECT_EQ(tree(), everythingOfMax);
  });
}

TEST_F(DialogFiltersTest, AUsersActiveCircles) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    select("cboBuchungskreis", "Aktive Buchungskreise");
    EXPECT_EQ(tree(),
              (Lines{"Angebot (AN)", "ValueTrue Nord", "Rechnung (RE)", "ValueTrue Standard"}));
  });
}

TEST_F(DialogFiltersTest, AUserWithoutARangeOfTheCircleSeesAPlaceholder) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    select("cboBuchungskreis", "Süd");
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "NotFound keine Zuordnung vorhanden", "Rechnung (RE)",
                             "NotFound keine Zuordnung vorhanden"}));
    EXPECT_EQ(grid().ItemLevel(1), 1);
    EXPECT_EQ(cell(1, grid_column::Type), "Group");
    EXPECT_EQ(cell(1, grid_column::Buchungskreis), "");
    select("cboBuchungskreis", "Nord");
    EXPECT_EQ(tree(),
              (Lines{"Angebot (AN)", "ValueTrue Nord", "Rechnung (RE)", "ValueFalse Nord"}));
  });
}

TEST_F(DialogFiltersTest, OnlyTheKeyThatIsMissingHasAPlaceholder) {
  smallCompany("ORC");
  sql("UPDATE Nummernkreise SET Aktiviert=-1 WHERE Buchungskreis=2");
  init(2);
  show([&] {
    select("cboUser", "Anna");
    select("cboBuchungskreis", "Süd");
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "ValueFalse Süd", "Rechnung (RE)",
                             "NotFound keine Zuordnung vorhanden"}));
    press("cmdCancel");
  });
}

TEST_F(DialogFiltersTest, WithoutCirclesThereAreTwoEntriesAndNoUsers) {
  sql("INSERT INTO tblUser VALUES ('Anna')");
  sql("INSERT INTO Nummernkreise VALUES (0, 'AN', 'Angebot', 1, 5, 99, -1, 1, '', '')");
  init(2);
  show([&] {
    EXPECT_EQ(entries("cboBuchungskreis"), (Lines{"Alle Buchungskreise", "Aktive Buchungskreise"}));
    EXPECT_FALSE(isVisible("lblUser"));
    EXPECT_FALSE(isVisible("cboUser"));
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Checked Standard"}));
    press("cmdCancel");
  });
}

TEST_F(DialogFiltersTest, TheOtherOriginsCirclesAreNotOffered) {
  smallCompany("ORC");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (9, 'Fremd', 'ORB')");
  sql("INSERT INTO Nummernkreise VALUES (9, 'AN', 'Angebot', 900, 900, 999, -1, 1, '', '')");
  init(2);
  show([&] {
    EXPECT_EQ(entries("cboBuchungskreis").size(), 4U);
    EXPECT_EQ(tree(), everything);
    press("cmdCancel");
  });
}

TEST_F(DialogFiltersTest, AnEmptyRangeTableIsAnEmptyGrid) {
  sql("INSERT INTO tblUser VALUES ('Anna')");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORC')");
  init(2);
  show([&] {
    EXPECT_EQ(tree(), Lines{});
    select("cboUser", "Anna");
    EXPECT_EQ(tree(), Lines{});
    EXPECT_EQ(grid().ListIndex(), -1);
    press("cmdCancel");
  });
}

TEST_F(DialogFiltersTest, AUserWithoutRowsSeesAnEmptyGrid) {
  sql("INSERT INTO tblUser VALUES ('Anna')");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORC')");
  sql("INSERT INTO Nummernkreise VALUES (1, 'AN', 'Angebot', 1, 5, 99, 0, 1, '', '')");
  init(2);
  show([&] {
    EXPECT_EQ(grid().ListCount(), 1);
    select("cboUser", "Anna");
    EXPECT_EQ(tree(), Lines{});
    press("cmdCancel");
  });
}

TEST_F(DialogFiltersTest, ARebuildKeepsThePositionNotTheRange) {
  inCompany(2, [&] {
    click(5, grid_column::Beschreibung);
    ASSERT_EQ(grid().ListIndex(), 5);
    select("cboUser", "Max");
    EXPECT_EQ(grid().ListIndex(), 5);
    EXPECT_EQ(cell(5, grid_column::Beschreibung), "Nord");
  });
}

TEST_F(DialogFiltersTest, APositionThatIsGoneLeavesNoCurrentItem) {
  inCompany(2, [&] {
    click(7, grid_column::Beschreibung);
    select("cboBuchungskreis", "Nord");
    EXPECT_EQ(grid().ListIndex(), -1);
    select("cboBuchungskreis", "Alle Buchungskreise");
    EXPECT_EQ(grid().ListIndex(), -1);
  });
}

TEST_F(DialogFiltersTest, ChoosingTheShownEntryAgainRebuilds) {
  inCompany(2, [&] {
    grid().List(1, grid_column::Beschreibung, "verändert");
    select("cboBuchungskreis", "Alle Buchungskreise");
    EXPECT_EQ(cell(1, grid_column::Beschreibung), "Standard");
    grid().List(1, grid_column::Beschreibung, "verändert");
    select("cboUser", "Alle Benutzer");
    EXPECT_EQ(cell(1, grid_column::Beschreibung), "Standard");
  });
}

TEST_F(DialogFiltersTest, F7AndF8WalkTheUsersAndStopAtBothEnds) {
  inCompany(2, [&] {
    key("F7");
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    key("F8");
    EXPECT_EQ(shown("cboUser"), "Anna");
    key("F8");
    EXPECT_EQ(tree(), everythingOfMax);
    key("F8");
    EXPECT_EQ(shown("cboUser"), "Max");
    key("Shift+F7");  // with any modifier
    EXPECT_EQ(shown("cboUser"), "Anna");
    key("F7");
    EXPECT_EQ(tree(), everything);
  });
}

TEST_F(DialogFiltersTest, TheKeysWorkFromEveryControl) {
  inCompany(2, [&] {
    for (const char* name : {"cboBuchungskreis", "cmdAuto", "cmdOK"}) {
      control(name).setFocus();
      key("F8");
      EXPECT_EQ(shown("cboUser"), "Anna") << name;
      EXPECT_EQ(focus(), name);
      key("F7");
    }
  });
}

TEST_F(DialogFiltersTest, WithTheUsersHiddenNoKeyDoesAnything) {
  sql("INSERT INTO tblUser VALUES ('Anna')");
  init(2);
  show([&] {
    for (const char* chord : {"F7", "F8", "F9", "F10"}) key(chord);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    statements();
    press("cmdCancel");
    EXPECT_EQ(statements(), Lines{"conn: ROLLBACK"});
  });
}

// A value beyond the integers cannot be shown.
TEST_F(DialogFiltersTest, AFailedRebuildKeepsWhatItHasAddedAndNoCurrentItem) {
  inCompany(2, [&] {
    XArray& table = session().XArray();
    table.setValue(table.findRange("Max", 0, "RE"), &RangeRow::EndWert,
                   Value(std::string("99999999999")));
    click(5, grid_column::Ende);
    select("cboUser", "Max");
    EXPECT_EQ(boxes(), (Boxes{errorBox(6, "basAllgemein", "SyncDataWithControl", "Überlauf")}));
    EXPECT_EQ(tree(),
              (Lines{"Angebot (AN)", "ValueFalse Standard", "ValueTrue Nord", "Rechnung (RE)"}));
    EXPECT_EQ(grid().ListIndex(), -1);
  });
}

}  // namespace
}  // namespace vexnumkr::test
