// An open editor while the user does other things: switches applications, scrolls, drags, opens
// lists, presses half a click, closes groups.
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>
#include <QWheelEvent>
#include <QWindow>

#include "scenario/windows/input.h"
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

const Box notANumber{"Info", "Bitte geben Sie einen numerischen Wert ein.", 0};

class DialogInterruptionsTest : public DialogSession {
 protected:
  /// Has "160" typed over the current value of offers of Nord, in the cell 2/3.
  void whileTyping(const std::string& text, const std::function<void()>& steps) {
    inCompany(2, [&] {
      click(2, grid_column::Aktuell);
      type(text);
      steps();
    });
  }
  void expectTyping(const std::string& text) {
    EXPECT_EQ(editor(), "2/3 " + text);
    EXPECT_EQ(cell(2, grid_column::Aktuell), "150");
    EXPECT_FALSE(changed());
  }
  bool editorHasFocus() const { return gridAccess().editor().hasFocus(); }

  void switchAway() {
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
  }
  void switchBack() { QApplication::setActiveWindow(&dialog()); }

  QPoint middleOf(const std::string& name) const {
    QWidget& widget = control(name);
    return widget.mapTo(&dialog(), widget.rect().center());
  }
  void wheel(QWidget& over, int steps) {
    const QPointF place = over.rect().center();
    QWheelEvent event(place, over.mapToGlobal(place), QPoint(), QPoint(0, -120 * steps),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&over, &event);
  }
  void wheelWithFocus(QWidget& over, int steps) {
    over.setFocus();
    wheel(over, steps);
  }
  QTreeView& view() const { return control<QTreeView>("sftNummernkreise"); }
  QAbstractItemView& list(const std::string& combo) const {
    return *control<QComboBox>(combo).view();
  }
};

TEST_F(DialogInterruptionsTest, SwitchingApplicationsLeavesTheEditorAsItIs) {
  whileTyping("160", [&] {
    for (int i = 0; i < 2; ++i) {
      switchAway();
      expectTyping("160");
      switchBack();
      expectTyping("160");
      EXPECT_TRUE(editorHasFocus());
    }
    type("5");  // behind what was typed
    key("Tab");
    EXPECT_EQ(cell(2, grid_column::Aktuell), "1605");
    EXPECT_EQ(editor(), "2/4 199");
  });
}

TEST_F(DialogInterruptionsTest, SwitchingApplicationsOffersARefusedTextToNobody) {
  whileTyping("x", [&] {
    key("Tab");
    EXPECT_EQ(boxes(), Boxes{notANumber});
    switchAway();
    switchBack();
    EXPECT_EQ(boxes(), Boxes{});
    expectTyping("x");
    EXPECT_TRUE(editorHasFocus());
  });
}

TEST_F(DialogInterruptionsTest, SwitchingApplicationsWithoutAnEditorKeepsTheFocus) {
  inCompany(2, [&] {
    key("Down", 3);
    for (const char* name : {"sftNummernkreise", "cboUser", "cmdAuto"}) {
      control(name).setFocus();
      switchAway();
      switchBack();
      EXPECT_EQ(focus(), name);
    }
    EXPECT_EQ(grid().ListIndex(), 2);
  });
}

TEST_F(DialogInterruptionsTest, HalfAClickOnAButtonLeavesTheEditorOpen) {
  whileTyping("160", [&] {
    QWindow* window = dialog().windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, middleOf("cmdOK"));
    QTest::mouseRelease(window, Qt::LeftButton, {}, middleOf("cmdAuto"));
    ASSERT_TRUE(isOpen());
    expectTyping("160");
    click(2, grid_column::Aktuell);
    EXPECT_TRUE(editorHasFocus());
    expectTyping("160");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'"),
            Lines{"160"});
}

TEST_F(DialogInterruptionsTest, KeysOfAControlReachedByHalfAClickKeepTheText) {
  whileTyping("160", [&] {
    QWindow* window = dialog().windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, middleOf("cmdAuto"));
    QTest::mouseRelease(window, Qt::LeftButton, {}, middleOf("cboUser"));
    answer("no");
    control("cmdAuto").setFocus();
    key("Space");
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(cell(2, grid_column::Aktuell), "160");
  });
}

