#include "rules/mask_numbering.h"

#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::Box;
using test::errorBox;
using Texts = std::vector<std::string>;
using Pointers = std::vector<MousePointer>;

constexpr const char* march2024 = "20240315";

struct Example {
  const char* mask;
  const char* low;
  const char* high;
};

void expectTexts(const Example& example, const char* date) {
  const MaskTexts texts = readMask(example.mask, date);
  EXPECT_EQ(texts.low, example.low) << example.mask;
  EXPECT_EQ(texts.high, example.high) << example.mask;
}

TEST(MaskTest, WorkedExamples) {
  for (const Example& example :
       {Example{"J%%JNNNN", "240000", "249999"}, Example{"JJNNNN", "240000", "249999"},
        Example{"JJJJMMNNN", "202403000", "202403999"}, Example{"MMNNN", "03000", "03999"},
        Example{"1NNN", "1000", "1999"}, Example{"RE-JJ-NNN", "24000", "24999"},
        Example{"JJJJJ", "42024", "42024"}})
    expectTexts(example, march2024);
}

TEST(MaskTest, YearPositionsStartAgainAfterTheFirstDigit) {
  for (const Example& example :
       {Example{"J", "6", "6"}, Example{"JJ", "56", "56"}, Example{"JJJ", "456", "456"},
        Example{"JJJJ", "3456", "3456"}, Example{"JJJJJ", "63456", "63456"},
        Example{"JJJJJJJJJ", "634563456", "634563456"}, Example{"J%", "5", "5"},
        Example{"%J", "6", "6"}, Example{"J%%", "4", "4"}, Example{"J%%%", "3", "3"},
        Example{"J%%%%", "6", "6"}, Example{"J%%%%%", "5", "5"}, Example{"J%J%J", "646", "646"},
        Example{"J%J%J%J", "4646", "4646"}})
    expectTexts(example, "34567812");
}

TEST(MaskTest, MonthPositionsStartAgainAfterTheFirstDigit) {
  for (const Example& example : {Example{"M", "8", "8"}, Example{"MM", "78", "78"},
                                 Example{"MMM", "878", "878"}, Example{"MMMMM", "87878", "87878"},
                                 Example{"M%M", "78", "78"}, Example{"MJMJ", "7586", "7586"}})
    expectTexts(example, "34567812");
}

TEST(MaskTest, DigitsStandForThemselves) {
  expectTexts({"0123456789", "0123456789", "0123456789"}, march2024);
  expectTexts({"9N8N", "9080", "9989"}, march2024);
}

TEST(MaskTest, LettersCountInBothCases) { expectTexts({"jMnJmN", "200430", "209439"}, march2024); }

TEST(MaskTest, EverythingElseIsIgnored) {
  for (const char* ignored :
       {"", "abcdefghiklopqrstuvwxyz", "ABCDEFGHIKLOPQRSTUVWXYZ", "-+*/.,;: \t\r\n_#!\"'&()",
        "äöüÄÖÜß", "Ｊ％Ｎ１２", "М", "١٢٣", "𝟙", "é"})
    expectTexts({ignored, "", ""}, march2024);
  expectTexts({"é5ü", "5", "5"}, march2024);
}

TEST(MaskTest, ADateIsTakenCharacterByCharacter) {
  expectTexts({"JN", "10", "19"}, "31.12.2025");
  expectTexts({"JJN", ".10", ".19"}, "31.12.2025");
  expectTexts({"MM", "2.", "2."}, "31.12.2025");
  expectTexts({"JN", "0", "9"}, "äöü");
  expectTexts({"MMJJ", "5612", "5612"}, "äö1256");
  expectTexts({"JJMMN", "0", "9"}, "");
}

class MaskNumberingTest : public test::CoreSession {
 protected:
  // Values 5, 6, 7 to be overwritten; sorted by `index`.
  void range(std::int32_t index, const Value& mask, bool active = true,
             const std::string& user = alleBenutzer) {
    row({.Benutzer = user,
         .Buchungskreis = 1,
         .Gruppe = "Nord",
         .NSchl = "K" + std::to_string(index),
         .NBezeichnung = "Bezeichnung",
         .StartWert = 5,
         .AktuellerWert = 6,
         .EndWert = 7,
         .Aktiviert = active,
         .SortierIndex = index,
         .Maske = mask});
  }
  bool number(std::int32_t answer = msg_box::yes) {
    script().takeStatements();
    forms().answer(answer);
    const bool finished = StartAutoNum();
    EXPECT_EQ(boxes(), std::vector{question()});
    EXPECT_EQ(script().takeStatements(), Texts{}) << "nothing goes to the database";
    return finished;
  }
  void failToNumber(std::int32_t number, const std::string& description) {
    forms().answer(msg_box::yes);
    EXPECT_FALSE(StartAutoNum());
    EXPECT_EQ(
        boxes(),
        (std::vector{question(), errorBox(number, "basAllgemein", "StartAutoNum", description)}));
  }
  void failAtRow(std::int32_t number, const std::string& description) {
    failToNumber(number, description + "\r\n(Belegart: Bezeichnung, Buchungskreis: Nord)");
  }
  void overflow() { failAtRow(6, "Überlauf"); }
  void mismatch() { failAtRow(13, "Typen unverträglich"); }
  static Box question() {
    return {"Abfrage",
            "Diese Option startet eine automatische Nummernvergabe nach Maske.\r\n"
            "Alle bisherigen Nummern werden hiermit überschrieben!\r\n\r\n"
            "Möchten Sie trotzdem fortfahren?",
            35};
  }
  // Key and values of each row: "K1 5 6 7".
  Texts values() {
    Texts result;
    for (const RangeRow& row : table())
      result.push_back(row.NSchl.str() + " " + row.StartWert.toText() + " " +
                       row.AktuellerWert.toText() + " " + row.EndWert.toText());
    return result;
  }
  Pointers pointers() { return forms().takePointers(); }
};

