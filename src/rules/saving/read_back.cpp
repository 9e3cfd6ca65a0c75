#include "rules/saving/read_back.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include <vexnumkr/error.h>

#include "data/stored/hosts_keys.h"
#include "data/stored/range_values.h"
#include "rules/saving/saving.h"

namespace vexnumkr {
namespace {

std::string withoutBlanksAtItsEnd(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string writtenText(const Text& text) { return withoutBlanksAtItsEnd(text.str()); }

// The values of a record or of a row besides its identity, in one form for both. Looser than
// RangeContent: blanks at the end of a text and NULL for an empty one are what engines and hosts
// make of what was written, and no loss.
struct LooseContent {
  std::string NBezeichnung;
  std::int32_t StartWert = 0;
  std::int32_t AktuellerWert = 0;
  std::int32_t EndWert = 0;
  bool Aktiviert = false;
  std::int32_t SortierIndex = 0;
  std::string IstNSchlVon;
  std::string Maske;

  friend bool operator==(const LooseContent&, const LooseContent&) = default;
};

LooseContent written(const RangeRow& row) {
  return {writtenText(row.NBezeichnung),
          row.StartWert.toLong(),
          row.AktuellerWert.toLong(),
          row.EndWert.toLong(),
          row.Aktiviert,
          row.SortierIndex,
          writtenText(row.IstNSchlVon),
          withoutBlanksAtItsEnd(row.Maske.toText())};
}

std::string textOf(const Recordset& record, std::string_view column) {
  const Value value = record.Fields(column);
  return value.isNull() ? std::string() : withoutBlanksAtItsEnd(value.toText());
}

// Nothing for a record with a NULL or something else than a number where a number was written.
std::optional<LooseContent> looseContentOf(const Recordset& record) {
  try {
    return LooseContent{
        textOf(record, "NBezeichnung"),          record.Fields("StartWert").toLong(),
        record.Fields("AktuellerWert").toLong(), record.Fields("EndWert").toLong(),
        record.Fields("Aktiviert").toBoolean(),  record.Fields("SortierIndex").toLong(),
        textOf(record, "IstNSchlVon"),           textOf(record, "Maske")};
  } catch (const Error&) {  // it is not what was written then
    return std::nullopt;
  }
}

// All that is stored of one range: once, if all is well.
struct FoundRecords {
  std::int32_t count = 0;
  std::optional<LooseContent> last;
};

using Stored = std::map<RangeId, FoundRecords>;

Stored readAll(Recordset& records) {
  Stored stored;
  for (; !records.EndOfFile(); records.MoveNext()) {
    auto range = rangeIdOf(records);
    if (!range) continue;
    range->NSchl = withoutBlanksAtItsEnd(range->NSchl);
    FoundRecords& found = stored[*range];
    ++found.count;
    found.last = looseContentOf(records);
  }
  records.Close();
  return stored;
}

RangeId writtenId(const RangeRow& row) { return {row.Buchungskreis, writtenText(row.NSchl)}; }

// A range that is none of the table has no caption.
std::string told(const std::string& NBezeichnung, std::int32_t Buchungskreis) {
  return NBezeichnung + ", Buchungskreis " + std::to_string(Buchungskreis);
}

[[noreturn]] void failNotAsWritten(const std::string& what) {
  throw Error(error_number::notStoredAsWritten, "VEXNummernkreise",
              "Die Datenbank hat nicht alles so gespeichert, wie es gesendet wurde: " + what + ".");
}

class ReadBack {
 public:
  // Of what is written twice the last counts.
  ReadBack(Recordset& records, const XArray& table, const std::vector<RangeRow>& others)
      : stored_(readAll(records)) {
    for (const RangeRow& row : table)
      if (row.isCommon()) lastWritten_.insert_or_assign(writtenId(row), written(row));
    for (const RangeRow& row : others) lastWritten_.insert_or_assign(writtenId(row), written(row));
  }

  bool isAsWritten(const RangeRow& row) const {
    const auto found = stored_.find(writtenId(row));
    return found != stored_.end() && found->second.count == 1 &&
           found->second.last == lastWritten_.at(writtenId(row));
  }

  void requireGone(const RangeId& range) const {
    const RangeId id{range.Buchungskreis, withoutBlanksAtItsEnd(range.NSchl)};
    const auto found = stored_.find(id);
    if (found == stored_.end() || lastWritten_.contains(id)) return;
    const auto& content = found->second.last;
    failNotAsWritten(told(content ? content->NBezeichnung : id.NSchl, id.Buchungskreis));
  }

 private:
  Stored stored_;
  std::map<RangeId, LooseContent> lastWritten_;
};

// Assignments in a form that can be sorted: texts are numbered, so that many take little room.
class Assignments {
 public:
  explicit Assignments(std::unordered_map<std::string, std::int32_t>& numbers)
      : numbers_(numbers) {}

  void add(std::int32_t Buchungskreis, std::string_view NSchl, std::string_view Benutzer) {
    all_.push_back({Buchungskreis, number(NSchl), number(Benutzer)});
  }
  void sort() { std::ranges::sort(all_); }
  friend bool operator==(const Assignments& a, const Assignments& b) { return a.all_ == b.all_; }

 private:
  std::int32_t number(std::string_view text) {
    return numbers_
        .try_emplace(withoutBlanksAtItsEnd(std::string(text)),
                     static_cast<std::int32_t>(numbers_.size()))
        .first->second;
  }

  std::unordered_map<std::string, std::int32_t>& numbers_;
  std::vector<std::array<std::int32_t, 3>> all_;
};

void addStored(Assignments& stored, const Recordset& record) {
  try {
    stored.add(record.Fields("Buchungskreis").toLong(), textOf(record, "NSchl"),
               textOf(record, "Benutzer"));
  } catch (const Error&) {  // it is not what was written then
    failNotAsWritten("Zuordnungen");
  }
}

}  // namespace

void requireRangesAsWritten(const XArray& table, const BesidesTheTable& besides,
                            Recordset& records) {
  const ReadBack readBack(records, table, besides.others);
  for (const RangeRow& row : table)
    if (row.isCommon() && !isHostsKey(row.NSchl.str()) && !readBack.isAsWritten(row))
      failNotAsWritten(row.NBezeichnung.str() + ", " + row.Gruppe.str());
  for (const RangeRow& row : besides.others)
    if (!readBack.isAsWritten(row))
      failNotAsWritten(told(row.NBezeichnung.str(), row.Buchungskreis));
  for (const RangeId& range : besides.removed) readBack.requireGone(range);
}

void requireAssignmentCount(const XArray& table, std::int64_t assignments) {
  if (assignments != std::ranges::count_if(table, &RangeRow::Aktiviert))
    failNotAsWritten("Zuordnungen");
}

void requireAssignmentsAsWritten(const XArray& table, Recordset& records) {
  std::unordered_map<std::string, std::int32_t> numbers;
  Assignments written(numbers);
  for (const RangeRow& row : table)
    if (row.Aktiviert)
      written.add(row.Buchungskreis, row.NSchl.str(),
                  basAllgemein::ReplaceUser(row.Benutzer.str()));
  Assignments stored(numbers);
  for (; !records.EndOfFile(); records.MoveNext()) addStored(stored, records);
  records.Close();
  written.sort();
  stored.sort();
  if (!(written == stored)) failNotAsWritten("Zuordnungen");
}

}  // namespace vexnumkr
