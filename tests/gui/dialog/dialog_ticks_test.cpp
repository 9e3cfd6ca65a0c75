// Ticking ranges in the common view and choosing one in a user's view.
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

class DialogTicksTest : public DialogSession {};

constexpr std::int32_t standardOfAN = 1;
constexpr std::int32_t nordOfAN = 2;
constexpr std::int32_t suedOfAN = 3;

TEST_F(DialogTicksTest, TheStandardRangeCannotBeUnticked) {
  inCompany(2, [&] {
    clickPicture(standardOfAN);
    EXPECT_EQ(picture(standardOfAN), "Checked");
    EXPECT_EQ(range("Alle Benutzer", 0, "AN"), "1|5|99||True");
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogTicksTest, UntickingTakesTheRangeFromEveryUser) {
  inCompany(2, [&] {
    ASSERT_EQ(range("Max", 1, "AN"), "100|150|199|JNN|True");
    clickPicture(nordOfAN);
    EXPECT_EQ(picture(nordOfAN), "Unchecked");
    EXPECT_EQ(range("Alle Benutzer", 1, "AN"), "100|150|199|JNN|False");
    EXPECT_EQ(range("Anna", 1, "AN"), "none");
    EXPECT_EQ(range("Max", 1, "AN"), "none");
    EXPECT_EQ(range("Max", 0, "AN"), "1|5|99||True");  // somewhere Max has to draw from
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogTicksTest, TickingAgainGivesInactiveRowsBack) {
  inCompany(2, [&] {
    clickPicture(nordOfAN);
    clickPicture(nordOfAN);
    EXPECT_EQ(picture(nordOfAN), "Checked");
    EXPECT_EQ(range("Alle Benutzer", 1, "AN"), "100|150|199|JNN|True");
    EXPECT_EQ(range("Anna", 1, "AN"), "100|150|199||False");
    EXPECT_EQ(range("Max", 1, "AN"), "100|150|199||False");
  });
}

TEST_F(DialogTicksTest, TickingOffersTheRangeToEveryUser) {
  inCompany(2, [&] {
    clickPicture(suedOfAN);
    EXPECT_EQ(picture(suedOfAN), "Checked");
    EXPECT_EQ(range("Alle Benutzer", 2, "AN"), "200|200|299||True");
    select("cboUser", "Anna");
    EXPECT_EQ(tree(),
              (Lines{"Angebot (AN)", "ValueTrue Standard", "ValueFalse Nord", "ValueFalse Süd",
                     "Rechnung (RE)", "ValueTrue Standard", "ValueFalse Nord"}));
  });
}

TEST_F(DialogTicksTest, SpaceTicksTheCurrentItem) {
  inCompany(2, [&] {
    key("Down", 4);
    ASSERT_EQ(grid().ListIndex(), suedOfAN);
    key("Space");
    EXPECT_EQ(picture(suedOfAN), "Checked");
    key("Space");
    EXPECT_EQ(picture(suedOfAN), "Unchecked");
  });
}

TEST_F(DialogTicksTest, SpaceLeavesGroupsAlone) {
  inCompany(2, [&] {
    click(0, grid_column::Beschreibung);
    key("Space");
    EXPECT_FALSE(changed());
    EXPECT_EQ(picture(0), "-");
  });
}

TEST_F(DialogTicksTest, OnlyTheLeftButtonTicks) {
  inCompany(2, [&] {
    clickPicture(suedOfAN, Qt::RightButton);
    clickPicture(suedOfAN, Qt::MiddleButton);
    EXPECT_EQ(picture(suedOfAN), "Unchecked");
    EXPECT_FALSE(changed());
    EXPECT_EQ(grid().ListIndex(), suedOfAN);  // current it becomes all the same
  });
}

TEST_F(DialogTicksTest, TickingWorksUnderEveryFilterOfTheCommonView) {
  inCompany(2, [&] {
    select("cboBuchungskreis", "Süd");
    clickPicture(1);
    EXPECT_EQ(picture(1), "Checked");
    EXPECT_EQ(range("Max", 2, "AN"), "200|200|299||False");
    select("cboBuchungskreis", "Aktive Buchungskreise");
    EXPECT_EQ(cell(3, grid_column::Beschreibung), "Süd");
  });
}

TEST_F(DialogTicksTest, AUserHasExactlyOneRangeOfAKey) {
  inCompany(2, [&] {
    clickPicture(suedOfAN);
    select("cboUser", "Max");
    clickPicture(suedOfAN);
    EXPECT_EQ(tree(),
              (Lines{"Angebot (AN)", "ValueFalse Standard", "ValueFalse Nord", "ValueTrue Süd",
                     "Rechnung (RE)", "ValueTrue Standard", "ValueFalse Nord"}));
    EXPECT_EQ(range("Max", 0, "AN"), "1|5|99||False");
    EXPECT_EQ(range("Max", 1, "AN"), "100|150|199|JNN|False");
    EXPECT_EQ(range("Max", 2, "AN"), "200|200|299||True");
    EXPECT_EQ(range("Anna", 0, "AN"), "1|5|99||True");
  });
}

TEST_F(DialogTicksTest, AUserMayChooseTheStandardRange) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    clickPicture(standardOfAN);
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "ValueTrue Standard", "ValueFalse Nord",
                             "Rechnung (RE)", "ValueTrue Standard", "ValueFalse Nord"}));
    EXPECT_TRUE(changed());
    select("cboUser", "Max");  // the table says the same
    EXPECT_EQ(picture(standardOfAN), "ValueTrue");
    EXPECT_EQ(picture(nordOfAN), "ValueFalse");
  });
}

