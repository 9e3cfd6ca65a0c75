// Finding, adding and removing ranges in the range table.
//
// Every procedure reports its failures under its own name; rows added or removed until then stay
// so.
#pragma once

#include <cstdint>
#include <string>

#include "hosting/host_context.h"

namespace vexnumkr::basAllgemein {

/// The first row of that user and booking circle whose number key is `NSchl` or empty: a row
/// without a key stands for all of them. -1 when there is none, and after a failure.
std::int32_t FoundInXArray(HostContext& context, const std::string& Benutzer,
                           std::int32_t Buchungskreis, const std::string& NSchl);

/// A number key to be added for every user. The values are texts and stored as such.
struct NewRange {
  std::int32_t Buchungskreis = 0;
  std::string Gruppe;
  std::string NSchl;
  std::string NBezeichnung;
  std::string StartWert;
  std::string AktuellerWert;
  std::string EndWert;
  std::int32_t SortierIndex = 0;
  std::string IstNSchlVon;
};

/// Gives an inactive row of the range to every user who lacks one, "Alle Benutzer" included only
/// with `AlleBenutzer`. Does nothing when `Benutzer` is a single user and `AlleBenutzer` is False.
void AddInXArray(HostContext& context, const std::string& Benutzer, const NewRange& range,
                 bool AlleBenutzer);

/// Removes one row of the range from every user, "Alle Benutzer" included only with `AlleBenutzer`.
/// Sets the changed flag when a row goes.
void DeleteInXArray(HostContext& context, std::int32_t Buchungskreis, const std::string& NSchl,
                    bool AlleBenutzer);

/// Brings the range table in line with the booking-circle list that the user has just edited: new
/// circles get the standard ranges, renamed ones their caption, those that are gone lose their
/// rows.
void RefreshInXArray(HostContext& context);

/// Makes `target` a snapshot of `source`.
void CopyXArrayDB(HostContext& context, const XArray& source, XArray& target);

/// The sort index of number keys that have no place of their own: they come last.
std::int32_t GetNewIndex();

/// Writes one column (of the range table) of one range in the row of every user, "Alle Benutzer"
/// included.
void SetValueAll(HostContext& context, const std::string& NSchl, std::int32_t Buchungskreis,
                 std::int32_t columnNumber, const Value& value);

/// Writes one column of the first row with that user, caption and number key, where there is one.
void SetValue(HostContext& context, const std::string& NSchl, const std::string& Gruppe,
              const std::string& user, std::int32_t columnNumber, const Value& value);

}  // namespace vexnumkr::basAllgemein
