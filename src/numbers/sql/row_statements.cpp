// The statements that store single rows.
#include <algorithm>
#include <utility>

#include "numbers/sql/statements.h"

namespace vexnumkr::numbers::statement {
namespace {

using Columns = std::vector<std::pair<const char*, std::string>>;

std::string number(std::int32_t value) { return Literals::number(value); }
std::string number(const std::optional<std::int32_t>& value) {
  return value ? Literals::number(*value) : "NULL";
}
std::string flag(bool value) { return value ? "-1" : "0"; }

// A table, what identifies its row, and what else stands in it.
struct Row {
  const char* table;
  Columns key;
  Columns values;
};

Row rowOf(const Literals& literals, const std::string& origin, const Circle& circle) {
  return {"Nummernkreis_Buchungskreise",
          {{"Buchungskreis", number(circle.number)}, {"Herkunft", literals.text(origin)}},
          {{"Beschreibung", literals.text(circle.description)}}};
}

Row rowOf(const Literals& literals, const std::string&, const Range& range) {
  return {"Nummernkreise",
          {{"Buchungskreis", number(range.circle)}, {"NSchl", literals.text(range.key)}},
          {{"NBezeichnung", literals.text(range.description)},
           {"StartWert", number(range.start)},
           {"AktuellerWert", number(range.current)},
           {"EndWert", number(range.end)},
           {"Aktiviert", flag(range.active)},
           {"SortierIndex", number(range.sortIndex)},
           {"IstNSchlVon", literals.text(range.sharedKey)},
           {"Maske", literals.text(range.mask)}}};
}

Row rowOf(const Literals& literals, const std::string& origin, const Assignment& assignment) {
  return {"Nummernkreis_Zuordnung",
          {{"Buchungskreis", number(assignment.circle)},
           {"NSchl", literals.text(assignment.key)},
           {"Benutzer", literals.text(assignment.user)},
           {"Herkunft", literals.text(origin)}},
          {}};
}

Row rowOf(const Literals& literals, const std::string& origin, const SpecialRange& special) {
  return {"Nummernkreis_Sonderkreise",
          {{"U_NSchl", literals.text(special.ownKey)}, {"Herkunft", literals.text(origin)}},
          {{"NSchl", literals.text(special.key)},
           {"NBezeichnung", literals.text(special.description)},
           {"Aktiviert", flag(special.active)}}};
}

std::string joined(const Columns& columns, const char* between) {
  std::string text;
  for (const auto& [name, value] : columns)
    text += (text.empty() ? "" : between) + std::string(name) + " = " + value;
  return text;
}

std::string insertion(const Row& row) {
  std::string names;
  std::string values;
  for (const Columns& columns : {row.key, row.values})
    for (const auto& [name, value] : columns) {
      names += (names.empty() ? "" : ", ") + std::string(name);
      values += (values.empty() ? "" : ", ") + value;
    }
  return std::string("INSERT INTO ") + row.table + " (" + names + ") VALUES (" + values + ")";
}

std::string condition(const Columns& columns) {
  std::string text;
  for (const auto& [name, value] : columns)
    text += (text.empty() ? "" : " AND ") + std::string(name) +
            (value == "NULL" ? " IS NULL" : " = " + value);
  return text;
}

std::string change(const Row& row) {
  return std::string("UPDATE ") + row.table + " SET " + joined(row.values, ", ") + " WHERE " +
         condition(row.key);
}

std::string removal(const Row& row) {
  return std::string("DELETE FROM ") + row.table + " WHERE " + condition(row.key);
}

// What stays as it is belongs to whoever changes it meanwhile.
Columns differing(const Columns& before, Columns after) {
  std::erase_if(after, [&](const auto& column) {
    return std::find(before.begin(), before.end(), column) != before.end();
  });
  return after;
}

template <class Stored>
std::string difference(const Literals& literals, const std::string& origin, const Stored& before,
                       const Stored& after) {
  const Row stored = rowOf(literals, origin, before);
  return change(
      {stored.table, stored.key, differing(stored.values, rowOf(literals, origin, after).values)});
}

// A range as long as no number is drawn from it, and nobody gives it others.
Columns keyAndNumbers(const Literals& literals, const Range& range) {
  return {{"Buchungskreis", number(range.circle)},
          {"NSchl", literals.text(range.key)},
          {"StartWert", number(range.start)},
          {"AktuellerWert", number(range.current)},
          {"EndWert", number(range.end)}};
}

}  // namespace

std::string insertRow(const Literals& literals, const std::string& origin, const Circle& row) {
  return insertion(rowOf(literals, origin, row));
}
std::string insertRow(const Literals& literals, const std::string& origin, const Range& row) {
  return insertion(rowOf(literals, origin, row));
}
std::string insertRow(const Literals& literals, const std::string& origin, const Assignment& row) {
  return insertion(rowOf(literals, origin, row));
}
std::string insertRow(const Literals& literals, const std::string& origin,
                      const SpecialRange& row) {
  return insertion(rowOf(literals, origin, row));
}

std::string updateRow(const Literals& literals, const std::string& origin, const Circle& stored,
                      const Circle& wanted) {
  return difference(literals, origin, stored, wanted);
}
std::string updateRow(const Literals& literals, const std::string& origin, const Range& stored,
                      const Range& wanted) {
  const Columns values =
      differing(rowOf(literals, origin, stored).values, rowOf(literals, origin, wanted).values);
  return change({"Nummernkreise", keyAndNumbers(literals, stored), values});
}
// Nothing but its key stands in it, so it is what it is.
std::string updateRow(const Literals& literals, const std::string& origin, const Assignment& stored,
                      const Assignment&) {
  Row same = rowOf(literals, origin, stored);
  same.values = {{"Herkunft", literals.text(origin)}};
  return change(same);
}
std::string updateRow(const Literals& literals, const std::string& origin,
                      const SpecialRange& stored, const SpecialRange& wanted) {
  return difference(literals, origin, stored, wanted);
}

std::string deleteRow(const Literals& literals, const std::string& origin, const Circle& row) {
  return removal(rowOf(literals, origin, row));
}
std::string deleteRow(const Literals& literals, const std::string&, const Range& row) {
  return removal({"Nummernkreise", keyAndNumbers(literals, row), {}});
}
std::string deleteRow(const Literals& literals, const std::string& origin, const Assignment& row) {
  return removal(rowOf(literals, origin, row));
}
std::string deleteRow(const Literals& literals, const std::string& origin,
                      const SpecialRange& row) {
  return removal(rowOf(literals, origin, row));
}

std::string renumberRange(const Literals& literals, const Range& range, std::int32_t start,
                          std::int32_t current, std::int32_t end) {
  const Row row = {
      "Nummernkreise",
      keyAndNumbers(literals, range),
      {{"StartWert", number(start)}, {"AktuellerWert", number(current)}, {"EndWert", number(end)}}};
  return change(row);
}

std::string circlesOfOthers(const Literals& literals, const std::string& origin) {
  return "SELECT Buchungskreis FROM Nummernkreis_Buchungskreise WHERE Herkunft <> " +
         literals.text(origin);
}

}  // namespace vexnumkr::numbers::statement
