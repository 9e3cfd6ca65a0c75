// The range table against a plain list of rows: whatever happens to both, they stay equal, and
// every search of the table finds the row that a scan of the list finds.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <tuple>
#include <vector>

#include "data/table/xarray.h"
#include "support/row_of.h"

namespace vexnumkr {
namespace {

struct Row {
  std::string user;
  std::int32_t circle = 0;
  std::string caption;
  std::string key;
  std::int32_t place = 0;
  Value end;
  bool active = false;

  friend bool operator==(const Row&, const Row&) = default;
};

Row plainRow(const RangeRow& row) {
  return {row.Benutzer.str(), row.Buchungskreis,     row.Gruppe.str(), row.NSchl.str(),
          row.SortierIndex,   row.EndWert.toValue(), row.Aktiviert};
}

// The rules, written as plainly as possible.
class PlainTable {
 public:
  std::vector<Row> rows;

  template <class Fits>
  std::int32_t first(std::size_t from, Fits fits) const {
    for (std::size_t i = from; i < rows.size(); ++i)
      if (fits(rows[i])) return static_cast<std::int32_t>(i);
    return -1;
  }

  std::vector<std::int32_t> rangeRows(const std::string& user, std::int32_t circle,
                                      const std::string& key) const {
    std::vector<std::int32_t> found;
    for (std::size_t i = 0; i < rows.size(); ++i)
      if (rows[i].circle == circle && rows[i].user == user && rows[i].key == key)
        found.push_back(static_cast<std::int32_t>(i));
    return found;
  }

  void sort(RowOrder order) {
    std::stable_sort(rows.begin(), rows.end(), [order](const Row& a, const Row& b) {
      if (order == RowOrder::display)
        return std::tie(a.user, a.place, a.key, a.circle) <
               std::tie(b.user, b.place, b.key, b.circle);
      if (order == RowOrder::tree)
        return std::tie(a.user, a.key, a.circle) < std::tie(b.user, b.key, b.circle);
      return std::tie(a.circle, a.key) < std::tie(b.circle, b.key);
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
    compareRows();
  }

 private:
  unsigned pick(std::size_t below) { return static_cast<unsigned>(random_() % below); }

  std::string user() { return std::array{"Anna", "Max", "Alle Benutzer", ""}[pick(4)]; }
  std::int32_t circle() { return static_cast<std::int32_t>(pick(4)) - 1; }
  std::string key() { return std::array{"RE", "AN", "re", "", "LS"}[pick(5)]; }
  std::string caption() { return std::array{"Nord", "Süd", ""}[pick(3)]; }
  Value value() { return std::array<Value, 4>{"1.000", "", Value(), 7}[pick(4)]; }
  std::int32_t anyRow() { return static_cast<std::int32_t>(pick(plain_.rows.size())); }
  Row& plain(std::int32_t row) { return plain_.rows[static_cast<std::size_t>(row)]; }

  void append() {
    const Row row{user(), circle(), caption(), key(), circle(), Value(3), pick(2) == 0};
    table_.append(test::rowOf(table_, {.Benutzer = row.user,
                                       .Buchungskreis = row.circle,
                                       .Gruppe = row.caption,
                                       .NSchl = row.key,
                                       .StartWert = 1,
                                       .AktuellerWert = 1,
                                       .EndWert = 3,
                                       .Aktiviert = row.active,
                                       .SortierIndex = row.place}));
    plain_.rows.push_back(row);
  }

  void appendAgain() {
    const std::int32_t row = anyRow();
    table_.append(table_.at(row));
    plain_.rows.push_back(Row(plain(row)));
  }

  void remove() {
    const std::int32_t row = anyRow();
    table_.remove(row);
    plain_.rows.erase(plain_.rows.begin() + row);
  }

  void write() {
    const std::int32_t row = anyRow();
    table_.setValue(row, &RangeRow::EndWert, plain(row).end = value());
    table_.setGruppe(row, plain(row).caption = caption());
    table_.setAktiviert(row, plain(row).active = pick(2) == 0);
  }

  void sort() {
    const RowOrder order =
        std::array{RowOrder::display, RowOrder::tree, RowOrder::circleAndKey}[pick(3)];
    table_.sort(order);
    plain_.sort(order);
  }

  void copy() {
    XArray snapshot;
    snapshot.copyFrom(table_);
    if (pick(2) == 0) table_.release();
    table_.copyFrom(snapshot);
  }

  void change() {
    const auto what = pick(20);
    if (plain_.rows.size() < 5 || what < 8) {
      append();
    } else if (what < 12) {
      remove();
    } else if (what < 16) {
      write();
    } else if (what < 17) {
      appendAgain();
    } else if (what < 19) {
      sort();
    } else {
      copy();
    }
  }

  void compareSearches() {
    ASSERT_EQ(table_.size(), static_cast<std::int32_t>(plain_.rows.size()));
    const auto u = user();
    const auto c = circle();
    const auto k = key();
    const auto n = caption();
    ASSERT_EQ(table_.findRange(u, c, k), plain_.first(0,
                                                      [&](const Row& row) {
                                                        return row.user == u && row.circle == c &&
                                                               (row.key == k || row.key.empty());
                                                      }))
        << u << c << k;
    ASSERT_EQ(table_.rangeRows(u, c, k), plain_.rangeRows(u, c, k)) << u << c << k;
    ASSERT_EQ(table_.findUser(u), plain_.first(0, [&](const Row& row) { return row.user == u; }));
    ASSERT_EQ(table_.findCaption(u, n, k), plain_.first(0, [&](const Row& row) {
      return row.user == u && row.caption == n && row.key == k;
    }));
    const auto from = pick(plain_.rows.size() + 1);
    const auto start = static_cast<std::int32_t>(from);
    ASSERT_EQ(table_.findCircle(c, start),
              plain_.first(from, [&](const Row& row) { return row.circle == c; }));
    ASSERT_EQ(table_.findNumberKey(k, start),
              plain_.first(from, [&](const Row& row) { return row.key == k; }));
  }

  void compareRows() {
    std::vector<Row> rows;
    for (const RangeRow& row : table_) rows.push_back(plainRow(row));
    ASSERT_EQ(rows, plain_.rows);
    for (std::int32_t i = 0; i < table_.size(); ++i) ASSERT_EQ(plainRow(table_.at(i)), plain(i));
  }

  std::mt19937 random_;
  XArray table_ = XArray::created();
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
