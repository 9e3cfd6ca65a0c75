#include "rules/validation.h"

#include <QDialog>
#include <memory>

#include "adapters/qtgrid/qt_tree_grid.h"
#include "data/booking_circles.h"
#include "data/range_table.h"
#include "data/table/columns.h"
#include "dialogs/main/layout.h"
#include "dialogs/main/tree.h"
#include "rules/sort_orders.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::Box;
using test::errorBox;
using Boxes = std::vector<Box>;
using Texts = std::vector<std::string>;

// A range; what a test does not name is in order.
struct Range {
  Value user = alleBenutzer;
  std::string key = "RE";
  std::int32_t circle = 1;
  Value start = 1;
  Value current = 1;
  Value end = 100;
  Value active = true;
  Value sharedWith = "";
  Value place = 1;
};

// The rules on the dialog's own grid, in a window.
class ValidationTest : public test::CoreSession {
 protected:
  void SetUp() override {
    start(1, {"Max"});
    grid_ = makeQtTreeGrid(mainDialogDescription().controls.front(), &window_);
    context().sftNummernkreise(grid_.get());
    window_.resize(700, 400);
    window_.show();
    view(alleBuchungskreise, alleBenutzer);
  }

  void range(const Range& range) {
    row({range.user, range.circle, circleName(range.circle), range.key, name(range.key),
         range.start, range.current, range.end, range.active, range.place, range.sharedWith, ""});
  }
  // The ranges, and for each key the standard range that opens it in the grid; these have numbers
  // of their own. In the order of the tree, as after loading.
  void ranges(std::initializer_list<Range> list) {
    std::int32_t first = 1'000'000;
    for (const char* key : {"AN", "RE", "VK"}) {
      range({.key = key,
             .circle = 0,
             .start = first,
             .current = first,
             .end = first + 9,
             .sharedWith = std::string("own ") + key});
      first += 100;
    }
    for (const Range& each : list) range(each);
    sortRows(table(), treeOrder);
    basAllgemein::SyncDataWithControl(context(), context().strFilterBuchungskreis(),
                                      context().strFilterUser());
  }
  // Writes a value of a common range behind the grid's back.
  void put(const std::string& key, std::int32_t circle, std::int32_t column, const Value& value) {
    table().set(basAllgemein::FoundInXArray(context(), alleBenutzer, circle, key), column, value);
  }
  void view(const std::string& filter, const std::string& user) {
    context().strFilterBuchungskreis(filter);
    context().strFilterUser(user);
  }

  bool check() { return basAllgemein::CheckValidity(context(), viewReset_, refill_); }
  void passes() {
    EXPECT_TRUE(check());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(edited(), "");
    EXPECT_FALSE(viewReset_);
  }
  // `cell` is the one whose editor opens.
  void fails(const std::string& message, const std::string& cell) {
    EXPECT_FALSE(check());
    EXPECT_EQ(boxes(), (Boxes{{"Info", message, 0}}));
    EXPECT_EQ(edited(), cell);
  }

  static std::string endMessage(const std::string& key, int circle) {
    return "Der Endwert muss größer sein als der Startwert.\r\n(Belegart: " + name(key) +
           ", Buchungskreis: " + circleName(circle) + ")";
  }
  static std::string currentMessage(const std::string& key, int circle) {
    return "Der aktuelle Wert muss zwischen dem Start- und Endwert liegen.\r\n(Belegart: " +
           name(key) + ", Buchungskreis: " + circleName(circle) + ")";
  }
  static std::string circlesMessage(const std::string& key, int later, int earlier) {
    return "Bei der Belegart '" + name(key) + "' überschneidet sich der Buchungskreis '" +
           circleName(later) + "' mit dem Buchungskreis '" + circleName(earlier) + "'.";
  }
  static std::string keysMessage(const std::string& laterKey, int laterCircle,
                                 const std::string& key, int circle) {
    return "Bei der Belegart '" + name(laterKey) + "' überschneidet sich der Buchungskreis '" +
           circleName(laterCircle) + "' mit der Belegart '" + name(key) +
           "' und dem Buchungskreis '" + circleName(circle) + "'.";
  }

  // The cell being edited: "RE 2 Ende 50"; empty when none is.
  std::string edited() const {
    const auto cell = grid_->editedCell();
    if (!cell) return "";
    const char* columns[] = {"", "Beschreibung", "Start", "Aktuell", "Ende", "Maske"};
    return grid_->List(cell->item, grid_column::NSchl) + " " +
           grid_->List(cell->item, grid_column::Buchungskreis) + " " + columns[cell->column] + " " +
           grid_->List(cell->item, cell->column);
  }

