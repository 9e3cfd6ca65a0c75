// What goes on while an entry is refused, or fails.
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

using DialogRefusalsTest = DialogSession;

TEST_F(DialogRefusalsTest, ARightClickElsewhereLeavesTheRefusedEntryOpen) {
  inCompany(2, [&] {
    click(2, grid_column::Aktuell);
    type("keine Zahl");
    click(2, grid_column::Start, Qt::RightButton);
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(editor(), "2/3 keine Zahl");
    EXPECT_EQ(selectedText(), "keine Zahl");
    key("Escape");
    EXPECT_EQ(editor(), "none");
    EXPECT_TRUE(isOpen());
  });
}

// A group without a standard range's values: its entry cannot be compared with the current one.
TEST_F(DialogRefusalsTest, AfterAnEntryThatFailedOnTheWayToAListTypingGoesOn) {
  sql("INSERT INTO Nummernkreise VALUES (0, 'RE', 'Rechnung', 1000, 1500, 1999, -1, 2, '', '')");
  init(3);
  show([&] {
    click(0, grid_column::Start);
    type("1001");
    select("cboBuchungskreis", "Aktive Buchungskreise");
    boxes();
    click(1, grid_column::Ende);
    type("55");
    EXPECT_EQ(editor(), "1/4 55");
    key("Escape");
    press("cmdCancel");
  });
}

}  // namespace
}  // namespace vexnumkr::test
