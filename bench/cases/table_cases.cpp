// The range table, held against the containers that anybody would take.
#include <malloc.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "bench/cases.h"
#include "bench/company.h"
#include "bench/sample_database.h"
#include "bench/session.h"
#include "data/circle_changes.h"
#include "data/range_table.h"

namespace vexnumkr::bench {
namespace {

// A row as a program would hold it that knows its columns.
struct PlainRow {
  std::string Benutzer;
  std::int32_t Buchungskreis = 0;
  std::string Gruppe;
  std::string NSchl;
  std::string NBezeichnung;
  std::int32_t StartWert = 0;
  std::int32_t AktuellerWert = 0;
  std::int32_t EndWert = 0;
  bool Aktiviert = false;
  std::int32_t SortierIndex = 0;
  std::string IstNSchlVon;
  std::string Maske;

  auto inDisplay() const { return std::tie(Benutzer, SortierIndex, NSchl, Buchungskreis); }
};

PlainRow plainRow(const RangeRow& row) {
  return {row.Benutzer.str(),
          row.Buchungskreis,
          row.Gruppe.str(),
          row.NSchl.str(),
          row.NBezeichnung.str(),
          row.StartWert.toLong(),
          row.AktuellerWert.toLong(),
          row.EndWert.toLong(),
          row.Aktiviert,
          row.SortierIndex,
          row.IstNSchlVon.str(),
          row.Maske.toText()};
}

std::vector<PlainRow> plainRows(const XArray& table) {
  std::vector<PlainRow> rows;
  for (const RangeRow& row : table) rows.push_back(plainRow(row));
  return rows;
}

struct Key {
  std::string user;
  std::int32_t circle = 0;
  std::string numberKey;

