#include "rules/entry_check.h"

#include "support/core_session.h"

namespace vexnumkr {
namespace {

class EntryCheckTest : public test::CoreSession {
 protected:
  void SetUp() override { start(1, {"Max"}); }

  void range(const std::string& key, std::int32_t circle, const Value& start, const Value& end,
             bool active = true, const std::string& sharedWith = "") {
    row({.Benutzer = alleBenutzer,
         .Buchungskreis = circle,
         .Gruppe = "Kreis " + std::to_string(circle),
         .NSchl = key,
         .NBezeichnung = "Belegart " + key,
         .StartWert = start,
         .AktuellerWert = start,
         .EndWert = end,
         .Aktiviert = active,
         .SortierIndex = 1,
         .IstNSchlVon = sharedWith,
         .Maske = ""});
  }
  /// What speaks against the entry in the first range; empty for nothing.
  std::string against(ValueColumn column, const std::string& text) {
    const auto defect = entryDefect(table(), table().at(0), column, text);
    return defect ? defect->text : "";
  }
};

TEST_F(EntryCheckTest, NumbersThatKeepTheRulesAreFine) {
  range("RE", 1, 100, 199);
  range("RE", 2, 200, 299);
  EXPECT_EQ(against(&RangeRow::EndWert, "150"), "");
  EXPECT_EQ(against(&RangeRow::AktuellerWert, "+110"), "");
  EXPECT_EQ(against(&RangeRow::StartWert, "150"), "") << "it takes the current value along";
}

TEST_F(EntryCheckTest, WhatIsNoNumberOfACellIsSaid) {
  range("RE", 1, 100, 199);
  for (const char* text : {"", "abc", "12.5", "-"})
    EXPECT_EQ(against(&RangeRow::EndWert, text), "Das ist keine Zahl.") << text;
  EXPECT_EQ(against(&RangeRow::EndWert, "2147483648"),
            "Die Zahl liegt nicht zwischen -2147483648 und 2147483647.");
}

TEST_F(EntryCheckTest, TheRangesOwnRulesAreSaid) {
  range("RE", 1, 100, 199);
  EXPECT_EQ(against(&RangeRow::EndWert, "100"), "Der Endwert muss größer sein als der Startwert.");
  EXPECT_EQ(against(&RangeRow::AktuellerWert, "200"),
            "Der aktuelle Wert muss zwischen dem Start- und Endwert liegen.");
  EXPECT_EQ(against(&RangeRow::StartWert, "199"),
            "Der Endwert muss größer sein als der Startwert.");
}

TEST_F(EntryCheckTest, AnOverlapNamesThePartner) {
  range("RE", 1, 100, 199);
  range("RE", 2, 200, 299);
  range("PR", 1, 300, 399, true, "RE");
  EXPECT_EQ(against(&RangeRow::EndWert, "200"),
            "Überschneidet sich mit Belegart RE, Kreis 2 (200 bis 299).");
  const auto defect = entryDefect(table(), table().at(0), &RangeRow::EndWert, "250");
  ASSERT_TRUE(defect && defect->partner);
  EXPECT_EQ(defect->partner->Buchungskreis, 2);
  EXPECT_EQ(entryDefect(table(), table().at(1), &RangeRow::EndWert, "300")->text,
            "Überschneidet sich mit Belegart PR, Kreis 1 (300 bis 399).");
}

TEST_F(EntryCheckTest, OtherSequencesAndInactiveOrBrokenRangesAreNoPartners) {
  range("RE", 1, 100, 199);
  range("AN", 2, 200, 299);
  range("RE", 2, 200, 299, false);
  range("RE", 3, 299, 200);
  EXPECT_EQ(against(&RangeRow::EndWert, "250"), "");
}

TEST_F(EntryCheckTest, OfAnInactiveRangeOnlyTheNumberCounts) {
  range("RE", 1, 100, 199, false);
  EXPECT_EQ(against(&RangeRow::EndWert, "1"), "");
  EXPECT_EQ(against(&RangeRow::EndWert, "x"), "Das ist keine Zahl.");
}

TEST_F(EntryCheckTest, ARangeWithoutAnEndIsJustBeingGivenItsNumbers) {
  range("RE", 1, 0, 0);
  EXPECT_EQ(against(&RangeRow::StartWert, "500"), "");
  EXPECT_EQ(against(&RangeRow::AktuellerWert, "500"), "");
  EXPECT_EQ(against(&RangeRow::EndWert, "0"), "Der Endwert muss größer sein als der Startwert.");
}

TEST(MaskPreviewTest, SaysWhatTheMaskGivesToday) {
  EXPECT_EQ(maskPreview("JJNNNN", "20261121").text, "→ 260000 bis 269999");
  EXPECT_FALSE(maskPreview("JJNNNN", "20261121").fails);
  EXPECT_EQ(maskPreview("  ", "20261121").text, "");
}

TEST(MaskPreviewTest, SaysWhatKeepsItFromThat) {
  EXPECT_EQ(maskPreview("RE-", "20261121").text, "Die Maske ergibt keine Zahl.");
  EXPECT_EQ(maskPreview("NNNNNNNNNN", "20261121").text, "Die Maske ergibt eine zu große Zahl.");
  EXPECT_EQ(maskPreview("0", "20261121").text,
            "→ 0 bis 0\nOhne freie Stelle (N) ist der Endwert nicht größer als der Startwert.");
  for (const char* mask : {"RE-", "NNNNNNNNNN", "0"})
    EXPECT_TRUE(maskPreview(mask, "20261121").fails) << mask;
}

}  // namespace
}  // namespace vexnumkr
