#include "data/range_answers.h"

#include "data/sql/statements.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr std::int32_t unknownCount = -1;

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

void GetBuchungskreisData(StatementSource& source, Reporter& reporter, std::int32_t Buchungskreis,
                          const std::string& NSchl, std::int32_t& StartWert, std::int32_t& EndWert,
                          std::int32_t& AktuellerWert) {
  reportingFailures(reporter, {generalModule, "GetBuchungskreisData"}, [&] {
    StartWert = EndWert = AktuellerWert = 0;
    const auto others = source.queryAside(
        statement::otherOriginsOfCircle(Buchungskreis, source.origin().Herkunft()));
    // A circle that the other origin does not have is new: no row that is left of an earlier one
    // counts.
    if (others->Fields("Anzahl").toLong() != 1) return;
    const auto stored = source.queryAside(statement::storedRange(NSchl, Buchungskreis));
    if (stored->EndOfFile()) return;
    StartWert = stored->Fields("StartWert").toLong();
    EndWert = stored->Fields("EndWert").toLong();
    AktuellerWert = stored->Fields("AktuellerWert").toLong();
  });
}

}  // namespace vexnumkr::basAllgemein
