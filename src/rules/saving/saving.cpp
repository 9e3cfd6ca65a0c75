#include "rules/saving/saving.h"

#include <algorithm>

#include "data/sql/statements.h"
#include "data/table/range_place.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr std::int64_t deletionsAndCommit = 3;

// Of a refused text, whoever has typed it is told where it stands. An insert that is refused for it
// is followed by an update, and so need not tell.
template <class Work, class Place>
auto tellingWhere(Work&& work, Place&& place) {
  try {
    return work();
  } catch (const Error& error) {
    if (error.number() != error_number::invalidArgument) throw;
    throw Error(error.number(), error.source(), error.description() + place());
  }
}

void writeRow(const RangeRow& row, StatementSource& source, Progress& progress) {
  if (row.isCommon()) {
    InsertIntoNummernkreise(source, row);
    progress.advance();
  }
  if (row.Aktiviert) {
    InsertIntoNummernkreis_Zuordnung(source, row.Buchungskreis, row.NSchl.str(),
                                     ReplaceUser(row.Benutzer.str()));
    progress.advance();
  }
}

}  // namespace

void writeTable(const XArray& table, StatementSource& source, Progress& progress) {
  progress.expect(deletionsAndCommit + std::ranges::count_if(table, &RangeRow::isCommon) +
                  std::ranges::count_if(table, &RangeRow::Aktiviert));
  source.execute(statement::deleteRanges(source.origin().andereHerkunft()));
  progress.advance();
  source.execute(statement::deleteAssignments(source.origin().Herkunft()));
  progress.advance();
  for (const RangeRow& row : table) writeRow(row, source, progress);
}

void InsertIntoNummernkreise(StatementSource& source, const RangeRow& range) {
  const std::string insert = statement::insertRange(range);
  // Which failure means that the row is there already differs from engine to engine; the update
  // that finds it tells for all of them.
  try {
    source.execute(insert);
  } catch (...) {
    if (!UpdateIntoNummernkreise(source, range)) throw;
  }
}

bool UpdateIntoNummernkreise(StatementSource& source, const RangeRow& range) {
  return tellingWhere([&] { return source.execute(statement::updateRange(range)) != 0; },
                      [&] { return placeOf(range); });
}

void InsertIntoNummernkreis_Zuordnung(StatementSource& source, std::int32_t Buchungskreis,
                                      const std::string& NSchl, const std::string& Benutzer) {
  tellingWhere(
      [&] {
        return source.execute(statement::insertAssignment(Buchungskreis, NSchl, Benutzer,
                                                          source.origin().Herkunft()));
      },
      [&] { return "\r\n(Benutzer: " + Benutzer + ", Schlüssel: " + NSchl + ")"; });
}

std::string ReplaceUser(const std::string& text) { return text == alleBenutzer ? everybody : text; }

}  // namespace vexnumkr::basAllgemein
