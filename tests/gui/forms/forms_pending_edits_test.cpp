// A cell that is being edited while the user turns to something else in the form.
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

#include "gui/forms/forms_fixture.h"
#include "platform/tree_grid.h"

namespace vexnumkr::test {
namespace {

class GridEvents final : public TreeGridEvents {
 public:
  explicit GridEvents(Log& log) : log_(log) {}

  bool refuse = false;
  std::function<void()> onAfterEdit;

  void ItemClick(std::int32_t, std::int16_t, GridArea, std::int16_t) override {}
  void KeyDown(std::int16_t) override {}
  void CEKeyDown(std::int16_t&, std::int16_t, std::int32_t, std::int16_t) override {}
  void AfterEdit(std::int32_t, std::int16_t, bool& cancel, std::string& text) override {
    log_.push_back("AfterEdit " + text);
    cancel = refuse;
    if (onAfterEdit) onAfterEdit();
  }
  void ToolTipText(std::int16_t, std::string&) override {}

 private:
  Log& log_;
};

constexpr std::int16_t startColumn = 2;

class PendingEditsTest : public FormsTest {
 protected:
  PendingEditsTest() : gridEvents(events.log()) { fill(); }

  void fill() {
    make({gridDescription(),
          described(ControlKind::ComboBox, "cboUser", {0, 2000, 1500, 315}, {}, 4),
          button("cmdAuto", {0, 2400, 1200, 345}, "&Automatisch", 1),
          button("cmdOK", {1300, 2400, 1000, 345}, "OK", 2, ButtonRole::Default),
          button("cmdCancel", {2400, 2400, 1000, 345}, "Abbrechen", 3, ButtonRole::Cancel)});
    for (const char* name : {"cmdAuto", "cmdOK", "cmdCancel"}) {
      form->control<Button>(name).OnClick([this, name] { events.log().push_back(name); });
    }
    for (const char* user : {"Anna", "Bert", "Carl"}) combo().AddItem(user);
    combo().SelectSilently(0);
    combo().OnClick([this] { events.log().push_back("chose " + combo().Text()); });
    grid().Events(&gridEvents);
    grid().AddItem("0");
    grid().List(0, startColumn, "1000");
  }

  static ControlDescription gridDescription() {
    ControlDescription result =
        described(ControlKind::TreeGrid, "sftNummernkreise", {0, 0, 4400, 1900}, {}, 0);
    result.columns = {{"", 0, Alignment::Left},
                      {"Beschreibung", 120, Alignment::Left},
                      {"Start", 80, Alignment::Right}};
    return result;
  }

  TreeGrid& grid() { return form->control<TreeGrid>("sftNummernkreise"); }
  ComboBox& combo() { return form->control<ComboBox>("cboUser"); }
  QComboBox& box() { return widget<QComboBox>("cboUser"); }

  static QLineEdit* editor() { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }

  /// What the steps log while the cell is being edited and holds `text` instead of 1000.
  Log whileEditing(const std::string& text, std::function<void()> steps) {
    Log logged;
    show([&] {
      grid().StartEdit(0, startColumn);
      ASSERT_NE(editor(), nullptr);
      QTest::keyClicks(editor(), QString::fromStdString(text));
      events.log().clear();
      steps();
      logged = events.log();
      gridEvents.refuse = false;
      gridEvents.onAfterEdit = {};
    });
    return logged;
  }

  void expectStillEditing(const std::string& text) {
    ASSERT_NE(editor(), nullptr);
    EXPECT_TRUE(editor()->isVisible());
    EXPECT_EQ(editor()->text().toStdString(), text);
    EXPECT_EQ(editor()->selectedText().toStdString(), text);
    EXPECT_EQ(grid().List(0, startColumn), "1000");
  }

  void wheelDown() {
    QWheelEvent event(QPointF(5, 5), box().mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box(), &event);
  }

  void wheelDownWithFocus() {
    box().setFocus();
    wheelDown();
  }