  friend bool operator==(const Key&, const Key&) = default;
};

struct KeyHash {
  std::size_t operator()(const Key& key) const {
    const std::hash<std::string> text;
    return (text(key.user) * 31 + std::hash<std::int32_t>{}(key.circle)) * 31 + text(key.numberKey);
  }
};

// A session whose range table is that of the company, and the same in plain containers.
class Tables {
 public:
  explicit Tables(int scale)
      : scale_(scale),
        database_(scale),
        session_(database_.connectionString(), DatabaseAccess::rowByRow),
        original_(companyTable(scale)) {
    restore();
    plain_ = plainRows(original_);
    for (std::size_t row = 0; row < plain_.size(); ++row) {
      keys_.push_back({plain_[row].Benutzer, plain_[row].Buchungskreis, plain_[row].NSchl});
      places_.emplace(keys_.back(), static_cast<std::int32_t>(row));
    }
    // The rows of the company stand in no order, so neither do these.
    keys_.resize(std::min<std::size_t>(keys_.size(), 100'000));
  }

  vexnumkr::Session& session() { return session_.session(); }
  XArray& table() { return session_.table(); }
  void restore() {
    table().copyFrom(original_);
    // The first search makes the index, once for the life of the table.
    basAllgemein::FoundInXArray(table(), session().reporter(), alleBenutzer, 0, "");
  }

  void sort() { table().sort(RowOrder::display); }
  void copyPlain() { sorted_ = plain_; }
  void sortPlain() {
    std::stable_sort(sorted_.begin(), sorted_.end(), [](const PlainRow& a, const PlainRow& b) {
      return a.inDisplay() < b.inDisplay();
    });
  }

  void find() {
    std::int64_t sum = 0;
    for (const Key& key : keys_)
      sum += basAllgemein::FoundInXArray(table(), session().reporter(), key.user, key.circle,
                                         key.numberKey);
    requireSame(sum);
  }
  void findPlain() {
    std::int64_t sum = 0;
    for (const Key& key : keys_) sum += places_.find(key)->second;
    requireSame(sum);
  }

  // One range of every user, a thousand times.
  void setAll() {
    for (int i = 0; i < times; ++i)
      basAllgemein::SetValueAll(table(), session().colUser(), session().reporter(),
                                keys_.front().numberKey, keys_.front().circle, &RangeRow::EndWert,
                                i);
  }
  void findForEachUser() {
    for (int i = 0; i < times; ++i)
      for (const std::string& user : session().colUser())
        basAllgemein::FoundInXArray(table(), session().reporter(), user, keys_.front().circle,
                                    keys_.front().numberKey);
  }

  // The list as the administration leaves it: its last circle gone, a new one there.
  void exchangeCircle() {
    BookingCircleList& list = session().Buchungskreise();
    std::vector<BookingCircle> circles(list.begin(), list.end());
    circles.back() = {9999, "Neuer Buchungskreis"};
    list.create();
    for (const BookingCircle& circle : circles) list.append(circle);
  }
  void takeListBack() {
    basAllgemein::RefreshCombo(session().Buchungskreise(), session().source(),
                               session().reporter());
  }
  void refresh() {
    basAllgemein::RefreshInXArray(session().data(), session().source(), session().reporter(),
                                  session().progress());
  }
  void copy() {
    XArray snapshot;
    snapshot.copyFrom(table());
  }

  double bytesTaken() {
    const std::size_t before = bytesInUse();
    XArray copy = companyTable(scale_);
    copy.findRange(alleBenutzer, 0, "");
    return static_cast<double>(bytesInUse() - before);
  }
  double bytesOfCells() const {
    std::size_t bytes = 0;
    for (const RangeRow& row : original_)
      for (const Value& cell : row.columns())
        bytes += cell.isText() ? cell.asText().size() : sizeof(std::int32_t);
    return static_cast<double>(bytes);
  }

 private:
  static constexpr int times = 1000;

  static std::size_t bytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
  }

  // Both ways of finding must find the same rows.
  void requireSame(std::int64_t sumOfRows) {
    if (sumOfRows_ && *sumOfRows_ != sumOfRows) throw std::runtime_error("other rows were found");
    sumOfRows_ = sumOfRows;
  }

  int scale_;
  SampleDatabase database_;
  Session session_;
  XArray original_;
  std::vector<PlainRow> plain_;
  std::vector<PlainRow> sorted_;
  std::vector<Key> keys_;
  std::unordered_map<Key, std::int32_t, KeyHash> places_;
  std::optional<std::int64_t> sumOfRows_;
};

}  // namespace

void addTableCases(Comparisons& comparisons, const Scale& scale) {
  const auto tables =
      lazily<Tables>([company = scale.company] { return std::make_unique<Tables>(company); });
  const auto measured = [&](void (Tables::*work)(), void (Tables::*prepare)()) {
    return seconds([=] { ((**tables).*work)(); }, [=] { ((**tables).*prepare)(); });
  };
  const auto restored = [&](void (Tables::*work)()) { return measured(work, &Tables::restore); };
  const auto exchanged = seconds([=] { (**tables).refresh(); },
                                 [=] {
                                   (**tables).restore();
                                   (**tables).takeListBack();
                                   (**tables).exchangeCircle();
                                 });

  comparisons.push_back(
      {"sort", "sort, all rows", "std::stable_sort of structs with the same keys decoded", 2.0,
       restored(&Tables::sort), measured(&Tables::sortPlain, &Tables::copyPlain)});
  comparisons.push_back({"find", "find, random hits", "std::unordered_map with the same key", 3,
                         restored(&Tables::find), restored(&Tables::findPlain)});
  comparisons.push_back({"setall", "setall", "find, once per user", 2, restored(&Tables::setAll),
                         restored(&Tables::findForEachUser)});
  comparisons.push_back({"circles", "circles, one added and one removed", "copying the table once",
                         6, exchanged, restored(&Tables::copy)});
  comparisons.push_back({"memory", "memory, index included",
                         "the bytes of all texts, and 4 for each number", 3,
                         [=] { return (**tables).bytesTaken(); },
                         [=] { return (**tables).bytesOfCells(); }, Unit::Bytes});
}

}  // namespace vexnumkr::bench
