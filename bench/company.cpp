#include "bench/company.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <functional>
#include <numeric>
#include <stdexcept>

#include "app/schema/schema.h"
#include "bench/bare_driver.h"
#include "data/table/columns.h"
#include "hosting/host_context.h"

namespace vexnumkr::bench {
namespace {

constexpr std::int32_t rangeLength = 10'000;

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

QString keyName(std::int32_t key) { return QStringLiteral("B%1").arg(key, 2, 10, QChar(u'0')); }
QString userName(std::int32_t user) {
  return QStringLiteral("Benutzer %1").arg(user, 3, 10, QChar(u'0'));
}

void insert(QSqlDatabase& database, const char* table, int columns,
            const std::function<void(const std::function<void(const QVariantList&)>&)>& rows) {
  QSqlQuery query(database);
  QString places;
  for (int i = 0; i < columns; ++i) places += i == 0 ? QStringLiteral("?") : QStringLiteral(", ?");
  query.prepare(QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(QLatin1String(table), places));
  rows([&](const QVariantList& values) {
    for (int i = 0; i < values.size(); ++i) query.bindValue(i, values[i]);
    if (!query.exec()) throw std::runtime_error(query.lastError().text().toStdString());
  });
}

template <class Visit>
void forEachRange(const CompanySize& size, const Visit& visit) {
  for (std::int32_t key = 0; key < size.keys; ++key)
    for (std::int32_t circle = 0; circle <= size.circles; ++circle) visit(circle, key);
}

void writeRanges(QSqlDatabase& database, const CompanySize& size) {
  insert(database, "Nummernkreise", 10, [&](const auto& add) {
    forEachRange(size, [&](std::int32_t circle, std::int32_t key) {
      const std::int32_t start = circle * rangeLength + 1;
      add({circle, keyName(key), QStringLiteral("Belegart Nummer %1").arg(key), start, start + 17,
           start + rangeLength - 1, -1, key, QStringLiteral(""),
           QStringLiteral("JJ%1NNNN").arg(circle + 10)});
    });
  });
}

void writeAssignments(QSqlDatabase& database, const CompanySize& size) {
  insert(database, "Nummernkreis_Zuordnung", 4, [&](const auto& add) {
    forEachRange(size, [&](std::int32_t circle, std::int32_t key) {
      add({circle, keyName(key), QStringLiteral("ALL"), QStringLiteral("ORC")});
      for (std::int32_t user = 0; user < size.users; ++user)
        add({circle, keyName(key), userName(user), QStringLiteral("ORC")});
    });
  });
}

void writeCirclesAndUsers(QSqlDatabase& database, const CompanySize& size) {
  insert(database, "Nummernkreis_Buchungskreise", 3, [&](const auto& add) {
    for (std::int32_t circle = 1; circle <= size.circles; ++circle)
      add({circle, QStringLiteral("Buchungskreis %1").arg(circle), QStringLiteral("ORC")});
  });
  insert(database, "tblUser", 1, [&](const auto& add) {
    for (std::int32_t user = 0; user < size.users; ++user) add({userName(user)});
  });
}

}  // namespace

std::string createCompanyFile(const std::string& file, const CompanySize& size) {
  BareDriver driver(file);
  QSqlDatabase& database = driver.database();
  driver.run("BEGIN");
  for (const std::string& statement : host::rangeTableStatements()) driver.run(statement);
  writeRanges(database, size);
  writeAssignments(database, size);
  writeCirclesAndUsers(database, size);
  driver.run("COMMIT");
  return "Driver=QSQLITE;Database=" + file;
}

XArray companyTable(const CompanySize& size) {
  XArray table = XArray::withColumns(column::last);
  table.AppendRows(size.rows());
  const Scattered scattered(size.rows());
  for (std::int32_t row = 0; row < size.rows(); ++row) {
    const std::int32_t user = row / size.ranges();
    const std::int32_t key = row % size.ranges() / (size.circles + 1);
    const std::int32_t circle = row % (size.circles + 1);
    const std::int32_t start = circle * rangeLength + 1;
    const std::int32_t place = scattered(row);
    table.set(place, column::Benutzer, user == 0 ? alleBenutzer : userName(user - 1).toStdString());
    table.set(place, column::Buchungskreis, circle);
    table.set(place, column::Gruppe,
              circle == 0 ? standardGroup : "Buchungskreis " + std::to_string(circle));
    table.set(place, column::NSchl, keyName(key).toStdString());
    table.set(place, column::NBezeichnung, "Belegart Nummer " + std::to_string(key));
    table.set(place, column::StartWert, start);
    table.set(place, column::AktuellerWert, start + 17);
    table.set(place, column::EndWert, start + rangeLength - 1);
    table.set(place, column::Aktiviert, true);
    table.set(place, column::SortierIndex, key);
    table.set(place, column::IstNSchlVon, "");
    table.set(place, column::Maske, "JJ" + std::to_string(circle + 10) + "NNNN");
  }
  return table;
}

XArray oneSequence(std::int32_t rows) {
  XArray table = XArray::withColumns(column::last);
  table.AppendRows(rows);
  constexpr std::int32_t circles = 40;
  const Scattered scattered(rows);
  for (std::int32_t row = 0; row < rows; ++row) {
    const std::int32_t start = scattered(row) * 100 + 1;
    table.set(row, column::Benutzer, alleBenutzer);
    table.set(row, column::Buchungskreis, row % circles);
    table.set(row, column::Gruppe, "Buchungskreis " + std::to_string(row % circles));
    table.set(row, column::NSchl, "B" + std::to_string(row / circles));
    table.set(row, column::NBezeichnung, "Belegart Nummer " + std::to_string(row / circles));
    table.set(row, column::StartWert, start);
    table.set(row, column::AktuellerWert, start + 17);
    table.set(row, column::EndWert, start + 99);
    table.set(row, column::Aktiviert, true);
    table.set(row, column::SortierIndex, (row / circles * 7) % 1000);
    table.set(row, column::IstNSchlVon, "RE");
    table.set(row, column::Maske, "");
  }
  return table;
}

}  // namespace vexnumkr::bench
