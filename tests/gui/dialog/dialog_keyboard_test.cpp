// Everything can be done with the keyboard alone, and a screen reader tells what is being done.
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <algorithm>

#include "support/dialog_session.h"
#include "support/screen_reader.h"

namespace vexnumkr::test {
namespace {

using Actions = QAccessibleActionInterface;

class DialogKeyboardTest : public DialogSession {
 protected:
  QAccessibleInterface& accessible(const char* name) const {
    return *QAccessible::queryAccessibleInterface(&control(name));
  }
  QAccessibleInterface& row(int row) const {
    return *accessible("sftNummernkreise")
                .tableInterface()
                ->cellAt(row, sectionOf(grid_column::Beschreibung));
  }
  /// What a screen reader calls the widget that has the focus, or the grid's row.
  static std::string focusName() {
    QAccessibleInterface* focused =
        QAccessible::queryAccessibleInterface(QApplication::focusWidget());
    if (QAccessibleInterface* part = focused->focusChild()) focused = part;
    return focused->text(QAccessible::Name).toStdString();
  }
  /// Presses the key, and waits for the button to come up again: only then does its click take
  /// place.
  void accessKey(const char* chord, const char* name) {
    const QPushButton& button = control<QPushButton>(name);
    key(chord);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
  static bool heard(ScreenReader& reader, const std::string& line) {
    const Lines lines = reader.heard();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }
};

TEST_F(DialogKeyboardTest, AWholeDaysWork) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('AX', 'AN', 'Export', 0, 'ORC')");
  inCompany(2, [&] {
    ScreenReader reader;
    // Tick "Süd" of the offers.
    key("Down", 4);
    EXPECT_TRUE(heard(reader, "focus Süd"));
    EXPECT_EQ(picture(3), "Unchecked");
    key("Space");
    EXPECT_EQ(picture(3), "Checked");
    EXPECT_TRUE(heard(reader, "checked Süd"));
    // Enter its values, the mask last.
    key("F2");
    EXPECT_EQ(focusName(), "Start, Süd, Angebot (AN)");
    type("300");
    key("Tab");
    EXPECT_EQ(focusName(), "Aktuell, Süd, Angebot (AN)");
    type("310");
    key("Tab");
    type("399");
    key("Ctrl+Right");
    EXPECT_EQ(focusName(), "Maske, Süd, Angebot (AN)");
    type("3NN");
    key("Enter");
    EXPECT_EQ(focusName(), "Start, Standard, Rechnung (RE)");
    key("Escape");
    EXPECT_EQ(values(3), "300|310|399|3NN");
    // Filter, first by circle, then by user.
    key("Alt+N");
    EXPECT_EQ(focus(), "cboBuchungskreis");
    key("Down", 3);
    EXPECT_EQ(shown("cboBuchungskreis"), "Süd");
    key("Home");
    key("F8", 2);
    EXPECT_EQ(shown("cboUser"), "Max");
    // Choose "Süd" for this user: in the grid, which is two controls before the combo.
    key("Shift+Tab");
    EXPECT_EQ(focus(), "cmdCancel");
    key("Tab", 4);
    EXPECT_EQ(focus(), "sftNummernkreise");
    key("Down", 4);
    EXPECT_EQ(focusName(), "Süd");
    EXPECT_EQ(picture(3), "ValueFalse");
    key("Space");
    EXPECT_EQ(picture(3), "ValueTrue");
    key("F7", 2);
    // Special ranges.
    expectDialog("frmSonderkreise", [&] {
      EXPECT_EQ(focusName(), "Export (AX)");
      key("Escape");
    });
    accessKey("Alt+S", "cmdSonderkreise");
    // Renumber, and close with OK.
    answer("yes");
    accessKey("Alt+A", "cmdAuto");
    EXPECT_EQ(values(3), "300|300|399|3NN");
    key("F9");
    EXPECT_EQ(boxes().size(), 1U);
  });
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(rows("SELECT StartWert FROM Nummernkreise WHERE Buchungskreis=2 AND NSchl='AN'"),
            Lines{"300"});
}

TEST_F(DialogKeyboardTest, AccessKeysPressButtonsAndGoToFilters) {
  inCompany(2, [&] {
    expectDialog("frmOptionen", [&] { key("Escape"); });
    accessKey("Alt+E", "cmdOptionen");
    EXPECT_EQ(windows(), (Lines{"open frmNummernkreise", "open frmOptionen", "close frmOptionen"}));
    key("Alt+B");
    EXPECT_EQ(focus(), "cboUser");
    key("Alt+N");
    EXPECT_EQ(focus(), "cboBuchungskreis");
    EXPECT_EQ(control<QPushButton>("cmdAuto").text(), QStringLiteral("Automatisch"));
  });
}

TEST_F(DialogKeyboardTest, TheAccessKeyOfAHiddenFilterDoesNothing) {
  sql("INSERT INTO Nummernkreise VALUES (0, 'AN', 'Angebot', 1, 5, 99, -1, 1, '', '')");
  init(2);
  show([&] {
    EXPECT_FALSE(isVisible("cboUser"));
    key("Alt+B");
    EXPECT_EQ(focus(), "sftNummernkreise");
    press("cmdCancel");
  });
}

TEST_F(DialogKeyboardTest, AnAccessKeySettlesAnOpenEdit) {
  inCompany(2, [&] {
    click(2, grid_column::Start);
    type("abc");
    accessKey("Alt+A", "cmdAuto");
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(editor(), "2/2 abc");
    key("Escape");
    EXPECT_EQ(editor(), "none");
  });
}

TEST_F(DialogKeyboardTest, GroupsAreClosedAndOpened) {
  inCompany(2, [&] {
    key("Down");
    EXPECT_TRUE(row(0).state().expanded);
    key("Left");
    EXPECT_TRUE(row(0).state().collapsed);
    key("Right");
    EXPECT_TRUE(row(0).state().expanded);
  });
}

TEST_F(DialogKeyboardTest, EveryControlSaysWhatItIs) {
  inCompany(2, [&] {
    const std::pair<const char*, const char*> names[] = {
        {"sftNummernkreise", "Nummernkreise"},
        {"cmdBuchungskreise", "Nummernkreise verwalten"},
        {"cmdAuto", "Automatisch"},
        {"cmdOptionen", "Einstellungen"},
        {"cmdOK", "OK"},
        {"cmdCancel", "Abbrechen"}};
    for (const auto& [control, name] : names)
      EXPECT_EQ(accessible(control).text(QAccessible::Name).toStdString(), name);
    EXPECT_TRUE(accessible("cmdOK").state().defaultButton);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&dialog())->text(QAccessible::Name),
              QStringLiteral("Nummernkreise"));
  });
}