  bool viewReset_ = false;
  basAllgemein::GridRefill refill_ = basAllgemein::SyncDataWithControl;
  std::unique_ptr<QtTreeGrid> grid_;

 private:
  static std::string name(const std::string& key) { return "Belegart " + key; }
  static std::string circleName(int circle) {
    return circle == 0 ? "Standard" : "Filiale " + std::to_string(circle);
  }

  QDialog window_;
};

TEST_F(ValidationTest, AnEmptyTablePasses) { passes(); }

TEST_F(ValidationTest, RowsOfUsersAloneAreNotTested) {
  range({.user = "Max", .start = 9, .current = 50, .end = 1});
  range({.user = "alle benutzer", .start = 9, .current = 50, .end = 1});
  passes();
}

TEST_F(ValidationTest, InactiveRowsAreNotTested) {
  range({.start = 9, .end = 1, .active = false});
  range({.circle = 2, .start = 5, .current = 99, .end = 8, .active = false});
  passes();
}

TEST_F(ValidationTest, TheEndLiesAboveTheStart) {
  ranges({{.circle = 2, .start = 100, .current = 100, .end = 100}});
  fails(endMessage("RE", 2), "RE 2 Ende 100");
}

TEST_F(ValidationTest, AnEndBelowTheStartIsReportedBeforeTheCurrentValue) {
  ranges({{.start = 100, .current = 500, .end = 7}});
  fails(endMessage("RE", 1), "RE 1 Ende 7");
}

TEST_F(ValidationTest, TheCurrentValueMayBeTheStartOrTheEnd) {
  ranges({{.circle = 1, .start = 1, .current = 1, .end = 2},
          {.circle = 2, .start = 3, .current = 4, .end = 4}});
  passes();
}

TEST_F(ValidationTest, TheCurrentValueDoesNotLieBelowTheStart) {
  ranges({{.start = 1, .current = 0, .end = 2}});
  fails(currentMessage("RE", 1), "RE 1 Aktuell 0");
}

TEST_F(ValidationTest, TheCurrentValueDoesNotLieAboveTheEnd) {
  ranges({{.start = 1, .current = 3, .end = 2}});
  fails(currentMessage("RE", 1), "RE 1 Aktuell 3");
}

TEST_F(ValidationTest, CirclesOfOneKeyMayNotEvenTouch) {
  ranges({{.circle = 1, .start = 1, .end = 100},
          {.circle = 2, .start = 100, .current = 100, .end = 200}});
  fails(circlesMessage("RE", 2, 1), "RE 2 Start 100");
}

TEST_F(ValidationTest, NeighbouringRangesPassInEitherOrder) {
  ranges({{.circle = 1, .start = 1, .end = 100},
          {.circle = 2, .start = 101, .current = 101, .end = 200},
          {.circle = 3, .start = -9, .current = -9, .end = 0}});
  passes();
}

TEST_F(ValidationTest, ANestedRangeOverlaps) {
  ranges({{.circle = 1, .start = 1, .end = 100},
          {.circle = 2, .start = 50, .current = 50, .end = 60}});
  fails(circlesMessage("RE", 2, 1), "RE 2 Start 50");
}

TEST_F(ValidationTest, ARangeAroundAnotherOverlaps) {
  ranges({{.circle = 1, .start = 50, .current = 50, .end = 60},
          {.circle = 2, .start = 1, .end = 100}});
  fails(circlesMessage("RE", 2, 1), "RE 2 Start 1");
}

TEST_F(ValidationTest, TheSameNumbersTwiceOverlap) {
  ranges({{.circle = 1}, {.circle = 2}});
  fails(circlesMessage("RE", 2, 1), "RE 2 Start 1");
}

TEST_F(ValidationTest, ARangeListedTwiceDoesNotOverlapItself) {
  ranges({{.circle = 1}, {.circle = 1}});
  passes();
}

TEST_F(ValidationTest, KeysOnOneSequenceMayNotOverlap) {
  ranges({{.key = "VK", .start = 50, .current = 50, .end = 60, .sharedWith = "RE"},
          {.key = "RE", .start = 1, .end = 100}});
  fails(keysMessage("VK", 1, "RE", 1), "RE 1 Start 1");
}

