#include "data/range_rows.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace vexnumkr::basAllgemein {
namespace {

// What stands for the caption of a circle that the list does not have.
constexpr const char* notListed = "-1";

// The standard rows of `user` for the key (all for an empty one) in the order of their display.
std::vector<RangeRow> standardRows(const XArray& table, const std::string& user,
                                   const std::string& NSchl) {
  std::vector<RangeRow> rows;
  if (!NSchl.empty()) {
    for (const std::int32_t row : table.rangeRows(user, 0, NSchl)) rows.push_back(table.at(row));
  } else {
    std::ranges::copy_if(table, std::back_inserter(rows), [&](const RangeRow& row) {
      return row.isStandard() && row.Benutzer == user;
    });
  }
  std::ranges::stable_sort(rows, [](const RangeRow& a, const RangeRow& b) {
    return std::tie(a.SortierIndex, a.NSchl.str()) < std::tie(b.SortierIndex, b.NSchl.str());
  });
  return rows;
}

// Gives a copy of a standard row what the database has for its booking circle.
void fillFromDatabase(RangeQuestions& questions, RangeRow& row) {
  const SharedValues stored = questions.GetBuchungskreisData(row.Buchungskreis, row.NSchl.str());
  row.StartWert = stored.StartWert;
  row.AktuellerWert = stored.AktuellerWert;
  row.EndWert = stored.EndWert;
  row.Maske = Text();
  row.Aktiviert = false;
}

}  // namespace

void AddDataGroup(const RangeData& data, RangeQuestions& questions, Reporter& reporter,
                  RangeRow range, bool AlleBenutzer) {
  reportingFailures(reporter, {generalModule, "AddDataGroup"}, [&] {
    if (range.Gruppe.empty() && range.isStandard()) {
      range.Gruppe = data.table.text(standardGroup);
    } else if (range.Gruppe.empty()) {
      const auto caption = LookupBuchungskreis(data.circles, reporter, range.Buchungskreis);
      if (!caption) return;
      range.Gruppe = data.table.text(*caption);
    }
    if (AlleBenutzer) {
      range.StartWert = range.AktuellerWert = range.EndWert = range.Maske = 0;
      range.Aktiviert =
          questions.AktiviertDB(range.Buchungskreis, range.NSchl.str(), range.Benutzer.str());
    }
    data.table.append(range);
  });
}

void AddDataBuchungskreis(const RangeData& data, RangeQuestions& questions, Reporter& reporter,
                          Progress& progress, const std::string& Benutzer,
                          std::int32_t Buchungskreis, std::string Gruppe, const std::string& NSchl,
                          bool AusDatenbank) {
  reportingFailures(reporter, {generalModule, "AddDataBuchungskreis"}, [&] {
    if (Gruppe.empty())
      Gruppe = LookupBuchungskreis(data.circles, reporter, Buchungskreis).value_or(notListed);
    for (RangeRow row : standardRows(data.table, Benutzer, NSchl)) {
      row.Buchungskreis = Buchungskreis;
      row.Gruppe = data.table.text(Gruppe);
      if (AusDatenbank) fillFromDatabase(questions, row);
      data.table.append(row);
      progress.advance();
    }
  });
}

}  // namespace vexnumkr::basAllgemein