TEST_F(DialogKeyboardTest, FiltersAreLabelledByTheirLabels) {
  inCompany(2, [&] {
    const std::pair<const char*, const char*> labels[] = {{"cboBuchungskreis", "Nummernkreis:"},
                                                          {"cboUser", "Benutzer:"}};
    for (const auto& [combo, label] : labels) {
      const auto relations = accessible(combo).relations(QAccessible::Label);
      ASSERT_EQ(relations.size(), 1) << combo;
      EXPECT_EQ(relations.front().first->text(QAccessible::Name).toStdString(), label);
      const QString shown = control<QComboBox>(combo).currentText();
      EXPECT_EQ(accessible(combo).text(QAccessible::Value), shown);
    }
  });
}

TEST_F(DialogKeyboardTest, CellsTakeEntriesInTheCommonViewOnly) {
  inCompany(2, [&] {
    const auto editable = [this](int column) {
      return accessible("sftNummernkreise").tableInterface()->cellAt(1, column)->state().editable;
    };
    for (int column = 1; column <= 4; ++column) EXPECT_TRUE(editable(column)) << column;
    EXPECT_FALSE(editable(0));
    key("F8");
    for (int column = 0; column <= 4; ++column) EXPECT_FALSE(editable(column)) << column;
    key("F7");
    EXPECT_TRUE(editable(1));
  });
}

TEST_F(DialogKeyboardTest, AScreenReaderTicksAndChooses) {
  inCompany(2, [&] {
    row(3).actionInterface()->doAction(Actions::toggleAction());
    EXPECT_EQ(picture(3), "Checked");
    EXPECT_TRUE(row(3).state().checked);
    key("F8", 2);
    ASSERT_EQ(shown("cboUser"), "Max");
    QAccessibleInterface& option = *row(3).child(0);
    EXPECT_EQ(option.role(), QAccessible::RadioButton);
    EXPECT_FALSE(option.state().checked);
    option.actionInterface()->doAction(Actions::pressAction());
    EXPECT_TRUE(option.state().checked);
    EXPECT_FALSE(row(2).state().checked);
  });
}

TEST_F(DialogKeyboardTest, AScreenReaderOpensACell) {
  inCompany(2, [&] {
    accessible("sftNummernkreise")
        .tableInterface()
        ->cellAt(2, sectionOf(grid_column::Ende))
        ->actionInterface()
        ->doAction(Actions::pressAction());
    EXPECT_EQ(editor(), "2/4 199");
    EXPECT_EQ(focusName(), "Ende, Nord, Angebot (AN)");
    key("Escape");
  });
}

TEST_F(DialogKeyboardTest, TheMaskIsExplainedToAScreenReader) {
  inCompany(2, [&] {
    const QString help = accessible("sftNummernkreise")
                             .tableInterface()
                             ->cellAt(1, sectionOf(grid_column::Maske))
                             ->text(QAccessible::Help);
    EXPECT_TRUE(help.startsWith(QStringLiteral("Maske nach der die Belegnummern")));
  });
}

}  // namespace
}  // namespace vexnumkr::test
