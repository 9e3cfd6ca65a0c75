#include "data/loading.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>
#include <vector>

#include "data/booking_circles.h"
#include "data/query.h"
#include "data/range_table.h"
#include "data/sql/statements.h"
#include "data/table/columns.h"
#include "hosting/reporting.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr const char* notListed = "-1";

RangeRow storedRow(const Recordset& record) {
  const Value nothing("");
  RangeRow range;
  range.Benutzer = alleBenutzer;
  range.Buchungskreis = record.Fields("Buchungskreis").toLong();
  range.NSchl = record.Fields("NSchl").toText();
  range.NBezeichnung = record.Fields("NBezeichnung").toText();
  range.StartWert = record.Fields("StartWert").toLong();
  range.AktuellerWert = record.Fields("AktuellerWert").toLong();
  range.EndWert = record.Fields("EndWert").toLong();
  // The standard range is everybody's fallback, whatever is stored.
  range.Aktiviert =
      range.Buchungskreis == 0 || NzValue(record.Fields("Aktiviert"), false).toBoolean();
  range.SortierIndex = NzValue(record.Fields("SortierIndex"), 0).toLong();
  range.IstNSchlVon = NzValue(record.Fields("IstNSchlVon"), nothing).toText();
  range.Maske = NzValue(record.Fields("Maske"), nothing).toText();
  return range;
}

RangeRow rangeOf(const TableRow& row) {
  RangeRow range;
  range.Benutzer = row.toText(column::Benutzer);
  range.Buchungskreis = row.toLong(column::Buchungskreis);
  range.NSchl = row.toText(column::NSchl);
  range.NBezeichnung = row.toText(column::NBezeichnung);
  range.StartWert = row.toLong(column::StartWert);
  range.AktuellerWert = row.toLong(column::AktuellerWert);
  range.EndWert = row.toLong(column::EndWert);
  range.SortierIndex = row.toLong(column::SortierIndex);
  range.IstNSchlVon = row.toText(column::IstNSchlVon);
  range.Maske = row.get(column::Maske);
  return range;
}

void readRanges(HostContext& context) {
  const auto records = query(context.cmdSQL(), statement::ranges());
  for (; !records->EndOfFile(); records->MoveNext())
    AddDataGroup(context, storedRow(*records), false);
  records->Close();
}

std::int64_t activeRows(const XArray& table) {
  std::int64_t count = 0;
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    if (table.toBoolean(row, column::Aktiviert)) ++count;
  return count;
}

// The common rows that spreading adds: number keys times booking circles, less those that are
// stored.
std::int64_t lackingRows(HostContext& context) {
  const XArray& table = context.XArray();
  const XArray& circles = context.Buchungskreise();
  std::unordered_set<std::string> keys;
  for (std::int32_t i = table.LowerBound(1); i <= table.UpperBound(1); ++i)
    keys.insert(table.toText(i, column::NSchl));
  std::int64_t count = 0;
  for (std::int32_t j = circles.LowerBound(1); j <= circles.UpperBound(1); ++j) {
    const std::int32_t circle = circles.toLong(j, circle_column::Buchungskreis);
    for (const std::string& key : keys)
      if (table.findRange(alleBenutzer, circle, key) == -1) ++count;
  }
  return count;
}

std::int64_t userCount(HostContext& context) {
  const auto& users = context.colUser();
  return std::count_if(users.begin(), users.end(),
                       [](const std::string& user) { return user != alleBenutzer; });
}

// Gives every number key a common row in every booking circle of the origin. The rows that it adds
// are rarely active, so the work to come is told without them.
void spreadOverCircles(HostContext& context) {
  XArray& table = context.XArray();
  const XArray& circles = context.Buchungskreise();
  context.progress().expect(lackingRows(context) + activeRows(table) * userCount(context));
  const std::int32_t lastRow = table.UpperBound(1);
  for (std::int32_t i = table.LowerBound(1); i <= lastRow; ++i) {
    const std::string key = table.toText(i, column::NSchl);
    for (std::int32_t j = circles.LowerBound(1); j <= circles.UpperBound(1); ++j) {
      const std::int32_t circle = circles.toLong(j, circle_column::Buchungskreis);
      if (FoundInXArray(context, alleBenutzer, circle, key) != -1) continue;
      RangeRow range = rangeOf(table.at(i));
      range.Benutzer = alleBenutzer;
      range.Buchungskreis = circle;
      AddDataGroup(context, std::move(range), true);
      context.progress().advance();
    }
  }
}

