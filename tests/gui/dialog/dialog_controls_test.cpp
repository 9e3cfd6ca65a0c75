// The controls of the main dialog: captions, order, focus, keys, tool tips, fonts, sizes.
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include "scenario/windows/controls.h"
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

class DialogControlsTest : public DialogSession {
 protected:
  Lines controlNames() const {
    Lines names;
    for (const QWidget* each : scenario::controlsOf(dialog()))
      names.push_back(each->objectName().toStdString());
    return names;
  }
  QTreeView& view() const { return control<QTreeView>("sftNummernkreise"); }
  std::string toolTip(const char* name) const { return control(name).toolTip().toStdString(); }
  std::string family(const char* name) const { return control(name).font().family().toStdString(); }
  int columnWidth(int section) const { return view().header()->sectionSize(section); }
};

TEST_F(DialogControlsTest, StandInTheirOrderWithTheirCaptions) {
  inCompany(2, [&] {
    EXPECT_EQ(controlNames(),
              (Lines{"sftNummernkreise", "lblBuchungskreis", "cboBuchungskreis",
                     "cmdBuchungskreise", "lblUser", "cboUser", "cmdAuto", "cmdSonderkreise",
                     "cmdOptionen", "cmdOK", "cmdCancel", "UglyButtons", "Checked", "Unchecked",
                     "ValueTrue", "ValueFalse", "NotFound"}));
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("Nummernkreise"));
    const std::pair<const char*, const char*> labels[] = {{"lblBuchungskreis", "Nummernkreis:"},
                                                          {"lblUser", "Benutzer:"}};
    for (const auto& [name, caption] : labels)
      EXPECT_EQ(control<QLabel>(name).text().toStdString(), caption);
    const std::pair<const char*, const char*> buttons[] = {{"cmdBuchungskreise", "..."},
                                                           {"cmdAuto", "Automatisch"},
                                                           {"cmdSonderkreise", "Sonderkreise"},
                                                           {"cmdOptionen", "Einstellungen"},
                                                           {"cmdOK", "OK"},
                                                           {"cmdCancel", "Abbrechen"}};
    for (const auto& [name, caption] : buttons)
      EXPECT_EQ(control<QPushButton>(name).text().toStdString(), caption);
  });
}

TEST_F(DialogControlsTest, OnlyTheFirstFiveColumnsAreShown) {
  inCompany(2, [&] {
    Lines headers;
    for (int section = 0; section < view().header()->count(); ++section)
      if (!view().isColumnHidden(section))
        headers.push_back(
            view().model()->headerData(section, Qt::Horizontal).toString().toStdString());
    EXPECT_EQ(headers, (Lines{"Beschreibung", "Start", "Aktuell", "Ende", "Maske"}));
    for (int section = 1; section < 5; ++section) EXPECT_EQ(columnWidth(section), 87) << section;
    for (std::int16_t column = 6; column <= 11; ++column) EXPECT_EQ(grid().ColWidth(column), 0);
  });
}

TEST_F(DialogControlsTest, TheGridHasTheFocusAndNoCurrentItem) {
  inCompany(2, [&] {
    EXPECT_EQ(focus(), "sftNummernkreise");
    EXPECT_EQ(grid().ListIndex(), -1);
    key("Space");
    key("F2");
    EXPECT_EQ(editor(), "none");
    EXPECT_FALSE(changed());
    EXPECT_EQ(grid().ListIndex(), -1);
    key("Down");
    EXPECT_EQ(grid().ListIndex(), 0);
  });
}

TEST_F(DialogControlsTest, OkAndCancelComeLastInTheTabOrder) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('AX', 'AN', 'Export', 0, 'ORC')");
  inCompany(2, [&] {
    control("cboBuchungskreis").setFocus();
    Lines visited;
    for (int i = 0; i < 9; ++i) {
      visited.push_back(focus());
      key("Tab");
    }
    EXPECT_EQ(visited,
              (Lines{"cboBuchungskreis", "cmdBuchungskreise", "cboUser", "sftNummernkreise",
                     "cmdAuto", "cmdSonderkreise", "cmdOptionen", "cmdOK", "cmdCancel"}));
    EXPECT_EQ(focus(), "cboBuchungskreis");
    key("Shift+Tab");
    EXPECT_EQ(focus(), "cmdCancel");
  });
}

TEST_F(DialogControlsTest, EnterPressesOk) {
  for (const char* name : {"sftNummernkreise", "cboUser"}) {
    init(2);
    show([&] {
      statements();
      if (isVisible(name)) control(name).setFocus();
      key("Enter");
      EXPECT_FALSE(isOpen());
      EXPECT_EQ(statements(), Lines{"conn: ROLLBACK"});  // nothing to save
    });
  }
}

TEST_F(DialogControlsTest, EnterOnAButtonPressesThatButton) {
  inCompany(2, [&] {
    control("cmdAuto").setFocus();
    answer("no");
    key("Enter");
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_TRUE(isOpen());
  });
}

TEST_F(DialogControlsTest, EscapePressesCancel) {
  inCompany(2, [&] {
    clickPicture(3);
    ASSERT_TRUE(changed());
    key("Escape");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(statements().back(), "conn: ROLLBACK");
  });
}

