// An application that ends while the dialog is open.
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

using DialogEndingTest = DialogSession;

TEST_F(DialogEndingTest, TheTransactionIsRolledBackUnasked) {
  smallCompany("ORC");
  init(2);
  showToTheEnd([&] {
    click(2, 3);
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
    click(2, 3);
    type("keine Zahl");
    statements();
  });
  EXPECT_EQ(boxes(), Boxes{});
  EXPECT_EQ(statements(), Lines{"conn: ROLLBACK"});
}

}  // namespace
}  // namespace vexnumkr::test