void sortByCircleAndKey(XArray& table) {
  static constexpr std::array keys{SortKey{column::Buchungskreis, true, Comparison::Number},
                                   SortKey{column::NSchl, true, Comparison::Text}};
  table.QuickSort(table.LowerBound(1), table.UpperBound(1), keys);
}

void deriveUserRow(HostContext& context, const RangeRow& common, const std::string& user) {
  if (FoundInXArray(context, user, common.Buchungskreis, common.NSchl) != -1) return;
  RangeRow range = common;
  range.Benutzer = user;
  range.Aktiviert = AktiviertDB(context, common.Buchungskreis, common.NSchl, user);
  AddDataGroup(context, std::move(range), false);
}

// A range that is active for all gets a row for every user; the assignments say whose is active.
void deriveUserRows(HostContext& context) {
  XArray& table = context.XArray();
  context.progress().expect(activeRows(table) * userCount(context));
  const std::int32_t lastRow = table.UpperBound(1);
  for (std::int32_t i = table.LowerBound(1); i <= lastRow; ++i) {
    if (!table.toBoolean(i, column::Aktiviert)) continue;
    RangeRow common = rangeOf(table.at(i));
    common.Gruppe = table.toText(i, column::Gruppe);
    for (const std::string& user : context.colUser()) {
      if (user == alleBenutzer) continue;
      deriveUserRow(context, common, user);
      context.progress().advance();
    }
  }
}

std::string captionOf(HostContext& context, std::int32_t circle) {
  return LookupBuchungskreis(context, circle_column::Beschreibung, circle).toText();
}

// The standard rows of `user` for the key (all for an empty one) in the order of their display.
std::vector<std::int32_t> standardRows(const XArray& table, const std::string& user,
                                       const std::string& NSchl) {
  if (!NSchl.empty()) return table.rangeRows(user, 0, NSchl);
  std::vector<std::int32_t> rows;
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    if (table.equals(row, column::Benutzer, user) && table.toLong(row, column::Buchungskreis) == 0)
      rows.push_back(row);
  return rows;
}

void sortForDisplay(const XArray& table, std::vector<std::int32_t>& rows) {
  const auto place = [&table](std::int32_t row) {
    return std::pair(table.toLong(row, column::SortierIndex), table.toText(row, column::NSchl));
  };
  std::stable_sort(rows.begin(), rows.end(),
                   [&place](std::int32_t a, std::int32_t b) { return place(a) < place(b); });
}

struct CircleValues {
  Value StartWert;
  Value AktuellerWert;
  Value EndWert;
  Value Maske;
  Value Aktiviert;
};

CircleValues storedValues(HostContext& context, std::int32_t circle, const std::string& NSchl) {
  std::int32_t start = 0;
  std::int32_t end = 0;
  std::int32_t current = 0;
  GetBuchungskreisData(context, circle, NSchl, start, end, current);
  return {start, current, end, "", false};
}

CircleValues copiedValues(const XArray& table, std::int32_t row) {
  return {table.get(row, column::StartWert), table.get(row, column::AktuellerWert),
          table.get(row, column::EndWert), table.get(row, column::Maske),
          table.get(row, column::Aktiviert)};
}

// Appends a copy of the standard row `source` for another booking circle.
void copyStandardRow(HostContext& context, std::int32_t source, const std::string& user,
                     std::int32_t circle, const std::string& caption, bool fromDatabase) {
  XArray& table = context.XArray();
  table.AppendRows();
  const std::int32_t row = table.UpperBound(1);
  table.set(row, column::Benutzer, user);
  table.set(row, column::Buchungskreis, circle);
  table.set(row, column::Gruppe, caption);
  for (const std::int32_t same :
       {column::NSchl, column::NBezeichnung, column::SortierIndex, column::IstNSchlVon})
    table.set(row, same, table.get(source, same));
  const CircleValues values = fromDatabase
                                  ? storedValues(context, circle, table.toText(row, column::NSchl))
                                  : copiedValues(table, source);
  table.set(row, column::StartWert, values.StartWert);
  table.set(row, column::AktuellerWert, values.AktuellerWert);
  table.set(row, column::EndWert, values.EndWert);
  table.set(row, column::Maske, values.Maske);
  table.set(row, column::Aktiviert, values.Aktiviert);
  context.progress().advance();
}

}  // namespace

