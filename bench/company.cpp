#include "bench/company.h"

#include <numeric>
#include <utility>
#include <vector>

#include "app/sample/scaled_company.h"
#include "data/table/common_names.h"

namespace vexnumkr::bench {
namespace {

constexpr std::int32_t circlesPerKey = 41;

// Steps that share no factor with the number of places visit every one of them, in no order.
class Scattered {
 public:
  explicit Scattered(std::int32_t places) : places_(places) {
    while (std::gcd(step_, places_) != 1) ++step_;
  }
  std::int32_t operator()(std::int32_t place) const {
    return static_cast<std::int32_t>(std::int64_t{place} * step_ % places_);
  }

 private:
  std::int32_t places_;
  std::int32_t step_ = 61'813;
};

std::string caption(std::int32_t circle, const app::SampleCompany& company) {
  if (circle == 0) return standardGroup;
  return company.circles[static_cast<std::size_t>(circle) - 1].description;
}

struct Row {
  std::string user = alleBenutzer;
  std::string caption;
  std::string sharedKey;
  app::SampleRange range;
};

// A table in the making, whose rows come in another order than that of their places.
class Places {
 public:
  explicit Places(std::int32_t rows) : rows_(static_cast<std::size_t>(rows)) { table_.create(); }

  void write(std::int32_t place, const Row& row) {
    const app::SampleRange& range = row.range;
    rows_[static_cast<std::size_t>(place)] = {.Benutzer = table_.text(row.user),
                                              .Buchungskreis = range.circle,
                                              .Gruppe = table_.text(row.caption),
                                              .NSchl = table_.text(range.key),
                                              .NBezeichnung = table_.text(range.description),
                                              .StartWert = range.start,
                                              .AktuellerWert = range.current,
                                              .EndWert = range.end,
                                              .Aktiviert = range.active,
                                              .SortierIndex = range.sortIndex,
                                              .IstNSchlVon = table_.text(row.sharedKey),
                                              .Maske = table_.text(range.mask)};
  }

  XArray table() {
    for (const RangeRow& row : rows_) table_.append(row);
    return std::move(table_);
  }

 private:
  XArray table_;
  std::vector<RangeRow> rows_;
};

// Ranges of a hundred numbers, the `place`th of them.
Row plainRow(std::int32_t row, std::int32_t place) {
  const std::int32_t key = row / circlesPerKey;
  const std::int32_t start = place * 100 + 1;
  Row made;
  made.range = {row % circlesPerKey,
                "K" + std::to_string(key),
                "Belegart " + std::to_string(key),
                start,
                start + 17,
                start + 99,
                true,
                key,
                "",
                ""};
  made.caption =
      row % circlesPerKey == 0 ? standardGroup : "Filiale " + std::to_string(row % circlesPerKey);
  return made;
}

}  // namespace

CompanySize::CompanySize(int scale) {
  const app::SampleCompany company = app::scaledCompany(scale);
  circles = static_cast<std::int32_t>(company.circles.size());
  keys = static_cast<std::int32_t>(company.ranges.size()) / (circles + 1);
  users = static_cast<std::int32_t>(company.users.size());
}

XArray companyTable(int scale) {
  const app::SampleCompany company = app::scaledCompany(scale);
  std::vector<std::string> users = company.users;
  users.insert(users.begin(), alleBenutzer);
  const auto rows = static_cast<std::int32_t>(users.size() * company.ranges.size());
  Places places(rows);
  const Scattered scattered(rows);
  std::int32_t next = 0;
  for (const std::string& user : users) {
    for (const app::SampleRange& range : company.ranges) {
      Row row{user, caption(range.circle, company), "", range};
      row.range.mask = "JJ" + std::to_string(range.circle + 10) + "NNNN";
      places.write(scattered(next++), row);
    }
  }
  return places.table();
}

XArray commonTable(std::int32_t items) {
  Places places(items);
  for (std::int32_t row = 0; row < items; ++row) places.write(row, plainRow(row, row));
  return places.table();
}

XArray oneSequence(std::int32_t rows) {
  Places places(rows);
  const Scattered scattered(rows);
  for (std::int32_t row = 0; row < rows; ++row) {
    Row made = plainRow(row, scattered(row));
    made.sharedKey = "RE";
    made.range.sortIndex = made.range.sortIndex * 7 % 1000;
    places.write(row, made);
  }
  return places.table();
}

}  // namespace vexnumkr::bench
