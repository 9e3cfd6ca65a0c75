// Every statement that the component sends, and the tables that they use.
//
// Nummernkreise: one range per booking circle and number key.
//   Buchungskreis integer, NSchl text; together they identify a row
//   NBezeichnung text, StartWert, AktuellerWert, EndWert integer; never NULL
//   Aktiviert boolean (0, -1), SortierIndex integer, IstNSchlVon, Maske text; NULL reads as nothing
// Nummernkreis_Buchungskreise: the booking circles of each origin.
//   Buchungskreis integer, Beschreibung text, Herkunft text
// Nummernkreis_Zuordnung: a row says that a user draws from a range.
//   Buchungskreis integer, NSchl text, Benutzer text ("ALL" for everybody), Herkunft text
// Nummernkreis_Sonderkreise: number keys that can be switched on.
//   U_NSchl text (its own key), NSchl text (whose range it shares), NBezeichnung text,
//   Aktiviert boolean, Herkunft text
// tblUser: the host's users; strUserName_PK text
//
// Statements are plain text without parameters. Integers stand in decimal, booleans as -1 and 0,
// texts between single quotes exactly as they are: a quote in a text breaks its statement, and the
// database's error is reported. The host's keys "LM" and "AF" are never read or purged.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/table/range_row.h"

namespace vexnumkr::statement {

/// The tables that a save may change.
std::vector<std::string> writtenTables();

std::string users();
std::string ranges();
std::string bookingCircles(const std::string& Herkunft);
/// `Benutzer` as it stands in memory.
std::string assignment(std::int32_t Buchungskreis, const std::string& NSchl,
                       const std::string& Benutzer, const std::string& Herkunft);
std::string specialRangeCount(const std::string& Herkunft);
std::string specialRangesByKey(const std::string& Herkunft);
std::string specialRangesByDescription(const std::string& Herkunft);
/// Counts the other origins that a booking circle is registered for.
std::string otherOriginsOfCircle(std::int32_t Buchungskreis, const std::string& Herkunft);
std::string storedRange(const std::string& NSchl, std::int32_t Buchungskreis);

/// Removes the ranges that a save writes anew: all but those of booking circles of
/// `andereHerkunft`, the host's keys, and the standard ranges that are no special ranges.
std::string deleteRanges(const std::string& andereHerkunft);
std::string deleteAssignments(const std::string& Herkunft);
/// Of the row's values the numbers are converted; errors 6 and 13 where one is none.
std::string insertRange(const RangeRow& range);
std::string updateRange(const RangeRow& range);
/// How many assignments of an origin are stored.
std::string assignmentCount(const std::string& Herkunft);
/// `Benutzer` as it is stored: "ALL" for everybody.
std::string insertAssignment(std::int32_t Buchungskreis, const std::string& NSchl,
                             const std::string& Benutzer, const std::string& Herkunft);

}  // namespace vexnumkr::statement