TEST_F(ValidationTest, TheEarlierRangeMayBeTheOneThatShares) {
  ranges({{.key = "AN", .start = 50, .current = 50, .end = 60, .sharedWith = "RE"},
          {.key = "RE", .circle = 2, .start = 1, .end = 100}});
  fails(keysMessage("RE", 2, "AN", 1), "AN 1 Start 50");
}

TEST_F(ValidationTest, KeysMayShareTheSequenceOfAThirdOne) {
  ranges({{.key = "AN", .sharedWith = "XY"}, {.key = "RE", .sharedWith = "XY"}});
  fails(keysMessage("RE", 1, "AN", 1), "AN 1 Start 1");
}

TEST_F(ValidationTest, ARangeThatSharesDoesNotDrawOnItsOwnKey) {
  ranges({{.circle = 1, .sharedWith = "XY"}, {.circle = 2}});
  passes();
}

TEST_F(ValidationTest, KeysAreComparedExactly) {
  ranges({{.key = "RE"}, {.key = "AN", .sharedWith = "re"}, {.key = "VK", .sharedWith = "RE "}});
  passes();
}

TEST_F(ValidationTest, NullAndNothingShareNoSequence) {
  ranges({{.key = "AN"}, {.key = "RE"}, {.key = "VK", .sharedWith = Empty{}}});
  put("AN", 1, column::IstNSchlVon, Null{});
  put("RE", 1, column::IstNSchlVon, Null{});
  passes();
}

TEST_F(ValidationTest, NullAndEmptyStandForTheRangesOwnKey) {
  ranges({{.circle = 1}, {.circle = 2}});
  put("RE", 1, column::IstNSchlVon, Null{});
  fails(circlesMessage("RE", 2, 1), "RE 2 Start 1");
}

TEST_F(ValidationTest, AnInactivePartnerDoesNotCount) {
  ranges({{.circle = 1}, {.circle = 2, .active = false}, {.user = "Max", .circle = 3}});
  passes();
}

TEST_F(ValidationTest, OfTwoDefectsTheFirstInDisplayOrderIsReported) {
  ranges({{.key = "RE", .end = 0, .place = 2},
          {.key = "VK", .end = 0, .place = 1},
          {.key = "AN", .end = 0, .place = 3}});
  fails(endMessage("VK", 1), "VK 1 Ende 0");
}

TEST_F(ValidationTest, CirclesAreOrderedAsNumbers) {
  ranges({{.circle = 10, .end = 0}, {.circle = 9, .end = 0}});
  fails(endMessage("RE", 9), "RE 9 Ende 0");
}

TEST_F(ValidationTest, ADefectivePartnerComesBeforeADefectInBetween) {
  ranges({{.key = "AN", .place = 1},
          {.key = "RE", .current = 500, .place = 2},
          {.key = "VK", .end = 0, .sharedWith = "AN", .place = 3}});
  fails(endMessage("VK", 1), "VK 1 Ende 0");
}

TEST_F(ValidationTest, APartnersCurrentValueIsReportedUnderItsOwnRow) {
  ranges(
      {{.circle = 1, .start = 1, .end = 9}, {.circle = 2, .start = 10, .current = 9, .end = 19}});
  fails(currentMessage("RE", 2), "RE 2 Aktuell 9");
}

TEST_F(ValidationTest, TheFirstPartnerInOrderIsReported) {
  ranges({{.circle = 1, .start = 1, .end = 50},
          {.circle = 2, .start = 50, .current = 50, .end = 60},
          {.circle = 3, .start = 5, .current = 4, .end = 6}});
  fails(circlesMessage("RE", 2, 1), "RE 2 Start 50");
}

TEST_F(ValidationTest, AFailureShowsEverythingAndSaysSo) {
  ranges({{.circle = 1, .start = 1, .end = 9}, {.circle = 2, .end = 0}});
  const std::pair<std::string, std::string> views[] = {{"Filiale 1", alleBenutzer},
                                                       {aktiveBuchungskreise, alleBenutzer},
                                                       {alleBuchungskreise, "Max"},
                                                       {"Filiale 1", "Max"},
                                                       {"", ""}};
  for (const auto& [filter, user] : views) {
    view(filter, user);
    basAllgemein::SyncDataWithControl(context(), filter, user);
    viewReset_ = false;
    fails(endMessage("RE", 2), "RE 2 Ende 0");
    EXPECT_TRUE(viewReset_) << filter << ", " << user;
    EXPECT_EQ(grid_->ListCount(), 8) << "three groups and five ranges";
    EXPECT_EQ(context().strFilterUser(), user) << "the dialog sets its filters itself";
  }
}

