// The first defect of a table against the two loops that define it, written down as they are, on
// small tables with defects of every kind.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>
#include <vector>

#include <vexnumkr/error.h>

#include "rules/range_check.h"
#include "support/row_of.h"

namespace vexnumkr {
namespace {

// "message ROW OTHER", "Fehler N" or "passed"; both sides are brought to this form.
std::string described(BrokenRule rule, std::int32_t row, std::int32_t other) {
  const char* messages[] = {"Endwert", "Aktueller Wert", "Buchungskreise", "Belegarten"};
  return messages[static_cast<int>(rule)] + (" " + std::to_string(row)) + " " +
         std::to_string(other);
}

class TwoLoops {
 public:
  explicit TwoLoops(const XArray& table) : rows_(table.begin(), table.end()) {}

  std::string run() {
    const auto count = static_cast<std::int32_t>(rows_.size());
    for (std::int32_t i = 0; i < count; ++i) {
      if (!(isCommon(i) && isActive(i))) continue;
      if (breaksRule1(i)) return described(BrokenRule::EndNotAboveStart, i, i);
      if (breaksRule2(i)) return described(BrokenRule::CurrentOutsideRange, i, i);
      for (std::int32_t j = 0; j < count; ++j) {
        if (!(isActive(j) && isCommon(j) && sequenceKey(j) == sequenceKey(i) &&
              (key(j) != key(i) || row(j).Buchungskreis != row(i).Buchungskreis)))
          continue;
        if (breaksRule1(j)) return described(BrokenRule::EndNotAboveStart, j, j);
        if (breaksRule2(j)) return described(BrokenRule::CurrentOutsideRange, j, j);
        const bool below = start(j) < start(i) && end(j) < start(i);
        const bool above = start(j) > end(i) && end(j) > end(i);
        if (below || above) continue;
        if (key(j) == key(i)) return described(BrokenRule::OverlapsOtherCircle, j, i);
        return described(BrokenRule::OverlapsOtherKey, j, i);
      }
    }
    return "passed";
  }

 private:
  const RangeRow& row(std::int32_t i) const { return rows_[static_cast<std::size_t>(i)]; }
  std::string key(std::int32_t i) const { return row(i).NSchl.str(); }
  std::int32_t start(std::int32_t i) const { return row(i).StartWert.toValue().toLong(); }
  std::int32_t current(std::int32_t i) const { return row(i).AktuellerWert.toValue().toLong(); }
  std::int32_t end(std::int32_t i) const { return row(i).EndWert.toValue().toLong(); }
  bool isCommon(std::int32_t i) const { return row(i).Benutzer.str() == "Alle Benutzer"; }
  bool isActive(std::int32_t i) const { return row(i).Aktiviert; }
  bool breaksRule1(std::int32_t i) const { return end(i) <= start(i); }
  bool breaksRule2(std::int32_t i) const { return current(i) < start(i) || current(i) > end(i); }
  std::string sequenceKey(std::int32_t i) const {
    const std::string shared = row(i).IstNSchlVon.str();
    return shared.empty() ? key(i) : shared;
  }

  std::vector<RangeRow> rows_;
};

template <class Check>
std::string outcomeOf(Check check) {
  try {
    return check();
  } catch (const Error& error) {
    return "Fehler " + std::to_string(error.number());
  }
}

std::string checked(const XArray& table) {
  return outcomeOf([&]() -> std::string {
    const auto defect = firstDefect(table);
    return defect ? described(defect->rule, defect->row, defect->otherRow) : "passed";
  });
}

using Row = test::RowCells;

constexpr std::array numberColumns = {&Row::StartWert, &Row::AktuellerWert, &Row::EndWert};

class RandomTable {
 public:
  explicit RandomTable(unsigned seed) : random_(seed) {}

  // Ranges that lie apart, with up to three things done to them.
  XArray make() {
    std::vector<Row> rows;
    sharing_ = oneOutOf(2);
    const std::size_t count = below(12);
    std::vector<std::int32_t> places(count);
    for (std::size_t i = 0; i < count; ++i) places[i] = static_cast<std::int32_t>(i) * 10;
    std::shuffle(places.begin(), places.end(), random_);
    for (const std::int32_t place : places) rows.push_back(goodRow(place));
    for (std::size_t i = below(4); i > 0 && !rows.empty(); --i) spoil(rows);
    return tableOf(rows);
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }
  bool oneOutOf(std::size_t n) { return below(n) == 0; }
  Value oneOf(const std::vector<Value>& choices) { return choices[below(choices.size())]; }
  std::int32_t integer(std::size_t limit) { return static_cast<std::int32_t>(below(limit)); }

