// The window that shows the progress of long work, and the user's input meanwhile.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "adapters/qtforms/progress/qt_progress_display.h"
#include "gui/forms/forms_fixture.h"

namespace vexnumkr::test {
namespace {

using std::chrono::milliseconds;

class FormsProgressTest : public FormsTest {
 protected:
  FormsProgressTest() : display_(makeQtProgressDisplay([this] { return now_; })) {
    make({button("cmdAuto", {0, 2400, 1200, 345}, "&Automatisch", 0),
          button("cmdOK", {1300, 2400, 1000, 345}, "OK", 1, ButtonRole::Default)});
    for (const char* name : {"cmdAuto", "cmdOK"})
      form->control<Button>(name).OnClick([this, name] { events.log().push_back(name); });
  }

  /// Time passes, and the work comes so far.
  void after(milliseconds time, int thousandths) {
    now_ += time;
    display_->Show(thousandths);
  }
  /// Work that is being shown.
  void longWork() {
    display_->Begin("Nummernkreise werden geladen…");
    after(progressDelay, 100);
  }

  static QWidget* shown() {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == QLatin1String("progress") && window->isVisible()) return window;
    return nullptr;
  }
  static int barValue() { return shown()->findChild<QProgressBar*>()->value(); }

  /// What the form hears of while `steps` run in it, and until the application has nothing to do.
  Log heard(const std::function<void()>& steps) {
    Log log;
    show([&] {
      events.log().clear();
      steps();
      QCoreApplication::processEvents();
      log = events.log();
    });
    return log;
  }

  // Input that waits in the application's queue, as that of a user who does not wait does.
  void queueKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
      QCoreApplication::postEvent(window().windowHandle(), new QKeyEvent(type, key, modifiers));
  }
  void queueClick(QWidget& widget) {
    const QPointF place = widget.mapTo(&window(), widget.rect().center());
    const QPointF global = window().mapToGlobal(place);
    QWindow* target = window().windowHandle();
    QCoreApplication::postEvent(
        target, new QMouseEvent(QEvent::MouseButtonPress, place, global, Qt::LeftButton,
                                Qt::LeftButton, Qt::NoModifier));
    QCoreApplication::postEvent(
        target, new QMouseEvent(QEvent::MouseButtonRelease, place, global, Qt::LeftButton,
                                Qt::NoButton, Qt::NoModifier));
  }

  std::chrono::steady_clock::time_point now_;
  std::unique_ptr<ProgressDisplay> display_;
};

TEST_F(FormsProgressTest, ShortWorkIsNotShown) {
  show([&] {
    display_->Begin("Kurz");
    after(milliseconds(0), 300);
    after(progressDelay - milliseconds(1), 999);
    EXPECT_EQ(shown(), nullptr);
    display_->End();
    EXPECT_EQ(shown(), nullptr);
  });
}

TEST_F(FormsProgressTest, WorkThatIsDoneIsNotShownAnyMore) {
  show([&] {
    display_->Begin("Ein langer Schritt");
    after(progressDelay, ProgressDisplay::full);
    EXPECT_EQ(shown(), nullptr);
    display_->End();
  });
}

TEST_F(FormsProgressTest, LongWorkIsShownWithItsCaptionAndBar) {
  show([&] {
    longWork();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->findChild<QLabel*>(QStringLiteral("caption"))->text(),
              QStringLiteral("Nummernkreise werden geladen…"));
    EXPECT_EQ(shown()->windowTitle(), QStringLiteral("Nummernkreise"));
    const auto& bar = *shown()->findChild<QProgressBar*>(QStringLiteral("bar"));
    EXPECT_EQ(bar.minimum(), 0);
    EXPECT_EQ(bar.maximum(), 1000);
    EXPECT_EQ(bar.value(), 100);
    after(milliseconds(100), 400);
    EXPECT_EQ(barValue(), 400);
    after(milliseconds(1), 401);
    EXPECT_EQ(barValue(), 400) << "not painted more often than anybody sees";
    after(milliseconds(100), 1000);
    EXPECT_EQ(barValue(), 1000);
    display_->End();
    EXPECT_EQ(shown(), nullptr);
  });
}