TEST_F(ValidationTest, WhereEverythingIsShownTheViewStaysAsItWas) {
  ranges({{.end = 0}});
  for (const bool before : {false, true}) {
    viewReset_ = before;
    refill_ = [](HostContext&, const std::string&, const std::string&) {
      ADD_FAILURE() << "refilled";
    };
    fails(endMessage("RE", 1), "RE 1 Ende 0");
    EXPECT_EQ(viewReset_, before);
  }
}

TEST_F(ValidationTest, SuccessLeavesTheViewAsItWas) {
  ranges({});
  view("Filiale 1", "Max");
  passes();
  viewReset_ = true;
  EXPECT_TRUE(check());
  EXPECT_TRUE(viewReset_);
}

TEST_F(ValidationTest, ARefillThatFailsIsIgnored) {
  ranges({{.end = 0}});
  view("Filiale 1", alleBenutzer);
  refill_ = [](HostContext&, const std::string&, const std::string&) { throw Error::overflow(); };
  fails(endMessage("RE", 1), "RE 1 Ende 0");
  EXPECT_TRUE(viewReset_);
}

TEST_F(ValidationTest, ARefillThatReportsAFailureIsGoneOnFrom) {
  ranges({{.end = 0}});
  view("Filiale 1", alleBenutzer);
  context().sftNummernkreise(nullptr);
  EXPECT_FALSE(check());
  EXPECT_EQ(boxes(), (Boxes{{"Info", endMessage("RE", 1), 0},
                            errorBox(91, "basAllgemein", "SyncDataWithControl",
                                     "Objektvariable nicht festgelegt")}));
  EXPECT_TRUE(viewReset_);
}

TEST_F(ValidationTest, WithoutAGridTheAnswerIsStillNo) {
  ranges({{.end = 0}});
  context().sftNummernkreise(nullptr);
  EXPECT_FALSE(check());
  EXPECT_EQ(boxes(), (Boxes{{"Info", endMessage("RE", 1), 0}}));
}

TEST_F(ValidationTest, ARangeThatTheGridDoesNotHaveIsNotEdited) {
  ranges({{.end = 0}});
  grid_->Clear();
  fails(endMessage("RE", 1), "");
  basAllgemein::AddGroup(context(), "RE", "Belegart RE", "RE", "");
  fails(endMessage("RE", 1), "");
}

TEST_F(ValidationTest, AValueThatTheGridSpellsDifferentlyIsNotEdited) {
  ranges({{.start = " 0050 ", .current = 50, .end = "7"}});
  fails(endMessage("RE", 1), "RE 1 Ende 7");
  grid_->EndEdit(false);
  put("RE", 1, column::EndWert, "007");
  fails(endMessage("RE", 1), "");
}

TEST_F(ValidationTest, TheSameValueAboveTheRangeIsNotTheOneEdited) {
  ranges({{.key = "AN", .circle = 2, .end = 0, .active = false},
          {.key = "RE", .circle = 1, .end = 0, .active = false},
          {.key = "RE", .circle = 2, .end = 0}});
  fails(endMessage("RE", 2), "RE 2 Ende 0");
}

TEST_F(ValidationTest, AKeyIsFoundByWhatItsCaptionBeginsWith) {
  ranges({{.key = "AN", .circle = 1, .end = 0, .active = false}, {.key = "RE", .end = 0}});
  grid_->List(0, grid_column::Beschreibung, "Belegart RE Export (AN)");
  fails(endMessage("RE", 1), "AN 1 Ende 0");
}

TEST_F(ValidationTest, ApplicationsThatAreNotAskedFailAllTheSame) {
  ranges({{.end = 0}});
  context().LngApplication(3);
  EXPECT_FALSE(check());
  EXPECT_EQ(boxes(), Boxes{});
  EXPECT_EQ(edited(), "RE 1 Ende 0");
}

TEST_F(ValidationTest, AValueThatIsNoNumberIsReportedAndCountsAsPassed) {
  for (const std::int32_t columnNumber :
       {column::StartWert, column::AktuellerWert, column::EndWert}) {
    ranges({{.end = 9}});
    put("RE", 1, columnNumber, "zehn");
    EXPECT_TRUE(check()) << columnNumber;
    EXPECT_EQ(boxes(), Boxes{errorBox(13, "basAllgemein", "CheckValidity", "Typen unverträglich")});
    EXPECT_EQ(edited(), "");
    EXPECT_FALSE(viewReset_);
    context().XArray(std::make_unique<XArray>(XArray::withColumns(column::Maske)));
  }
}