  Row goodRow(std::int32_t place) {
    const Value user = oneOutOf(8) ? oneOf({"Max", "alle benutzer", ""}) : "Alle Benutzer";
    const std::int32_t end = place + 1 + integer(9);
    return {.Benutzer = user,
            .Buchungskreis = integer(3),
            .Gruppe = "Gruppe",
            .NSchl = oneOf({"A", "A", "B", "a", "C"}),
            .NBezeichnung = "Bezeichnung",
            .StartWert = place,
            .AktuellerWert = place + integer(static_cast<std::size_t>(end - place + 1)),
            .EndWert = end,
            .Aktiviert = !oneOutOf(6),
            .SortierIndex = integer(2),
            .IstNSchlVon = sharing_ ? oneOf({"A", "S", "S"}) : oneOf({"", "", "A", "B"}),
            .Maske = ""};
  }

  Value badNumber() { return oneOf({"x", "", "99999999999", "1.5"}); }

  void spoil(std::vector<Row>& rows) {
    Row& row = rows[below(rows.size())];
    switch (below(14)) {
      case 0:
        row.EndWert = row.StartWert;
        break;
      case 1:
        row.AktuellerWert = oneOutOf(2) ? -5 : 500;
        break;
      case 2:
        row.EndWert = row.EndWert.isLong() ? row.EndWert.asLong() + 25 : 900;
        break;
      case 3:
        row.StartWert = integer(100);
        break;
      case 4:
        row.*numberColumns[below(3)] = badNumber();
        break;
      case 5:
        row.Aktiviert = oneOutOf(2);
        break;
      case 6: {  // the same range once more
        const Row again = row;
        rows.push_back(again);
        break;
      }
      case 7:  // a text that is a number
        row.StartWert =
            row.StartWert.isLong() ? Value(" " + row.StartWert.toText() + ",4 ") : Value("1.000");
        break;
      case 8:
        row.Buchungskreis = integer(2);
        break;
      default: {  // moved onto the numbers of another one
        const Row& other = rows[below(rows.size())];
        for (const auto column : numberColumns) row.*column = other.*column;
        break;
      }
    }
  }

  static XArray tableOf(const std::vector<Row>& rows) {
    XArray table = XArray::created();
    for (const Row& row : rows) table.append(test::rowOf(table, row));
    table.sort(RowOrder::display);
    return table;
  }

  std::mt19937 random_;
  bool sharing_ = false;  // most ranges draw on one sequence
};

std::string dump(const XArray& table) {
  std::string text;
  for (const RangeRow& row : table) {
    text += "\n";
    for (const Value& value : row.columns())
      text += ' ' + (value.isText() ? "'" + value.asText() + "'" : value.toText());
  }
  return text;
}

// "Endwert 3 3" is of the kind "Endwert"; a defect of a later row than the first tells by itself
// that the loops came to it.
std::string kindOf(const std::string& outcome) {
  return outcome.starts_with("Fehler") ? outcome : outcome.substr(0, outcome.find_first_of("0123"));
}

TEST(ValidationRandomTest, FindsTheDefectThatTheTwoLoopsFind) {
  std::map<std::string, int> kinds;
  const unsigned first = std::random_device{}() % 1'000'000;
  for (unsigned seed = first; seed < first + 10'000; ++seed) {
    const XArray table = RandomTable(seed).make();
    const std::string expected = outcomeOf([&] { return TwoLoops(table).run(); });
    ASSERT_EQ(checked(table), expected) << "seed " << seed << dump(table);
    ++kinds[kindOf(expected)];
  }
  for (const char* kind : {"passed", "Endwert ", "Aktueller Wert ", "Buchungskreise ",
                           "Belegarten ", "Fehler 6", "Fehler 13"})
    EXPECT_GT(kinds[kind], 40) << kind << ", seeds from " << first;
}

}  // namespace
}  // namespace vexnumkr
