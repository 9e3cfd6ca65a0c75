#include "data/circle_changes.h"

#include <algorithm>
#include <vector>

#include "data/range_questions.h"
#include "data/range_rows.h"
#include "data/range_table.h"

namespace vexnumkr::basAllgemein {
namespace {

// Writes the caption of a booking circle into the first of its rows and all further ones.
void renameCircle(XArray& table, std::int32_t firstRow, const BookingCircle& circle) {
  for (std::int32_t row = firstRow; row != -1;
       row = table.findCircle(circle.Buchungskreis, row + 1))
    table.setGruppe(row, circle.Beschreibung);
}

bool isNew(const XArray& table, const BookingCircle& circle) {
  return circle.Buchungskreis != 0 && table.findCircle(circle.Buchungskreis) == -1;
}

// The rows that new circles get: one for each standard range.
std::int64_t lackingRows(const RangeData& data) {
  const auto newCircles = std::ranges::count_if(
      data.circles, [&](const BookingCircle& circle) { return isNew(data.table, circle); });
  return newCircles * std::ranges::count_if(data.table, [](const RangeRow& row) {
           return row.isStandard() && row.isCommon();
         });
}

// The common rows whose circle is no longer listed.
std::vector<RangeRow> rowsOfMissingCircles(const RangeData& data) {
  std::vector<RangeRow> rows;
  std::ranges::copy_if(data.table, std::back_inserter(rows), [&](const RangeRow& row) {
    return !row.isStandard() && row.isCommon() && !data.circles.contains(row.Buchungskreis);
  });
  return rows;
}

void addOrRenameCircles(const RangeData& data, RangeQuestions& questions, Reporter& reporter,
                        Progress& progress) {
  for (const BookingCircle& circle : data.circles) {
    if (circle.Buchungskreis == 0) continue;
    const std::int32_t row = data.table.findCircle(circle.Buchungskreis);
    if (row == -1) {
      questions.expectSharedValues();
      AddDataBuchungskreis(data, questions, reporter, progress, alleBenutzer, circle.Buchungskreis,
                           "", "", true);
    } else if (data.table.at(row).Gruppe != circle.Beschreibung) {
      renameCircle(data.table, row, circle);
    }
  }
}

}  // namespace

bool RefreshInXArray(const RangeData& data, StatementSource& source, Reporter& reporter,
                     Progress& progress) {
  bool changed = false;
  reportingFailures(reporter, {generalModule, "RefreshInXArray"}, [&] {
    const Work work(progress, "Nummernkreise werden übernommen…");
    // Taken before circles are added and renamed.
    const std::vector<RangeRow> missing = rowsOfMissingCircles(data);
    progress.expect(lackingRows(data) + static_cast<std::int64_t>(missing.size()));
    addOrRenameCircles(data, *makeRangeQuestions(source, reporter), reporter, progress);
    for (const RangeRow& row : missing) {
      if (DeleteInXArray(data.table, data.users, reporter, row.Buchungskreis, row.NSchl.str(),
                         true))
        changed = true;
      progress.advance();
    }
    data.known.follow(data.table);
    progress.finish();
  });
  return changed;
}

}  // namespace vexnumkr::basAllgemein
