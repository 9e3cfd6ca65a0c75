// What entries in the grid do: to the range table, to other cells, and where they are refused.
#include <QLineEdit>

#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

const Box notANumber{"Info", "Bitte geben Sie einen numerischen Wert ein.", 0};

class DialogEntriesTest : public DialogSession {
 protected:
  /// Types into a cell, which may be open already, and goes on with Tab.
  void enter(std::int32_t item, std::int32_t column, const std::string& text) {
    const std::string place = std::to_string(item) + "/" + std::to_string(column) + " ";
    if (editor().find(place) != 0) click(item, column);
    if (text.empty()) key("Delete");
    type(text);
    key("Tab");
  }
  std::string common(std::int32_t circle, const std::string& key) {
    return range("Alle Benutzer", circle, key);
  }
};

TEST_F(DialogEntriesTest, AreWrittenForEveryUserOfTheRange) {
  inCompany(2, [&] {
    enter(2, grid_column::Ende, "188");
    EXPECT_EQ(values(2), "100|150|188|JNN");
    EXPECT_EQ(common(1, "AN"), "100|150|188|JNN|True");
    EXPECT_EQ(range("Anna", 1, "AN"), "100|150|188|JNN|False");
    EXPECT_EQ(range("Max", 1, "AN"), "100|150|188|JNN|True");
    EXPECT_EQ(common(0, "AN"), "1|5|99||True");
    EXPECT_EQ(common(1, "RE"), "2000|2000|2999||True");
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogEntriesTest, EveryColumnHasItsOwnPlace) {
  inCompany(2, [&] {
    enter(3, grid_column::Start, "10");
    enter(3, grid_column::Aktuell, "11");
    enter(3, grid_column::Ende, "12");
    enter(3, grid_column::Maske, "NN");
    EXPECT_EQ(values(3), "10|11|12|NN");
    EXPECT_EQ(common(2, "AN"), "10|11|12|NN|False");
  });
}

TEST_F(DialogEntriesTest, RaisingTheStartDragsTheCurrentValueAlong) {
  inCompany(2, [&] {
    enter(2, grid_column::Start, "170");
    EXPECT_EQ(values(2), "170|170|199|JNN");
    for (const char* user : {"Alle Benutzer", "Anna", "Max"})
      EXPECT_EQ(range(user, 1, "AN").substr(0, 7), "170|170") << user;
  });
}

TEST_F(DialogEntriesTest, OtherStartsLeaveTheCurrentValue) {
  inCompany(2, [&] {
    enter(2, grid_column::Start, "150");
    EXPECT_EQ(values(2), "150|150|199|JNN");
    enter(2, grid_column::Start, "0150");
    EXPECT_EQ(values(2), "0150|150|199|JNN");
    enter(2, grid_column::Start, "20");
    EXPECT_EQ(values(2), "20|150|199|JNN");
    EXPECT_EQ(common(1, "AN"), "20|150|199|JNN|True");
    enter(2, grid_column::Aktuell,
          "5");  // and the current value may lie anywhere until the dialog is saved
    EXPECT_EQ(values(2), "20|5|199|JNN");
  });
}

TEST_F(DialogEntriesTest, StartsAreComparedAsNumbers) {
  inCompany(2, [&] {
    enter(2, grid_column::Start, "1.000");
    EXPECT_EQ(values(2), "1.000|1.000|199|JNN");
    enter(6, grid_column::Start, "-3");
    EXPECT_EQ(values(6), "-3|2000|2999| ");
  });
}

TEST_F(DialogEntriesTest, EveryNumberIsAccepted) {
  inCompany(2, [&] {
    for (const char* text : {" 12 ", "+7", "-5", "1.000", "12.345.678", "2,5", ",5"}) {
      enter(2, grid_column::Aktuell, text);
      EXPECT_EQ(cell(2, grid_column::Aktuell), text);
      EXPECT_EQ(editor(), "2/4 199") << text;
    }
  });
}

TEST_F(DialogEntriesTest, WhatIsNoNumberIsRefused) {
  inCompany(2, [&] {
    for (const char* text : {"abc", "12.5", "1e3", "&H10", "-", ",", "1 2", ""}) {
      for (const std::int32_t column : {2, 3, 4}) {
        click(2, column);
        if (*text == '\0') key("Delete");
        type(text);
        key("Tab");
        EXPECT_EQ(boxes(), Boxes{notANumber}) << text;
        EXPECT_EQ(editor(), "2/" + std::to_string(column) + " " + text);
        EXPECT_EQ(selectedText(), text);
        key("Escape");
      }
    }
    EXPECT_EQ(values(2), "100|150|199|JNN");
    EXPECT_EQ(common(1, "AN"), "100|150|199|JNN|True");
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogEntriesTest, ARefusedEntryCanBeCorrected) {
  inCompany(2, [&] {
    enter(2, grid_column::Ende, "zwei");
    EXPECT_EQ(boxes().size(), 1U);
    type("198");  // over the refused text
    key("Enter");
    EXPECT_EQ(cell(2, grid_column::Ende), "198");
    EXPECT_EQ(editor(), "3/2 200");
  });
}

TEST_F(DialogEntriesTest, WhileAnEntryIsRefusedNothingElseHappens) {
  inCompany(2, [&] {
    click(2, grid_column::Ende);
    type("x");
    const std::vector<std::function<void()>> wishes = {[&] { key("Tab"); },
                                                       [&] { key("Shift+Tab"); },
                                                       [&] { key("Enter"); },
                                                       [&] { key("Ctrl+Left"); },
                                                       [&] { click(6, grid_column::Start); },
                                                       [&] { click(6, grid_column::Beschreibung); },
                                                       [&] { clickPicture(3); },
                                                       [&] { press("cmdAuto"); },
                                                       [&] { press("cmdBuchungskreise"); },
                                                       [&] { press("cmdOptionen"); },
                                                       [&] { press("cmdOK"); },
                                                       [&] { select("cboUser", "Max"); },
                                                       [&] { select("cboBuchungskreis", "Nord"); },
                                                       [&] { key("F7"); },
                                                       [&] { key("F8"); },
                                                       [&] { key("F9"); },
                                                       [&] { closeWindow(); }};
    for (std::size_t wish = 0; wish < wishes.size(); ++wish) {
      wishes[wish]();
      EXPECT_EQ(boxes(), Boxes{notANumber}) << wish;
      ASSERT_TRUE(isOpen()) << wish;
      EXPECT_EQ(editor(), "2/4 x") << wish;
      EXPECT_EQ(selectedText(), "x") << wish;
      EXPECT_TRUE(gridAccess().editor().hasFocus()) << wish;
    }
    EXPECT_EQ(picture(3), "Unchecked");
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    EXPECT_EQ(shown("cboBuchungskreis"), "Alle Buchungskreise");
    EXPECT_TRUE(host().plain.circleDialog.shown.empty());
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogEntriesTest, EveryWayOfLeavingKeepsTheText) {
  inCompany(2, [&] {
    answer("no");  // to cmdAuto
    const std::vector<std::function<void()>> ways = {
        [&] { click(6, grid_column::Start); },
        [&] { click(6, grid_column::Beschreibung); },
        [&] { click(0, grid_column::Beschreibung); },
        [&] { clickPicture(3); },
        [&] { press("cmdAuto"); },
        [&] { press("cmdBuchungskreise"); },
        [&] { select("cboUser", "Alle Benutzer"); },
        [&] { select("cboBuchungskreis", "Alle Buchungskreise"); },
        [&] { key("F7"); },
        [&] { key("Enter"); },
        [&] { key("Shift+Tab"); }};
    for (std::size_t way = 0; way < ways.size(); ++way) {
      const std::string text = std::to_string(160 + way);
      click(2, grid_column::Aktuell);
      type(text);
      ways[way]();
      EXPECT_EQ(cell(2, grid_column::Aktuell), text) << way;
      EXPECT_EQ(common(1, "AN"), "100|" + text + "|199|JNN|True") << way;
    }
    EXPECT_EQ(boxes().size(), 1U);
  });
}

TEST_F(DialogEntriesTest, F8KeepsTheTextAndShowsTheNextUser) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("160");
    key("F8");
    EXPECT_EQ(shown("cboUser"), "Anna");
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(common(1, "AN"), "100|160|199|JNN|True");
  });
}

TEST_F(DialogEntriesTest, OkSavesTheTextBeingTyped) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("160");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'"),
            Lines{"160"});
}

TEST_F(DialogEntriesTest, F9SavesTheTextBeingTyped) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("161");
    key("F9");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'"),
            Lines{"161"});
}

