#include "rules/read_back.h"

#include <algorithm>
#include <map>
#include <string>

#include <vexnumkr/error.h>

#include "data/hosts_keys.h"
#include "data/range_values.h"

namespace vexnumkr {
namespace {

std::string withoutBlanksAtItsEnd(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string writtenText(const Text& text) { return withoutBlanksAtItsEnd(text.str()); }

// The values of a record or of a row besides its identity, in one form for both.
struct Content {
  std::string NBezeichnung;
  std::int32_t StartWert = 0;
  std::int32_t AktuellerWert = 0;
  std::int32_t EndWert = 0;
  bool Aktiviert = false;
  std::int32_t SortierIndex = 0;
  std::string IstNSchlVon;
  std::string Maske;

  friend bool operator==(const Content&, const Content&) = default;
};

Content written(const RangeRow& row) {
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
std::optional<Content> storedContent(const Recordset& record) {
  try {
    return Content{textOf(record, "NBezeichnung"),          record.Fields("StartWert").toLong(),
                   record.Fields("AktuellerWert").toLong(), record.Fields("EndWert").toLong(),
                   record.Fields("Aktiviert").toBoolean(),  record.Fields("SortierIndex").toLong(),
                   textOf(record, "IstNSchlVon"),           textOf(record, "Maske")};
  } catch (const Error&) {  // it is not what was written then
    return std::nullopt;
  }
}

struct StoredContent {
  std::int32_t records = 0;
  std::optional<Content> content;
};

using Stored = std::map<RangeId, StoredContent>;

Stored readAll(Recordset& records) {
  Stored stored;
  for (; !records.EndOfFile(); records.MoveNext()) {
    auto range = rangeIdOf(records);
    if (!range) continue;
    range->NSchl = withoutBlanksAtItsEnd(range->NSchl);
    StoredContent& found = stored[*range];
    ++found.records;
    found.content = storedContent(records);
  }
  records.Close();
  return stored;
}

RangeId writtenId(const RangeRow& row) { return {row.Buchungskreis, writtenText(row.NSchl)}; }

// A range that is none of the table has no caption.
std::string told(const RangeRow& row) {
  return row.NBezeichnung.str() + ", Buchungskreis " + std::to_string(row.Buchungskreis);
}

[[noreturn]] void failNotAsWritten(const std::string& what) {
  throw Error(error_number::notStoredAsWritten, "VEXNummernkreise",
              "Die Datenbank hat nicht alles so gespeichert, wie es gesendet wurde: " + what + ".");
}

class ReadBack {
 public:
  ReadBack(Recordset& records, const XArray& table, const std::vector<RangeRow>& others)
      : stored_(readAll(records)) {
    for (const RangeRow& row : table)
      if (row.isCommon()) lastWritten_.insert_or_assign(writtenId(row), written(row));
    for (const RangeRow& row : others) lastWritten_.insert_or_assign(writtenId(row), written(row));
  }

  bool isAsWritten(const RangeRow& row) const {
    const auto found = stored_.find(writtenId(row));
    return found != stored_.end() && found->second.records == 1 &&
           found->second.content == lastWritten_.at(writtenId(row));
  }

 private:
  Stored stored_;
  std::map<RangeId, Content> lastWritten_;
};

}  // namespace

void requireStoredAsWritten(const XArray& table, const std::vector<RangeRow>& others,
                            Recordset& records, std::int64_t assignments) {
  const ReadBack readBack(records, table, others);
  for (const RangeRow& row : table)
    if (row.isCommon() && !isHostsKey(row.NSchl.str()) && !readBack.isAsWritten(row))
      failNotAsWritten(row.NBezeichnung.str() + ", " + row.Gruppe.str());
  for (const RangeRow& row : others)
    if (!readBack.isAsWritten(row)) failNotAsWritten(told(row));
  if (assignments != std::ranges::count_if(table, &RangeRow::Aktiviert))
    failNotAsWritten("Zuordnungen");
}

}  // namespace vexnumkr