  GridEvents gridEvents;
};

TEST_F(PendingEditsTest, TheGridHasTheFocusFirstAndNoCurrentItem) {
  std::int32_t current = 0;
  bool gridHasFocus = false;
  show([&] {
    current = grid().ListIndex();
    gridHasFocus = widget("sftNummernkreise").hasFocus();
  });
  EXPECT_EQ(current, -1);
  EXPECT_TRUE(gridHasFocus);
}

TEST_F(PendingEditsTest, AClickOnAButtonKeepsTheTextFirst) {
  EXPECT_EQ(whileEditing("2000", [&] { click(widget("cmdAuto")); }),
            (Log{"AfterEdit 2000", "cmdAuto"}));
  EXPECT_EQ(grid().List(0, startColumn), "2000");
}

TEST_F(PendingEditsTest, ARefusedTextHoldsTheClickBack) {
  gridEvents.refuse = true;
  EXPECT_EQ(whileEditing("abc",
                         [&] {
                           click(widget("cmdAuto"));
                           expectStillEditing("abc");
                           click(widget("cmdOK"));
                           expectStillEditing("abc");
                         }),
            (Log{"AfterEdit abc", "AfterEdit abc"}));
}

TEST_F(PendingEditsTest, ARefusalWithAMessageHoldsTheClickBackToo) {
  gridEvents.refuse = true;
  gridEvents.onAfterEdit = [&] { toolkit->MsgBox("Bitte eine Zahl.", 0, "Info"); };
  boxes.expect("ok", [&](QDialog&) { window().close(); });
  EXPECT_EQ(whileEditing("abc",
                         [&] {
                           click(widget("cmdAuto"));
                           waitUntilActive();
                           expectStillEditing("abc");
                         }),
            Log{"AfterEdit abc"});
}

TEST_F(PendingEditsTest, AnUntouchedTextIsNotOfferedAgain) {
  EXPECT_EQ(whileEditing("1000", [&] { click(widget("cmdAuto")); }), Log{"cmdAuto"});
}

TEST_F(PendingEditsTest, TheCancelButtonDropsTheText) {
  gridEvents.refuse = true;
  EXPECT_EQ(whileEditing("abc", [&] { click(widget("cmdCancel")); }), Log{"cmdCancel"});
  EXPECT_EQ(grid().List(0, startColumn), "1000");
}

TEST_F(PendingEditsTest, ButtonsPressedByKeysKeepTheTextFirst) {
  EXPECT_EQ(whileEditing("2000",
                         [&] {
                           widget("cmdAuto").setFocus();
                           QTest::keyClick(&widget("cmdAuto"), Qt::Key_Space);
                         }),
            (Log{"KeyDown 32 0", "AfterEdit 2000", "cmdAuto"}));
}

TEST_F(PendingEditsTest, TheDefaultButtonPressedByEnterKeepsTheTextFirst) {
  gridEvents.refuse = true;
  EXPECT_EQ(whileEditing("abc",
                         [&] {
                           box().setFocus();
                           QTest::keyClick(&box(), Qt::Key_Return);
                           expectStillEditing("abc");
                           gridEvents.refuse = false;
                           box().setFocus();
                           QTest::keyClick(&box(), Qt::Key_Return);
                         }),
            (Log{"KeyDown 13 0", "AfterEdit abc", "KeyDown 13 0", "AfterEdit abc", "cmdOK"}));
}

TEST_F(PendingEditsTest, AMnemonicKeepsTheTextFirst) {
  EXPECT_EQ(
      whileEditing("2000",
                   [&] {
                     QTest::keyClick(editor(), Qt::Key_A, Qt::AltModifier);
                     EXPECT_TRUE(QTest::qWaitFor([&] { return events.log().back() == "cmdAuto"; }));
                   }),
      (Log{"KeyDown 18 4", "AfterEdit 2000", "cmdAuto"}));
}

TEST_F(PendingEditsTest, EscapeBelongsToTheEditorFirst) {
  EXPECT_EQ(whileEditing("2000",
                         [&] {
                           QTest::keyClick(editor(), Qt::Key_Escape);
                           EXPECT_EQ(editor(), nullptr);
                           EXPECT_TRUE(window().isVisible());
                           QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
                         }),
            (Log{"KeyDown 27 0", "KeyDown 27 0", "cmdCancel"}));
  EXPECT_EQ(grid().List(0, startColumn), "1000");
}

TEST_F(PendingEditsTest, EnterBelongsToTheEditorFirst) {
  EXPECT_EQ(whileEditing("2000",
                         [&] {
                           QTest::keyClick(editor(), Qt::Key_Return);
                           EXPECT_EQ(editor(), nullptr);
                           QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                         }),
            (Log{"KeyDown 13 0", "AfterEdit 2000", "KeyDown 13 0", "cmdOK"}));
}

TEST_F(PendingEditsTest, TheFormSeesTheEditorsKeysOnce) {
  EXPECT_EQ(whileEditing("2000",
                         [&] {
                           QTest::keyClick(editor(), Qt::Key_F8);
                           QTest::keyClick(editor(), Qt::Key_Down);
                           QTest::keyClick(editor(), Qt::Key_5);
                         }),
            (Log{"KeyDown 119 0", "KeyDown 40 0", "KeyDown 53 0"}));
}

TEST_F(PendingEditsTest, AKeyThatEndsTheEditInTheFormIsNotTyped) {
  events.onKeyDown = [&](std::int16_t key, auto) {
    if (key == '7') grid().EndEdit(true);
  };
  EXPECT_EQ(whileEditing("2000", [&] { QTest::keyClick(editor(), Qt::Key_7); }),
            (Log{"KeyDown 55 0", "AfterEdit 2000"}));
  EXPECT_EQ(grid().List(0, startColumn), "2000");
}

TEST_F(PendingEditsTest, OpeningAListKeepsTheTextFirst) {
  EXPECT_EQ(whileEditing("2000",
                         [&] {
                           click(box());
                           EXPECT_TRUE(box().view()->isVisible());
                           QTest::keyClick(box().view(), Qt::Key_Down);
                           QTest::keyClick(box().view(), Qt::Key_Return);
                         }),
            (Log{"AfterEdit 2000", "chose Bert"}));
}

TEST_F(PendingEditsTest, ARefusedTextKeepsTheListClosed) {
  gridEvents.refuse = true;
  EXPECT_EQ(whileEditing("abc",
                         [&] {
                           click(box());
                           EXPECT_FALSE(box().view()->isVisible());
                           expectStillEditing("abc");
                           box().setFocus();
                           QTest::keyClick(&box(), Qt::Key_F4);
                           EXPECT_FALSE(box().view()->isVisible());
                           expectStillEditing("abc");
                         }),
            (Log{"AfterEdit abc", "KeyDown 115 0", "AfterEdit abc"}));
  EXPECT_EQ(combo().ListIndex(), 0);
}

TEST_F(PendingEditsTest, ChoosingWithoutTheListKeepsTheTextFirst) {
  std::string shownMeanwhile;
  gridEvents.onAfterEdit = [&] {
    shownMeanwhile = combo().Text() + box().currentText().toStdString();
  };
  EXPECT_EQ(whileEditing("2000", [&] { wheelDownWithFocus(); }),
            (Log{"AfterEdit 2000", "chose Bert"}));
  EXPECT_EQ(shownMeanwhile, "AnnaAnna") << "the entry changes when the edit has ended";
}

TEST_F(PendingEditsTest, TheWheelOverAListWithoutTheFocusChangesNothing) {
  EXPECT_EQ(whileEditing("2000",
                         [&] {
                           wheelDown();
                           ASSERT_NE(editor(), nullptr);
                           EXPECT_EQ(editor()->text(), QStringLiteral("2000"));
                         }),
            Log{});
  EXPECT_EQ(combo().ListIndex(), 0);
}

TEST_F(PendingEditsTest, EscapeDropsTheTextWhereverTheFocusIs) {
  for (const char* name : {"sftNummernkreise", "cboUser", "cmdAuto", "cmdOK", "cmdCancel"}) {
    SCOPED_TRACE(name);
    fill();
    EXPECT_EQ(whileEditing("2000",
                           [&] {
                             widget(name).setFocus();
                             QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
                             EXPECT_EQ(grid().List(0, startColumn), "1000");
                             EXPECT_TRUE(window().isVisible());
                           }),
              Log{"KeyDown 27 0"});
  }
}

TEST_F(PendingEditsTest, ASecondEscapePressesTheCancelButton) {
  EXPECT_EQ(whileEditing("2000",
                         [&] {
                           widget("cmdAuto").setFocus();
                           QTest::keyClick(&widget("cmdAuto"), Qt::Key_Escape);
                           QTest::keyClick(&widget("cmdAuto"), Qt::Key_Escape);
                         }),
            (Log{"KeyDown 27 0", "KeyDown 27 0", "cmdCancel"}));
}

TEST_F(PendingEditsTest, ARefusedTextLeavesTheEntry) {
  gridEvents.refuse = true;
  EXPECT_EQ(whileEditing("abc",
                         [&] {
                           wheelDownWithFocus();
                           expectStillEditing("abc");
                           box().setFocus();
                           QTest::keyClick(&box(), Qt::Key_Down);
                           expectStillEditing("abc");
                         }),
            (Log{"AfterEdit abc", "KeyDown 40 0", "AfterEdit abc"}));
  EXPECT_EQ(combo().ListIndex(), 0);
  EXPECT_EQ(box().currentIndex(), 0);
}

TEST_F(PendingEditsTest, AListFilledAnewMeanwhileTakesNoStaleChoice) {
  gridEvents.onAfterEdit = [&] { combo().Clear(); };
  EXPECT_EQ(whileEditing("2000", [&] { wheelDownWithFocus(); }), Log{"AfterEdit 2000"});
  EXPECT_EQ(combo().ListIndex(), -1);
}

TEST_F(PendingEditsTest, ChoosingByCodeLeavesTheEditAlone) {
  EXPECT_EQ(whileEditing("2000",
                         [&] {
                           combo().ListIndex(2);
                           EXPECT_NE(editor(), nullptr);
                         }),
            Log{"chose Carl"});
}

TEST_F(PendingEditsTest, TheCloseButtonKeepsTheTextFirst) {
  EXPECT_EQ(whileEditing("2000", [&] { window().close(); }),
            (Log{"AfterEdit 2000", "QueryUnload 0", "Unload"}));
  EXPECT_EQ(grid().List(0, startColumn), "2000");
}

TEST_F(PendingEditsTest, ARefusedTextKeepsTheWindowOpen) {
  gridEvents.refuse = true;
  EXPECT_EQ(whileEditing("abc",
                         [&] {
                           window().close();
                           EXPECT_TRUE(window().isVisible());
                           expectStillEditing("abc");
                         }),
            Log{"AfterEdit abc"});
}

TEST_F(PendingEditsTest, AFailingHandlerCountsAsEnded) {
  gridEvents.onAfterEdit = [] { throw Error::typeMismatch(); };
  EXPECT_EQ(whileEditing("2000", [&] { click(widget("cmdAuto")); }),
            (Log{"AfterEdit 2000", "cmdAuto"}));
}

TEST_F(PendingEditsTest, UnloadingLeavesTheEditToTheCaller) {
  EXPECT_EQ(whileEditing("2000", [&] { form->Unload(); }), (Log{"QueryUnload 1", "Unload"}));
}

TEST_F(PendingEditsTest, AnEditOpenedWhileLoadingHasTheFocus) {
  events.onLoad = [&] { grid().StartEdit(0, startColumn); };
  bool editing = false;
  show([&] { editing = editor() != nullptr && editor()->isVisible(); });
  EXPECT_TRUE(editing);
}

}  // namespace
}  // namespace vexnumkr::test
