#include "rules/validation.h"

#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::Box;
using test::errorBox;
using test::RowCells;
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

class ValidationTest : public test::CoreSession {
 protected:
  void SetUp() override { start(1, {"Max"}); }

  void range(const Range& range) {
    row({.Benutzer = range.user,
         .Buchungskreis = range.circle,
         .Gruppe = circleName(range.circle),
         .NSchl = range.key,
         .NBezeichnung = name(range.key),
         .StartWert = range.start,
         .AktuellerWert = range.current,
         .EndWert = range.end,
         .Aktiviert = range.active,
         .SortierIndex = range.place,
         .IstNSchlVon = range.sharedWith,
         .Maske = ""});
  }
  // In the order of the tree, as after loading.
  void ranges(std::initializer_list<Range> list) {
    for (const Range& each : list) range(each);
    table().sort(RowOrder::tree);
  }
  // Writes a value of a common range.
  void put(const std::string& key, std::int32_t circle, ValueColumn column, const Value& value) {
    table().setValue(FoundInXArray(alleBenutzer, circle, key), column, value);
  }

  Validity check() { return basAllgemein::CheckValidity(table(), session().reporter()); }
  void passes() {
    const Validity validity = check();
    EXPECT_TRUE(validity.holds);
    EXPECT_FALSE(validity.defect);
  }
  // `value` is the one that the user is led to: "RE 2 Ende 50".
  void fails(const std::string& message, const std::string& value) {
    const Validity validity = check();
    EXPECT_FALSE(validity.holds);
    ASSERT_TRUE(validity.defect);
    EXPECT_EQ(defectMessage(table(), *validity.defect), message);
    EXPECT_EQ(offending(*validity.defect), value);
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

  std::string offending(const RangeDefect& defect) {
    const RangeRow& row = table().at(offendingRow(defect));
    const ValueColumn value = offendingValue(defect.rule);
    const char* column = value == &RangeRow::EndWert         ? " Ende "
                         : value == &RangeRow::AktuellerWert ? " Aktuell "
                                                             : " Start ";
    return row.NSchl.str() + " " + std::to_string(row.Buchungskreis) + column +
           (row.*value).toText();
  }

 private:
  static std::string name(const std::string& key) { return "Belegart " + key; }
  static std::string circleName(int circle) {
    return circle == 0 ? "Standard" : "Filiale " + std::to_string(circle);
  }
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

TEST_F(ValidationTest, RangesThatShareNoSequenceMayOverlap) {
  ranges({{.key = "AN"}, {.key = "RE"}, {.key = "VK", .sharedWith = Empty{}}});
  passes();
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

TEST_F(ValidationTest, AValueThatIsNoNumberIsReportedAndCountsAsPassed) {
  for (const ValueColumn value :
       {&RangeRow::StartWert, &RangeRow::AktuellerWert, &RangeRow::EndWert}) {
    table().create();
    ranges({{.end = 9}});
    put("RE", 1, value, "zehn");
    passes();
    EXPECT_EQ(boxes(), Boxes{errorBox(13, "basAllgemein", "CheckValidity", "Typen unverträglich")});
  }
}

TEST_F(ValidationTest, ANumberThatIsTooLargeCountsAsPassedToo) {
  ranges({{}});
  put("RE", 1, &RangeRow::EndWert, "2147483648");
  passes();
  EXPECT_EQ(boxes(), Boxes{errorBox(6, "basAllgemein", "CheckValidity", "Überlauf")});
}

TEST_F(ValidationTest, ADefectBeforeAValueThatIsNoNumberIsReported) {
  ranges({{.key = "AN", .end = 0}, {.key = "RE"}});
  put("RE", 1, &RangeRow::StartWert, "zehn");
  fails(endMessage("AN", 1), "AN 1 Ende 0");
}

TEST_F(ValidationTest, AValueThatIsNoNumberHidesADefectBehindIt) {
  range({.key = "AN", .start = "zehn"});
  range({.key = "RE", .end = 0});
  passes();
  EXPECT_EQ(boxes(), Boxes{errorBox(13, "basAllgemein", "CheckValidity", "Typen unverträglich")});
}

TEST_F(ValidationTest, ValuesOfRowsThatAreNotTestedNeedNotBeNumbers) {
  range({.start = "zehn", .active = false});
  range({.user = "Max", .start = "zehn"});
  range({.circle = 2, .start = " +1.000,5 ", .current = 1000, .end = "1.001"});
  passes();
}

TEST_F(ValidationTest, WithoutTableItDoesNotPass) {
  table().release();
  EXPECT_FALSE(check().holds);
  EXPECT_EQ(boxes(), Boxes{errorBox(91, "basAllgemein", "CheckValidity",
                                    "Objektvariable nicht festgelegt")});
}

TEST_F(ValidationTest, SortsForDisplayAndChangesNoValue) {
  const RowCells own{.Benutzer = "Max",
                     .Buchungskreis = 1,
                     .Gruppe = "Nord",
                     .NSchl = "RE",
                     .NBezeichnung = "Rechnung",
                     .StartWert = 1,
                     .AktuellerWert = 1,
                     .EndWert = 2,
                     .Aktiviert = true,
                     .SortierIndex = 1,
                     .Maske = ""};
  const RowCells common =
      own.with(&RowCells::Benutzer, alleBenutzer).with(&RowCells::SortierIndex, 5);
  RowCells nine = common.with(&RowCells::Buchungskreis, 9).with(&RowCells::Gruppe, "Neun");
  nine.StartWert = nine.AktuellerWert = 3;
  nine.EndWert = 4;
  RowCells sale = common.with(&RowCells::NSchl, "VK").with(&RowCells::NBezeichnung, "Verkauf");
  sale.SortierIndex = 4;
  sale.Maske = 0;
  row(own);
  row(common.with(&RowCells::Buchungskreis, 10)
          .with(&RowCells::Gruppe, "Zehn")
          .with(&RowCells::EndWert, "2"));
  row(nine);
  row(common.with(&RowCells::NSchl, "re").with(&RowCells::NBezeichnung, "klein"));
  row(sale);
  script().takeStatements();
  passes();
  EXPECT_EQ(rows(), (Texts{"Alle Benutzer|1|Nord|VK|Verkauf|1|1|2|True|4||0",
                           "Alle Benutzer|9|Neun|RE|Rechnung|3|3|4|True|5||",
                           "Alle Benutzer|10|Zehn|RE|Rechnung|1|1|2|True|5||",
                           "Alle Benutzer|1|Nord|re|klein|1|1|2|True|5||",
                           "Max|1|Nord|RE|Rechnung|1|1|2|True|1||"}));
  EXPECT_EQ(table().at(2).EndWert.toValue(), Value("2")) << "a text stays a text";
  EXPECT_FALSE(session().blnChanged());
  EXPECT_EQ(script().takeStatements(), Texts{}) << "the database is not asked";
}

TEST_F(ValidationTest, AFailureSortsTooAndChangesNoValue) {
  range({.circle = 2, .end = 0});
  range({.circle = 1, .start = 500, .current = 500, .end = 600});
  fails(endMessage("RE", 2), "RE 2 Ende 0");
  EXPECT_EQ(rows(), (Texts{"Alle Benutzer|1|Filiale 1|RE|Belegart RE|500|500|600|True|1||",
                           "Alle Benutzer|2|Filiale 2|RE|Belegart RE|1|1|0|True|1||"}));
  EXPECT_FALSE(session().blnChanged());
}

}  // namespace
}  // namespace vexnumkr
