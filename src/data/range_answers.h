// The answers of the database about single ranges, each had by a statement of its own.
//
// Every procedure reports its failures under its own name.
#pragma once

#include <cstdint>
#include <string>

#include "data/statement_source.h"
#include "platform/reporter.h"

namespace vexnumkr::basAllgemein {

/// Whether the database assigns the range to the user: by the count of the records, or by looking
/// for one where the layer cannot count. Rows stored for everybody ("ALL") are not found under
/// "Alle Benutzer". False after a failure.
bool AktiviertDB(StatementSource& source, Reporter& reporter, std::int32_t Buchungskreis,
                 const std::string& NSchl, const std::string& Benutzer);

/// The values stored for a range of a booking circle that exactly one other origin has registered,
/// else 0. Ranges have no origin, so both host applications share them. After a failure the values
/// are what they were until then.
void GetBuchungskreisData(StatementSource& source, Reporter& reporter, std::int32_t Buchungskreis,
                          const std::string& NSchl, std::int32_t& StartWert, std::int32_t& EndWert,
                          std::int32_t& AktuellerWert);

}  // namespace vexnumkr::basAllgemein
