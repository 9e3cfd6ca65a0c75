#include "data/special_ranges.h"

#include "data/range_questions.h"
#include "data/range_rows.h"
#include "data/range_table.h"
#include "data/sql/statements.h"

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

RangeRow standardRange(XArray& table, const SpecialRange& special) {
  RangeRow range;
  range.Gruppe = table.text(standardGroup);
  range.NSchl = table.text(special.U_NSchl);
  range.NBezeichnung = table.text(special.NBezeichnung);
  range.StartWert = range.AktuellerWert = range.EndWert = 0;
  range.Aktiviert = true;
  range.SortierIndex = GetNewIndex();
  range.IstNSchlVon = table.text(special.NSchl);
  range.Maske = Text();
  return range;
}

// `left` is the number of special ranges still to come, this one included.
void add(const RangeData& data, RangeQuestions& questions, Reporter& reporter, Progress& progress,
         const SpecialRange& special, std::int64_t left) {
  if (data.table.findNumberKey(special.U_NSchl) != -1) return;
  RangeRow range = standardRange(data.table, special);
  for (const std::string& user : data.users) {
    range.Benutzer = data.table.text(user);
    AddDataGroup(data, questions, reporter, range, false);
  }
  if (data.circles.size() > 0) questions.expectSharedValues();
  progress.expect(left * static_cast<std::int64_t>(data.circles.size()));
  for (const BookingCircle& circle : data.circles)
    AddDataBuchungskreis(data, questions, reporter, progress, alleBenutzer, circle.Buchungskreis,
                         "", special.U_NSchl, true);
}

// At most `rows` rows go, as many as the table had before special ranges were added.
void remove(XArray& table, const std::string& key, std::int32_t rows) {
  std::int32_t row = 0;
  for (std::int32_t removed = 0; removed < rows; ++removed) {
    row = table.findNumberKey(key, row);
    if (row == -1) return;
    table.remove(row);
  }
}

}  // namespace

bool CheckSonderkreise(StatementSource& source, Reporter& reporter) {
  bool any = false;
  reportingFailures(reporter, {generalModule, "CheckSonderkreise"}, [&] {
    const auto count = source.query(statement::specialRangeCount(source.origin().Herkunft()));
    any = count->Fields("Anzahl").toLong() >= 1;
  });
  return any;
}

void RefreshSGroups(const RangeData& data, StatementSource& source, Reporter& reporter,
                    Progress& progress) {
  reportingFailures(reporter, {generalModule, "RefreshSGroups"}, [&] {
    const Work work(progress, "Sonderkreise werden übernommen…");
    const std::int32_t rowsBefore = data.table.size();
    const auto questions = makeRangeQuestions(source, reporter);
    std::int32_t left = 0;
    const auto records =
        source.query(statement::specialRangesByKey(source.origin().Herkunft()), left);
    for (; !records->EndOfFile(); records->MoveNext(), --left) {
      const SpecialRange special = specialRange(*records);
      if (special.Aktiviert)
        add(data, *questions, reporter, progress, special, left);
      else
        remove(data.table, special.U_NSchl, rowsBefore);
    }
    records->Close();
    data.known.follow(data.table);
    progress.finish();
  });
}

}  // namespace vexnumkr::basAllgemein
