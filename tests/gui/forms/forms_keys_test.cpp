// Keys: the form first, then the control; Enter and Escape for the buttons with a role.
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBrowser>

#include "gui/forms/forms_fixture.h"

namespace vexnumkr::test {
namespace {

class KeysTest : public FormsTest {
 protected:
  KeysTest() {
    make({described(ControlKind::CheckList, "lstKeys", {0, 0, 3000, 1500}, {}, 0),
          button("cmdAuto", {0, 1600, 1000, 345}, "Automatisch", 1),
          button("cmdOK", {1100, 1600, 1000, 345}, "OK", 2, ButtonRole::Default),
          button("cmdCancel", {2200, 1600, 1000, 345}, "Abbrechen", 3, ButtonRole::Cancel)});
    for (const char* name : {"cmdAuto", "cmdOK", "cmdCancel"}) {
      form->control<Button>(name).OnClick([this, name] { events.log().push_back(name); });
    }
  }

  /// What the steps logged, without the form's life.
  Log steps(std::function<void()> play) {
    show([&] {
      events.log().clear();
      play();
      logged_ = events.log();
    });
    return logged_;
  }

  static void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }

 private:
  Log logged_;
};

TEST_F(KeysTest, EveryPressReachesTheFormOnce) {
  EXPECT_EQ(steps([] {
              press(Qt::Key_F7);
              press(Qt::Key_F8);
              press(Qt::Key_F9, Qt::ShiftModifier);
              press(Qt::Key_F10, Qt::ControlModifier | Qt::AltModifier);
              press(Qt::Key_Down);
              press(Qt::Key_Left);
              press(Qt::Key_X);
            }),
            (Log{"KeyDown 118 0", "KeyDown 119 0", "KeyDown 16 1", "KeyDown 120 1", "KeyDown 17 2",
                 "KeyDown 18 6", "KeyDown 121 6", "KeyDown 40 0", "KeyDown 37 0", "KeyDown 88 0"}));
}

TEST_F(KeysTest, F1OpensTheManualThatIsInstalledWithTheProgram) {
  const QDir program(QCoreApplication::applicationDirPath());
  const QString folder = program.filePath(QStringLiteral("../share/doc/vexnumkr/html"));
  ASSERT_TRUE(program.mkpath(folder));
  QFile manual(folder + QStringLiteral("/handbuch.html"));
  ASSERT_TRUE(manual.open(QIODevice::WriteOnly));
  manual.close();
  QTextBrowser desktop;  // in its place, it opens what is to be opened
  QDesktopServices::setUrlHandler(QStringLiteral("file"), &desktop, "setSource");
  steps([] { press(Qt::Key_F1); });
  QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
  EXPECT_EQ(desktop.source().toLocalFile(), QFileInfo(manual).canonicalFilePath());
  EXPECT_TRUE(manual.remove() && program.rmpath(folder));
}

TEST_F(KeysTest, IgnoredKeysThatWalkUpToTheWindowCountOnce) {
  // The button ignores F7, so does everything around it.
  EXPECT_EQ(steps([&] {
              widget("cmdAuto").setFocus();
              press(Qt::Key_F7);
              press(Qt::Key_F7);
            }),
            (Log{"KeyDown 118 0", "KeyDown 118 0"}));
}

TEST_F(KeysTest, APressRightAfterTheFocusMovedToTheParentCounts) {
  // The same event object, once for a widget and once for the widget around it.
  EXPECT_EQ(steps([&] {
              QKeyEvent event(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
              QApplication::sendEvent(&widget("cmdAuto"), &event);
              QApplication::sendEvent(&window(), &event);
            }),
            (Log{"KeyDown 118 0", "KeyDown 118 0"}));
}

TEST_F(KeysTest, TheFormSeesAKeyBeforeTheControl) {
  auto& list = widget<QListWidget>("lstKeys");
  form->control<CheckList>("lstKeys").AddItem("A");
  form->control<CheckList>("lstKeys").AddItem("B");
  int rowAtKeyDown = -1;
  int rowAfterwards = -1;
  steps([&] {
    list.setCurrentRow(0);
    events.onKeyDown = [&](auto, auto) { rowAtKeyDown = list.currentRow(); };
    press(Qt::Key_Down);
    rowAfterwards = list.currentRow();
  });
  EXPECT_EQ(rowAtKeyDown, 0);
  EXPECT_EQ(rowAfterwards, 1);
}

TEST_F(KeysTest, AWidgetThatIsGoneAfterTheFormSawTheKeyIsLeftAlone) {
  auto editor = std::make_unique<QLineEdit>(&window());
  steps([&] {
    editor->show();
    editor->setFocus();
    events.onKeyDown = [&](auto, auto) { editor.reset(); };
    press(Qt::Key_A);
  });
  EXPECT_EQ(editor, nullptr);
}

TEST_F(KeysTest, AKeyThatClosesTheFormIsNotHandedOn) {
  events.onKeyDown = [&](std::int16_t key, auto) {
    if (key == key_code::f10) form->Unload();
  };
  show([&] { QTest::keyClick(&widget("cmdAuto"), Qt::Key_F10); });
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "KeyDown 121 0", "QueryUnload 1", "Unload"}));
}

