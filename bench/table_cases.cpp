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
#include "data/booking_circles.h"
#include "data/range_table.h"
#include "data/sql/statements.h"
#include "data/table/columns.h"
#include "rules/sort_orders.h"

namespace vexnumkr::bench {
namespace {

// A row as a program would hold it that knows its columns.
struct PlainRow {
  std::string Benutzer;
  std::string Gruppe;
  statement::Range range;

  auto inDisplay() const {
    return std::tie(Benutzer, range.SortierIndex, range.NSchl, range.Buchungskreis);
  }
};

PlainRow plainRow(const XArray& table, std::int32_t row) {
  return {table.toText(row, column::Benutzer), table.toText(row, column::Gruppe),
          statement::Range{
              table.toLong(row, column::Buchungskreis), table.toText(row, column::NSchl),
              table.toText(row, column::NBezeichnung), table.toLong(row, column::StartWert),
              table.toLong(row, column::AktuellerWert), table.toLong(row, column::EndWert),
              table.toBoolean(row, column::Aktiviert), table.toLong(row, column::SortierIndex),
              table.toText(row, column::IstNSchlVon), table.toText(row, column::Maske)}};
}

std::vector<PlainRow> plainRows(const XArray& table) {
  std::vector<PlainRow> rows;
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    rows.push_back(plainRow(table, row));
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
        session_(database_.connectionString()),
        original_(companyTable(scale)) {
    restore();
    plain_ = plainRows(original_);
    for (std::size_t row = 0; row < plain_.size(); ++row) {
      const auto& [user, caption, range] = plain_[row];
      keys_.push_back({user, range.Buchungskreis, range.NSchl});
      places_.emplace(keys_.back(), static_cast<std::int32_t>(row));
    }
    // The rows of the company stand in no order, so neither do these.
    keys_.resize(std::min<std::size_t>(keys_.size(), 100'000));
  }

  HostContext& context() { return session_.context(); }
  XArray& table() { return session_.table(); }
  void restore() {
    context().XArray(std::make_unique<XArray>());
    table().copyFrom(original_);
    // The first search makes the index, once for the life of the table.
    basAllgemein::FoundInXArray(context(), alleBenutzer, 0, "");
  }

  void sort() { sortRows(table(), displayOrder); }
  void copyPlain() { sorted_ = plain_; }
  void sortPlain() {
    std::stable_sort(sorted_.begin(), sorted_.end(), [](const PlainRow& a, const PlainRow& b) {
      return a.inDisplay() < b.inDisplay();
    });
  }

  void find() {
    std::int64_t sum = 0;
    for (const Key& key : keys_)
      sum += basAllgemein::FoundInXArray(context(), key.user, key.circle, key.numberKey);
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
      basAllgemein::SetValueAll(context(), keys_.front().numberKey, keys_.front().circle,
                                column::EndWert, i);
  }
  void findForEachUser() {
    for (int i = 0; i < times; ++i)
      for (const std::string& user : context().colUser())
        basAllgemein::FoundInXArray(context(), user, keys_.front().circle, keys_.front().numberKey);
  }

  // The list as the administration leaves it: its last circle gone, a new one there.
  void exchangeCircle() {
    XArray& list = context().Buchungskreise();
    const std::int32_t last = list.UpperBound(1);
    list.set(last, circle_column::Buchungskreis, 9999);
    list.set(last, circle_column::Beschreibung, "Neuer Buchungskreis");
  }
  void takeListBack() { basAllgemein::RefreshCombo(context(), nullptr); }
  void refresh() { basAllgemein::RefreshInXArray(context()); }
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
    for (std::int32_t row = 0; row <= original_.UpperBound(1); ++row)
      for (std::int32_t each = 0; each <= column::last; ++each)
        bytes += original_.get(row, each).isText() ? original_.toText(row, each).size()
                                                   : sizeof(std::int32_t);
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