TEST_F(DialogControlsTest, ToolTipsExplain) {
  inCompany(2, [&] {
    EXPECT_EQ(toolTip("cmdAuto"),
              "Belegt die Nummernkreise jeweils anhand der eingegebenen Maske neu vor.");
    EXPECT_EQ(toolTip("cmdBuchungskreise"),
              "Nummernkreise verwalten.\r\nHinweis: Ist kein Nummernkreis vorhanden, so wird die "
              "Auflistung \"Benutzer\" ausgeblendet.");
    EXPECT_EQ(toolTip("cboUser"),
              "Hinweis: Nummernkreise können nur dann verwaltet werden, wenn die Option \"Alle "
              "Benutzer\" ausgewählt worden ist.");
  });
}

TEST_F(DialogControlsTest, Application1SwitchesTheFonts) {
  inCompany(1, [&] {
    EXPECT_EQ(dialog().font().family(), QStringLiteral("MS Sans Serif"));
    for (QWidget* each : scenario::controlsOf(dialog())) {
      const std::string name = each->objectName().toStdString();
      if (name == "cmdBuchungskreise") continue;
      EXPECT_EQ(each->font().family(), QStringLiteral("MS Sans Serif")) << name;
      EXPECT_FALSE(each->font().bold()) << name;
    }
    const QFont narrow = control("cmdBuchungskreise").font();
    EXPECT_EQ(narrow.family(), QStringLiteral("Arial Narrow"));
    EXPECT_TRUE(narrow.bold());
    EXPECT_EQ(narrow.pixelSize(), 13);  // 10 points
    EXPECT_EQ(view().header()->font().family(), QStringLiteral("MS Sans Serif"));
    click(1, grid_column::Start);
    EXPECT_EQ(gridAccess().editor().font().family(), QStringLiteral("MS Sans Serif"));
  });
}

TEST_F(DialogControlsTest, OtherApplicationsKeepTheDesignedFonts) {
  inCompany(2, [&] {
    EXPECT_EQ(dialog().font().family(), QStringLiteral("Tahoma"));
    for (const char* name : {"sftNummernkreise", "cmdBuchungskreise", "cmdOK", "lblUser"})
      EXPECT_EQ(family(name), "Tahoma") << name;
    EXPECT_FALSE(control("cmdBuchungskreise").font().bold());
  });
}

TEST_F(DialogControlsTest, GrowWithTheWindow) {
  inCompany(2, [&] {
    std::map<std::string, QRect> before;
    for (QWidget* each : scenario::controlsOf(dialog()))
      before[each->objectName().toStdString()] = each->geometry();
    const int description = columnWidth(0);

    resize(dialog().width() + 200, dialog().height() + 60);

    const auto moved = [&](const char* name) {
      return control(name).geometry().topLeft() - before[name].topLeft();
    };
    for (const char* name : {"lblUser", "cboUser"}) EXPECT_EQ(moved(name), QPoint(200, 0)) << name;
    for (const char* name : {"cmdAuto", "cmdSonderkreise", "cmdOptionen"})
      EXPECT_EQ(moved(name), QPoint(0, 60)) << name;
    for (const char* name : {"cmdOK", "cmdCancel"}) EXPECT_EQ(moved(name), QPoint(200, 60)) << name;
    for (const char* name : {"sftNummernkreise", "cboBuchungskreis", "cmdBuchungskreise"})
      EXPECT_EQ(moved(name), QPoint()) << name;
    EXPECT_EQ(view().size(), before["sftNummernkreise"].size() + QSize(200, 60));
    EXPECT_EQ(columnWidth(0), description + 50);
    EXPECT_EQ(columnWidth(1), 87);
    for (int section = 2; section < 5; ++section) EXPECT_EQ(columnWidth(section), 137) << section;
  });
}

TEST_F(DialogControlsTest, ShrinkAndComeBack) {
  inCompany(2, [&] {
    const QSize size = dialog().size();
    const QRect gridBefore = view().geometry();
    resize(size.width() - 20, size.height() - 100);
    EXPECT_EQ(view().size(), gridBefore.size() - QSize(20, 100));
    for (int section = 2; section < 5; ++section) EXPECT_EQ(columnWidth(section), 82) << section;
    resize(size.width(), size.height());
    EXPECT_EQ(view().geometry(), gridBefore);
    for (int section = 1; section < 5; ++section) EXPECT_EQ(columnWidth(section), 87) << section;
  });
}

TEST_F(DialogControlsTest, DoNotOverlapInTheSmallestWindow) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('AX', 'AN', 'Export', 0, 'ORC')");
  inCompany(2, [&] {
    resize(1, 1);
    const auto controls = scenario::controlsOf(dialog());
    for (const QWidget* one : controls) {
      if (!one->isVisible()) continue;
      EXPECT_TRUE(dialog().rect().contains(one->geometry())) << one->objectName().toStdString();
      for (const QWidget* other : controls) {
        if (one == other || !other->isVisible()) continue;
        EXPECT_FALSE(one->geometry().intersects(other->geometry()))
            << one->objectName().toStdString() << " and " << other->objectName().toStdString();
      }
    }
  });
}

// An edit in progress stays with its cell.
TEST_F(DialogControlsTest, ResizingKeepsAnOpenEditor) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("17");
    resize(dialog().width() + 120, dialog().height() + 30);
    EXPECT_EQ(editor(), "2/3 17");
    EXPECT_GT(gridAccess().editor().width(), 100);
  });
}

}  // namespace
}  // namespace vexnumkr::test
