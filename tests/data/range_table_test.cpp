#include "data/range_table.h"

#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;
using Texts = std::vector<std::string>;

class RangeTableTest : public test::CoreSession {
 protected:
  void ranges(std::initializer_list<test::RowCells> list) {
    for (const auto& cells : list) row(cells);
  }

  RangeRow invoices(const char* user) {
    return test::rowOf(table(), {.Benutzer = user,
                                 .Buchungskreis = 5,
                                 .Gruppe = "Nord",
                                 .NSchl = "RE",
                                 .NBezeichnung = "Rechnung",
                                 .StartWert = "1",
                                 .AktuellerWert = "2",
                                 .EndWert = "3",
                                 .Aktiviert = false,
                                 .SortierIndex = 50,
                                 .IstNSchlVon = "AN"});
  }
};

TEST_F(RangeTableTest, NothingIsFoundInAnEmptyTable) {
  start(1, {"Max"});
  EXPECT_EQ(FoundInXArray("Max", 5, "RE"), -1);
  EXPECT_FALSE(DeleteInXArray(5, "RE", true));
}

TEST_F(RangeTableTest, ARowWithoutKeyIsFoundBeforeTheOneWithTheKey) {
  start(1, {"Max"});
  ranges({{.Benutzer = "Max", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = ""},
          {.Benutzer = "Max", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"}});
  EXPECT_EQ(FoundInXArray("Max", 5, "RE"), 0);
}

TEST_F(RangeTableTest, FindingWithoutATableIsReportedAndFindsNothing) {
  EXPECT_EQ(FoundInXArray("Max", 5, "RE"), -1);
  EXPECT_EQ(boxes(), (std::vector{errorBox(91, "basAllgemein", "FoundInXArray",
                                           "Objektvariable nicht festgelegt")}));
}

TEST_F(RangeTableTest, AddsARowForEveryUserWhoLacksOne) {
  start(1, {"Anna", "Max"});
  ranges({{.Benutzer = "Anna", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"}});
  AddInXArray(invoices("Alle Benutzer"), false);
  EXPECT_EQ(rows(),
            (Texts{"Anna|5|Nord|RE|||||False|0||", "Max|5|Nord|RE|Rechnung|1|2|3|False|50|AN|"}));
  EXPECT_EQ(table().at(1).StartWert.toValue(), Value("1"))
      << "the values are stored as the texts handed over";
  EXPECT_EQ(table().at(1).Maske.toValue(), Value());
  EXPECT_FALSE(session().blnChanged());
}

TEST_F(RangeTableTest, AddsTheCommonRowOnlyForAll) {
  start(1, {"Max"});
  AddInXArray(invoices("Max"), true);
  EXPECT_EQ(activity(), (Texts{"Alle Benutzer 5 RE False", "Max 5 RE False"}));
}

TEST_F(RangeTableTest, AddsNothingForASingleUser) {
  start(1, {"Max"});
  AddInXArray(invoices("Max"), false);
  EXPECT_EQ(rows(), Texts{});
}

TEST_F(RangeTableTest, DeletesOneRowPerUserAndSaysSo) {
  start(1, {"Anna", "Max"});
  ranges({{.Benutzer = "Alle Benutzer", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"},
          {.Benutzer = "Max", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"},
          {.Benutzer = "Max", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"},
          {.Benutzer = "Max", .Buchungskreis = 6, .Gruppe = "Süd", .NSchl = "RE"}});
  EXPECT_TRUE(DeleteInXArray(5, "RE", false));
  EXPECT_EQ(rows(), (Texts{"Alle Benutzer|5|Nord|RE|||||False|0||", "Max|5|Nord|RE|||||False|0||",
                           "Max|6|Süd|RE|||||False|0||"}));
  DeleteInXArray(5, "RE", true);
  EXPECT_EQ(rows(), Texts{"Max|6|Süd|RE|||||False|0||"});
}

TEST_F(RangeTableTest, DeletingWhatIsNotThereChangesNothing) {
  start(1, {"Max"});
  ranges({{.Benutzer = "Max", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"}});
  EXPECT_FALSE(DeleteInXArray(5, "AN", true));
  EXPECT_EQ(rows().size(), 1U);
}

TEST_F(RangeTableTest, NewKeysComeLast) {
  EXPECT_EQ(basAllgemein::GetNewIndex(), 99999999);
  EXPECT_EQ(basAllgemein::GetNewIndex(), 99999999);
}

TEST_F(RangeTableTest, AValueReachesEveryUsersRow) {
  start(1, {"Anna", "Max"});
  ranges({{.Benutzer = "Max", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"},
          {.Benutzer = "Alle Benutzer", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"},
          {.Benutzer = "Max", .Buchungskreis = 6, .Gruppe = "Süd", .NSchl = "RE"}});
  SetValueAll("RE", 5, &RangeRow::EndWert, "99");
  EXPECT_EQ(rows(),
            (Texts{"Max|5|Nord|RE||||99|False|0||", "Alle Benutzer|5|Nord|RE||||99|False|0||",
                   "Max|6|Süd|RE|||||False|0||"}));
}

TEST_F(RangeTableTest, AValueOfOneUserIsFoundByCaptionAndKey) {
  start(1, {"Max"});
  ranges({{.Benutzer = "Max", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"},
          {.Benutzer = "Max", .Buchungskreis = 6, .Gruppe = "Süd", .NSchl = "RE"}});
  SetValue("RE", "Süd", "Max", true);
  SetValue("RE", "West", "Max", true);
  EXPECT_EQ(activity(), (Texts{"Max 5 RE False", "Max 6 RE True"}));
}

class RefreshInXArrayTest : public RangeTableTest {
 protected:
  void SetUp() override {
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
    start(1, {"Max"});
    const test::RowCells standard = test::standardInvoice();
    test::RowCells offers = standard;
    offers.NSchl = "AN";
    offers.NBezeichnung = "Angebot";
    offers.SortierIndex = 10;
    test::RowCells north = standard;
    north.Buchungskreis = 1;
    north.Gruppe = "Nord";
    north.StartWert = 10;
    north.AktuellerWert = 11;
    north.EndWert = 19;
    north.Maske = "1N";
    ranges({standard, offers, north, north.with(&test::RowCells::Benutzer, "Max")});
  }

  void refresh() {
    RefreshCombo();
    RefreshInXArray();
  }
};

TEST_F(RefreshInXArrayTest, AnUnchangedListChangesNothing) {
  const Texts before = rows();
  refresh();
  EXPECT_EQ(rows(), before);
  EXPECT_FALSE(session().blnChanged());
}

TEST_F(RefreshInXArrayTest, ANewCircleGetsTheCommonStandardRangesInDisplayOrder) {
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'Süd', 'ORB')");
  refresh();
  const Texts all = rows();
  ASSERT_EQ(all.size(), 6U);
  EXPECT_EQ(all[4], "Alle Benutzer|2|Süd|AN|Angebot|0|0|0|False|10||");
  EXPECT_EQ(all[5], "Alle Benutzer|2|Süd|RE|Rechnung|0|0|0|False|50||");
  EXPECT_EQ(table().at(5).Maske.toValue(), Value("")) << "the mask is an empty text";
  EXPECT_FALSE(session().blnChanged());
}

TEST_F(RefreshInXArrayTest, ANewCircleThatTheOtherOriginHasTooTakesItsStoredValues) {
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'Süd', 'ORB')");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'South', 'ORC')");
  sql("INSERT INTO Nummernkreise VALUES (2, 'RE', 'Rechnung', 200, 201, 299, -1, 50, '', 'NN')");
  refresh();
  const Texts all = rows();
  ASSERT_EQ(all.size(), 6U);
  EXPECT_EQ(all[4], "Alle Benutzer|2|Süd|AN|Angebot|0|0|0|False|10||");
  EXPECT_EQ(all[5], "Alle Benutzer|2|Süd|RE|Rechnung|200|201|299|False|50||");
}

TEST_F(RefreshInXArrayTest, TwoOtherOriginsAreOneTooMany) {
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'Süd', 'ORB')");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'South', 'ORC')");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (2, 'Sud', 'ORD')");
  sql("INSERT INTO Nummernkreise VALUES (2, 'RE', 'Rechnung', 200, 201, 299, -1, 50, '', 'NN')");
  refresh();
  EXPECT_EQ(rows().back(), "Alle Benutzer|2|Süd|RE|Rechnung|0|0|0|False|50||");
}

TEST_F(RefreshInXArrayTest, ARenamedCircleIsRenamedInAllItsRows) {
  sql("UPDATE Nummernkreis_Buchungskreise SET Beschreibung='Nordost' WHERE Buchungskreis=1");
  refresh();
  EXPECT_EQ(rows()[2], "Alle Benutzer|1|Nordost|RE|Rechnung|10|11|19|True|50||1N");
  EXPECT_EQ(rows()[3], "Max|1|Nordost|RE|Rechnung|10|11|19|True|50||1N");
  EXPECT_FALSE(session().blnChanged());
}

TEST_F(RefreshInXArrayTest, ACircleThatIsGoneLosesItsRowsOfEveryUser) {
  sql("DELETE FROM Nummernkreis_Buchungskreise");
  refresh();
  EXPECT_EQ(activity(), (Texts{"Alle Benutzer 0 RE True", "Alle Benutzer 0 AN True"}));
  EXPECT_TRUE(session().blnChanged());
}

TEST_F(RefreshInXArrayTest, RowsOfUsersAloneStayWhenTheirCircleIsGone) {
  row({.Benutzer = "Max", .Buchungskreis = 7, .Gruppe = "Weg", .NSchl = "RE"});
  refresh();
  EXPECT_EQ(activity().back(), "Max 7 RE False");
}

}  // namespace
}  // namespace vexnumkr
