#include "data/range_table.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr std::int32_t lastPlace = 99999999;

}  // namespace

std::int32_t FoundInXArray(const XArray& table, Reporter& reporter, const std::string& Benutzer,
                           std::int32_t Buchungskreis, const std::string& NSchl) {
  std::int32_t row = -1;
  reportingFailures(reporter, {generalModule, "FoundInXArray"},
                    [&] { row = table.findRange(Benutzer, Buchungskreis, NSchl); });
  return row;
}

void AddInXArray(XArray& table, const Users& users, Reporter& reporter, const RangeRow& range,
                 bool AlleBenutzer) {
  reportingFailures(reporter, {generalModule, "AddInXArray"}, [&] {
    if (!range.isCommon() && !AlleBenutzer) return;
    RangeRow row = range;
    // Nobody draws from a range until somebody has said so.
    row.Aktiviert = false;
    row.Maske = Cell();
    for (const std::string& user : users) {
      if (user == alleBenutzer && !AlleBenutzer) continue;
      if (FoundInXArray(table, reporter, user, row.Buchungskreis, row.NSchl.str()) != -1) continue;
      row.Benutzer = table.text(user);
      table.append(row);
    }
  });
}

bool DeleteInXArray(XArray& table, const Users& users, Reporter& reporter,
                    std::int32_t Buchungskreis, const std::string& NSchl, bool AlleBenutzer) {
  bool changed = false;
  reportingFailures(reporter, {generalModule, "DeleteInXArray"}, [&] {
    for (const std::string& user : users) {
      if (user == alleBenutzer && !AlleBenutzer) continue;
      const std::int32_t row = FoundInXArray(table, reporter, user, Buchungskreis, NSchl);
      if (row < 0) continue;
      table.remove(row);
      changed = true;
    }
  });
  return changed;
}

std::int32_t GetNewIndex() { return lastPlace; }

void SetValueAll(XArray& table, const Users& users, Reporter& reporter, const std::string& NSchl,
                 std::int32_t Buchungskreis, ValueColumn column, const Value& value) {
  reportingFailures(reporter, {generalModule, "SetValueAll"}, [&] {
    for (const std::string& user : users) {
      const std::int32_t row = FoundInXArray(table, reporter, user, Buchungskreis, NSchl);
      if (row > -1) table.setValue(row, column, value);
    }
  });
}

void SetValue(XArray& table, Reporter& reporter, const std::string& NSchl,
              const std::string& Gruppe, const std::string& user, bool Aktiviert) {
  reportingFailures(reporter, {generalModule, "SetValue"}, [&] {
    const std::int32_t row = table.findCaption(user, Gruppe, NSchl);
    if (row > -1) table.setAktiviert(row, Aktiviert);
  });
}

}  // namespace vexnumkr::basAllgemein
