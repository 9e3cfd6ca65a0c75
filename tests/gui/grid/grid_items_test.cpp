#include "adapters/qtgrid/items/grid_items.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include <vexnumkr/error.h>

namespace vexnumkr {
namespace {

constexpr int columns = 4;

std::int32_t errorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

TEST(GridItems, AnItemBeginsEmptyAtLevelZero) {
  GridItems items(columns);
  EXPECT_EQ(items.append("zero"), 0);
  EXPECT_EQ(items.append(""), 1);
  EXPECT_EQ(items.count(), 2);
  EXPECT_EQ(items.text(0, 0), "zero");
  EXPECT_EQ(items.text(0, 1), "");
  EXPECT_EQ(items.level(1), 0);
  EXPECT_EQ(items.picture(1), noPicture);
  EXPECT_FALSE(items.style(1, 1).bold);
  EXPECT_EQ(items.style(1, 1).background, gridDefaultColour);
}

TEST(GridItems, NumbersReadAsDecimalText) {
  GridItems items(columns);
  items.append("");
  for (const std::int32_t number :
       {0, 7, -1, 1 << 30, (1 << 30) - 1, -(1 << 30), -(1 << 30) - 1,
        std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
    items.setNumber(0, 2, number);
    EXPECT_EQ(items.text(0, 2), std::to_string(number));
  }
}

TEST(GridItems, TellsWhetherACellChanges) {
  GridItems items(columns);
  items.append("");
  EXPECT_TRUE(items.setText(0, 1, "a"));
  EXPECT_FALSE(items.setText(0, 1, "a"));
  EXPECT_TRUE(items.setNumber(0, 1, 3));
  EXPECT_FALSE(items.setNumber(0, 1, 3));
  EXPECT_TRUE(items.setText(0, 1, ""));
}

TEST(GridItems, WhatDoesNotExistIsError9) {
  GridItems items(columns);
  items.append("");
  for (const auto& [item, column] : {std::pair(-1, 1), {1, 1}, {0, -1}, {0, columns}}) {
    EXPECT_EQ(errorOf([&] { (void)items.text(item, column); }), 9);
    EXPECT_EQ(errorOf([&] { items.setText(item, column, "x"); }), 9);
    EXPECT_EQ(errorOf([&] { items.setNumber(item, column, 1); }), 9);
    EXPECT_EQ(errorOf([&] { (void)items.style(item, column); }), 9);
  }
  EXPECT_EQ(errorOf([&] { (void)items.level(1); }), 9);
  EXPECT_EQ(errorOf([&] { items.setLevel(-1, 1); }), 9);
  EXPECT_EQ(errorOf([&] { (void)items.picture(1); }), 9);
  EXPECT_EQ(errorOf([&] { items.setPicture(1, 2); }), 9);
  EXPECT_EQ(errorOf([&] { (void)items.find(0, columns, ""); }), 9);
  EXPECT_EQ(errorOf([&] { items.setLevel(0, 2); }), 380);
}

TEST(GridItems, FindPrefersAnEqualCellToABeginning) {
  GridItems items(columns);
  for (const char* text : {"Anna", "An", "an", "Berta", "An"}) items.append(text);
  EXPECT_EQ(items.find(0, 0, "An"), 1);
  EXPECT_EQ(items.find(2, 0, "An"), 4);
  EXPECT_EQ(items.find(-5, 0, "Ann"), 0);
  EXPECT_EQ(items.find(1, 0, "Ann"), -1);
  EXPECT_EQ(items.find(0, 0, "a"), 2);
  EXPECT_EQ(items.find(0, 0, "Carl"), -1);
  EXPECT_EQ(items.find(9, 0, "An"), -1);
  items.setNumber(3, 1, 120);
  EXPECT_EQ(items.find(0, 1, "12"), 3);
  EXPECT_EQ(items.find(0, 1, ""), 0);
}

TEST(GridItems, ClearForgetsTextsPicturesAndStyles) {
  GridItems items(columns);
  items.append("x");
  items.setStyle(0, 1, {true, 0xF0F0F0});
  items.setPicture(0, 3);
  items.clear();
  EXPECT_EQ(items.count(), 0);
  items.append("");
  EXPECT_EQ(items.text(0, 0), "");
  EXPECT_FALSE(items.style(0, 1).bold);
  EXPECT_EQ(items.picture(0), noPicture);
}

TEST(GridItems, ChildrenStandUnderTheGroupBeforeThem) {
  GridItems items(columns);
  for (int i = 0; i < 6; ++i) items.append("");
  for (const int child : {0, 2, 3, 5}) items.setLevel(child, 1);
  // 0 has no group before it; 1 has 2 and 3; 4 has 5.
  EXPECT_EQ(items.topCount(), 3);
  EXPECT_TRUE(items.isTop(0));
  EXPECT_EQ(items.childCount(0), 0);
  EXPECT_EQ(items.topItem(1), 1);
  EXPECT_EQ(items.childCount(1), 2);
  EXPECT_EQ(items.topRowOf(3), 1);
  EXPECT_EQ(items.childCount(2), 1);
}

// Texts and the tree against the plainest possible store.
TEST(GridItems, AgreesWithAPlainModel) {
  const auto seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const auto upTo = [&random](int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
  };
  GridItems items(columns);
  std::vector<std::vector<std::string>> texts;
  std::vector<int> levels;
  for (int step = 0; step < 4000; ++step) {
    const int count = items.count();
    if (count == 0 || upTo(4) == 0) {
      items.append("");
      texts.emplace_back(columns);
      levels.push_back(0);
    } else if (upTo(800) == 0) {
      items.clear();
      texts.clear();
      levels.clear();
    } else if (upTo(3) == 0) {
      const int item = upTo(2) == 0 ? count - 1 : upTo(count);
      levels[static_cast<std::size_t>(item)] = upTo(2);
      items.setLevel(item, levels[static_cast<std::size_t>(item)]);
    } else {
      const auto item = static_cast<std::size_t>(upTo(count));
      const auto column = static_cast<std::size_t>(upTo(columns));
      const int number = upTo(500);
      texts[item][column] = std::to_string(number);
      if (upTo(2) == 0) {
        items.setText(static_cast<int>(item), static_cast<int>(column), texts[item][column]);
      } else {
        items.setNumber(static_cast<int>(item), static_cast<int>(column), number);
      }
    }
  }
  ASSERT_EQ(items.count(), static_cast<int>(texts.size()));
  int group = -1;
  int tops = 0;
  for (int item = 0; item < items.count(); ++item) {
    for (int column = 0; column < columns; ++column) {
      ASSERT_EQ(items.text(item, column),
                texts[static_cast<std::size_t>(item)][static_cast<std::size_t>(column)]);
    }
    const bool child = levels[static_cast<std::size_t>(item)] == 1 && group >= 0;
    if (levels[static_cast<std::size_t>(item)] == 0) group = item;
    if (!child) ++tops;
    ASSERT_EQ(items.isTop(item), !child);
    ASSERT_EQ(items.topItem(items.topRowOf(item)), child ? group : item);
  }
  EXPECT_EQ(items.topCount(), tops);
}

}  // namespace
}  // namespace vexnumkr