TEST_F(DialogEntriesTest, CancelDropsTheTextBeingTypedWhateverItIs) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("nichts");
    press("cmdCancel");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
  });
}

TEST_F(DialogEntriesTest, F10DropsTheTextBeingTyped) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("nichts");
    key("F10");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
  });
}

TEST_F(DialogEntriesTest, TheSameTextAgainChangesNothing) {
  inCompany(2, [&] {
    enter(2, grid_column::Start, "100");
    EXPECT_FALSE(changed());
    EXPECT_EQ(common(1, "AN"), "100|150|199|JNN|True");
  });
}

TEST_F(DialogEntriesTest, TheSameNumberInAnotherFormIsAChange) {
  inCompany(2, [&] {
    enter(2, grid_column::Start, "0100");
    EXPECT_TRUE(changed());
    EXPECT_EQ(cell(2, grid_column::Start), "0100");
  });
}

TEST_F(DialogEntriesTest, AnEmptyMaskIsOneBlankInItsCell) {
  inCompany(2, [&] {
    enter(2, grid_column::Maske, "");
    EXPECT_EQ(cell(2, grid_column::Maske), " ");
    EXPECT_EQ(common(1, "AN"), "100|150|199||True");
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogEntriesTest, MasksAreTakenAsTheyAreButForBlanksAround) {
  inCompany(2, [&] {
    enter(2, grid_column::Maske, "  JJ NNN-x ");
    EXPECT_EQ(cell(2, grid_column::Maske), "  JJ NNN-x ");
    EXPECT_EQ(common(1, "AN"), "100|150|199|JJ NNN-x|True");
    EXPECT_EQ(boxes(), Boxes{});
  });
}

TEST_F(DialogEntriesTest, ABlankMaskTypedAgainIsNoChange) {
  inCompany(2, [&] {
    enter(1, grid_column::Maske, " ");
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogEntriesTest, ANumberBeyondTheIntegersIsRefused) {
  inCompany(2, [&] {
    for (const char* number : {"99999999999", "2147483648", "2147483647,5", "-2147483649"}) {
      enter(2, grid_column::Ende, number);
      EXPECT_EQ(boxes(),
                (Boxes{{"Info",
                        "Bitte geben Sie eine Zahl zwischen -2147483648 und 2147483647 ein.", 0}}))
          << number;
      EXPECT_EQ(editor(), std::string("2/4 ") + number);
      key("Escape");
      EXPECT_EQ(cell(2, grid_column::Ende), "199");
    }
    EXPECT_EQ(common(1, "AN"), "100|150|199|JNN|True");
    EXPECT_FALSE(changed());
    enter(2, grid_column::Ende, "2147483647");
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(common(1, "AN"), "100|150|2147483647|JNN|True");
    EXPECT_TRUE(changed());
  });
}

// A group has no values of its own, so its cells are empty again.
TEST_F(DialogEntriesTest, AnEntryInAGroupGoesToTheStandardRange) {
  inCompany(2, [&] {
    enter(0, grid_column::Start, "3");
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(cell(0, grid_column::Start), "");
    EXPECT_EQ(values(1), "3|5|99| ");
    EXPECT_TRUE(changed());
    EXPECT_EQ(common(0, "AN"), "3|5|99||True");
    EXPECT_EQ(range("Max", 0, "AN").substr(0, 4), "3|5|");
  });
}

TEST_F(DialogEntriesTest, AGroupsCellRefusesWhatIsNoNumber) {
  inCompany(2, [&] {
    enter(0, grid_column::Ende, "x");
    EXPECT_EQ(boxes(), Boxes{notANumber});
    EXPECT_EQ(editor(), "0/4 x");
    key("Escape");
    EXPECT_EQ(cell(0, grid_column::Ende), "");
  });
}

TEST_F(DialogEntriesTest, TheMaskColumnExplainsMasks) {
  inCompany(2, [&] {
    const std::string tip =
        "Maske nach der die Belegnummern\n"
        "automatisch vorbelegt werden können.\n"
        "Gültige Eingaben sind:\n"
        "M=Monat, J=Jahr, %=Jahresstelle überspringen\n"
        "(z. B. J%%J --> 24), N=numerische Stelle\n"
        "und numerische Werte (von 0 bis 9).\n"
        "Alphanumerische Eingaben werden ignoriert.";
    EXPECT_EQ(toolTip(2, grid_column::Maske), tip);
    EXPECT_EQ(toolTip(0, grid_column::Maske), tip);
    EXPECT_EQ(toolTip(2, grid_column::Ende), "");
  });
}

TEST_F(DialogEntriesTest, ItsExampleIsForTheYearOfTheSession) {
  smallCompany("ORC");
  init(2, "20071231");
  show([&] {
    EXPECT_NE(toolTip(2, grid_column::Maske).find("(z. B. J%%J --> 27)"), std::string::npos);
    press("cmdCancel");
  });
}

TEST_F(DialogEntriesTest, OtherColumnsTellWhatDoesNotFit) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("000000000000000000000000000160");
    key("Enter");
    EXPECT_EQ(toolTip(2, grid_column::Aktuell),
              "noch 39 Nummern frei\nGeladen: 150\n\n000000000000000000000000000160");
    EXPECT_EQ(toolTip(2, grid_column::Ende), "");
  });
}

TEST_F(DialogEntriesTest, NumberingFromMasksShowsTheNewNumbers) {
  inCompany(2, [&] {
    answer("yes");
    press("cmdAuto");
    EXPECT_EQ(boxes(),
              (Boxes{{"Abfrage",
                      "Diese Option startet eine automatische Nummernvergabe nach Maske.\r\n"
                      "Alle bisherigen Nummern werden hiermit überschrieben!\r\n\r\n"
                      "Möchten Sie trotzdem fortfahren?",
                      35}}));
    const Lines shownItems = tree();
    const auto nord = std::find(shownItems.begin(), shownItems.end(), "Checked Nord");
    ASSERT_NE(nord, shownItems.end());
    EXPECT_EQ(values(static_cast<std::int32_t>(nord - shownItems.begin())), "400|400|499|JNN");
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogEntriesTest, AMaskIsNoLongerThanItsColumn) {
  inCompany(2, [&] {
    const int limit = session().Conn().TextLimit("Nummernkreise", "Maske");
    const std::string typed(300, 'N');
    enter(2, grid_column::Maske, typed);
    key("Escape");
    EXPECT_GT(limit, 0);
    EXPECT_EQ(cell(2, grid_column::Maske), typed.substr(0, static_cast<std::size_t>(limit)));
  });
}

TEST_F(DialogEntriesTest, DeclinedNumberingChangesNothing) {
  inCompany(2, [&] {
    for (const char* button : {"no", "cancel"}) {
      answer(button);
      press("cmdAuto");
      EXPECT_EQ(boxes().size(), 1U);
      EXPECT_EQ(values(2), "100|150|199|JNN");
    }
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogEntriesTest, NumberingThatFailsIsReportedAndNotShown) {
  inCompany(2, [&] {
    enter(2, grid_column::Maske, "NNNNNNNNNN");
    answer("yes");
    press("cmdAuto");
    const Boxes raised = boxes();
    ASSERT_EQ(raised.size(), 2U);
    EXPECT_EQ(raised[1], errorBox(6, "basAllgemein", "StartAutoNum",
                                  "Überlauf\r\n(Belegart: Angebot, Buchungskreis: Nord)"));
    EXPECT_EQ(values(2), "100|150|199|NNNNNNNNNN");
  });
}

}  // namespace
}  // namespace vexnumkr::test
