// The host's administration of booking circles, called from the main dialog.
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

class DialogCirclesTest : public DialogSession {
 protected:
  CircleDialogCalls& administration() { return host().plain.circleDialog; }
  /// Presses the button; the user runs that statement in the administration.
  void administer(const std::string& statement) {
    administration().whenShown = [statement](Connection& connection) {
      std::int32_t affected = 0;
      realConnection(connection).Execute(statement, affected);
    };
    press("cmdBuchungskreise");
  }
  const std::string addWest = "INSERT INTO Nummernkreis_Buchungskreise VALUES (3, 'West', 'ORC')";
  const std::string renameNord =
      "UPDATE Nummernkreis_Buchungskreise SET Beschreibung='Norden' WHERE Buchungskreis=1";
  const std::string removeNord = "DELETE FROM Nummernkreis_Buchungskreise WHERE Buchungskreis=1";
};

TEST_F(DialogCirclesTest, TheAdministrationGetsTheOriginAndTheHostsConnection) {
  inCompany(2, [&] {
    EXPECT_EQ(administration().multiSelect, std::vector<bool>{false});
    press("cmdBuchungskreise");
    EXPECT_EQ(administration().shown,
              (std::vector<std::pair<std::string, std::int32_t>>{{"ORC", 27}}));
    EXPECT_EQ(administration().connection, session().sharedConn());
  });
}

TEST_F(DialogCirclesTest, WithoutAChangeEverythingStays) {
  inCompany(2, [&] {
    const Lines before = tree();
    press("cmdBuchungskreise");
    EXPECT_EQ(tree(), before);
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogCirclesTest, ANewCircleGetsEveryStandardRange) {
  inCompany(2, [&] {
    administer(addWest);
    EXPECT_EQ(entries("cboBuchungskreis"),
              (Lines{"Alle Buchungskreise", "Aktive Buchungskreise", "Nord", "Süd", "West"}));
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Checked Standard", "Checked Nord", "Unchecked Süd",
                             "Unchecked West", "Rechnung (RE)", "Checked Standard", "Checked Nord",
                             "Unchecked Süd", "Unchecked West"}));
    EXPECT_EQ(values(4), "0|0|0| ");
    EXPECT_EQ(range("Max", 3, "AN"), "none");
  });
}

TEST_F(DialogCirclesTest, ACircleSharedWithTheOtherOriginTakesItsValuesOver) {
  smallCompany("ORC");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (3, 'Drüben', 'ORB')");
  sql("INSERT INTO Nummernkreise VALUES (3, 'AN', 'Angebot', 300, 333, 399, -1, 1, '', 'N')");
  init(2);
  show([&] {
    statements();
    administer(addWest);
    EXPECT_EQ(values(4), "300|333|399| ");
    EXPECT_EQ(picture(4), "Unchecked");
    const Lines sent = statements();
    EXPECT_NE(std::find(sent.begin(), sent.end(),
                        "work: SELECT * FROM Nummernkreise WHERE NSchl='AN' AND Buchungskreis=3"),
              sent.end());
    press("cmdCancel");
  });
}

TEST_F(DialogCirclesTest, TheChosenFilterStaysWhileItsCircleIsThere) {
  inCompany(2, [&] {
    select("cboBuchungskreis", "Süd");
    administer(addWest);
    EXPECT_EQ(shown("cboBuchungskreis"), "Süd");
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Unchecked Süd", "Rechnung (RE)", "Unchecked Süd"}));
  });
}

TEST_F(DialogCirclesTest, TheNewCircleCanBeChosen) {
  inCompany(2, [&] {
    administer(addWest);
    select("cboBuchungskreis", "West");
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Unchecked West", "Rechnung (RE)", "Unchecked West"}));
  });
}