TEST_F(MaskNumberingTest, WritesTheLowestNumberTwiceAndTheHighestAsEnd) {
  start(1);
  const char* masks[] = {"J%%JNNNN", "JJNNNN", "JJJJMMNNN", "MMNNN", "1NNN", "RE-JJ-NNN", "JJJJJ"};
  for (std::int32_t i = 0; i < 7; ++i) range(i, masks[i]);
  EXPECT_TRUE(number());
  EXPECT_EQ(values(), (Texts{"K0 240000 240000 249999", "K1 240000 240000 249999",
                             "K2 202403000 202403000 202403999", "K3 3000 3000 3999",
                             "K4 1000 1000 1999", "K5 24000 24000 24999", "K6 42024 42024 42024"}));
  EXPECT_EQ(table().at(0).StartWert, Cell(240000)) << "as a number";
  EXPECT_EQ(table().at(0).AktuellerWert, Cell(240000));
  EXPECT_EQ(table().at(0).EndWert, Cell(249999));
  EXPECT_TRUE(session().blnChanged());
}

TEST_F(MaskNumberingTest, NoOtherColumnChanges) {
  start(1);
  row({.Benutzer = "Max",
       .Buchungskreis = 4,
       .Gruppe = "Süd",
       .NSchl = "RE",
       .NBezeichnung = "Rechnung",
       .StartWert = "alt",
       .AktuellerWert = "alt",
       .EndWert = "alt",
       .Aktiviert = false,
       .SortierIndex = 9,
       .IstNSchlVon = "AN",
       .Maske = " 1N "});
  EXPECT_TRUE(number());
  EXPECT_EQ(rows(), Texts{"Max|4|Süd|RE|Rechnung|10|10|19|False|9|AN| 1N "});
}

TEST_F(MaskNumberingTest, WhoeverDeclinesChangesNothing) {
  start(1);
  range(2, "NN");
  range(1, "NN");
  for (const std::int32_t answer : {msg_box::no, msg_box::cancel}) {
    EXPECT_FALSE(number(answer));
    EXPECT_EQ(values(), (Texts{"K2 5 6 7", "K1 5 6 7"})) << "not even the order";
    EXPECT_FALSE(session().blnChanged());
    EXPECT_EQ(pointers(), Pointers{});
  }
}

TEST_F(MaskNumberingTest, WhoeverIsNotAskedHasDeclined) {
  start(3);
  range(1, "NN");
  EXPECT_FALSE(StartAutoNum());
  EXPECT_EQ(values(), Texts{"K1 5 6 7"});
  EXPECT_FALSE(session().blnChanged());
}

TEST_F(MaskNumberingTest, ThePointerShowsTheWork) {
  start(1);
  range(1, "NN");
  EXPECT_TRUE(number());
  EXPECT_EQ(pointers(), (Pointers{MousePointer::Hourglass, MousePointer::Default}));
}

TEST_F(MaskNumberingTest, ThePointerIsResetAfterAFailure) {
  start(1);
  range(1, "-");
  mismatch();
  EXPECT_EQ(pointers(), (Pointers{MousePointer::Hourglass, MousePointer::Default}));
}

TEST_F(MaskNumberingTest, SortsForDisplay) {
  start(1);
  row({.Benutzer = "Max", .Buchungskreis = 1, .NSchl = "AN", .SortierIndex = 1, .Maske = "1"});
  row({.Benutzer = alleBenutzer,
       .Buchungskreis = 10,
       .NSchl = "RE",
       .SortierIndex = 9,
       .Maske = "2"});
  row({.Benutzer = alleBenutzer,
       .Buchungskreis = 9,
       .NSchl = "RE",
       .SortierIndex = 9,
       .Maske = "3"});
  row({.Benutzer = alleBenutzer,
       .Buchungskreis = 9,
       .NSchl = "VK",
       .SortierIndex = 2,
       .Maske = "4"});
  row({.Benutzer = alleBenutzer,
       .Buchungskreis = 0,
       .NSchl = "re",
       .SortierIndex = 9,
       .Maske = "5"});
  EXPECT_TRUE(number());
  EXPECT_EQ(values(), (Texts{"VK 4 4 4", "RE 3 3 3", "RE 2 2 2", "re 5 5 5", "AN 1 1 1"}));
}

