// Drop-down lists: choosing by code and by every means that a user has.
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>

#include "gui/forms/forms_fixture.h"

namespace vexnumkr::test {
namespace {

class ComboTest : public FormsTest {
 protected:
  ComboTest() {
    make({described(ControlKind::ComboBox, "cboUser", {150, 150, 2400, 315}, {}, 0),
          button("cmdOK", {150, 600, 1000, 345}, "OK", 1, ButtonRole::Default)});
    combo().OnClick([this] { clicks.push_back(combo().Text()); });
  }

  ComboBox& combo() { return form->control<ComboBox>("cboUser"); }
  QComboBox& box() { return widget<QComboBox>("cboUser"); }

  void fill() {
    for (const char* text : {"Anna", "Bert", "Ärgerlich", "Bert"}) combo().AddItem(text);
  }

  void wheel(int delta) {
    QWheelEvent event(QPointF(5, 5), box().mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, delta),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box(), &event);
  }

  // By keys: Qt takes a click right after the one that opened the list for a part of that one.
  void chooseFromList(int row) {
    click(box());
    auto* view = box().view();
    ASSERT_TRUE(view->isVisible());
    QTest::keyClick(view, Qt::Key_Home);
    for (int down = 0; down < row; ++down) QTest::keyClick(view, Qt::Key_Down);
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_FALSE(view->isVisible());
  }

  Log clicks;
};

TEST_F(ComboTest, BeginsEmptyWithoutAChoice) {
  EXPECT_EQ(combo().ListCount(), 0);
  EXPECT_EQ(combo().ListIndex(), -1);
  EXPECT_EQ(combo().Text(), "");
}

TEST_F(ComboTest, FillingChoosesNothing) {
  fill();
  EXPECT_EQ(combo().ListCount(), 4);
  EXPECT_EQ(combo().ListIndex(), -1);
  EXPECT_EQ(combo().Text(), "");
  EXPECT_EQ(box().currentIndex(), -1);
  EXPECT_EQ(clicks, Log{});
}

TEST_F(ComboTest, ChoosingByCodeClicksWhenTheEntryChanges) {
  fill();
  combo().ListIndex(2);
  combo().ListIndex(2);
  combo().ListIndex(0);
  EXPECT_EQ(clicks, (Log{"Ärgerlich", "Anna"}));
  EXPECT_EQ(box().currentText(), QStringLiteral("Anna"));
}

TEST_F(ComboTest, ChoosingByTextTakesTheFirstExactMatch) {
  fill();
  combo().Text("Bert");
  EXPECT_EQ(combo().ListIndex(), 1);
  combo().Text("Bert");
  EXPECT_EQ(clicks, Log{"Bert"});
}

TEST_F(ComboTest, EntriesThatDoNotExistAreRefused) {
  fill();
  combo().ListIndex(1);
  const auto refused = [&](auto act) {
    try {
      act();
      ADD_FAILURE() << "not refused";
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 380);
    }
    EXPECT_EQ(combo().ListIndex(), 1);
  };
  refused([&] { combo().ListIndex(4); });
  refused([&] { combo().ListIndex(-2); });
  refused([&] { combo().Text("bert"); });
  refused([&] { combo().Text("Ber"); });
  refused([&] { combo().Text(""); });
  refused([&] { combo().SelectSilently(4); });
  EXPECT_EQ(clicks, Log{"Bert"});
}

TEST_F(ComboTest, NoneCanBeChosenToo) {
  fill();
  combo().ListIndex(1);
  combo().ListIndex(-1);
  EXPECT_EQ(combo().Text(), "");
  EXPECT_EQ(clicks, (Log{"Bert", ""}));
}

TEST_F(ComboTest, SilentChoicesDoNotClick) {
  fill();
  combo().SelectSilently(2);
  EXPECT_EQ(combo().Text(), "Ärgerlich");
  combo().SelectSilently(-1);
  EXPECT_EQ(combo().ListIndex(), -1);
  EXPECT_EQ(clicks, Log{});
}

TEST_F(ComboTest, ClearingLeavesNoneAndDoesNotClick) {
  fill();
  combo().SelectSilently(2);
  combo().Clear();
  EXPECT_EQ(combo().ListCount(), 0);
  EXPECT_EQ(combo().ListIndex(), -1);
  combo().AddItem("Neu");
  EXPECT_EQ(combo().ListIndex(), -1);
  EXPECT_EQ(clicks, Log{});
}

