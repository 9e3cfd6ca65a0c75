// Lists with check boxes.
#include <QListWidget>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>

#include "gui/forms/forms_fixture.h"

namespace vexnumkr::test {
namespace {

class CheckListTest : public FormsTest {
 protected:
  CheckListTest() {
    make({described(ControlKind::CheckList, "lstSonderkreise", {120, 420, 4000, 2000}, {}, 0)});
    for (const char* text : {"Lagermeldung (LM)", "Abruf & <b>Frist</b> (AF)", "Dritter (DR)"}) {
      list().AddItem(text);
    }
  }

  CheckList& list() { return form->control<CheckList>("lstSonderkreise"); }
  QListWidget& box() { return widget<QListWidget>("lstSonderkreise"); }

  std::string ticks() {
    std::string result;
    for (std::int32_t i = 0; i < list().ListCount(); ++i) result += list().Selected(i) ? 'x' : '.';
    return result;
  }

  QRect entryRect(int row) { return box().visualItemRect(box().item(row)); }

  void clickAt(QPoint place, Qt::MouseButton mouseButton = Qt::LeftButton) {
    QTest::mouseClick(box().viewport(), mouseButton, {}, place);
  }

  QPoint checkBox(int row) { return {entryRect(row).left() + 8, entryRect(row).center().y()}; }
};

TEST_F(CheckListTest, EntriesBeginWithoutTicks) {
  EXPECT_EQ(list().ListCount(), 3);
  EXPECT_EQ(ticks(), "...");
  EXPECT_EQ(box().item(1)->text(), QStringLiteral("Abruf & <b>Frist</b> (AF)"));
}

TEST_F(CheckListTest, TicksAreSetByCode) {
  list().Selected(1, true);
  list().Selected(2, true);
  list().Selected(2, false);
  EXPECT_EQ(ticks(), ".x.");
}

TEST_F(CheckListTest, EntriesThatDoNotExistAreRefused) {
  for (const std::int32_t index : {-1, 3}) {
    EXPECT_THROW(list().Selected(index), Error);
    EXPECT_THROW(list().Selected(index, true), Error);
  }
  try {
    list().Selected(3);
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 380);
  }
}

TEST_F(CheckListTest, AClickOnTheBoxOrTheTextToggles) {
  show([&] {
    clickAt(checkBox(0));
    EXPECT_EQ(ticks(), "x..");
    clickAt(entryRect(1).center());
    EXPECT_EQ(ticks(), "xx.");
    clickAt(entryRect(0).center());
    EXPECT_EQ(ticks(), ".x.");
    clickAt(checkBox(1));
    EXPECT_EQ(ticks(), "...");
  });
}

TEST_F(CheckListTest, OtherClicksToggleNothing) {
  show([&] {
    clickAt(checkBox(0), Qt::RightButton);
    clickAt(QPoint(20, entryRect(2).bottom() + 10));
    QTest::mousePress(box().viewport(), Qt::LeftButton, {}, entryRect(0).center());
    QTest::mouseRelease(box().viewport(), Qt::LeftButton, {}, entryRect(1).center());
    EXPECT_EQ(ticks(), "...");
  });
}

TEST_F(CheckListTest, TwoQuickClicksToggleTwice) {
  show([&] {
    QTest::mouseDClick(box().viewport(), Qt::LeftButton, {}, entryRect(1).center());
    EXPECT_EQ(ticks(), "...");
    clickAt(entryRect(1).center());
    EXPECT_EQ(ticks(), ".x.");
  });
}

TEST_F(CheckListTest, SpaceTogglesTheCurrentEntry) {
  show([&] {
    box().setFocus();
    QTest::keyClick(&box(), Qt::Key_Down);
    QTest::keyClick(&box(), Qt::Key_Space);
    EXPECT_EQ(ticks(), ".x.");
    QTest::keyClick(&box(), Qt::Key_Space);
    EXPECT_EQ(ticks(), "...");
  });
}

}  // namespace
}  // namespace vexnumkr::test