TEST_F(ValidationTest, OtherFailuresOfConvertingCountAsPassedToo) {
  ranges({{}});
  put("RE", 1, column::EndWert, "2147483648");
  EXPECT_TRUE(check());
  EXPECT_EQ(boxes(), Boxes{errorBox(6, "basAllgemein", "CheckValidity", "Überlauf")});
  put("RE", 1, column::EndWert, Null{});
  EXPECT_TRUE(check());
  EXPECT_EQ(boxes(), Boxes{errorBox(94, "basAllgemein", "CheckValidity",
                                    "Unzulässige Verwendung von Null")});
}

TEST_F(ValidationTest, ADefectBeforeAValueThatIsNoNumberIsReported) {
  ranges({{.key = "AN", .end = 0}, {.key = "RE"}});
  put("RE", 1, column::StartWert, "zehn");
  fails(endMessage("AN", 1), "AN 1 Ende 0");
}

TEST_F(ValidationTest, AValueThatIsNoNumberHidesADefectBehindIt) {
  range({.key = "AN", .start = "zehn"});
  range({.key = "RE", .end = 0});
  EXPECT_TRUE(check());
  EXPECT_EQ(boxes(), Boxes{errorBox(13, "basAllgemein", "CheckValidity", "Typen unverträglich")});
}

TEST_F(ValidationTest, ValuesOfRowsThatAreNotTestedNeedNotBeNumbers) {
  range({.start = "zehn", .active = false});
  range({.user = "Max", .start = "zehn"});
  range({.circle = 2, .start = " +1.000,5 ", .current = 1000, .end = "1.001"});
  passes();
}

TEST_F(ValidationTest, ATableThatCannotBeSortedDoesNotPass) {
  range({.end = 0, .place = "hinten"});
  EXPECT_FALSE(check());
  EXPECT_EQ(boxes(), Boxes{errorBox(13, "basAllgemein", "CheckValidity", "Typen unverträglich")});
  EXPECT_EQ(edited(), "");
}

TEST_F(ValidationTest, WithoutTableItDoesNotPass) {
  context().XArray(nullptr);
  EXPECT_FALSE(check());
  EXPECT_EQ(boxes(), Boxes{errorBox(91, "basAllgemein", "CheckValidity",
                                    "Objektvariable nicht festgelegt")});
}

TEST_F(ValidationTest, SortsForDisplayAndChangesNoValue) {
  row({"Max", 1, "Nord", "RE", "Rechnung", 1, 1, 2, true, 1, "", ""});
  row({alleBenutzer, 10, "Zehn", "RE", "Rechnung", 1, 1, "2", true, 5, "", ""});
  row({alleBenutzer, 9, "Neun", "RE", "Rechnung", 3, 3, 4, true, 5, "", ""});
  row({alleBenutzer, 1, "Nord", "re", "klein", 1, 1, 2, true, 5, "", ""});
  row({alleBenutzer, 1, "Nord", "VK", "Verkauf", 1, 1, 2, true, 4, "", 0});
  script().takeStatements();
  EXPECT_TRUE(check());
  EXPECT_EQ(rows(), (Texts{"Alle Benutzer|1|Nord|VK|Verkauf|1|1|2|True|4||0",
                           "Alle Benutzer|9|Neun|RE|Rechnung|3|3|4|True|5||",
                           "Alle Benutzer|10|Zehn|RE|Rechnung|1|1|2|True|5||",
                           "Alle Benutzer|1|Nord|re|klein|1|1|2|True|5||",
                           "Max|1|Nord|RE|Rechnung|1|1|2|True|1||"}));
  EXPECT_EQ(table().get(2, 7), Value("2")) << "a text stays a text";
  EXPECT_FALSE(context().blnChanged());
  EXPECT_EQ(script().takeStatements(), Texts{}) << "the database is not asked";
}

TEST_F(ValidationTest, AFailureSortsTooAndChangesNoValue) {
  range({.circle = 2, .end = 0});
  range({.circle = 1, .start = 500, .current = 500, .end = 600});
  fails(endMessage("RE", 2), "");
  EXPECT_EQ(rows(), (Texts{"Alle Benutzer|1|Filiale 1|RE|Belegart RE|500|500|600|True|1||",
                           "Alle Benutzer|2|Filiale 2|RE|Belegart RE|1|1|0|True|1||"}));
  EXPECT_FALSE(context().blnChanged());
}

}  // namespace
}  // namespace vexnumkr