TEST_F(DialogCirclesTest, ARenamedCircleIsRenamedEverywhere) {
  inCompany(2, [&] {
    administer(renameNord);
    EXPECT_EQ(cell(2, grid_column::Beschreibung), "Norden");
    EXPECT_EQ(cell(6, grid_column::Beschreibung), "Norden");
    select("cboUser", "Max");
    EXPECT_EQ(tree()[2], "ValueTrue Norden");
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogCirclesTest, RenamingTheChosenCircleShowsEverything) {
  inCompany(2, [&] {
    select("cboBuchungskreis", "Nord");
    administer(renameNord);
    EXPECT_EQ(shown("cboBuchungskreis"), "Alle Buchungskreise");
    EXPECT_EQ(grid().ListCount(), 8);
  });
}

TEST_F(DialogCirclesTest, ARemovedCircleIsGoneForEverybody) {
  inCompany(2, [&] {
    select("cboBuchungskreis", "Nord");
    administer(removeNord);
    EXPECT_EQ(shown("cboBuchungskreis"), "Alle Buchungskreise");
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Checked Standard", "Unchecked Süd", "Rechnung (RE)",
                             "Checked Standard", "Unchecked Süd"}));
    EXPECT_EQ(range("Max", 1, "AN"), "none");
    EXPECT_EQ(range("Max", 0, "AN"), "1|5|99||True");  // the activity rule has seen to it
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogCirclesTest, AUsersViewGoesBackToTheCommonOne) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    administer(addWest);
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    EXPECT_EQ(grid().ListCount(), 10);
  });
}

TEST_F(DialogCirclesTest, WithTheLastCircleTheUsersGo) {
  inCompany(2, [&] {
    administer("DELETE FROM Nummernkreis_Buchungskreise");
    EXPECT_FALSE(isVisible("cboUser"));
    EXPECT_FALSE(isVisible("lblUser"));
    EXPECT_EQ(tree(),
              (Lines{"Angebot (AN)", "Checked Standard", "Rechnung (RE)", "Checked Standard"}));
    administer(addWest);
    EXPECT_TRUE(isVisible("cboUser"));
    EXPECT_TRUE(isVisible("lblUser"));
    EXPECT_EQ(tree()[2], "Unchecked West");
  });
}

TEST_F(DialogCirclesTest, AFailureOfTheAdministrationEndsIt) {
  inCompany(2, [&] {
    statements();
    administer("INSERT INTO NichtDa VALUES (1)");
    const Boxes raised = boxes();
    ASSERT_EQ(raised.size(), 1U);
    EXPECT_EQ(raised[0].prompt.find("basAllgemein\r\nCallBuchungskreise: "), 0U);
    EXPECT_EQ(statements(), Lines{});
    EXPECT_EQ(grid().ListCount(), 8);
  });
}

TEST_F(DialogCirclesTest, WhenTheCirclesCannotBeReadTheListStays) {
  inCompany(2, [&] {
    select("cboBuchungskreis", "Nord");
    script().failStatement(1);
    administer(addWest);
    EXPECT_EQ(boxes(),
              (Boxes{errorBox(4711, "basAllgemein", "RefreshCombo", deliberateErrorText)}));
    EXPECT_EQ(entries("cboBuchungskreis"),
              (Lines{"Alle Buchungskreise", "Aktive Buchungskreise", "Nord", "Süd"}));
    EXPECT_EQ(shown("cboBuchungskreis"), "Nord");
  });
}

TEST_F(DialogCirclesTest, CancelTakesTheCirclesBack) {
  inCompany(2, [&] {
    administer(removeNord);
    press("cmdCancel");
  });
  EXPECT_EQ(rows("SELECT COUNT(*) FROM Nummernkreis_Buchungskreise"), Lines{"2"});
}

TEST_F(DialogCirclesTest, AnAdministrationThatLeavesThemAsTheyAreIsNoChange) {
  inCompany(2, [&] {
    administer("UPDATE Nummernkreis_Buchungskreise SET Beschreibung=Beschreibung");
    EXPECT_FALSE(changed());
    statements();
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(statements(), Lines{"conn: ROLLBACK"});
  });
}

TEST_F(DialogCirclesTest, OkKeepsANewNameAndCancelDoesNot) {
  const std::string names = "SELECT Beschreibung FROM Nummernkreis_Buchungskreise ORDER BY 1";
  inCompany(2, [&] {
    administer(renameNord);
    press("cmdCancel");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(rows(names), (Lines{"Nord", "Süd"}));
  show([&] {
    administer(renameNord);
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(rows(names), (Lines{"Norden", "Süd"}));
}

TEST_F(DialogCirclesTest, OkKeepsThem) {
  inCompany(2, [&] {
    administer(addWest);
    clickPicture(4);
    click(4, grid_column::Start);
    type("300");
    key("Tab", 2);
    type("399");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(
      rows("SELECT StartWert, EndWert, Aktiviert FROM Nummernkreise WHERE Buchungskreis=3 AND "
           "NSchl='AN'"),
      Lines{"300 | 399 | -1"});
  EXPECT_EQ(rows("SELECT COUNT(*) FROM Nummernkreis_Buchungskreise"), Lines{"3"});
}

}  // namespace
}  // namespace vexnumkr::test
