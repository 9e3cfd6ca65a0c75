// Finding, adding, removing and writing ranges in the range table.
//
// Every procedure reports its failures under its own name; what it added, removed or wrote until
// then stays so.
#pragma once

#include <cstdint>
#include <string>

#include "data/table/common_names.h"
#include "data/table/xarray.h"
#include "platform/reporter.h"

namespace vexnumkr::basAllgemein {

/// The first row of that user and booking circle whose number key is `NSchl` or empty: a row
/// without a key stands for all of them. -1 when there is none, and after a failure.
std::int32_t FoundInXArray(const XArray& table, Reporter& reporter, const std::string& Benutzer,
                           std::int32_t Buchungskreis, const std::string& NSchl);

/// Gives an inactive row of `range`, without a mask, to every user who lacks one, "Alle Benutzer"
/// included only with `AlleBenutzer`. Does nothing when the range's own `Benutzer` is a single user
/// and `AlleBenutzer` is False.
void AddInXArray(XArray& table, const Users& users, Reporter& reporter, const RangeRow& range,
                 bool AlleBenutzer);

/// Removes one row of the range from every user, "Alle Benutzer" included only with `AlleBenutzer`.
/// True when a row went, which is a change to be saved.
bool DeleteInXArray(XArray& table, const Users& users, Reporter& reporter,
                    std::int32_t Buchungskreis, const std::string& NSchl, bool AlleBenutzer);

/// The sort index of number keys that have no place of their own: they come last.
std::int32_t GetNewIndex();

/// Writes one value of one range in the row of every user, "Alle Benutzer" included.
void SetValueAll(XArray& table, const Users& users, Reporter& reporter, const std::string& NSchl,
                 std::int32_t Buchungskreis, ValueColumn column, const Value& value);

/// Writes `Aktiviert` of the first row with that user, caption and number key, where there is one.
void SetValue(XArray& table, Reporter& reporter, const std::string& NSchl,
              const std::string& Gruppe, const std::string& user, bool Aktiviert);

}  // namespace vexnumkr::basAllgemein
