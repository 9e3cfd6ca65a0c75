#include "data/table/xarray.h"

#include <gtest/gtest.h>

#include <array>

#include <vexnumkr/error.h>

#include "support/error_of.h"

namespace vexnumkr {
namespace {

using test::errorOf;

XArray tableOf(const std::vector<std::vector<Value>>& rows, std::int32_t lastColumn) {
  XArray table = XArray::withColumns(lastColumn);
  for (const auto& cells : rows) {
    table.AppendRows();
    for (std::size_t c = 0; c < cells.size(); ++c)
      table.set(table.UpperBound(1), static_cast<std::int32_t>(c), cells[c]);
  }
  return table;
}

std::vector<std::string> column(const XArray& table, std::int32_t number) {
  std::vector<std::string> texts;
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    texts.push_back(table.toText(row, number));
  return texts;
}

using Texts = std::vector<std::string>;

TEST(XArrayTest, IsCreatedEmptyWithItsColumns) {
  const XArray table = XArray::withColumns(11);
  EXPECT_EQ(table.LowerBound(1), 0);
  EXPECT_EQ(table.UpperBound(1), -1);
  EXPECT_EQ(table.LowerBound(2), 0);
  EXPECT_EQ(table.UpperBound(2), 11);
  EXPECT_EQ(errorOf([&] { table.UpperBound(3); }), 9);
}

TEST(XArrayTest, ReDimSetsTheBoundsOfBothDimensions) {
  XArray table;
  table.ReDim(1, 3, 2, 4);
  EXPECT_EQ(table.LowerBound(1), 1);
  EXPECT_EQ(table.UpperBound(1), 3);
  EXPECT_EQ(table.LowerBound(2), 2);
  EXPECT_EQ(table.UpperBound(2), 4);
  table.set(3, 4, "x");
  EXPECT_EQ(table.get(3, 4), Value("x"));
  EXPECT_EQ(table.Find(1, 4, "x"), 3);
}

TEST(XArrayTest, CellsKeepWhatTheyAreGiven) {
  XArray table = XArray::withColumns(3);
  table.AppendRows();
  EXPECT_EQ(table.get(0, 0), Value());
  for (const Value& value :
       {Value(-5), Value(true), Value("Text"), Value(""), Value(Null{}), Value()}) {
    table.set(0, 2, value);
    EXPECT_EQ(table.get(0, 2), value);
  }
}

TEST(XArrayTest, RowsAndColumnsThatDoNotExistAreError9) {
  XArray table = tableOf({{"a"}}, 1);
  EXPECT_EQ(errorOf([&] { table.get(-1, 0); }), 9);
  EXPECT_EQ(errorOf([&] { table.get(1, 0); }), 9);
  EXPECT_EQ(errorOf([&] { table.get(0, 2); }), 9);
  EXPECT_EQ(errorOf([&] { table.set(-1, 0, true); }), 9);
  EXPECT_EQ(errorOf([&] { table.DeleteRows(1); }), 9);
  EXPECT_EQ(errorOf([&] { table.DeleteRows(0, 2); }), 9);
  EXPECT_EQ(errorOf([&] { table.Find(-1, 0, "a"); }), 9);
  EXPECT_EQ(column(table, 0), Texts{"a"});
}

TEST(XArrayTest, ARowReadsItsCells) {
  XArray table;
  table.ReDim(1, 2, 2, 5);
  table.set(2, 2, "Anna");
  table.set(2, 3, 7);
  table.set(2, 4, Null{});
  const TableRow row = table.at(2);
  EXPECT_EQ(row.get(2), Value("Anna"));
  EXPECT_EQ(row.toLong(3), 7);
  EXPECT_TRUE(row.isNull(4));
  EXPECT_EQ(row.toTextId(2), table.textId("Anna"));
  EXPECT_TRUE(row.equals(2, *table.textId("Anna")));
  EXPECT_FALSE(row.equals(3, row.toTextId(3))) << "a number is no text";
  EXPECT_TRUE(row.equals(5, emptyTextId)) << "a cell that was never set";
  EXPECT_EQ(table.textId("Berta"), std::nullopt);
}

TEST(XArrayTest, ARowHasTheBoundsOfItsTable) {
  XArray table;
  table.ReDim(1, 2, 2, 5);
  EXPECT_EQ(errorOf([&] { table.at(0); }), 9);
  EXPECT_EQ(errorOf([&] { table.at(3); }), 9);
  EXPECT_EQ(errorOf([&] { table.at(1).get(1); }), 9);
  EXPECT_EQ(errorOf([&] { table.at(1).get(6); }), 9);
}

TEST(XArrayTest, LaterRowsMoveUpWhenRowsAreRemoved) {
  XArray table = tableOf({{"a"}, {"b"}, {"c"}, {"d"}}, 0);
  table.DeleteRows(1, 2);
  EXPECT_EQ(column(table, 0), (Texts{"a", "d"}));
  table.AppendRows();
  table.set(2, 0, "e");
  EXPECT_EQ(column(table, 0), (Texts{"a", "d", "e"}));
  table.DeleteRows(0, 3);
  EXPECT_EQ(table.UpperBound(1), -1);
}

TEST(XArrayTest, FindsTheFirstEqualCellFromARowOn) {
  const XArray table = tableOf({{"a", 1}, {"b", 2}, {"a", 2}, {Value(), Null{}}}, 1);
  EXPECT_EQ(table.Find(0, 0, "a"), 0);
  EXPECT_EQ(table.Find(1, 0, "a"), 2);
  EXPECT_EQ(table.Find(3, 0, "a"), -1);
  EXPECT_EQ(table.Find(4, 0, "a"), -1);
  EXPECT_EQ(table.Find(0, 1, 2), 1);
  EXPECT_EQ(table.Find(0, 1, "2"), -1) << "a text is no number";
  EXPECT_EQ(table.Find(0, 0, "A"), -1) << "case counts";
  EXPECT_EQ(table.Find(0, 0, "never seen"), -1);
}

TEST(XArrayTest, SortsTextsByCodePointAndNumbersByValue) {
  XArray table = tableOf({{"b", 10}, {"B", 9}, {"ä", -1}, {"a", 10}, {"b", 9}}, 1);
  const std::array byText{SortKey{0, true, Comparison::Text}, SortKey{1, true, Comparison::Number}};
  table.QuickSort(0, 4, byText);
  EXPECT_EQ(column(table, 0), (Texts{"B", "a", "b", "b", "ä"}));
  EXPECT_EQ(column(table, 1), (Texts{"9", "10", "9", "10", "-1"}));
  const std::array byNumber{SortKey{1, false, Comparison::Number}};
  table.QuickSort(0, 4, byNumber);
  EXPECT_EQ(column(table, 1), (Texts{"10", "10", "9", "9", "-1"}));
  EXPECT_EQ(column(table, 0), (Texts{"a", "b", "B", "b", "ä"})) << "equal keys keep their order";
}

TEST(XArrayTest, SortsPartOfItsRows) {
  XArray table = tableOf({{"d"}, {"c"}, {"b"}, {"a"}}, 0);
  const std::array keys{SortKey{0, true, Comparison::Text}};
  table.QuickSort(1, 2, keys);
  EXPECT_EQ(column(table, 0), (Texts{"d", "b", "c", "a"}));
}

TEST(XArrayTest, SortsAgainAfterAKeyWasWritten) {
  XArray table = tableOf({{"a"}, {"b"}}, 0);
  const std::array keys{SortKey{0, true, Comparison::Text}};
  table.QuickSort(0, 1, keys);
  table.set(0, 0, "c");
  table.QuickSort(0, 1, keys);
  EXPECT_EQ(column(table, 0), (Texts{"b", "c"}));
  table.AppendRows();
  table.set(2, 0, "a");
  table.QuickSort(0, 2, keys);
  EXPECT_EQ(column(table, 0), (Texts{"a", "b", "c"}));
}

TEST(XArrayTest, ASortThatFailsMovesNothing) {
  XArray table = tableOf({{"2"}, {"1"}, {"x"}}, 0);
  const std::array numbers{SortKey{0, true, Comparison::Number}};
  EXPECT_EQ(errorOf([&] { table.QuickSort(0, 2, numbers); }), 13);
  EXPECT_EQ(column(table, 0), (Texts{"2", "1", "x"}));
  table.set(2, 0, Null{});
  EXPECT_EQ(errorOf([&] { table.QuickSort(0, 2, numbers); }), 94);
}

TEST(XArrayTest, SortsNumbersAsTextsWhereTextsAreCompared) {
  XArray table = tableOf({{9}, {"10"}, {true}, {Value()}}, 0);
  const std::array keys{SortKey{0, true, Comparison::Text}};
  table.QuickSort(0, 3, keys);
  EXPECT_EQ(column(table, 0), (Texts{"", "10", "9", "Wahr"}));
  EXPECT_EQ(table.Find(0, 0, 9), 2);
  EXPECT_EQ(table.Find(0, 0, "9"), -1) << "the number 9 is no text, sorted or not";
}

TEST(XArrayTest, FindsRangesByUserCircleAndKey) {
  XArray table = tableOf({{"Max", 5, "", "RE"}, {"Max", 4, "", "RE"}, {"Anna", 5, "", "RE"}}, 11);
  EXPECT_EQ(table.findRange("Max", 5, "RE"), 0);
  EXPECT_EQ(table.findRange("Anna", 5, "RE"), 2);
  EXPECT_EQ(table.findRange("Anna", 4, "RE"), -1);
  EXPECT_EQ(table.findRange("max", 5, "RE"), -1);
  EXPECT_EQ(table.findRange("Max", 5, "RE "), -1);
}

TEST(XArrayTest, ARowWithoutKeyStandsForEveryKey) {
  XArray table = tableOf({{"Max", 5, "", "AN"}, {"Max", 5}, {"Max", 5, "", "RE"}}, 11);
  EXPECT_EQ(table.findRange("Max", 5, "RE"), 1);
  EXPECT_EQ(table.findRange("Max", 5, "AN"), 0);
  EXPECT_EQ(table.findRange("Max", 5, "XX"), 1);
  table.set(1, 3, "LS");
  EXPECT_EQ(table.findRange("Max", 5, "RE"), 2);
  table.set(0, 3, "");
  EXPECT_EQ(table.findRange("Max", 5, "RE"), 0);
}

TEST(XArrayTest, FindsTheFirstRowWithSeveralTexts) {
  using TextCell = std::pair<std::int32_t, std::string_view>;
  const XArray table = tableOf({{"Max", 1, "Nord"}, {"Max", 2, "Süd"}, {"Eva", 2, "Süd"}}, 3);
  const std::array wanted{TextCell{0, "Max"}, TextCell{2, "Süd"}};
  EXPECT_EQ(table.FindRow(wanted), 1);
  const std::array missing{TextCell{0, "Eva"}, TextCell{2, "Nord"}};
  EXPECT_EQ(table.FindRow(missing), -1);
}

TEST(XArrayTest, ASnapshotStaysAsItWas) {
  XArray table = tableOf({{"a", 1}, {"b", 2}, {"c", 3}}, 1);
  table.DeleteRows(1);
  XArray snapshot = XArray::withColumns(1);
  snapshot.copyFrom(table);
  table.set(0, 0, "z");
  table.DeleteRows(1);
  snapshot.set(1, 0, "y");
  EXPECT_EQ(column(snapshot, 0), (Texts{"a", "y"}));
  EXPECT_EQ(column(snapshot, 1), (Texts{"1", "3"}));
  EXPECT_EQ(column(table, 0), Texts{"z"});
}

TEST(XArrayTest, ASnapshotOfAnEmptyTableHasItsColumns) {
  const XArray table = XArray::withColumns(11);
  XArray snapshot = XArray::withColumns(1);
  snapshot.copyFrom(table);
  EXPECT_EQ(snapshot.UpperBound(1), -1);
  EXPECT_EQ(snapshot.UpperBound(2), 11);
}

}  // namespace
}  // namespace vexnumkr
