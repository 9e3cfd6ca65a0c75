// Making rows of the range table: as loaded, as copied into another booking circle, as the database
// has them elsewhere.
//
// Every procedure reports its failures under its own name and returns; what it added until then
// stays.
#pragma once

#include <cstdint>
#include <string>

#include "data/range_data.h"
#include "data/statement_source.h"
#include "platform/progress.h"
#include "platform/reporter.h"

namespace vexnumkr::basAllgemein {

/// Whether the database assigns the range to the user: by the count of the records, or by looking
/// for one where the layer cannot count. Rows stored for everybody ("ALL") are not found under
/// "Alle Benutzer".
bool AktiviertDB(StatementSource& source, Reporter& reporter, std::int32_t Buchungskreis,
                 const std::string& NSchl, const std::string& Benutzer);

/// Appends a row; an empty `Gruppe` is the caption of its booking circle, and a booking circle that
/// is not in the list then gets no row. With `AlleBenutzer` the row starts with zeros (also as its
/// mask), and the database says whether it is active.
void AddDataGroup(const RangeData& data, StatementSource& source, Reporter& reporter,
                  RangeRow range, bool AlleBenutzer);

/// Copies the standard ranges of a user (all of them, or the one of `NSchl`) into a booking circle,
/// with their values or, `AusDatenbank`, inactive and with those stored for that circle. An empty
/// `Gruppe` is the caption of the circle. One step of progress per row.
void AddDataBuchungskreis(const RangeData& data, StatementSource& source, Reporter& reporter,
                          Progress& progress, const std::string& Benutzer,
                          std::int32_t Buchungskreis, std::string Gruppe, const std::string& NSchl,
                          bool AusDatenbank);

/// The values stored for a range of a booking circle that exactly one other origin has registered,
/// else 0. Ranges have no origin, so both host applications share them. After a failure, which is
/// reported, the values are what they were until then.
void GetBuchungskreisData(StatementSource& source, Reporter& reporter, std::int32_t Buchungskreis,
                          const std::string& NSchl, std::int32_t& StartWert, std::int32_t& EndWert,
                          std::int32_t& AktuellerWert);

}  // namespace vexnumkr::basAllgemein
