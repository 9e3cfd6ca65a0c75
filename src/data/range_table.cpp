#include "data/range_table.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "data/booking_circles.h"
#include "data/loading.h"
#include "data/table/columns.h"
#include "hosting/reporting.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr std::int32_t lastPlace = 99999999;

void appendInactiveRow(XArray& table, const std::string& user, const NewRange& range) {
  table.AppendRows();
  const std::int32_t row = table.UpperBound(1);
  table.set(row, column::Benutzer, user);
  table.set(row, column::Buchungskreis, range.Buchungskreis);
  table.set(row, column::Gruppe, range.Gruppe);
  table.set(row, column::NSchl, range.NSchl);
  table.set(row, column::NBezeichnung, range.NBezeichnung);
  table.set(row, column::StartWert, range.StartWert);
  table.set(row, column::AktuellerWert, range.AktuellerWert);
  table.set(row, column::EndWert, range.EndWert);
  table.set(row, column::Aktiviert, false);
  table.set(row, column::SortierIndex, range.SortierIndex);
  table.set(row, column::IstNSchlVon, range.IstNSchlVon);
}

// Writes the caption of a booking circle into the first of its rows and all further ones.
void renameCircle(XArray& table, std::int32_t firstRow, std::int32_t circle,
                  const std::string& caption) {
  for (std::int32_t row = firstRow; row != -1;
       row = table.Find(row + 1, column::Buchungskreis, circle))
    table.set(row, column::Gruppe, caption);
}

// The rows that new circles get: one for each standard range.
std::int64_t lackingRows(const XArray& table, const XArray& circles) {
  std::int64_t newCircles = 0;
  for (std::int32_t j = circles.LowerBound(1); j <= circles.UpperBound(1); ++j) {
    const std::int32_t circle = circles.toLong(j, circle_column::Buchungskreis);
    if (circle != 0 && table.Find(table.LowerBound(1), column::Buchungskreis, circle) == -1)
      ++newCircles;
  }
  std::int64_t standardRanges = 0;
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row)
    if (table.equals(row, column::Benutzer, alleBenutzer) &&
        table.toLong(row, column::Buchungskreis) == 0)
      ++standardRanges;
  return newCircles * standardRanges;
}

void addOrRenameCircles(HostContext& context) {
  const XArray& list = context.Buchungskreise();
  for (std::int32_t j = list.LowerBound(1); j <= list.UpperBound(1); ++j) {
    const std::int32_t circle = list.toLong(j, circle_column::Buchungskreis);
    if (circle == 0) continue;
    const std::string caption = list.toText(j, circle_column::Beschreibung);
    XArray& table = context.XArray();
    const std::int32_t row = table.Find(table.LowerBound(1), column::Buchungskreis, circle);
    if (row == -1) {
      AddDataBuchungskreis(context, alleBenutzer, circle, "", "", true);
    } else if (!table.equals(row, column::Gruppe, caption)) {
      renameCircle(table, row, circle, caption);
    }
  }
}

// The common rows of `table` whose circle is no longer listed.
std::vector<std::int32_t> rowsOfMissingCircles(HostContext& context, const XArray& table) {
  std::vector<std::int32_t> rows;
  for (std::int32_t row = table.LowerBound(1); row <= table.UpperBound(1); ++row) {
    if (!table.equals(row, column::Benutzer, alleBenutzer)) continue;
    const std::int32_t circle = table.toLong(row, column::Buchungskreis);
    if (circle != 0 && !isListedCircle(context, circle)) rows.push_back(row);
  }
  return rows;
}

// The rows are those of `before`, the table as it was before circles were added and renamed.
void removeMissingCircles(HostContext& context, const XArray& before,
                          const std::vector<std::int32_t>& rows) {
  for (const std::int32_t row : rows) {
    DeleteInXArray(context, before.toLong(row, column::Buchungskreis),
                   before.toText(row, column::NSchl), true);
    context.progress().advance();
  }
}

}  // namespace

std::int32_t FoundInXArray(HostContext& context, const std::string& Benutzer,
                           std::int32_t Buchungskreis, const std::string& NSchl) {
  std::int32_t row = -1;
  reportingFailures(context, {moduleName, "FoundInXArray"},
                    [&] { row = context.XArray().findRange(Benutzer, Buchungskreis, NSchl); });
  return row;
}

void AddInXArray(HostContext& context, const std::string& Benutzer, const NewRange& range,
                 bool AlleBenutzer) {
  reportingFailures(context, {moduleName, "AddInXArray"}, [&] {
    if (Benutzer != alleBenutzer && !AlleBenutzer) return;
    for (const std::string& user : context.colUser()) {
      if (user == alleBenutzer && !AlleBenutzer) continue;
      if (FoundInXArray(context, user, range.Buchungskreis, range.NSchl) == -1)
        appendInactiveRow(context.XArray(), user, range);
    }
  });
}

void DeleteInXArray(HostContext& context, std::int32_t Buchungskreis, const std::string& NSchl,
                    bool AlleBenutzer) {
  reportingFailures(context, {moduleName, "DeleteInXArray"}, [&] {
    for (const std::string& user : context.colUser()) {
      if (user == alleBenutzer && !AlleBenutzer) continue;
      const std::int32_t row = FoundInXArray(context, user, Buchungskreis, NSchl);
      if (row < 0) continue;
      context.XArray().DeleteRows(row);
      context.blnChanged(true);
    }
  });
}

void RefreshInXArray(HostContext& context) {
  reportingFailures(context, {moduleName, "RefreshInXArray"}, [&] {
    const Work work(context.progress(), "Nummernkreise werden übernommen…");
    XArray before = XArray::withColumns(column::last);
    CopyXArrayDB(context, context.XArray(), before);
    const std::vector<std::int32_t> missing = rowsOfMissingCircles(context, before);
    context.progress().expect(lackingRows(before, context.Buchungskreise()) +
                              static_cast<std::int64_t>(missing.size()));
    addOrRenameCircles(context);
    removeMissingCircles(context, before, missing);
    context.progress().finish();
  });
}

void CopyXArrayDB(HostContext& context, const XArray& source, XArray& target) {
  reportingFailures(context, {moduleName, "CopyXArrayDB"}, [&] { target.copyFrom(source); });
}

std::int32_t GetNewIndex() { return lastPlace; }

void SetValueAll(HostContext& context, const std::string& NSchl, std::int32_t Buchungskreis,
                 std::int32_t columnNumber, const Value& value) {
  reportingFailures(context, {moduleName, "SetValueAll"}, [&] {
    for (const std::string& user : context.colUser()) {
      const std::int32_t row = FoundInXArray(context, user, Buchungskreis, NSchl);
      if (row > -1) context.XArray().set(row, columnNumber, value);
    }
  });
}

void SetValue(HostContext& context, const std::string& NSchl, const std::string& Gruppe,
              const std::string& user, std::int32_t columnNumber, const Value& value) {
  reportingFailures(context, {moduleName, "SetValue"}, [&] {
    XArray& table = context.XArray();
    using TextCell = std::pair<std::int32_t, std::string_view>;
    const std::array<TextCell, 3> cells{TextCell{column::Benutzer, user},
                                        TextCell{column::Gruppe, Gruppe},
                                        TextCell{column::NSchl, NSchl}};
    const std::int32_t row = table.FindRow(cells);
    if (row > -1) table.set(row, columnNumber, value);
  });
}

}  // namespace vexnumkr::basAllgemein
