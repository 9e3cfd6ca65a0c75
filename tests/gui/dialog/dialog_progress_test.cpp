// Long work of the main dialog: what the user sees of it, and what becomes of his input meanwhile.
#include <QAccessible>
#include <QApplication>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include "adapters/qtgrid/view/grid_view.h"
#include "support/dialog_session.h"
#include "support/screen_reader.h"

namespace vexnumkr::test {
namespace {

using std::chrono::milliseconds;

// Watches the progress windows that come up.
class ProgressWatch final : public QObject {
 public:
  ProgressWatch() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (receiver->objectName() == QLatin1String("progress") && event->type() == QEvent::Show) {
      captions.push_back(
          receiver->findChild<QLabel*>(QStringLiteral("caption"))->text().toStdString());
      pointers.push_back(QGuiApplication::overrideCursor() != nullptr);
      if (whenShown) whenShown();
    }
    return false;
  }

  Lines captions;
  std::vector<bool> pointers;  // whether the pointer was busy
  std::function<void()> whenShown;
};

class DialogProgressTest : public DialogSession {
 protected:
  // The user does not wait: keys for the dialog, in the application's queue.
  static void queueKeys(QDialog& dialog, const std::vector<Qt::Key>& keys) {
    for (const Qt::Key key : keys)
      for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(dialog.windowHandle(),
                                    new QKeyEvent(type, key, Qt::NoModifier));
  }
  static QWidget* progressWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == QLatin1String("progress")) return window;
    return nullptr;
  }
  static bool pointerIsBusy() { return QGuiApplication::overrideCursor() != nullptr; }
  static void act(QAccessibleInterface* part, const QString& action) {
    part->actionInterface()->doAction(action);
  }
  /// All that assistive technology could do to the dialog with "Nord" of the offers.
  void actAsAssistiveTechnology() {
    using Actions = QAccessibleActionInterface;
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&gridAccess().view());
    QAccessibleInterface* caption =
        tree->tableInterface()->cellAt(2, sectionOf(grid_column::Beschreibung));
    act(caption, Actions::toggleAction());
    act(caption->child(0), Actions::toggleAction());
    act(caption, Actions::setFocusAction());
    act(tree->tableInterface()->cellAt(2, sectionOf(grid_column::Start)), Actions::pressAction());
    EXPECT_FALSE(tree->tableInterface()->selectRow(6));
    act(QAccessible::queryAccessibleInterface(&control("cmdCancel")), Actions::pressAction());
  }
  /// Saves a new value while `meanwhile` runs; then the ranges in the database, each with
  /// the number of those who draw from it.
  Lines savedWhile(const std::function<void()>& meanwhile) {
    inCompany(2, [&] {
      enterAValue();
      everyLookTakes(slow);
      watch.whenShown = meanwhile;
      press("cmdOK");
      EXPECT_FALSE(isOpen());
      EXPECT_EQ(watch.captions, Lines{"Nummernkreise werden gespeichert…"});
    });
    EXPECT_EQ(boxes(), Boxes{});
    return rows(
        "SELECT r.Buchungskreis, r.NSchl, COUNT(*) FROM Nummernkreise r LEFT JOIN "
        "Nummernkreis_Zuordnung z ON z.Buchungskreis = r.Buchungskreis AND z.NSchl = r.NSchl "
        "GROUP BY r.Buchungskreis, r.NSchl ORDER BY r.NSchl, r.Buchungskreis");
  }
  void enterAValue() {
    click(2, grid_column::Aktuell);
    type("160");
    key("Enter");
    key("Escape");
  }

  const milliseconds slow{200};
  const Lines allSaved{"0 | AN | 2", "1 | AN | 2", "2 | AN | 1",
                       "0 | RE | 3", "1 | RE | 1", "2 | RE | 1"};
  ProgressWatch watch;
};

TEST_F(DialogProgressTest, QuickWorkIsNotShown) {
  everyLookTakes(milliseconds(1));
  inCompany(2, [&] {
    enterAValue();
    press("cmdOK");
  });
  EXPECT_EQ(watch.captions, Lines{});
}