TEST_F(DialogInterruptionsTest, TheRightButtonOnAButtonIsNoClick) {
  whileTyping("160", [&] {
    QTest::mouseClick(dialog().windowHandle(), Qt::RightButton, {}, middleOf("cmdCancel"));
    ASSERT_TRUE(isOpen());
    expectTyping("160");
  });
}

TEST_F(DialogInterruptionsTest, AClickOnTheEmptyFormLeavesTheEditorOpen) {
  whileTyping("160", [&] {
    QTest::mouseClick(dialog().windowHandle(), Qt::LeftButton, {},
                      control("lblBuchungskreis").geometry().center());
    expectTyping("160");
    EXPECT_TRUE(editorHasFocus());
  });
}

TEST_F(DialogInterruptionsTest, ScrollingLeavesTheEditorAtItsCell) {
  for (int circle = 3; circle < 40; ++circle)
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (" + std::to_string(circle) +
        ", 'Kreis', 'ORC')");
  whileTyping("160", [&] {
    QScrollBar& bar = *view().verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    for (const int position : {bar.maximum(), 0}) {
      bar.setValue(position);
      expectTyping("160");
      EXPECT_TRUE(editorHasFocus());
    }
    wheel(*view().viewport(), 3);
    expectTyping("160");
    key("Tab");
    EXPECT_EQ(editor(), "2/4 199");
  });
}

TEST_F(DialogInterruptionsTest, DraggingAColumnTakesTheEditorAlong) {
  whileTyping("160", [&] {
    const int width = gridAccess().editor().width();
    view().header()->resizeSection(2, view().header()->sectionSize(2) - 30);
    expectTyping("160");
    EXPECT_EQ(gridAccess().editor().width(), width - 30);
  });
}

TEST_F(DialogInterruptionsTest, ClosingTheGroupByItsArrowKeepsTheText) {
  whileTyping("160", [&] {
    const QRect group = view().visualRect(view().model()->index(0, 0));
    scenario::clickAt(*view().viewport(),
                      {view().columnViewportPosition(0) + 7, group.center().y()});
    EXPECT_FALSE(view().isExpanded(view().model()->index(0, 0)));
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(cell(2, grid_column::Aktuell), "160");
  });
}

TEST_F(DialogInterruptionsTest, ARefusedTextKeepsItsGroupOpen) {
  whileTyping("x", [&] {
    const QRect group = view().visualRect(view().model()->index(0, 0));
    scenario::clickAt(*view().viewport(),
                      {view().columnViewportPosition(0) + 7, group.center().y()});
    EXPECT_EQ(boxes(), Boxes{notANumber});
    EXPECT_TRUE(view().isExpanded(view().model()->index(0, 0)));
    expectTyping("x");
  });
}

TEST_F(DialogInterruptionsTest, OpeningAListKeepsTheTextAndLeavingItChoosesNothing) {
  whileTyping("160", [&] {
    press("cboUser");
    EXPECT_TRUE(list("cboUser").isVisible());
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(cell(2, grid_column::Aktuell), "160");
    QTest::keyClick(&list("cboUser"), Qt::Key_F8);
    QTest::keyClick(&list("cboUser"), Qt::Key_Escape);
    EXPECT_FALSE(list("cboUser").isVisible());
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
  });
}

TEST_F(DialogInterruptionsTest, TurningTheWheelOverAFilterWithoutTheFocusChangesNothing) {
  whileTyping("160", [&] {
    for (const char* filter : {"cboUser", "cboBuchungskreis"}) wheel(control(filter), 1);
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    EXPECT_EQ(shown("cboBuchungskreis"), "Alle Buchungskreise");
    expectTyping("160");
    EXPECT_TRUE(editorHasFocus());
  });
}

TEST_F(DialogInterruptionsTest, TurningTheWheelOverAFilterKeepsTheTextFirst) {
  whileTyping("160", [&] {
    wheelWithFocus(control("cboUser"), 1);
    EXPECT_EQ(shown("cboUser"), "Anna");
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(range("Anna", 1, "AN").substr(0, 8), "100|160|");
  });
}

