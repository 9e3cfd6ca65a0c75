#include "rules/saving/stored_changes.h"

#include <algorithm>

#include <vexnumkr/error.h>

#include "data/stored/stored_range.h"

namespace vexnumkr {
namespace {

constexpr std::size_t toldOneByOne = 10;

// By exactly its key: a range without a key is one among others where it comes to what is stored.
bool isInTable(const XArray& table, const RangeId& range) {
  return !table.rangeRows(alleBenutzer, range.Buchungskreis, range.NSchl).empty();
}

// Writes the values into every row that stands for the range.
void replaceValues(const RangeData& data, const RangeId& range, const RangeValues& values) {
  for (const std::string& user : data.users)
    for (const std::int32_t row : data.table.rangeRows(user, range.Buchungskreis, range.NSchl)) {
      data.table.setValue(row, &RangeRow::StartWert, values.StartWert);
      data.table.setValue(row, &RangeRow::AktuellerWert, values.AktuellerWert);
      data.table.setValue(row, &RangeRow::EndWert, values.EndWert);
      data.table.setValue(row, &RangeRow::Maske, values.Maske);
    }
}

const RangeValues* find(const std::map<RangeId, RangeValues>& ranges, const RangeId& range) {
  const auto found = ranges.find(range);
  return found == ranges.end() ? nullptr : &found->second;
}

bool differInCurrentValueAlone(RangeValues a, const RangeValues& b) {
  a.AktuellerWert = b.AktuellerWert;
  return a == b;
}

bool isWithinItsBounds(const RangeValues& values) {
  return values.StartWert <= values.AktuellerWert && values.AktuellerWert <= values.EndWert;
}

[[noreturn]] void failChangedJustNow(const RangeRow& row) {
  throw Error(error_number::changedMeanwhile, "VEXNummernkreise",
              "Der Nummernkreis " + row.NBezeichnung.str() + ", " + row.Gruppe.str() +
                  " wurde soeben an anderer Stelle geändert. Bitte speichern Sie noch einmal.");
}

// The common rows, each with the range that it stands for; copied, since rows are written
// meanwhile.
std::vector<RangeRow> commonRows(const XArray& table) {
  std::vector<RangeRow> rows;
  std::ranges::copy_if(table, std::back_inserter(rows), &RangeRow::isCommon);
  return rows;
}

}  // namespace

StoredRanges readStoredRanges(Recordset& records, const RangeData& data, Others others) {
  StoredRanges stored;
  for (; !records.EndOfFile(); records.MoveNext()) {
    const auto range = rangeIdOf(records);
    if (!range) {
      stored.hasOthers = true;
      continue;
    }
    // A key that is stored as a number, no text of a statement's meets.
    if (records.Fields("NSchl").isText())
      stored.records.push_back({*range, storedContent(records)});
    else
      stored.hasOthers = true;
    if (isInTable(data.table, *range))
      stored.ofTable.insert_or_assign(*range, rangeValuesOf(records));
    else if (others == Others::read && !data.known.wasRead(*range))
      stored.unknown.push_back(storedRange(records, data.table));
  }
  records.Close();
  return stored;
}

StoredChanges takeStoredChanges(const RangeData& data, const StoredRanges& stored) {
  StoredChanges changes;
  for (const RangeRow& row : commonRows(data.table)) {
    const RangeId range = RangeId::of(row);
    const RangeValues* now = find(stored.ofTable, range);
    const RangeValues* known = data.known.values(range);
    if (now == nullptr || known == nullptr || *now == *known) continue;
    const auto own = writableValues(row);
    if (own != *now && own != *known) {
      changes.conflicts.push_back({range, row.NBezeichnung.str(), row.Gruppe.str(), *known, *now});
      continue;
    }
    if (own != *now) {
      replaceValues(data, range, *now);
      changes.replaced = true;
    }
    data.known.values(range, *now);
  }
  return changes;
}

std::string conflictQuestion(const std::vector<Conflict>& conflicts) {
  std::string text = "Folgende Nummernkreise wurden inzwischen an anderer Stelle geändert:\r\n";
  for (std::size_t i = 0; i < std::min(conflicts.size(), toldOneByOne); ++i) {
    const Conflict& conflict = conflicts[i];
    text += conflict.NBezeichnung + ", " + conflict.Gruppe + ": Aktuell " +
            std::to_string(conflict.known.AktuellerWert) + " -> " +
            std::to_string(conflict.stored.AktuellerWert) + "\r\n";
  }
  if (conflicts.size() > toldOneByOne)
    text += "und " + std::to_string(conflicts.size() - toldOneByOne) + " weitere\r\n";
  return text + "\r\nSollen trotzdem Ihre Werte gespeichert werden?";
}

void keepUsersValues(KnownRanges& known, const std::vector<Conflict>& conflicts) {
  for (const Conflict& conflict : conflicts) known.values(conflict.range, conflict.stored);
}

void takeStoredValues(const RangeData& data, const std::vector<Conflict>& conflicts) {
  for (const Conflict& conflict : conflicts) replaceValues(data, conflict.range, conflict.stored);
  keepUsersValues(data.known, conflicts);
}

bool takeDrawnNumbers(const RangeData& data, const StoredRanges& before,
                      const StoredRanges& underLock) {
  std::map<RangeId, RangeValues> drawn;
  for (const RangeRow& row : commonRows(data.table)) {
    const RangeId range = RangeId::of(row);
    const RangeValues* first = find(before.ofTable, range);
    const RangeValues* now = find(underLock.ofTable, range);
    if (first == nullptr && now == nullptr) continue;
    if (first == nullptr || now == nullptr) failChangedJustNow(row);
    if (*first == *now) continue;
    if (!differInCurrentValueAlone(*first, *now) || !isWithinItsBounds(*now) ||
        writableValues(row) != *first)
      failChangedJustNow(row);
    drawn.insert_or_assign(range, *now);
  }
  for (const auto& [range, values] : drawn) {
    replaceValues(data, range, values);
    data.known.values(range, values);
  }
  return !drawn.empty();
}

void knowAsStored(const RangeData& data) {
  for (const RangeRow& row : data.table)
    if (row.isCommon()) data.known.values(RangeId::of(row), RangeValues::of(row));
}

}  // namespace vexnumkr