TEST_F(DialogTicksTest, SpaceChoosesToo) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    control("sftNummernkreise").setFocus();
    key("Down", 6);
    key("Space");
    EXPECT_EQ(picture(4), "ValueFalse");
    EXPECT_EQ(picture(5), "ValueTrue");
    EXPECT_EQ(range("Max", 1, "RE"), "2000|2000|2999||True");
  });
}

TEST_F(DialogTicksTest, TheChosenRangeCannotBeSwitchedOff) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    clickPicture(nordOfAN);
    EXPECT_EQ(picture(nordOfAN), "ValueTrue");
    EXPECT_EQ(range("Max", 1, "AN"), "100|150|199|JNN|True");
    EXPECT_TRUE(changed());  // also by a click that changes nothing
  });
}

TEST_F(DialogTicksTest, UnderAnotherFilterAUserCannotChoose) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    select("cboBuchungskreis", "Nord");
    ASSERT_EQ(tree()[3], "ValueFalse Nord");
    clickPicture(3);
    EXPECT_EQ(picture(3), "ValueFalse");
    EXPECT_EQ(range("Max", 1, "RE"), "2000|2000|2999||False");
    EXPECT_EQ(range("Max", 0, "RE"), "1000|1500|1999||True");
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogTicksTest, APlaceholderIsLeftAlone) {
  inCompany(2, [&] {
    select("cboUser", "Max");
    select("cboBuchungskreis", "Süd");
    clickPicture(1);
    key("Space");
    EXPECT_EQ(picture(1), "NotFound");
    EXPECT_FALSE(changed());
  });
}

// Key and circle identify the range, so a tick goes to the right row whatever the order is.
TEST_F(DialogTicksTest, TicksOfOneKeyLeaveTheOthersAlone) {
  inCompany(2, [&] {
    clickPicture(6);
    EXPECT_EQ(range("Alle Benutzer", 1, "RE"), "2000|2000|2999||False");
    EXPECT_EQ(range("Alle Benutzer", 1, "AN"), "100|150|199|JNN|True");
    EXPECT_EQ(range("Max", 1, "AN"), "100|150|199|JNN|True");
  });
}

TEST_F(DialogTicksTest, AClickOnATextDoesNotTick) {
  inCompany(2, [&] {
    click(suedOfAN, grid_column::Beschreibung);
    EXPECT_EQ(picture(suedOfAN), "Unchecked");
    EXPECT_FALSE(changed());
    EXPECT_EQ(grid().ListIndex(), suedOfAN);
    EXPECT_EQ(editor(), "none");
  });
}

}  // namespace
}  // namespace vexnumkr::test