TEST_F(FormsProgressTest, ItStandsOverTheFormAndLeavesTheFocusThere) {
  show([&] {
    longWork();
    EXPECT_EQ(shown()->windowHandle()->transientParent(), window().windowHandle());
    EXPECT_LE(
        (shown()->frameGeometry().center() - window().frameGeometry().center()).manhattanLength(),
        20);
    EXPECT_TRUE(shown()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_EQ(QApplication::activeModalWidget(), &window());
    display_->End();
    waitUntilActive();
    EXPECT_EQ(QApplication::focusWidget(), &widget("cmdAuto"));
  });
}

TEST_F(FormsProgressTest, WithoutAnyWindowItIsShownToo) {
  longWork();
  EXPECT_NE(shown(), nullptr);
  display_->End();
}

TEST_F(FormsProgressTest, ItCannotBeClosed) {
  show([&] {
    longWork();
    shown()->windowHandle()->close();
    EXPECT_NE(shown(), nullptr);
    shown()->close();
    EXPECT_NE(shown(), nullptr);
    display_->End();
  });
}

// Work may be through before anybody looks whether it was given up.
TEST_F(FormsProgressTest, WhoGivesUpAtTheVeryEndGivesUpWhatComesNext) {
  const auto clickCancel = [] {
    auto* cancel = shown()->findChild<QPushButton*>(QStringLiteral("cancel"));
    QMetaObject::invokeMethod(cancel, &QPushButton::click, Qt::QueuedConnection);
  };
  display_->OfferCancel(true);
  longWork();
  EXPECT_FALSE(display_->IsCancelled());
  clickCancel();
  display_->End();
  EXPECT_TRUE(display_->IsCancelled());
  display_->Begin("Das Nächste");
  EXPECT_TRUE(display_->IsCancelled());
  display_->End();
  display_->OfferCancel(false);
  EXPECT_FALSE(display_->IsCancelled());
  longWork();
  EXPECT_FALSE(display_->IsCancelled()) << "it is another offer";
  display_->End();
}

TEST_F(FormsProgressTest, EveryWorkHasItsOwnTime) {
  show([&] {
    longWork();
    display_->End();
    now_ += std::chrono::hours(1);
    display_->Begin("Kurz");
    after(milliseconds(10), 500);
    EXPECT_EQ(shown(), nullptr);
    display_->End();
    longWork();
    EXPECT_EQ(barValue(), 100);
    display_->End();
  });
}

TEST_F(FormsProgressTest, WhatIsTypedMeanwhileReachesNobody) {
  EXPECT_EQ(heard([&] {
              longWork();
              queueKey(Qt::Key_F8);
              queueKey(Qt::Key_Space);
              queueKey(Qt::Key_Return);
              after(milliseconds(200), 500);
              queueKey(Qt::Key_Escape);
              queueKey(Qt::Key_A, Qt::AltModifier);
              display_->End();
            }),
            Log{});
}

TEST_F(FormsProgressTest, WhatIsClickedMeanwhileReachesNobody) {
  EXPECT_EQ(heard([&] {
              longWork();
              queueClick(widget("cmdAuto"));
              after(milliseconds(200), 500);
              queueClick(widget("cmdOK"));
              display_->End();
            }),
            Log{});
}

// As the window system delivers it, at once.
TEST_F(FormsProgressTest, InputOfTheWindowSystemReachesNobody) {
  EXPECT_EQ(heard([&] {
              longWork();
              QWindow* target = window().windowHandle();
              const QWidget& pressed = widget("cmdAuto");
              QTest::mouseClick(target, Qt::LeftButton, {},
                                pressed.mapTo(&window(), pressed.rect().center()));
              QTest::keyClick(target, Qt::Key_Space);
              QTest::keyClick(target, Qt::Key_A, Qt::AltModifier);  // the mnemonic
              target->close();
              EXPECT_TRUE(window().isVisible());
              display_->End();
            }),
            Log{});
}

TEST_F(FormsProgressTest, InputBeforeAndAfterTheWorkArrives) {
  EXPECT_EQ(heard([&] {
              QTest::keyClick(window().windowHandle(), Qt::Key_F7);
              longWork();
              queueKey(Qt::Key_F8);
              display_->End();
              QTest::keyClick(window().windowHandle(), Qt::Key_F9);
              click(widget("cmdAuto"));
            }),
            (Log{"KeyDown 118 0", "KeyDown 120 0", "cmdAuto"}));
}

TEST_F(FormsProgressTest, InputAheadOfShortWorkIsKept) {
  EXPECT_EQ(heard([&] {
              display_->Begin("Kurz");
              queueKey(Qt::Key_F8);
              after(milliseconds(100), 900);
              display_->End();
            }),
            Log{"KeyDown 119 0"});
}

// The press has been seen, so its end has to be seen too; but it must not become a click.
TEST_F(FormsProgressTest, AButtonHeldBeforeIsReleasedWithoutAClick) {
  auto& pressed = widget<QPushButton>("cmdAuto");
  const QPoint place = pressed.mapTo(&window(), pressed.rect().center());
  EXPECT_EQ(heard([&] {
              QTest::mousePress(window().windowHandle(), Qt::LeftButton, {}, place);
              EXPECT_TRUE(pressed.isDown());
              longWork();
              EXPECT_FALSE(pressed.isDown());
              QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, {}, place);
              display_->End();
              EXPECT_FALSE(pressed.isDown());
            }),
            Log{});
}