TEST_F(ComboTest, AddingKeepsTheChoice) {
  fill();
  combo().SelectSilently(3);
  combo().AddItem("Carl");
  EXPECT_EQ(combo().ListIndex(), 3);
  EXPECT_EQ(box().currentIndex(), 3);
}

TEST_F(ComboTest, AHandlerMayChooseAgain) {
  fill();
  combo().OnClick([&] {
    clicks.push_back(combo().Text());
    if (combo().ListIndex() != 0) combo().ListIndex(0);
  });
  combo().ListIndex(2);
  EXPECT_EQ(clicks, (Log{"Ärgerlich", "Anna"}));
  EXPECT_EQ(combo().ListIndex(), 0);
}

TEST_F(ComboTest, TheUserChoosesFromTheList) {
  fill();
  combo().SelectSilently(0);
  show([&] {
    chooseFromList(2);
    EXPECT_EQ(combo().ListIndex(), 2);
  });
  EXPECT_EQ(clicks, Log{"Ärgerlich"});
}

TEST_F(ComboTest, TheUserChoosingTheShownEntryClicksToo) {
  fill();
  combo().SelectSilently(2);
  show([&] { chooseFromList(2); });
  EXPECT_EQ(clicks, Log{"Ärgerlich"});
}

TEST_F(ComboTest, LeavingTheListChoosesNothing) {
  fill();
  combo().SelectSilently(0);
  show([&] {
    box().showPopup();
    QTest::keyClick(box().view(), Qt::Key_Down);
    QTest::keyClick(box().view(), Qt::Key_Escape);
    EXPECT_FALSE(box().view()->isVisible());
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(combo().ListIndex(), 0);
  });
  EXPECT_EQ(clicks, Log{});
}

TEST_F(ComboTest, TheUserChoosesByKeys) {
  fill();
  combo().SelectSilently(0);
  show([&] {
    QTest::keyClick(&box(), Qt::Key_Down);
    QTest::keyClick(&box(), Qt::Key_End);
    QTest::keyClick(&box(), Qt::Key_End);
    QTest::keyClick(&box(), Qt::Key_Home);
    QTest::keyClick(&box(), Qt::Key_B);
  });
  EXPECT_EQ(clicks, (Log{"Bert", "Bert", "Anna", "Bert"}));
  EXPECT_EQ(combo().ListIndex(), 1);
}

TEST_F(ComboTest, TheUserChoosesByWheel) {
  fill();
  combo().SelectSilently(1);
  show([&] {
    wheel(-120);
    wheel(120);
    wheel(120);
    wheel(120);
  });
  EXPECT_EQ(clicks, (Log{"Ärgerlich", "Bert", "Anna"}));
}

TEST_F(ComboTest, TheWheelChoosesNothingWithoutTheFocus) {
  fill();
  combo().SelectSilently(1);
  show([&] {
    widget("cmdOK").setFocus();
    wheel(-120);
    EXPECT_FALSE(box().hasFocus());
  });
  EXPECT_EQ(clicks, Log{});
  EXPECT_EQ(combo().ListIndex(), 1);
}

TEST_F(ComboTest, AListIsNoWiderThanTheScreen) {
  combo().AddItem("kurz");
  combo().AddItem(std::string(400, 'W'));
  show([&] {
    box().showPopup();
    const QRect screen = window().screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(box().view()->window()->geometry()));
    EXPECT_GE(box().view()->viewport()->height(), 2 * box().view()->sizeHintForRow(0));
    box().hidePopup();
  });
}

TEST_F(ComboTest, TheListIsAsWideAsItsEntries) {
  combo().AddItem("kurz");
  combo().AddItem("Ein Eintrag, der viel mehr Platz braucht als der Kasten, in dem er steht");
  show([&] {
    box().showPopup();
    EXPECT_GE(box().view()->viewport()->width(), box().view()->sizeHintForColumn(0));
    box().hidePopup();
  });
}

TEST_F(ComboTest, EntriesAreNotTakenForMnemonicsOrMarkup) {
  combo().AddItem("M&M <b>fett</b>");
  combo().ListIndex(0);
  EXPECT_EQ(combo().Text(), "M&M <b>fett</b>");
  EXPECT_EQ(clicks, Log{"M&M <b>fett</b>"});
}

}  // namespace
}  // namespace vexnumkr::test
