// Filling the range table from the database.
//
// Every procedure reports its failures under its own name and returns; what it added until then
// stays.
#pragma once

#include <cstdint>
#include <string>

#include "hosting/host_context.h"

namespace vexnumkr::basAllgemein {

/// Keeps every user's activity consistent; runs when the table has been filled.
using ActivityRule = void (*)(HostContext& context);

/// Reads all ranges, spreads every number key over every booking circle of the origin, and derives
/// each user's rows from the active common ones and the stored assignments; ends with the activity
/// rule. REQUIRES: the range table is empty. A NULL in a column that must have a value ends it.
void LoadItems(HostContext& context, ActivityRule CheckActivity);

/// Whether the database assigns the range to the user. Rows stored for everybody ("ALL") are not
/// found under "Alle Benutzer".
bool AktiviertDB(HostContext& context, std::int32_t Buchungskreis, const std::string& NSchl,
                 const std::string& Benutzer);

/// A row to be added to the range table.
struct RangeRow {
  std::string Benutzer;
  std::int32_t Buchungskreis = 0;
  std::string Gruppe;  ///< empty: the caption of the booking circle
  std::string NSchl;
  std::string NBezeichnung;
  std::int32_t StartWert = 0;
  std::int32_t AktuellerWert = 0;
  std::int32_t EndWert = 0;
  bool Aktiviert = false;
  std::int32_t SortierIndex = 0;
  std::string IstNSchlVon;
  Value Maske;
};

/// Appends a row. A booking circle whose caption is wanted but not in the list gets none. With
/// `AlleBenutzer` the row starts with zeros (also as its mask), and the database says whether it is
/// active.
void AddDataGroup(HostContext& context, RangeRow range, bool AlleBenutzer);

/// Copies the standard ranges of a user (all of them, or the one of `NSchl`) into a booking circle,
/// with their values or, `AusDatenbank`, inactive and with those stored for that circle. An empty
/// `Gruppe` is the caption of the circle.
void AddDataBuchungskreis(HostContext& context, const std::string& Benutzer,
                          std::int32_t Buchungskreis, std::string Gruppe, const std::string& NSchl,
                          bool AusDatenbank);

/// The values stored for a range of a booking circle that exactly one other origin has registered,
/// else 0. Ranges have no origin, so both host applications share them. After a failure, which is
/// reported, the values are what they were until then.
void GetBuchungskreisData(HostContext& context, std::int32_t Buchungskreis,
                          const std::string& NSchl, std::int32_t& StartWert, std::int32_t& EndWert,
                          std::int32_t& AktuellerWert);

}  // namespace vexnumkr::basAllgemein