TEST_F(DialogProgressTest, LoadingIsShownBeforeTheDialogIs) {
  everyLookTakes(slow);
  watch.whenShown = [&] { EXPECT_EQ(windows(), Lines{}); };
  inCompany(2, [&] {
    everyLookTakes(milliseconds(0));
    EXPECT_EQ(watch.captions, Lines{"Nummernkreise werden geladen…"});
    EXPECT_EQ(watch.pointers, std::vector{true});
    EXPECT_FALSE(pointerIsBusy());
    EXPECT_EQ(focus(), "sftNummernkreise");
    EXPECT_EQ(grid().ListCount(), 8);
  });
}

TEST_F(DialogProgressTest, LoadingCanBeGivenUp) {
  smallCompany("ORC");
  init(2);
  for (const char* way : {"button", "close button", "Escape"}) {
    everyLookTakes(slow);
    watch.whenShown = [&] {
      QWidget& window = *progressWindow();
      if (way == std::string("button"))
        QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("cancel")), Qt::LeftButton);
      else if (way == std::string("Escape"))
        QTest::keyClick(&window, Qt::Key_Escape);
      else
        window.close();
    };
    component().ShowDialog();
    EXPECT_EQ(boxes(), Boxes{}) << way;
    EXPECT_EQ(windows(), Lines{}) << "it never comes up: " << way;
    for (const std::string& sent : statements())
      EXPECT_NE(sent, "conn: BEGIN") << "nothing was begun: " << way;
  }
  everyLookTakes(milliseconds(0));
  watch.whenShown = {};
  show([&] {
    EXPECT_EQ(grid().ListCount(), 8) << "opening again reads all";
    press("cmdCancel");
  });
}

TEST_F(DialogProgressTest, SavingCannotBeGivenUp) {
  savedWhile([&] {
    EXPECT_FALSE(progressWindow()->findChild<QPushButton*>(QStringLiteral("cancel"))->isVisible());
    progressWindow()->close();
  });
}

TEST_F(DialogProgressTest, ThePointerIsBusyBeforeTheRangesAreRead) {
  std::vector<bool> pointers;
  host().whenAsked = [&] { pointers.push_back(pointerIsBusy()); };
  inCompany(2, [&] {
    EXPECT_EQ(pointers, std::vector{true});
    EXPECT_FALSE(pointerIsBusy());
  });
}

TEST_F(DialogProgressTest, SavingSpecialRangesIsShown) {
  for (const char* key : {"A1", "A2", "A3", "A4"})
    sql(std::string("INSERT INTO Nummernkreis_Sonderkreise VALUES ('") + key +
        "', 'AN', 'Messe', 0, 'ORC')");
  inCompany(2, [&] {
    expectDialog("frmSonderkreise", [&] {
      everyLookTakes(slow);
      watch.whenShown = [&] {
        everyLookTakes(milliseconds(0));
        EXPECT_EQ(windows().back(), "open frmSonderkreise");
      };
      press("cmdOK");
    });
    press("cmdSonderkreise");
    EXPECT_EQ(watch.captions, Lines{"Sonderkreise werden gespeichert…"});
    EXPECT_EQ(watch.pointers, std::vector{true});
    EXPECT_FALSE(pointerIsBusy());
  });
}

TEST_F(DialogProgressTest, SavingIsShown) {
  inCompany(2, [&] {
    enterAValue();
    everyLookTakes(slow);
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(watch.captions, Lines{"Nummernkreise werden gespeichert…"});
    EXPECT_EQ(watch.pointers, std::vector{true});
    EXPECT_FALSE(pointerIsBusy());
  });
}

TEST_F(DialogProgressTest, NumberingIsShown) {
  inCompany(2, [&] {
    everyLookTakes(slow);
    answer("yes");
    press("cmdAuto");
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(watch.captions, Lines{"Automatische Nummerierung…"});
    EXPECT_FALSE(pointerIsBusy());
  });
}

