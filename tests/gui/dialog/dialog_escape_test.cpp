// Escape while a cell is open: the entry goes, the dialog stays, however the focus has got where it
// is.
#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

class DialogEscapeTest : public DialogSession {
 protected:
  /// With "160" typed over the current value of offers of Nord.
  void whileTyping(const std::function<void()>& steps) {
    inCompany(2, [&] {
      click(2, 3);
      type("160");
      steps();
      expectEscapeDropsTheEntry();
    });
  }
  void expectEscapeDropsTheEntry() {
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(editor(), "2/3 160");
    key("Escape");
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(editor(), "none");
    EXPECT_EQ(cell(2, 3), "150");
    EXPECT_FALSE(changed());
    EXPECT_EQ(boxes(), Boxes{});
  }

  void pressAndReleaseElsewhere(const std::string& name) {
    QWidget& pressed = control(name);
    QTest::mousePress(&pressed, Qt::LeftButton, {}, pressed.rect().center());
    const QPoint elsewhere(pressed.width() / 2, -50);
    QTest::mouseMove(&pressed, elsewhere);
    QTest::mouseRelease(&pressed, Qt::LeftButton, {}, elsewhere);
  }
};

class DialogEscapeFromButtonTest : public DialogEscapeTest,
                                   public testing::WithParamInterface<const char*> {};

TEST_P(DialogEscapeFromButtonTest, AfterAPressThatIsReleasedElsewhere) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('BR', 'RE', 'Barrechnung', 0, 'ORC')");
  whileTyping([&] {
    pressAndReleaseElsewhere(GetParam());
    EXPECT_FALSE(control<QAbstractButton>(GetParam()).isDown());
  });
}

// Escape reaches whatever has the focus, and that has been pressed, but not yet released.
TEST_P(DialogEscapeFromButtonTest, WhileItIsHeldDown) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('BR', 'RE', 'Barrechnung', 0, 'ORC')");
  inCompany(2, [&] {
    click(2, 3);
    type("160");
    QWidget& held = control(GetParam());
    QTest::mousePress(&held, Qt::LeftButton, {}, held.rect().center());
    expectEscapeDropsTheEntry();
    QTest::mouseRelease(&held, Qt::LeftButton, {}, QPoint(held.width() / 2, -50));
    EXPECT_TRUE(isOpen());
  });
}

TEST_P(DialogEscapeFromButtonTest, WhereTheFocusHasComeByItself) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('BR', 'RE', 'Barrechnung', 0, 'ORC')");
  whileTyping([&] { control(GetParam()).setFocus(); });
}

INSTANTIATE_TEST_SUITE_P(Every, DialogEscapeFromButtonTest,
                         testing::Values("cmdOK", "cmdCancel", "cmdAuto", "cmdBuchungskreise",
                                         "cmdSonderkreise", "cmdOptionen"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST_F(DialogEscapeTest, InTheListsThatAccessKeysLeadTo) {
  for (const char* chord : {"Alt+N", "Alt+B"}) {
    SCOPED_TRACE(chord);
    whileTyping([&] {
      key(chord);
      EXPECT_EQ(focus(), chord == std::string("Alt+N") ? "cboBuchungskreis" : "cboUser");
    });
    for (const char* table :
         {"tblUser", "Nummernkreis_Buchungskreise", "Nummernkreise", "Nummernkreis_Zuordnung"})
      sql(std::string("DELETE FROM ") + table);
  }
}

TEST_F(DialogEscapeTest, TheSecondOneCancels) {
  inCompany(2, [&] {
    click(2, 3);
    type("160");
    pressAndReleaseElsewhere("cmdOK");
    expectEscapeDropsTheEntry();
    key("Escape");
    EXPECT_FALSE(isOpen());
  });
}

}  // namespace
}  // namespace vexnumkr::test
