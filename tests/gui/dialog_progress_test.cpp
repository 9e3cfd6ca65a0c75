// Long work of the main dialog: what the user sees of it, and what becomes of his input meanwhile.
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QTest>
#include <QWindow>

#include "support/dialog_session.h"

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
  static bool pointerIsBusy() { return QGuiApplication::overrideCursor() != nullptr; }
  void enterAValue() {
    click(2, 3);
    type("160");
    key("Enter");
    key("Escape");
  }

  const milliseconds slow{200};
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

TEST_F(DialogProgressTest, AFailedSaveIsToldWithoutProgressInTheWay) {
  inCompany(2, [&] {
    enterAValue();
    statements();
    everyLookTakes(slow);
    script().failStatement(5);
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
    EXPECT_FALSE(component().Init(context().sharedConn(), 1, "Anna"));
    component().ShowDialog();
  };
  inCompany(2, [&] {
    EXPECT_TRUE(called);
    EXPECT_EQ(context().LngApplication(), 2);
    EXPECT_EQ(windows(), Lines{"open frmNummernkreise"});
    everyLookTakes(milliseconds(0));
  });
}

}  // namespace
}  // namespace vexnumkr::test