// F8 would choose another user, Escape would cancel, and Enter would press OK.
TEST_F(DialogProgressTest, WhatTheUserDoesMeanwhileIsDropped) {
  inCompany(2, [&] {
    everyLookTakes(slow);
    answer("yes");
    watch.whenShown = [&] {
      queueKeys(dialog(), {Qt::Key_F8, Qt::Key_Space, Qt::Key_Escape, Qt::Key_Return});
      QTest::mouseClick(dialog().windowHandle(), Qt::LeftButton, {},
                        control("cmdCancel").geometry().center());
      dialog().windowHandle()->close();
    };
    press("cmdAuto");
    QCoreApplication::processEvents();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    key("F8");
    EXPECT_EQ(shown("cboUser"), "Anna");
  });
}

// Unticking takes rows out of the table whose rows are being written.
TEST_F(DialogProgressTest, AssistiveTechnologyChangesNothingInMidSave) {
  const Lines lines = savedWhile([this] {
    const Lines before = tree();
    actAsAssistiveTechnology();
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(range("Alle Benutzer", 1, "AN"), "100|160|199|JNN|True");
    EXPECT_EQ(range("Max", 1, "AN"), "100|160|199|JNN|True");
  });
  EXPECT_EQ(lines, allSaved);
}

// As it would come from an adapter that asks nobody.
TEST_F(DialogProgressTest, TheDialogItselfHeedsNoClickInMidSave) {
  const Lines lines = savedWhile([this] {
    const Lines before = tree();
    gridAccess().view().click({2, 1, GridArea::Picture, false});
    EXPECT_EQ(tree(), before);
    gridAccess().view().click({2, 3, GridArea::Cell, false});
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(range("Max", 1, "AN"), "100|160|199|JNN|True");
  });
  EXPECT_EQ(lines, allSaved);
}

TEST_F(DialogProgressTest, AssistiveTechnologyChangesNothingUnderABox) {
  inCompany(2, [&] {
    click(1, grid_column::Aktuell);
    key("Escape");
    const Lines before = tree();
    answer("no");
    whenBoxComes([&] {
      actAsAssistiveTechnology();
      EXPECT_EQ(tree(), before);
      EXPECT_EQ(editor(), "none");
      EXPECT_EQ(grid().ListIndex(), 1);
    });
    press("cmdAuto");
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(tree(), before);
  });
}

TEST_F(DialogProgressTest, AFailedSaveIsToldWithoutProgressInTheWay) {
  inCompany(2, [&] {
    enterAValue();
    statements();
    everyLookTakes(slow);
    script().failStatement(7);  // the first assignment
    watch.whenShown = [&] { queueKeys(dialog(), {Qt::Key_Return}); };
    press("cmdOK");
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(watch.captions, Lines{"Nummernkreise werden gespeichert…"});
    EXPECT_EQ(boxes(), (Boxes{errorBox(4711, "basAllgemein", "Save", deliberateErrorText)}));
    EXPECT_FALSE(pointerIsBusy());
    everyLookTakes(milliseconds(0));
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
}

// The box comes up in the middle of the work, which then goes on.
TEST_F(DialogProgressTest, AFailureWhileLoadingIsToldWithoutProgressInTheWay) {
  smallCompany("ORC");
  init(2);
  everyLookTakes(slow);
  script().failStatement(8);
  show([&] {
    EXPECT_EQ(boxes(), (Boxes{errorBox(4711, "basAllgemein", "AktiviertDB", deliberateErrorText)}));
    EXPECT_EQ(watch.captions,
              (Lines{"Nummernkreise werden geladen…", "Nummernkreise werden geladen…"}));
    EXPECT_EQ(grid().ListCount(), 8);
    everyLookTakes(milliseconds(0));
    press("cmdCancel");
  });
}

TEST_F(DialogProgressTest, HostsThatCallInTheMiddleOfWorkAreTurnedAway) {
  everyLookTakes(slow);
  bool called = false;
  watch.whenShown = [&] {
    called = true;
    EXPECT_FALSE(component().Init(session().sharedConn(), 1, "Anna"));
    component().ShowDialog();
  };
  inCompany(2, [&] {
    EXPECT_TRUE(called);
    EXPECT_EQ(session().LngApplication(), 2);
    EXPECT_EQ(windows(), Lines{"open frmNummernkreise"});
    everyLookTakes(milliseconds(0));
  });
}

}  // namespace
}  // namespace vexnumkr::test
