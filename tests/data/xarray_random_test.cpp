// The range table against a plain list of rows: whatever happens to both, they stay equal, and
// every search of the table finds the row that a scan of the list finds.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <vector>

#include "data/table/xarray.h"

namespace vexnumkr {
namespace {

constexpr std::int32_t lastColumn = 4;
using Row = std::array<Value, lastColumn + 1>;

// The rules, written as plainly as possible.
class PlainTable {
 public:
  std::vector<Row> rows;

  std::int32_t findRange(const std::string& user, std::int32_t circle,
                         const std::string& key) const {
    for (std::size_t i = 0; i < rows.size(); ++i)
      if (rows[i][1] == Value(circle) && rows[i][0] == Value(user) &&
          (rows[i][3] == Value(key) || rows[i][3] == Value("") || rows[i][3].isEmpty()))
        return static_cast<std::int32_t>(i);
    return -1;
  }

  std::vector<std::int32_t> rangeRows(const std::string& user, std::int32_t circle,
                                      const std::string& key) const {
    std::vector<std::int32_t> found;
    for (std::size_t i = 0; i < rows.size(); ++i)
      if (rows[i][1] == Value(circle) && rows[i][0] == Value(user) && rows[i][3] == Value(key))
        found.push_back(static_cast<std::int32_t>(i));
    return found;
  }

  std::int32_t find(std::size_t start, std::size_t column, const Value& value) const {
    for (std::size_t i = start; i < rows.size(); ++i)
      if (rows[i][column] == value) return static_cast<std::int32_t>(i);
    return -1;
  }

  void sort(const std::vector<SortKey>& keys) {
    std::stable_sort(rows.begin(), rows.end(), [&keys](const Row& a, const Row& b) {
      for (const SortKey& key : keys) {
        const auto column = static_cast<std::size_t>(key.column);
        if (key.comparison == Comparison::Number) {
          const auto x = a[column].toLong();
          const auto y = b[column].toLong();
          if (x != y) return key.ascending ? x < y : x > y;
        } else {
          const auto x = a[column].toText();
          const auto y = b[column].toText();
          if (x != y) return key.ascending ? x < y : x > y;
        }
      }
      return false;
    });
  }
};

class Pair {
 public:
  explicit Pair(unsigned seed) : random_(seed) {}

  void run(int steps) {
    for (int step = 0; step < steps; ++step) {
      change();
      compareSearches();
      if (::testing::Test::HasFailure()) return;
    }
    compareCells();
  }

 private:
  unsigned pick(std::size_t below) { return static_cast<unsigned>(random_() % below); }

  std::string user() { return std::array{"Anna", "Max", "Alle Benutzer", ""}[pick(4)]; }
  std::int32_t circle() { return static_cast<std::int32_t>(pick(4)) - 1; }
  std::string key() { return std::array{"RE", "AN", "re", "", "LS"}[pick(5)]; }

  Value cell(std::int32_t column) {
    if (pick(12) == 0) return Value();
    if (column == 1) return pick(15) == 0 ? Value("1") : Value(circle());
    if (column == 0) return user();
    if (column == 3) return pick(15) == 0 ? Value(7) : Value(key());
    return Value(static_cast<std::int32_t>(pick(3)));
  }

  void append() {
    table_.AppendRows();
    plain_.rows.emplace_back();
    const auto last = plain_.rows.size() - 1;
    for (std::int32_t c = 0; c <= lastColumn; ++c) write(last, c, cell(c));
  }

  void write(std::size_t row, std::int32_t column, const Value& value) {
    table_.set(static_cast<std::int32_t>(row), column, value);
    plain_.rows[row][static_cast<std::size_t>(column)] = value;
  }

  void remove() {
    const auto first = pick(plain_.rows.size());
    const auto count = 1 + pick(std::min<std::size_t>(3, plain_.rows.size() - first));
    table_.DeleteRows(static_cast<std::int32_t>(first), static_cast<std::int32_t>(count));
    plain_.rows.erase(plain_.rows.begin() + first, plain_.rows.begin() + first + count);
  }

  void sort() {
    std::vector<SortKey> keys;
    for (const std::int32_t column : {0, 3, 1}) {
      if (pick(3) == 0) continue;
      const auto comparison = column == 1 ? Comparison::Number : Comparison::Text;
      keys.push_back({column, pick(5) != 0, comparison});
    }
    table_.QuickSort(0, table_.UpperBound(1), keys);
    plain_.sort(keys);
  }

  void copy() {
    XArray snapshot = XArray::withColumns(0);
    snapshot.copyFrom(table_);
    table_.copyFrom(snapshot);
  }

  void change() {
    const auto what = pick(20);
    if (plain_.rows.size() < 5 || what < 8) {
      append();
    } else if (what < 12) {
      remove();
    } else if (what < 17) {
      const auto column = static_cast<std::int32_t>(pick(lastColumn + 1));
      write(pick(plain_.rows.size()), column, cell(column));
    } else if (what < 19) {
      sort();
    } else {
      copy();
    }
  }

  void compareSearches() {
    ASSERT_EQ(table_.UpperBound(1) + 1, static_cast<std::int32_t>(plain_.rows.size()));
    for (int i = 0; i < 3; ++i) {
      const auto u = user();
      const auto c = circle();
      const auto k = key();
      ASSERT_EQ(table_.findRange(u, c, k), plain_.findRange(u, c, k)) << u << c << k;
      ASSERT_EQ(table_.rangeRows(u, c, k), plain_.rangeRows(u, c, k)) << u << c << k;
    }
    const auto start = pick(plain_.rows.size() + 1);
    for (const std::int32_t column : {0, 1, 3}) {
      const Value value = column == 1 ? Value(circle()) : column == 0 ? user() : key();
      ASSERT_EQ(table_.Find(static_cast<std::int32_t>(start), column, value),
                plain_.find(start, static_cast<std::size_t>(column), value));
    }
  }

  void compareCells() {
    for (std::size_t row = 0; row < plain_.rows.size(); ++row)
      for (std::int32_t column = 0; column <= lastColumn; ++column)
        ASSERT_EQ(table_.get(static_cast<std::int32_t>(row), column),
                  plain_.rows[row][static_cast<std::size_t>(column)]);
  }

  std::mt19937 random_;
  XArray table_ = XArray::withColumns(lastColumn);
  PlainTable plain_;
};

TEST(XArrayRandomTest, AgreesWithAPlainListOfRows) {
  const auto first = std::random_device{}() % 1'000'000;
  for (unsigned seed = first; seed < first + 60; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Pair(seed).run(300);
    if (HasFailure()) return;
  }
}

}  // namespace
}  // namespace vexnumkr
