// What goes on while an entry is refused, or fails.
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

using DialogRefusalsTest = DialogSession;

TEST_F(DialogRefusalsTest, ARightClickElsewhereLeavesTheRefusedEntryOpen) {
  inCompany(2, [&] {
    click(2, 3);
    type("keine Zahl");
    click(2, 2, Qt::RightButton);
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(editor(), "2/3 keine Zahl");
    EXPECT_EQ(selectedText(), "keine Zahl");
    key("Escape");
    EXPECT_EQ(editor(), "none");
    EXPECT_TRUE(isOpen());
  });
}

}  // namespace
}  // namespace vexnumkr::test
