// An application that ends while the dialog is open.
#include <QCoreApplication>

#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

using DialogEndingTest = DialogSession;

TEST_F(DialogEndingTest, TheTransactionIsRolledBackUnasked) {
  smallCompany("ORC");
  init(2);
  showToTheEnd([&] {
    click(2, grid_column::Aktuell);
    type("160");
    key("Enter");
    ASSERT_TRUE(changed());
    statements();
  });
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(statements(), Lines{"conn: ROLLBACK"});
  EXPECT_EQ(rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'"),
            Lines{"150"});
}

TEST_F(DialogEndingTest, AnOpenEntryIsDropped) {
  smallCompany("ORC");
  init(2);
  showToTheEnd([&] {
    click(2, grid_column::Aktuell);
    type("keine Zahl");
    statements();
  });
  EXPECT_EQ(boxes(), Boxes{});
  EXPECT_EQ(statements(), Lines{"conn: ROLLBACK"});
}

// The circles were changed in the transaction already, so that something is there to take back.
class DialogEndingInAQuestionTest : public DialogEndingTest,
                                    public testing::WithParamInterface<const char*> {
 protected:
  void changeCircles() {
    host().plain.circleDialog.whenShown = [](Connection& connection) {
      std::int32_t affected = 0;
      realConnection(connection)
          .Execute(
              "UPDATE Nummernkreis_Buchungskreise SET Beschreibung = 'Norden' WHERE "
              "Buchungskreis = 1",
              affected);
    };
    press("cmdBuchungskreise");
  }
  void ask(const std::string& question) {
    if (question == "Saving") closeWindow();
    if (question == "Conflict") press("cmdOK");
    if (question == "Automatisch") press("cmdAuto");
  }
};

TEST_P(DialogEndingInAQuestionTest, TheTransactionIsRolledBack) {
  smallCompany("ORC");
  init(2);
  showToTheEnd([&] {
    click(2, 3);
    type("160");
    key("Enter");
    key("Escape");
    if (GetParam() == std::string("Conflict"))
      sql("UPDATE Nummernkreise SET AktuellerWert=170 WHERE Buchungskreis=1 AND NSchl='AN'");
    changeCircles();
    statements();
    answer("nothing");
    whenBoxComes([] { QCoreApplication::exit(); });
    ask(GetParam());
    EXPECT_EQ(boxes().size(), 1U) << "the question";
  });
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(statements().back(), "conn: ROLLBACK");
  EXPECT_EQ(rows("SELECT Beschreibung FROM Nummernkreis_Buchungskreise WHERE Buchungskreis=1"),
            Lines{"Nord"});
  EXPECT_NE(rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'"),
            Lines{"160"});
}

INSTANTIATE_TEST_SUITE_P(Questions, DialogEndingInAQuestionTest,
                         testing::Values("Saving", "Conflict", "Automatisch"),
                         [](const auto& tested) { return std::string(tested.param); });

}  // namespace
}  // namespace vexnumkr::test
