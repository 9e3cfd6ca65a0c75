// A form's life: load, show, resize, close, and everything that may happen in the wrong moment.
#include <QAbstractItemView>
#include <QApplication>
#include <QBuffer>
#include <QCloseEvent>
#include <QComboBox>
#include <QPixmap>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "adapters/qt/colours.h"
#include "gui/forms/forms_fixture.h"
#include "gui/palettes.h"

namespace vexnumkr::test {
namespace {

class FormTest : public FormsTest {
 protected:
  static FormDescription resizable() {
    FormDescription result = formDescription({});
    result.resizable = true;
    result.minimumWidth = 3000;
    result.minimumHeight = 1500;
    return result;
  }
};

TEST_F(FormTest, RaisesItsEventsInOrder) {
  make(std::vector<ControlDescription>{});
  show([] {});
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 1", "Unload"}));
  EXPECT_FALSE(window().isVisible());
}

// In lists and drop-down lists too, also after the desktop's colours have changed.
TEST_F(FormTest, WhatIsSelectedIsLegible) {
  const QPalette usual = QApplication::palette();
  make({described(ControlKind::ComboBox, "cboProbe", {0, 0, 1500, 315}, {}, 0),
        described(ControlKind::CheckList, "lstProbe", {0, 400, 1500, 900}, {}, 1)});
  for (const QPalette& palette : {lightPalette(), darkPalette(), blackPalette()}) {
    QApplication::setPalette(palette);
    for (const QWidget* shown : std::initializer_list<const QWidget*>{
             &widget("lstProbe"), widget<QComboBox>("cboProbe").view(),
             widget<QComboBox>("cboProbe").view()->viewport(), &window()}) {
      EXPECT_GE(contrast(shown->palette().color(QPalette::Highlight),
                         shown->palette().color(QPalette::HighlightedText)),
                legibleContrast)
          << shown->objectName().toStdString() << shown->metaObject()->className();
    }
  }
  QApplication::setPalette(usual);
}

TEST_F(FormTest, HasTheNameCaptionAndInnerSizeOfItsDescription) {
  make(std::vector<ControlDescription>{});
  EXPECT_EQ(form->Name(), "frmProbe");
  EXPECT_EQ(window().objectName(), QStringLiteral("frmProbe"));
  EXPECT_EQ(window().property("formName").toString(), QStringLiteral("frmProbe"));
  EXPECT_EQ(window().windowTitle(), QStringLiteral("Probe"));
  EXPECT_EQ(window().accessibleName(), QStringLiteral("Probe"));
  EXPECT_EQ(form->ScaleWidth(), 4500);
  EXPECT_EQ(form->ScaleHeight(), 3000);
  EXPECT_EQ(window().size(), QSize(300, 200));
}

TEST_F(FormTest, IsNotSeenBeforeItHasLoadedAndIsSeenWhenShown) {
  make(std::vector<ControlDescription>{});
  bool seenDuringLoad = true;
  bool seenWhenShown = false;
  events.onLoad = [&] { seenDuringLoad = window().isVisible(); };
  show([&] { seenWhenShown = window().isVisible() && window().isModal(); });
  EXPECT_FALSE(seenDuringLoad);
  EXPECT_TRUE(seenWhenShown);
}

TEST_F(FormTest, MessageBoxesOfTheLoadComeBeforeTheWindow) {
  make(std::vector<ControlDescription>{});
  boxes.expect("ok", [&](QDialog& box) {
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(box.parentWidget(), nullptr);
  });
  events.onLoad = [&] { toolkit->MsgBox("Fehler", 48, "Titel"); };
  show([] {});
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, FixedFormsCannotBeResized) {
  make(std::vector<ControlDescription>{});
  EXPECT_EQ(window().minimumSize(), window().maximumSize());
  EXPECT_FALSE(window().windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
  EXPECT_FALSE(window().windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
  EXPECT_TRUE(window().windowFlags().testFlag(Qt::WindowCloseButtonHint));
}

TEST_F(FormTest, ResizableFormsHaveTheirMinimumAndBothButtons) {
  make(resizable());
  window().resize(1, 1);
  EXPECT_EQ(window().size(), QSize(200, 100));
  EXPECT_TRUE(window().windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
  EXPECT_TRUE(window().windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
  EXPECT_FALSE(window().windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
}

TEST_F(FormTest, TellsOfEverySizeThatIsNew) {
  make(resizable());
  std::vector<std::pair<int, int>> sizes;
  events.onResize = [&] { sizes.emplace_back(form->ScaleWidth(), form->ScaleHeight()); };
  show([&] {
    EXPECT_TRUE(sizes.empty());  // the design size is none
    window().resize(400, 250);
    window().resize(400, 250);
    window().resize(420, 250);
  });
  EXPECT_EQ(sizes, (std::vector<std::pair<int, int>>{{6000, 3750}, {6300, 3750}}));
}

TEST_F(FormTest, TheCloseButtonAsksWithModeZero) {
  make(std::vector<ControlDescription>{});
  show([&] { window().close(); });
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 0", "Unload"}));
}

TEST_F(FormTest, AHandlerCanKeepTheFormOpen) {
  make(std::vector<ControlDescription>{});
  events.onQueryUnload = [](bool& cancel) { cancel = true; };
  show([&] {
    window().close();
    EXPECT_TRUE(window().isVisible());
    form->Unload();
    EXPECT_TRUE(window().isVisible());
  });
  EXPECT_EQ(events.log(),
            (Log{"Load", "Shown", "QueryUnload 0", "QueryUnload 1", "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, UnloadDuringLoadClosesTheFormBeforeItIsSeen) {
  make(std::vector<ControlDescription>{});
  events.onLoad = [&] { form->Unload(); };
  form->ShowModal();
  EXPECT_EQ(events.log(), (Log{"Load", "QueryUnload 1", "Unload"}));
  EXPECT_FALSE(window().isVisible());
}

TEST_F(FormTest, ARefusedUnloadDuringLoadShowsTheForm) {
  make(std::vector<ControlDescription>{});
  events.onQueryUnload = [](bool& cancel) { cancel = true; };
  events.onLoad = [&] { form->Unload(); };
  show([&] { EXPECT_TRUE(window().isVisible()); });
  EXPECT_EQ(events.log(), (Log{"Load", "QueryUnload 1", "Shown", "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, UnloadWhenShownReturnsAtOnce) {
  make(std::vector<ControlDescription>{});
  events.onShown = [&] { form->Unload(); };
  form->ShowModal();
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, UnloadCountsOnce) {
  make(std::vector<ControlDescription>{});
  events.onQueryUnload = [&](bool&) {
    form->Unload();
    window().close();
  };
  events.onUnload = [&] {
    form->Unload();
    window().close();
  };
  show([&] {
    form->Unload();
    form->Unload();
    window().close();
  });
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, UnloadBeforeAndAfterItsLifeDoesNothing) {
  make(std::vector<ControlDescription>{});
  form->Unload();
  EXPECT_EQ(events.log(), Log{});
  show([] {});
  form->Unload();
  form->ShowModal();
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, WishesToCloseWhileAQuestionIsOpenAreIgnored) {
  make(std::vector<ControlDescription>{});
  boxes.expect("yes", [&](QDialog&) {
    window().close();
    form->Unload();
  });
  events.onQueryUnload = [&](bool&) { toolkit->MsgBox("Speichern?", 3, "Abfrage"); };
  show([&] {
    window().close();
    EXPECT_FALSE(window().isVisible());
  });
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 0", "Unload"}));
}

TEST_F(FormTest, TheCloseButtonIsDeadBelowAMessageBox) {
  make(std::vector<ControlDescription>{});
  boxes.expect("ok", [&](QDialog& box) {
    EXPECT_EQ(box.parentWidget(), &window());
    window().close();
    EXPECT_TRUE(window().isVisible());
  });
  show([&] { toolkit->MsgBox("Hinweis", 0, "Titel"); });
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, UnloadBelowAMessageBoxClosesTheFormAndLeavesTheBoxUsable) {
  make(std::vector<ControlDescription>{});
  boxes.expect("cancel", [&](QDialog&) { form->Unload(); });
  std::int32_t answer = 0;
  show([&] { answer = toolkit->MsgBox("Speichern?", 3, "Abfrage"); });
  EXPECT_EQ(answer, msg_box::cancel);
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, NoExceptionOfAHandlerPassesThroughQt) {
  make({button("cmdOK", {0, 0, 1500, 345}, "OK", 0)});
  const auto fail = [] { throw Error::typeMismatch(); };
  events.onLoad = fail;
  events.onResize = fail;
  events.onUnload = [] { throw 42; };
  events.onKeyDown = [&](auto, auto) { fail(); };
  form->control<Button>("cmdOK").OnClick(fail);
  bool alive = false;
  show([&] {
    events.onQueryUnload = [&](bool& cancel) {
      cancel = true;
      fail();
    };
    window().close();
    QTest::keyClick(&window(), Qt::Key_F7);
    click(widget("cmdOK"));
    window().setFixedSize(310, 200);
    alive = window().isVisible();
  });
  EXPECT_TRUE(alive);
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 0", "KeyDown 118 0", "Resize",
                               "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, AFormShownFromAFormBelongsToIt) {
  make({button("cmdMore", {0, 0, 1500, 345}, "Mehr", 0)});
  RecordingEvents inner(events.sharedLog());
  QWidget* ownerOfInner = nullptr;
  QPoint offset;
  bool focusBack = false;
  form->control<Button>("cmdMore").OnClick([&] {
    auto child = toolkit->createForm(formDescription({}), inner);
    auto& childWindow = dynamic_cast<QDialog&>(*child);
    inner.onShown = [&] {
      ownerOfInner = childWindow.parentWidget();
      offset = childWindow.geometry().center() - window().geometry().center();
      QTimer::singleShot(0, &childWindow, [&] { childWindow.close(); });
    };
    child->ShowModal();
    EXPECT_EQ(childWindow.parentWidget(), nullptr);
  });
  show([&] {
    EXPECT_EQ(window().parentWidget(), nullptr);
    click(widget("cmdMore"));
    waitUntilActive();
    focusBack = QApplication::focusWidget() == &widget("cmdMore");
  });
  EXPECT_EQ(ownerOfInner, &window());
  EXPECT_LE(offset.manhattanLength(), 4);
  EXPECT_TRUE(focusBack);
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "Load", "Shown", "QueryUnload 0", "Unload",
                               "QueryUnload 1", "Unload"}));
}

TEST_F(FormTest, TakesItsIconFromPictureBytes) {
  make(std::vector<ControlDescription>{});
  EXPECT_TRUE(window().windowIcon().isNull());
  QPixmap red(16, 16);
  red.fill(Qt::red);
  QByteArray png;
  QBuffer buffer(&png);
  ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
  ASSERT_TRUE(red.save(&buffer, "PNG"));
  form->Icon({png.toStdString()});
  ASSERT_FALSE(window().windowIcon().isNull());
  form->Icon({"not a picture"});
  form->Icon({});
  EXPECT_EQ(window().windowIcon().pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::red));
}

TEST_F(FormTest, AControlWhoseFrameIsMissingIsRefused) {
  ControlDescription lost = button("cmdLost", {0, 0, 100, 100}, "?", 0);
  lost.parent = "fraNone";
  EXPECT_THROW(make({lost}), Error);
}

TEST_F(FormTest, ClosingTheLastFormDoesNotEndTheApplication) {
  make(std::vector<ControlDescription>{});
  boxes.expect("ok");
  events.onLoad = [&] { toolkit->MsgBox("Hinweis", 0, "Titel"); };
  show([] {});
  form.reset();
  EXPECT_FALSE(QCoreApplication::closingDown());
  bool runs = false;
  QEventLoop loop;
  QTimer::singleShot(0, &loop, [&] {
    runs = true;
    loop.quit();
  });
  loop.exec();
  EXPECT_TRUE(runs);
}

TEST_F(FormTest, AFormTooLargeForItsScreenScrolls) {
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  FormDescription large =
      formDescription({button("cmdTop", {150, 150, 1500, 345}, "Oben", 0),
                       button("cmdOK", {150, 15 * (screen.height() + 200), 1500, 345}, "OK", 1)});
  large.height = 15 * (screen.height() + 250);
  make(large);
  bool pressed = false;
  form->control<Button>("cmdOK").OnClick([&] { pressed = true; });
  show([&] {
    EXPECT_LE(window().height(), screen.height());
    EXPECT_EQ(form->ScaleHeight(), large.height);
    QWidget& ok = widget("cmdOK");
    EXPECT_FALSE(window().rect().contains(ok.mapTo(&window(), ok.rect().center())));
    QTest::keyClick(&widget("cmdTop"), Qt::Key_Tab);
    EXPECT_TRUE(ok.hasFocus());
    EXPECT_TRUE(window().rect().contains(ok.mapTo(&window(), ok.rect().center())));
    click(ok);
  });
  EXPECT_TRUE(pressed);
}

TEST_F(FormTest, AFormThatIsOnlyTooHighScrollsInOneDirection) {
  FormDescription large = formDescription({button("cmdOK", {0, 0, 1500, 345}, "OK", 0)});
  large.height = 15 * (QGuiApplication::primaryScreen()->availableSize().height() + 250);
  make(large);
  show([&] {
    const auto& area = *window().findChild<QScrollArea*>();
    EXPECT_TRUE(area.verticalScrollBar()->isVisible());
    EXPECT_FALSE(area.horizontalScrollBar()->isVisible());
  });
}

TEST_F(FormTest, AResizableFormIsToldThatItsScreenIsSmaller) {
  FormDescription large = resizable();
  large.width = 15 * (QGuiApplication::primaryScreen()->availableSize().width() + 250);
  make(large);
  show([&] {
    EXPECT_LT(form->ScaleWidth(), large.width);
    EXPECT_EQ(window().findChild<QScrollArea*>(), nullptr);
    EXPECT_EQ(events.log().back(), "Resize");
  });
}

TEST_F(FormTest, AResizableFormThatFitsMayBecomeLargerThanItsScreen) {
  make(resizable());
  show([&] { EXPECT_EQ(window().maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)); });
}

TEST_F(FormTest, AFormThatFitsItsScreenDoesNotScroll) {
  make({button("cmdOK", {0, 0, 1500, 345}, "OK", 0)});
  show([&] {
    EXPECT_EQ(window().findChild<QScrollBar*>(), nullptr);
    EXPECT_EQ(window().size(), QSize(300, 200));
  });
}

// An application that ends while the form is open.
class EndingTest : public FormTest {
 protected:
  void showAndEnd(std::function<void()> before = {}) {
    QTimer::singleShot(0, &window(), [&] { form->ShowModal(); });
    QTimer::singleShot(0, &window(), [before = std::move(before)] {
      if (before) before();
      QCoreApplication::exit();
    });
    QCoreApplication::exec();
  }
};

TEST_F(EndingTest, TheCancelButtonIsPressedForTheUser) {
  make({button("cmdCancel", {0, 0, 1500, 345}, "Abbrechen", 0, ButtonRole::Cancel)});
  form->control<Button>("cmdCancel").OnClick([&] {
    events.log().push_back("cancel");
    form->Unload();
  });
  showAndEnd();
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "cancel", "QueryUnload 1", "Unload"}));
  EXPECT_FALSE(window().isVisible());
}

TEST_F(EndingTest, AFormThatWouldRatherStayClosesAllTheSame) {
  make({button("cmdCancel", {0, 0, 1500, 345}, "Abbrechen", 0, ButtonRole::Cancel)});
  form->control<Button>("cmdCancel").OnClick([&] { form->Unload(); });
  events.onQueryUnload = [](bool& cancel) { cancel = true; };
  showAndEnd();
  EXPECT_EQ(events.log(), (Log{"Load", "Shown", "QueryUnload 1", "Unload"}));
  EXPECT_FALSE(window().isVisible());
}

}  // namespace
}  // namespace vexnumkr::test