void LoadItems(HostContext& context, ActivityRule CheckActivity) {
  reportingFailures(context, {moduleName, "LoadItems"}, [&] {
    const Work work(context.progress(), "Nummernkreise werden geladen…");
    readRanges(context);
    spreadOverCircles(context);
    sortByCircleAndKey(context.XArray());
    deriveUserRows(context);
    CheckActivity(context);
    context.progress().finish();
  });
}

bool AktiviertDB(HostContext& context, std::int32_t Buchungskreis, const std::string& NSchl,
                 const std::string& Benutzer) {
  bool active = false;
  reportingFailures(context, {moduleName, "AktiviertDB"}, [&] {
    const auto text = statement::assignment(Buchungskreis, NSchl, Benutzer, context.Herkunft());
    active = execute(context.cmdSQL(), text) != 0;
  });
  return active;
}

void AddDataGroup(HostContext& context, RangeRow range, bool AlleBenutzer) {
  reportingFailures(context, {moduleName, "AddDataGroup"}, [&] {
    if (range.Gruppe.empty()) {
      range.Gruppe =
          range.Buchungskreis != 0 ? captionOf(context, range.Buchungskreis) : standardGroup;
      if (range.Gruppe == notListed) return;
    }
    XArray& table = context.XArray();
    table.AppendRows();
    const std::int32_t row = table.UpperBound(1);
    table.set(row, column::Benutzer, range.Benutzer);
    table.set(row, column::Buchungskreis, range.Buchungskreis);
    table.set(row, column::Gruppe, range.Gruppe);
    table.set(row, column::NSchl, range.NSchl);
    table.set(row, column::NBezeichnung, range.NBezeichnung);
    if (AlleBenutzer) {
      for (const std::int32_t zero :
           {column::StartWert, column::AktuellerWert, column::EndWert, column::Maske})
        table.set(row, zero, 0);
      table.set(row, column::Aktiviert,
                AktiviertDB(context, range.Buchungskreis, range.NSchl, range.Benutzer));
    } else {
      table.set(row, column::StartWert, range.StartWert);
      table.set(row, column::AktuellerWert, range.AktuellerWert);
      table.set(row, column::EndWert, range.EndWert);
      table.set(row, column::Maske, range.Maske);
      table.set(row, column::Aktiviert, range.Aktiviert);
    }
    table.set(row, column::SortierIndex, range.SortierIndex);
    table.set(row, column::IstNSchlVon, range.IstNSchlVon);
  });
}

void AddDataBuchungskreis(HostContext& context, const std::string& Benutzer,
                          std::int32_t Buchungskreis, std::string Gruppe, const std::string& NSchl,
                          bool AusDatenbank) {
  reportingFailures(context, {moduleName, "AddDataBuchungskreis"}, [&] {
    if (Gruppe.empty()) Gruppe = captionOf(context, Buchungskreis);
    // Rows are only appended below, so the rows to copy stay where they are.
    auto rows = standardRows(context.XArray(), Benutzer, NSchl);
    sortForDisplay(context.XArray(), rows);
    for (const std::int32_t row : rows)
      copyStandardRow(context, row, Benutzer, Buchungskreis, Gruppe, AusDatenbank);
  });
}

void GetBuchungskreisData(HostContext& context, std::int32_t Buchungskreis,
                          const std::string& NSchl, std::int32_t& StartWert, std::int32_t& EndWert,
                          std::int32_t& AktuellerWert) {
  reportingFailures(context, {moduleName, "GetBuchungskreisData"}, [&] {
    StartWert = EndWert = AktuellerWert = 0;
    std::int32_t affected = 0;
    Connection& connection = context.ConnWork();
    const auto others = connection.Execute(
        statement::otherOriginsOfCircle(Buchungskreis, context.Herkunft()), affected);
    if (others->Fields("Anzahl").toLong() != 1) return;
    const auto stored = connection.Execute(statement::storedRange(NSchl, Buchungskreis), affected);
    if (stored->EndOfFile()) return;
    StartWert = stored->Fields("StartWert").toLong();
    EndWert = stored->Fields("EndWert").toLong();
    AktuellerWert = stored->Fields("AktuellerWert").toLong();
  });
}

}  // namespace vexnumkr::basAllgemein
