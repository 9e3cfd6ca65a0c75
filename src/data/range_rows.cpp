#include "data/range_rows.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "data/sql/statements.h"

namespace vexnumkr::basAllgemein {
namespace {

// What stands for the caption of a circle that the list does not have.
constexpr const char* notListed = "-1";

constexpr std::int32_t unknownCount = -1;

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
void takeStoredValues(StatementSource& source, Reporter& reporter, RangeRow& row) {
  std::int32_t start = 0;
  std::int32_t end = 0;
  std::int32_t current = 0;
  GetBuchungskreisData(source, reporter, row.Buchungskreis, row.NSchl.str(), start, end, current);
  row.StartWert = start;
  row.AktuellerWert = current;
  row.EndWert = end;
  row.Maske = Text();
  row.Aktiviert = false;
}

}  // namespace

bool AktiviertDB(StatementSource& source, Reporter& reporter, std::int32_t Buchungskreis,
                 const std::string& NSchl, const std::string& Benutzer) {
  bool active = false;
  reportingFailures(reporter, {generalModule, "AktiviertDB"}, [&] {
    std::int32_t found = 0;
    const auto records = source.query(
        statement::assignment(Buchungskreis, NSchl, Benutzer, source.origin().Herkunft()), found);
    active = found == unknownCount ? !records->EndOfFile() : found != 0;
  });
  return active;
}

void AddDataGroup(const RangeData& data, StatementSource& source, Reporter& reporter,
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
      range.Aktiviert = AktiviertDB(source, reporter, range.Buchungskreis, range.NSchl.str(),
                                    range.Benutzer.str());
    }
    data.table.append(range);
  });
}

void AddDataBuchungskreis(const RangeData& data, StatementSource& source, Reporter& reporter,
                          Progress& progress, const std::string& Benutzer,
                          std::int32_t Buchungskreis, std::string Gruppe, const std::string& NSchl,
                          bool AusDatenbank) {
  reportingFailures(reporter, {generalModule, "AddDataBuchungskreis"}, [&] {
    if (Gruppe.empty())
      Gruppe = LookupBuchungskreis(data.circles, reporter, Buchungskreis).value_or(notListed);
    for (RangeRow row : standardRows(data.table, Benutzer, NSchl)) {
      row.Buchungskreis = Buchungskreis;
      row.Gruppe = data.table.text(Gruppe);
      if (AusDatenbank) takeStoredValues(source, reporter, row);
      data.table.append(row);
      progress.advance();
    }
  });
}

void GetBuchungskreisData(StatementSource& source, Reporter& reporter, std::int32_t Buchungskreis,
                          const std::string& NSchl, std::int32_t& StartWert, std::int32_t& EndWert,
                          std::int32_t& AktuellerWert) {
  reportingFailures(reporter, {generalModule, "GetBuchungskreisData"}, [&] {
    StartWert = EndWert = AktuellerWert = 0;
    const auto others = source.queryAside(
        statement::otherOriginsOfCircle(Buchungskreis, source.origin().Herkunft()));
    if (others->Fields("Anzahl").toLong() != 1) return;
    const auto stored = source.queryAside(statement::storedRange(NSchl, Buchungskreis));
    if (stored->EndOfFile()) return;
    StartWert = stored->Fields("StartWert").toLong();
    EndWert = stored->Fields("EndWert").toLong();
    AktuellerWert = stored->Fields("AktuellerWert").toLong();
  });
}

}  // namespace vexnumkr::basAllgemein