TEST_F(DialogInterruptionsTest, TurningTheWheelOverAFilterIsRefusedWithTheText) {
  whileTyping("x", [&] {
    wheelWithFocus(control("cboUser"), 1);
    EXPECT_EQ(boxes(), Boxes{notANumber});
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    expectTyping("x");
  });
}

TEST_F(DialogInterruptionsTest, KeysThatMeanSomethingInTheGridBelongToTheEditor) {
  whileTyping("160", [&] {
    for (const char* chord : {"F2", "Up", "Down", "PageUp", "PageDown", "Insert"}) {
      key(chord);
      expectTyping("160");
    }
    key("Home");
    key("Delete");
    key("End");
    key("Space");
    expectTyping("60 ");
    EXPECT_EQ(picture(2), "Checked");
  });
}

TEST_F(DialogInterruptionsTest, WithTheUsersHiddenTheFunctionKeysLeaveTheEditorOpen) {
  sql("INSERT INTO Nummernkreise VALUES (0, 'AN', 'Angebot', 1, 5, 99, -1, 1, '', '')");
  init(2);
  show([&] {
    click(1, grid_column::Start);
    type("3");
    for (const char* chord : {"F7", "F8", "F9", "F10"}) {
      key(chord);
      ASSERT_TRUE(isOpen()) << chord;
      EXPECT_EQ(editor(), "1/2 3") << chord;
    }
    press("cmdCancel");
  });
}

TEST_F(DialogInterruptionsTest, HeldKeysEndAtTheLastUser) {
  whileTyping("160", [&] {
    for (int i = 0; i < 5; ++i)
      QTest::sendKeyEvent(QTest::Press, dialog().windowHandle(), Qt::Key_F8, QString(), {});
    EXPECT_EQ(shown("cboUser"), "Max");
    EXPECT_EQ(range("Max", 1, "AN"), "100|160|199|JNN|True");
  });
}

TEST_F(DialogInterruptionsTest, ASideDialogOverAnEndedEditGivesTheFocusBackToItsButton) {
  whileTyping("160", [&] {
    expectDialog("frmOptionen", [&] { press("cmdCancel"); });
    press("cmdOptionen");
    EXPECT_EQ(cell(2, grid_column::Aktuell), "160");
    EXPECT_EQ(focus(), "cmdOptionen");
    key("F8");
    EXPECT_EQ(shown("cboUser"), "Anna");
  });
}

TEST_F(DialogInterruptionsTest, TheCloseButtonIsDeafWhileABoxTellsOfARefusal) {
  whileTyping("x", [&] {
    whenBoxComes([&] {
      dialog().windowHandle()->close();
      EXPECT_TRUE(isOpen());
    });
    press("cmdOK");
    EXPECT_EQ(boxes(), Boxes{notANumber});
    ASSERT_TRUE(isOpen());
    expectTyping("x");
    EXPECT_TRUE(editorHasFocus());
  });
}

TEST_F(DialogInterruptionsTest, DoubleClicksSelectInTheEditorAndTickOnAPicture) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    click(2, grid_column::Aktuell);  // into the open cell
    EXPECT_EQ(editor(), "2/3 150");
    QTest::mouseDClick(&gridAccess().editor(), Qt::LeftButton);
    EXPECT_EQ(selectedText(), "150");
    clickPicture(3);
    clickPicture(3);
    EXPECT_EQ(picture(3), "Unchecked");
    EXPECT_EQ(editor(), "none");
  });
}

TEST_F(DialogInterruptionsTest, AValidationThatOpensACellCanBeLeftByEveryKey) {
  inCompany(2, [&] {
    click(2, grid_column::Ende);
    type("1");
    key("Enter");
    key("Escape");
    for (int attempt = 0; attempt < 2; ++attempt) {
      key("F9");
      EXPECT_EQ(boxes().size(), 1U);
      ASSERT_TRUE(isOpen());
      EXPECT_EQ(editor(), "2/4 1");
      EXPECT_TRUE(editorHasFocus());
    }
    key("Shift+Tab");
    EXPECT_EQ(editor(), "2/3 150");
    key("F10");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(statements().back(), "conn: ROLLBACK");
  });
}

}  // namespace
}  // namespace vexnumkr::test
