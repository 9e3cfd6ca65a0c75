#include "data/table/xarray.h"

#include <gtest/gtest.h>

#include <vexnumkr/error.h>

#include "support/error_of.h"
#include "support/row_of.h"

namespace vexnumkr {
namespace {

using test::errorOf;
using test::RowCells;
using test::rowOf;
using Texts = std::vector<std::string>;

XArray tableOf(const std::vector<RowCells>& rows) {
  XArray table = XArray::created();
  for (const auto& cells : rows) table.append(rowOf(table, cells));
  return table;
}

// User, circle and key of each row.
Texts keys(const XArray& table) {
  Texts texts;
  for (const RangeRow& row : table)
    texts.push_back(row.Benutzer.str() + " " + std::to_string(row.Buchungskreis) + " " +
                    row.NSchl.str());
  return texts;
}

TEST(XArrayTest, IsCreatedWithoutRows) {
  const XArray table = XArray::created();
  EXPECT_EQ(table.size(), 0);
  EXPECT_TRUE(table.empty());
  EXPECT_EQ(table.begin(), table.end());
  EXPECT_EQ(table.findRange("Max", 1, "RE"), -1);
}

TEST(XArrayTest, WhatWasNotCreatedIsError91) {
  XArray table;
  EXPECT_FALSE(table.exists());
  EXPECT_EQ(errorOf([&] { table.size(); }), 91);
  EXPECT_EQ(errorOf([&] { table.begin(); }), 91);
  EXPECT_EQ(errorOf([&] { table.append({}); }), 91);
  EXPECT_EQ(errorOf([&] { table.findRange("Max", 1, "RE"); }), 91);
  EXPECT_EQ(errorOf([&] { table.sort(RowOrder::tree); }), 91);
  table.create();
  table.append({});
  EXPECT_EQ(table.size(), 1);
  table.release();
  EXPECT_EQ(errorOf([&] { table.at(0); }), 91);
}

TEST(XArrayTest, RowsThatDoNotExistAreError9) {
  XArray table =
      tableOf({{.Benutzer = "Max", .Buchungskreis = 1, .Gruppe = "Nord", .NSchl = "RE"}});
  EXPECT_EQ(errorOf([&] { table.at(-1); }), 9);
  EXPECT_EQ(errorOf([&] { table.at(1); }), 9);
  EXPECT_EQ(errorOf([&] { table.remove(1); }), 9);
  EXPECT_EQ(errorOf([&] { table.setAktiviert(-1, true); }), 9);
  EXPECT_EQ(errorOf([&] { table.setValue(1, &RangeRow::Maske, "N"); }), 9);
  EXPECT_EQ(keys(table), Texts{"Max 1 RE"});
}

TEST(XArrayTest, ValuesStayAsTheyWereTyped) {
  XArray table =
      tableOf({{.Benutzer = "Max", .Buchungskreis = 1, .Gruppe = "Nord", .NSchl = "RE"}});
  EXPECT_EQ(table.at(0).StartWert.toValue(), Value()) << "nothing yet";
  EXPECT_EQ(table.at(0).StartWert.toLong(), 0);
  for (const Value& value : {Value(-5), Value("1.000"), Value(""), Value(0), Value()}) {
    table.setValue(0, &RangeRow::StartWert, value);
    EXPECT_EQ(table.at(0).StartWert.toValue(), value);
  }
  table.setValue(0, &RangeRow::StartWert, "1.000");
  EXPECT_EQ(table.at(0).StartWert.toLong(), 1000);
  table.setValue(0, &RangeRow::StartWert, "zehn");
  EXPECT_EQ(errorOf([&] { table.at(0).StartWert.toLong(); }), 13);
  table.setValue(0, &RangeRow::StartWert, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(table.at(0).StartWert.toLong(), std::numeric_limits<std::int32_t>::min());
}

TEST(XArrayTest, ARowShowsItsColumnsInOrder) {
  const XArray table = tableOf({{.Benutzer = "Max",
                                 .Buchungskreis = 1,
                                 .Gruppe = "Nord",
                                 .NSchl = "RE",
                                 .NBezeichnung = "Rechnung",
                                 .StartWert = 10,
                                 .AktuellerWert = "11",
                                 .EndWert = 99,
                                 .Aktiviert = true,
                                 .SortierIndex = 50,
                                 .IstNSchlVon = "AN",
                                 .Maske = ""},
                                {.Benutzer = "Eva"}});
  const auto full = table.at(0).columns();
  const std::array<Value, 12> expected{"Max", 1,  "Nord", "RE", "Rechnung", 10,
                                       "11",  99, true,   50,   "AN",       ""};
  EXPECT_EQ(full, expected);
  EXPECT_EQ(table.at(1).columns()[11], Value()) << "a mask that was never set";
}

TEST(XArrayTest, LaterRowsMoveUpWhenOneGoes) {
  XArray table = tableOf({{.Benutzer = "A", .Buchungskreis = 1},
                          {.Benutzer = "B", .Buchungskreis = 2},
                          {.Benutzer = "C", .Buchungskreis = 3},
                          {.Benutzer = "D", .Buchungskreis = 4}});
  table.remove(1);
  EXPECT_EQ(keys(table), (Texts{"A 1 ", "C 3 ", "D 4 "}));
  EXPECT_EQ(table.at(1).Benutzer, "C");
  table.remove(2);
  table.append(rowOf(table, {.Benutzer = "E", .Buchungskreis = 5}));
  EXPECT_EQ(keys(table), (Texts{"A 1 ", "C 3 ", "E 5 "}));
  for (int i = 0; i < 3; ++i) table.remove(0);
  EXPECT_TRUE(table.empty());
}

TEST(XArrayTest, ARowCanBeReadWhileOthersAreAppended) {
  XArray table = tableOf({{.Benutzer = "A", .Buchungskreis = 1}});
  const RangeRow& first = table.at(0);
  for (int i = 0; i < 1000; ++i) table.append(first);
  EXPECT_EQ(first.Benutzer, "A");
  EXPECT_EQ(table.size(), 1001);
}

TEST(XArrayTest, ARowWithoutKeyStandsForAllKeys) {
  const XArray table = tableOf({{.Benutzer = "Max", .Buchungskreis = 6, .NSchl = "RE"},
                                {.Benutzer = "Max", .Buchungskreis = 5, .NSchl = ""},
                                {.Benutzer = "Max", .Buchungskreis = 5, .NSchl = "RE"}});
  EXPECT_EQ(table.findRange("Max", 5, "RE"), 1);
  EXPECT_EQ(table.findRange("Max", 5, "never heard of"), 1);
  EXPECT_EQ(table.findRange("Max", 6, "RE"), 0);
  EXPECT_EQ(table.findRange("Max", 6, "re"), -1) << "texts are compared exactly";
  EXPECT_EQ(table.findRange("max", 6, "RE"), -1);
  EXPECT_EQ(table.rangeRows("Max", 5, "RE"), std::vector<std::int32_t>{2});
}

TEST(XArrayTest, TheFirstOfSeveralIsFoundWhateverWasRemovedBefore) {
  XArray table = tableOf({{.Benutzer = "Max", .Buchungskreis = 5, .NSchl = "RE"},
                          {.Benutzer = "Max", .Buchungskreis = 5, .NSchl = "RE"},
                          {.Benutzer = "Max", .Buchungskreis = 5, .NSchl = "RE"}});
  EXPECT_EQ(table.rangeRows("Max", 5, "RE"), (std::vector<std::int32_t>{0, 1, 2}));
  table.remove(0);
  EXPECT_EQ(table.findRange("Max", 5, "RE"), 0);
  EXPECT_EQ(table.rangeRows("Max", 5, "RE"), (std::vector<std::int32_t>{0, 1}));
  table.remove(0);
  table.remove(0);
  EXPECT_EQ(table.findRange("Max", 5, "RE"), -1);
}

TEST(XArrayTest, SearchesGoOnFromARow) {
  const XArray table = tableOf({{.Benutzer = "A", .Buchungskreis = 1, .NSchl = "RE"},
                                {.Benutzer = "B", .Buchungskreis = 2, .NSchl = "AN"},
                                {.Benutzer = "C", .Buchungskreis = 1, .NSchl = "RE"}});
  EXPECT_EQ(table.findCircle(1), 0);
  EXPECT_EQ(table.findCircle(1, 1), 2);
  EXPECT_EQ(table.findCircle(1, 3), -1) << "behind the last row there is nothing";
  EXPECT_EQ(table.findNumberKey("RE", 1), 2);
  EXPECT_EQ(table.findNumberKey("XX"), -1);
}

TEST(XArrayTest, ARowIsFoundByItsCaption) {
  const XArray table =
      tableOf({{.Benutzer = "Max", .Buchungskreis = 5, .Gruppe = "Nord", .NSchl = "RE"},
               {.Benutzer = "Max", .Buchungskreis = 6, .Gruppe = "Süd", .NSchl = "RE"}});
  EXPECT_EQ(table.findCaption("Max", "Süd", "RE"), 1);
  EXPECT_EQ(table.findCaption("Max", "West", "RE"), -1);
}

TEST(XArrayTest, SortsByItsOrders) {
  XArray table =
      tableOf({{.Benutzer = "Max", .Buchungskreis = 10, .NSchl = "RE", .SortierIndex = 1},
               {.Benutzer = "Max", .Buchungskreis = 9, .NSchl = "RE", .SortierIndex = 2},
               {.Benutzer = "Anna", .Buchungskreis = 9, .NSchl = "re", .SortierIndex = -3},
               {.Benutzer = "Max", .Buchungskreis = -1, .NSchl = "AN", .SortierIndex = 2}});
  table.sort(RowOrder::display);
  EXPECT_EQ(keys(table), (Texts{"Anna 9 re", "Max 10 RE", "Max -1 AN", "Max 9 RE"}));
  table.sort(RowOrder::tree);
  EXPECT_EQ(keys(table), (Texts{"Anna 9 re", "Max -1 AN", "Max 9 RE", "Max 10 RE"}));
  table.sort(RowOrder::circleAndKey);
  EXPECT_EQ(keys(table), (Texts{"Max -1 AN", "Max 9 RE", "Anna 9 re", "Max 10 RE"}));
  EXPECT_EQ(table.findUser("Max"), 0);
  table.sort(RowOrder::tree);
  EXPECT_EQ(table.findUser("Max"), 1);
  EXPECT_EQ(table.findUser("Eva"), -1);
}

TEST(XArrayTest, EqualRowsKeepTheirOrder) {
  XArray table = XArray::created();
  for (const char* caption : {"c", "a", "b"})
    table.append(
        rowOf(table, {.Benutzer = "Max", .Buchungskreis = 1, .Gruppe = caption, .NSchl = "RE"}));
  table.sort(RowOrder::display);
  std::string captions;
  for (const RangeRow& row : table) captions += row.Gruppe.str();
  EXPECT_EQ(captions, "cab");
}

TEST(XArrayTest, KeysTooWideToBeJoinedAreSortedAllTheSame) {
  constexpr std::int32_t low = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t high = std::numeric_limits<std::int32_t>::max();
  XArray table =
      tableOf({{.Benutzer = "B", .Buchungskreis = high, .NSchl = "RE", .SortierIndex = high},
               {.Benutzer = "A", .Buchungskreis = low, .NSchl = "RE", .SortierIndex = high},
               {.Benutzer = "A", .Buchungskreis = high, .NSchl = "RE", .SortierIndex = low},
               {.Benutzer = "A", .Buchungskreis = low, .NSchl = "AN", .SortierIndex = low}});
  table.sort(RowOrder::display);
  EXPECT_EQ(keys(table),
            (Texts{"A -2147483648 AN", "A 2147483647 RE", "A -2147483648 RE", "B 2147483647 RE"}));
}

TEST(XArrayTest, ASnapshotStaysAsItWas) {
  XArray table = tableOf({{.Benutzer = "Max", .Buchungskreis = 1, .Gruppe = "Nord", .NSchl = "RE"},
                          {.Benutzer = "Max", .Buchungskreis = 2, .Gruppe = "Süd", .NSchl = "RE"}});
  table.remove(0);
  XArray snapshot;
  snapshot.copyFrom(table);
  table.setGruppe(0, "West");
  table.append(rowOf(table, {.Benutzer = "Eva", .Buchungskreis = 3, .NSchl = "AN"}));
  EXPECT_EQ(keys(snapshot), Texts{"Max 2 RE"});
  EXPECT_EQ(snapshot.at(0).Gruppe, "Süd");
  table.release();
  EXPECT_EQ(snapshot.at(0).Benutzer, "Max") << "its texts are its own too";
}

}  // namespace
}  // namespace vexnumkr
