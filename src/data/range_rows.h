// Making rows of the range table: as loaded, as copied into another booking circle, as the database
// has them elsewhere.
//
// Every procedure reports its failures under its own name and returns; what it added until then
// stays.
#pragma once

#include <cstdint>
#include <string>

#include "data/range_data.h"
#include "data/range_questions.h"
#include "platform/progress.h"
#include "platform/reporter.h"

namespace vexnumkr::basAllgemein {

/// Appends a row; an empty `Gruppe` is the caption of its booking circle, and a booking circle that
/// is not in the list then gets no row. With `AlleBenutzer` the row starts with zeros (also as its
/// mask), and the database says whether it is active.
void AddDataGroup(const RangeData& data, RangeQuestions& questions, Reporter& reporter,
                  RangeRow range, bool AlleBenutzer);

/// Copies the standard ranges of a user (all of them, or the one of `NSchl`) into a booking circle,
/// with their values or, `AusDatenbank`, inactive and with those stored for that circle. An empty
/// `Gruppe` is the caption of the circle. One step of progress per row.
void AddDataBuchungskreis(const RangeData& data, RangeQuestions& questions, Reporter& reporter,
                          Progress& progress, const std::string& Benutzer,
                          std::int32_t Buchungskreis, std::string Gruppe, const std::string& NSchl,
                          bool AusDatenbank);

}  // namespace vexnumkr::basAllgemein
