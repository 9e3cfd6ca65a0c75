#include "numbers/numbers_database.h"

#include <vexnumkr/adapters.h>

#include "app/schema/schema.h"
#include "app/sql.h"

namespace vexnumkr::test {

using app::sqlText;

NumbersDatabase::NumbersDatabase() : connection_(connect()), own_(connect()) {
  for (const std::string& statement : app::rangeTableStatements(database_.schema())) sql(statement);
}

std::shared_ptr<Connection> NumbersDatabase::connect() const {
  return openQtSqlConnection(database_.connectionString());
}

void NumbersDatabase::sql(const std::string& text) { app::execute(*own_, text); }

std::vector<std::string> NumbersDatabase::rows(const std::string& select,
                                               const std::vector<std::string>& fields) {
  std::vector<std::string> found;
  app::forEachRow(*own_, select, [&](const Recordset& row) {
    std::string line;
    for (const std::string& field : fields) {
      const Value value = row.Fields(field);
      line += (line.empty() ? "" : "|") + (value.isNull() ? "NULL" : value.toText());
    }
    found.push_back(line);
  });
  return found;
}

void NumbersDatabase::range(std::int32_t circle, const std::string& key, std::int32_t start,
                            std::int32_t current, std::int32_t end, const RangeExtras& extras) {
  const auto number = [](std::int32_t value) { return ", " + std::to_string(value); };
  sql("INSERT INTO Nummernkreise (Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, "
      "EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske) VALUES (" +
      std::to_string(circle) + ", " + sqlText(key) + ", " + sqlText(extras.description) +
      number(start) + number(current) + number(end) + number(extras.active ? -1 : 0) +
      number(extras.sortIndex) + ", " + sqlText(extras.sharedKey) + ", " + sqlText(extras.mask) +
      ")");
}

void NumbersDatabase::circle(std::int32_t circle, const std::string& description,
                             const std::string& origin) {
  sql("INSERT INTO Nummernkreis_Buchungskreise (Buchungskreis, Beschreibung, Herkunft) VALUES (" +
      std::to_string(circle) + ", " + sqlText(description) + ", " + sqlText(origin) + ")");
}

void NumbersDatabase::assign(const std::string& user, std::int32_t circle, const std::string& key,
                             const std::string& origin) {
  sql("INSERT INTO Nummernkreis_Zuordnung (Buchungskreis, NSchl, Benutzer, Herkunft) VALUES (" +
      std::to_string(circle) + ", " + sqlText(key) + ", " + sqlText(user) + ", " + sqlText(origin) +
      ")");
}

void NumbersDatabase::user(const std::string& name) {
  sql("INSERT INTO tblUser (strUserName_PK) VALUES (" + sqlText(name) + ")");
}

void NumbersDatabase::special(const std::string& ownKey, const std::string& key, bool active,
                              const std::string& origin) {
  sql("INSERT INTO Nummernkreis_Sonderkreise (U_NSchl, NSchl, NBezeichnung, Aktiviert, Herkunft) "
      "VALUES (" +
      sqlText(ownKey) + ", " + sqlText(key) + ", 'Sonder', " + (active ? "-1" : "0") + ", " +
      sqlText(origin) + ")");
}

std::int32_t NumbersDatabase::current(std::int32_t circle, const std::string& key) {
  const auto found = rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis = " +
                              std::to_string(circle) + " AND NSchl = " + sqlText(key),
                          {"AktuellerWert"});
  return found.size() == 1 ? std::stoi(found[0]) : -1;
}

}  // namespace vexnumkr::test