TEST_F(MaskNumberingTest, RowsWithoutMaskKeepTheirValues) {
  start(1);
  range(1, "");
  range(2, "   ");
  range(3, Empty{});
  EXPECT_TRUE(number());
  EXPECT_EQ(values(), (Texts{"K1 5 6 7", "K2 5 6 7", "K3 5 6 7"}));
  EXPECT_FALSE(session().blnChanged()) << "nothing was written";
}

TEST_F(MaskNumberingTest, AMaskThatIsTheNumber0GivesZeros) {
  start(1, {"Max"});
  range(1, 0, true, "Max");
  EXPECT_TRUE(number());
  EXPECT_EQ(values(), Texts{"K1 0 0 0"});
}

TEST_F(MaskNumberingTest, InactiveRowsAndEveryUsersRowsAreNumbered) {
  start(1, {"Max"});
  range(1, "NN", false);
  range(2, "1N", false, "Max");
  EXPECT_TRUE(number());
  EXPECT_EQ(values(), (Texts{"K1 0 0 99", "K2 10 10 19"}));
}

TEST_F(MaskNumberingTest, BlanksAroundAreTrimmedAndInsideIgnored) {
  start(1);
  range(1, "  JJ NNN ");
  EXPECT_TRUE(number());
  EXPECT_EQ(values(), Texts{"K1 24000 24000 24999"});
}

TEST_F(MaskNumberingTest, AMaskWithoutFreePlacesIsNotRefused) {
  start(1);
  range(1, "4711");
  EXPECT_TRUE(number());
  EXPECT_EQ(values(), Texts{"K1 4711 4711 4711"});
}

TEST_F(MaskNumberingTest, AnEmptyTableIsNumberedAtOnce) {
  start(1);
  EXPECT_TRUE(number());
  EXPECT_FALSE(session().blnChanged());
}

TEST_F(MaskNumberingTest, AFailingMaskKeepsEveryValue) {
  start(1);
  range(1, "1N");
  range(2, "NNNNNNNNNN");
  range(3, "3N");
  overflow();
  EXPECT_EQ(values(), (Texts{"K1 5 6 7", "K2 5 6 7", "K3 5 6 7"}));
  EXPECT_FALSE(session().blnChanged());
}

TEST_F(MaskNumberingTest, AFailingFirstRowLeavesTheChangedFlag) {
  start(1);
  range(1, "RE");
  range(2, "1N");
  mismatch();
  EXPECT_EQ(values(), (Texts{"K1 5 6 7", "K2 5 6 7"}));
  EXPECT_FALSE(session().blnChanged());
}

TEST_F(MaskNumberingTest, MasksWithoutAnyDigitAreMismatches) {
  for (const char* mask : {"-", "RE", "%", "%%%%", "Ｎ", "\t", "a b"}) {
    start(1);
    range(1, mask);
    mismatch();
    EXPECT_EQ(values(), Texts{"K1 5 6 7"}) << mask;
  }
}

TEST_F(MaskNumberingTest, NumbersEndWith32Bits) {
  start(1);
  range(1, "2147483647");
  range(2, "000000000000002147483647");
  EXPECT_TRUE(number());
  EXPECT_EQ(values(),
            (Texts{"K1 2147483647 2147483647 2147483647", "K2 2147483647 2147483647 2147483647"}));
  for (const char* mask : {"2147483648", "214748364N", "9999999999", "NNNNNNNNNN"}) {
    start(1);
    range(1, mask);
    overflow();
    EXPECT_EQ(values(), Texts{"K1 5 6 7"}) << mask;
  }
}

TEST_F(MaskNumberingTest, AMaskMayBeAsLongAsItLikes) {
  start(1);
  range(1, std::string(1'000'000, 'x') + "1N");
  range(2, std::string(1'000'000, '0') + "7");
  range(3, std::string(1'000'000, 'J'));
  overflow();
  EXPECT_EQ(values(), (Texts{"K1 5 6 7", "K2 5 6 7", "K3 5 6 7"}));
}

TEST_F(MaskNumberingTest, TheDateIsReadWhenItIsNeeded) {
  start(1);
  session().strVerarbeitungsdatum("31.12.2025");
  range(1, "JN");
  EXPECT_TRUE(number());
  EXPECT_EQ(values(), Texts{"K1 10 10 19"});
  table().setValue(0, &RangeRow::Maske, "JJN");
  mismatch();
}

TEST_F(MaskNumberingTest, WithoutTableItIsReported) {
  session().LngApplication(2);
  failToNumber(91, "Objektvariable nicht festgelegt");
}

}  // namespace
}  // namespace vexnumkr