TEST_F(KeysTest, KeysOfAnotherWindowAreNotTheForms) {
  EXPECT_EQ(steps([&] {
              boxes.expect("ok", [](QDialog& box) { QTest::keyClick(&box, Qt::Key_F7); });
              toolkit->MsgBox("Hinweis", 0, "Titel");
            }),
            Log{});
}

TEST_F(KeysTest, OnlyTheFormOnTopSeesKeysAndTheOtherAgainAfterwards) {
  RecordingEvents inner;
  EXPECT_EQ(steps([&] {
              auto child = toolkit->createForm(formDescription({}), inner);
              inner.onShown = [&] {
                QTest::keyClick(dynamic_cast<QDialog*>(child.get()), Qt::Key_F7);
                child->Unload();
              };
              child->ShowModal();
              waitUntilActive();
              press(Qt::Key_F8);
            }),
            Log{"KeyDown 119 0"});
  EXPECT_EQ(inner.log(), (Log{"Load", "Shown", "KeyDown 118 0", "QueryUnload 1", "Unload"}));
}

TEST_F(KeysTest, AKeyPressedFromWithinAKeyCountsToo) {
  EXPECT_EQ(steps([&] {
              events.onKeyDown = [&](std::int16_t key, auto) {
                if (key == key_code::f7) QTest::keyClick(&widget("cmdOK"), Qt::Key_F8);
              };
              press(Qt::Key_F7);
            }),
            (Log{"KeyDown 118 0", "KeyDown 119 0"}));
}

TEST_F(KeysTest, NoKeyArrivesAfterTheForm) {
  show([] {});
  events.log().clear();
  QTest::keyClick(&window(), Qt::Key_F7);
  EXPECT_EQ(events.log(), Log{});
}

TEST_F(KeysTest, EscapePressesTheCancelButton) {
  EXPECT_EQ(steps([] { press(Qt::Key_Escape); }), (Log{"KeyDown 27 0", "cmdCancel"}));
}

TEST_F(KeysTest, EscapeDoesNothingWithoutACancelButtonToPress) {
  bool stays = false;
  EXPECT_EQ(steps([&] {
              form->control<Button>("cmdCancel").Visible(false);
              press(Qt::Key_Escape);
              stays = window().isVisible();
            }),
            Log{"KeyDown 27 0"});
  EXPECT_TRUE(stays);
}

TEST_F(KeysTest, EnterPressesTheDefaultButton) {
  EXPECT_EQ(steps([] {
              press(Qt::Key_Return);
              press(Qt::Key_Enter, Qt::KeypadModifier);
            }),
            (Log{"KeyDown 13 0", "cmdOK", "KeyDown 13 0", "cmdOK"}));
}

TEST_F(KeysTest, EnterAndSpacePressTheButtonThatHasTheFocus) {
  EXPECT_EQ(
      steps([&] {
        widget("cmdAuto").setFocus();
        press(Qt::Key_Return);
        press(Qt::Key_Space);
        widget("cmdCancel").setFocus();
        press(Qt::Key_Return);
      }),
      (Log{"KeyDown 13 0", "cmdAuto", "KeyDown 32 0", "cmdAuto", "KeyDown 13 0", "cmdCancel"}));
}

TEST_F(KeysTest, ButtonsHaveTheirRolesOnly) {
  EXPECT_TRUE(widget<QPushButton>("cmdOK").isDefault());
  for (const char* name : {"cmdAuto", "cmdOK", "cmdCancel"}) {
    EXPECT_FALSE(widget<QPushButton>(name).autoDefault()) << name;
  }
  bool defaultStays = false;
  show([&] {
    widget("cmdAuto").setFocus();
    defaultStays = widget<QPushButton>("cmdOK").isDefault();
  });
  EXPECT_TRUE(defaultStays);
  EXPECT_FALSE(widget<QPushButton>("cmdAuto").isDefault());
}

}  // namespace
}  // namespace vexnumkr::test
