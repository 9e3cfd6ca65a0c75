#include "data/special_ranges.h"

#include "data/loading.h"
#include "data/query.h"
#include "data/range_table.h"
#include "data/sql/statements.h"
#include "data/table/columns.h"
#include "hosting/reporting.h"

namespace vexnumkr::basAllgemein {
namespace {

struct SpecialRange {
  std::string U_NSchl;
  std::string NSchl;
  std::string NBezeichnung;
  bool Aktiviert = false;
};

SpecialRange specialRange(const Recordset& record) {
  return {record.Fields("U_NSchl").toText(), record.Fields("NSchl").toText(),
          record.Fields("NBezeichnung").toText(), record.Fields("Aktiviert").toBoolean()};
}

// `left` is the number of special ranges still to come, this one included.
void add(HostContext& context, const SpecialRange& special, std::int64_t left) {
  const XArray& table = context.XArray();
  if (table.Find(table.LowerBound(1), column::NSchl, special.U_NSchl) != -1) return;
  RangeRow range;
  range.Gruppe = standardGroup;
  range.NSchl = special.U_NSchl;
  range.NBezeichnung = special.NBezeichnung;
  range.Aktiviert = true;
  range.SortierIndex = GetNewIndex();
  range.IstNSchlVon = special.NSchl;
  range.Maske = "";
  for (const std::string& user : context.colUser()) {
    range.Benutzer = user;
    AddDataGroup(context, range, false);
  }
  const XArray& circles = context.Buchungskreise();
  context.progress().expect(left * (circles.UpperBound(1) - circles.LowerBound(1) + 1));
  for (std::int32_t j = circles.LowerBound(1); j <= circles.UpperBound(1); ++j)
    AddDataBuchungskreis(context, alleBenutzer, circles.toLong(j, circle_column::Buchungskreis), "",
                         special.U_NSchl, true);
}

// At most `rows` rows go, as many as the table had before special ranges were added.
void remove(XArray& table, const std::string& key, std::int32_t rows) {
  std::int32_t row = table.LowerBound(1);
  for (std::int32_t removed = 0; removed < rows; ++removed) {
    row = table.Find(row, column::NSchl, key);
    if (row == -1) return;
    table.DeleteRows(row);
  }
}

}  // namespace

bool CheckSonderkreise(HostContext& context) {
  bool any = false;
  reportingFailures(context, {moduleName, "CheckSonderkreise"}, [&] {
    const auto count = query(context.cmdSQL(), statement::specialRangeCount(context.Herkunft()));
    any = count->Fields("Anzahl").toLong() >= 1;
  });
  return any;
}

void RefreshSGroups(HostContext& context) {
  reportingFailures(context, {moduleName, "RefreshSGroups"}, [&] {
    const Work work(context.progress(), "Sonderkreise werden übernommen…");
    XArray& table = context.XArray();
    const std::int32_t rowsBefore = table.UpperBound(1) - table.LowerBound(1) + 1;
    std::int32_t found = 0;
    const auto records =
        query(context.cmdSQL(), statement::specialRangesByKey(context.Herkunft()), found);
    for (; !records->EndOfFile(); records->MoveNext(), --found) {
      const SpecialRange special = specialRange(*records);
      if (special.Aktiviert)
        add(context, special, found);
      else
        remove(table, special.U_NSchl, rowsBefore);
    }
    records->Close();
    context.progress().finish();
  });
}

}  // namespace vexnumkr::basAllgemein
