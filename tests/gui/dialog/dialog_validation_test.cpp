// A save that is refused: the message, the view of everything, and the editor on the value.
#include <QLineEdit>

#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

class DialogValidationTest : public DialogSession {
 protected:
  void enter(std::int32_t item, std::int32_t column, const std::string& text) {
    click(item, column);
    type(text);
    key("Enter");
  }
  /// Presses OK over a defect; the dialog stays open, and nothing is sent but the question for what
  /// is stored by now.
  void expectRefused(const std::string& message) {
    statements();
    press("cmdOK");
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{{"Info", message, 0}}));
    EXPECT_EQ(statements(),
              Lines{"work: SELECT NSchl, NBezeichnung, Buchungskreis, StartWert, AktuellerWert, "
                    "EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske FROM Nummernkreise WHERE "
                    "NSchl <> 'LM' AND NSchl <> 'AF' ORDER BY SortierIndex"});
  }
  void expectEditing(const std::string& place) {
    EXPECT_EQ(editor(), place);
    EXPECT_EQ(selectedText(), place.substr(place.find(' ') + 1));
    EXPECT_TRUE(gridAccess().editor().hasFocus());
  }
};

TEST_F(DialogValidationTest, AnEndThatIsNotAboveTheStart) {
  inCompany(2, [&] {
    enter(6, grid_column::Ende, "2000");
    expectRefused(
        "Der Endwert muss größer sein als der Startwert.\r\n(Belegart: Rechnung, Buchungskreis: "
        "Nord)");
    expectEditing("6/4 2000");
    EXPECT_EQ(grid().ListIndex(), 6);
  });
}

TEST_F(DialogValidationTest, ACurrentValueOutsideOfTheRange) {
  inCompany(2, [&] {
    enter(2, grid_column::Aktuell, "99");
    expectRefused(
        "Der aktuelle Wert muss zwischen dem Start- und Endwert liegen.\r\n(Belegart: Angebot, "
        "Buchungskreis: Nord)");
    expectEditing("2/3 99");
  });
}

TEST_F(DialogValidationTest, CirclesThatOverlapAreShownAtTheLaterOne) {
  inCompany(2, [&] {
    enter(2, grid_column::Start, "50");
    expectRefused(
        "Bei der Belegart 'Angebot' überschneidet sich der Buchungskreis 'Nord' mit dem "
        "Buchungskreis 'Standard'.");
    expectEditing("2/2 50");
  });
}

TEST_F(DialogValidationTest, KeysThatOverlapAreShownAtTheEarlierOne) {
  smallCompany("ORC");
  sql("INSERT INTO Nummernkreise VALUES (0, 'AX', 'Export', 50, 50, 70, -1, 9, 'AN', '')");
  init(2);
  show([&] {
    clickPicture(3);  // something to save
    expectRefused(
        "Bei der Belegart 'Export' überschneidet sich der Buchungskreis 'Standard' mit der "
        "Belegart 'Angebot' und dem Buchungskreis 'Standard'.");
    expectEditing("1/2 1");
    press("cmdCancel");
  });
}

TEST_F(DialogValidationTest, AnInactiveRangeMayBeDefective) {
  inCompany(2, [&] {
    enter(3, grid_column::Ende, "1");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
  });
}

TEST_F(DialogValidationTest, AnotherViewIsResetToEverything) {
  inCompany(2, [&] {
    enter(2, grid_column::Aktuell, "99");
    select("cboUser", "Max");
    select("cboBuchungskreis", "Süd");
    expectRefused(
        "Der aktuelle Wert muss zwischen dem Start- und Endwert liegen.\r\n(Belegart: Angebot, "
        "Buchungskreis: Nord)");
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    EXPECT_EQ(shown("cboBuchungskreis"), "Alle Buchungskreise");
    EXPECT_EQ(grid().ListCount(), 8);
    expectEditing("2/3 99");
  });
}

// The filters are set back without building the grid once more, which would close the editor.
TEST_F(DialogValidationTest, AViewOfOneCircleIsResetToo) {
  inCompany(2, [&] {
    select("cboBuchungskreis", "Nord");
    enter(1, grid_column::Aktuell, "99");
    key("Escape");
    expectRefused(
        "Der aktuelle Wert muss zwischen dem Start- und Endwert liegen.\r\n(Belegart: Angebot, "
        "Buchungskreis: Nord)");
    EXPECT_EQ(shown("cboBuchungskreis"), "Alle Buchungskreise");
    expectEditing("2/3 99");
  });
}

TEST_F(DialogValidationTest, TheValueCanBeCorrectedAtOnce) {
  inCompany(2, [&] {
    enter(2, grid_column::Aktuell, "99");
    press("cmdOK");
    EXPECT_EQ(boxes().size(), 1U);
    type("199");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'"),
            Lines{"199"});
}

TEST_F(DialogValidationTest, EscapeLeavesTheValueAndThenTheDialog) {
  inCompany(2, [&] {
    enter(2, grid_column::Aktuell, "99");
    press("cmdOK");
    EXPECT_EQ(boxes().size(), 1U);
    key("Escape");
    EXPECT_EQ(editor(), "none");
    EXPECT_TRUE(isOpen());
    key("Escape");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(statements().back(), "conn: ROLLBACK");
  });
}

TEST_F(DialogValidationTest, TheCloseButtonAsksAndThenRefuses) {
  inCompany(2, [&] {
    enter(2, grid_column::Aktuell, "99");
    key("Escape");
    answer("yes");
    closeWindow();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes().size(), 2U);
    expectEditing("2/3 99");
  });
}

TEST_F(DialogValidationTest, TheEditorIsBroughtIntoSight) {
  smallCompany("ORC");
  for (int key = 10; key < 40; ++key) {
    const std::string number = std::to_string(key);
    sql("INSERT INTO Nummernkreise VALUES (0, 'K" + number + "', 'Key " + number +
        "', 1, 1, 9, -1, " + number + ", '', '')");
  }
  sql("UPDATE Nummernkreise SET AktuellerWert=0 WHERE NSchl='K39'");
  init(2);
  show([&] {
    clickPicture(3);
    press("cmdOK");
    EXPECT_EQ(boxes().size(), 1U);
    const QWidget& viewport = *gridAccess().view().viewport();
    EXPECT_TRUE(viewport.rect().contains(gridAccess().editor().geometry()));
    press("cmdCancel");
  });
}

// The editor keeps it, so OK does not get as far as saving.
TEST_F(DialogValidationTest, AValueBeyondTheIntegersIsNeitherKeptNorSaved) {
  const Boxes refused = {
      {"Info", "Bitte geben Sie eine Zahl zwischen -2147483648 und 2147483647 ein.", 0}};
  inCompany(2, [&] {
    clickPicture(3);  // something to save
    enter(3, grid_column::Ende, "99999999999");
    EXPECT_EQ(boxes(), refused);
    statements();
    press("cmdOK");
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes(), refused);
    EXPECT_EQ(statements(), Lines{});
    expectEditing("3/4 99999999999");
    key("Escape");
    EXPECT_EQ(cell(3, grid_column::Ende), "299");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(rows("SELECT StartWert, EndWert, Aktiviert FROM Nummernkreise WHERE Buchungskreis=2 "
                 "AND NSchl='AN'"),
            Lines{"200 | 299 | -1"});
}

}  // namespace
}  // namespace vexnumkr::test