TEST_F(FormsProgressTest, AButtonHeldThroughTheWorkIsNotClickedAfterwardsEither) {
  const QWidget& pressed = widget("cmdAuto");
  const QPoint place = pressed.mapTo(&window(), pressed.rect().center());
  EXPECT_EQ(heard([&] {
              QTest::mousePress(window().windowHandle(), Qt::LeftButton, {}, place);
              longWork();
              display_->End();
              QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, {}, place);
              EXPECT_EQ(events.log(), Log{});
              click(widget("cmdAuto"));
            }),
            Log{"cmdAuto"});
}

TEST_F(FormsProgressTest, TheHostsTimersWaitUntilTheWorkIsDone) {
  int fired = 0;
  QTimer timer;
  timer.callOnTimeout([&] { ++fired; });
  show([&] {
    timer.start(0);
    longWork();
    after(milliseconds(200), 500);
    after(milliseconds(200), 600);
    display_->End();
    EXPECT_EQ(fired, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fired > 0; }));
  });
}

TEST_F(FormsProgressTest, APauseHidesItAndLetsInputThrough) {
  EXPECT_EQ(heard([&] {
              longWork();
              queueKey(Qt::Key_F7);
              display_->Pause();
              EXPECT_EQ(shown(), nullptr);
              QTest::keyClick(window().windowHandle(), Qt::Key_F8);
              display_->Resume();
              after(milliseconds(1), 500);
              EXPECT_NE(shown(), nullptr) << "it has lasted long before";
              EXPECT_EQ(barValue(), 500);
              queueKey(Qt::Key_F9);
              display_->End();
            }),
            Log{"KeyDown 119 0"});
}

TEST_F(FormsProgressTest, APauseIsNoWork) {
  show([&] {
    display_->Begin("Kurz");
    after(milliseconds(100), 100);
    display_->Pause();
    now_ += std::chrono::minutes(5);
    display_->Resume();
    after(milliseconds(399), 200);
    EXPECT_EQ(shown(), nullptr);
    after(milliseconds(1), 300);
    EXPECT_NE(shown(), nullptr);
    display_->End();
  });
}

TEST_F(FormsProgressTest, ABoxInAPauseCanBeAnswered) {
  boxes.expect("ok", [&](QDialog& box) {
    EXPECT_EQ(shown(), nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
  });
  EXPECT_EQ(heard([&] {
              longWork();
              queueKey(Qt::Key_Return);  // meant for the form, not for the box
              display_->Pause();
              toolkit->MsgBox("Fehler", 48, "Fehler 6");
              display_->Resume();
              display_->End();
            }),
            Log{});
}

// Fails the making of the progress window.
class WindowFault final : public QObject {
 public:
  WindowFault() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (receiver->objectName() != QLatin1String("progress")) return false;
    if (event->type() == QEvent::WindowTitleChange) throw std::bad_alloc();
    return false;
  }
};

TEST_F(FormsProgressTest, InputIsNotKeptBackWithoutAWindow) {
  EXPECT_EQ(heard([&] {
              {
                const WindowFault fault;
                longWork();
                EXPECT_EQ(shown(), nullptr);
              }
              display_->End();
              click(widget("cmdAuto"));
            }),
            Log{"cmdAuto"});
}

TEST_F(FormsProgressTest, ItGoesWithItsDisplay) {
  longWork();
  ASSERT_NE(shown(), nullptr);
  display_.reset();
  EXPECT_EQ(shown(), nullptr);
}

}  // namespace
}  // namespace vexnumkr::test
