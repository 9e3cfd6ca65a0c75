#include "data/sql/statements.h"

#include <initializer_list>
#include <string_view>

namespace vexnumkr::statement {
namespace {

// Saving a large company makes hundreds of thousands of these, so each is put together in one go.
std::string join(std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (const auto piece : pieces) size += piece.size();
  std::string text;
  text.reserve(size);
  for (const auto piece : pieces) text += piece;
  return text;
}

std::string number(std::int32_t value) { return std::to_string(value); }

std::string_view flag(bool value) { return value ? "-1" : "0"; }

std::string specialRanges(const std::string& Herkunft, std::string_view order) {
  return join(
      {"SELECT U_NSchl, NSchl, NBezeichnung, Aktiviert FROM Nummernkreis_Sonderkreise "
       "WHERE Herkunft='",
       Herkunft, "' ORDER BY ", order});
}

}  // namespace

// What the transaction of the dialog may change, the circles by the host's own administration.
std::vector<std::string> writtenTables() {
  return {"Nummernkreise", "Nummernkreis_Buchungskreise", "Nummernkreis_Zuordnung",
          "Nummernkreis_Sonderkreise"};
}

std::string users() { return "SELECT strUserName_PK FROM tblUser ORDER BY strUserName_PK"; }

// LM and AF are keys of the host's own, which it numbers without this dialog: they are neither
// shown nor ever changed.
std::string ranges() {
  return "SELECT NSchl, NBezeichnung, Buchungskreis, StartWert, AktuellerWert, EndWert, Aktiviert, "
         "SortierIndex, IstNSchlVon, Maske FROM Nummernkreise "
         "WHERE NSchl <> 'LM' AND NSchl <> 'AF' ORDER BY SortierIndex";
}

std::string bookingCircles(const std::string& Herkunft) {
  return join(
      {"SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise "
       "WHERE Herkunft='",
       Herkunft, "'"});
}

std::string assignment(std::int32_t Buchungskreis, const std::string& NSchl,
                       const std::string& Benutzer, const std::string& Herkunft) {
  return join({"SELECT * FROM Nummernkreis_Zuordnung WHERE Buchungskreis=", number(Buchungskreis),
               " AND NSchl='", NSchl, "' AND Benutzer='", Benutzer, "' AND Herkunft='", Herkunft,
               "'"});
}

std::string specialRangeCount(const std::string& Herkunft) {
  return join(
      {"SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Sonderkreise WHERE Herkunft='", Herkunft, "'"});
}

std::string specialRangesByKey(const std::string& Herkunft) {
  return specialRanges(Herkunft, "U_NSchl");
}

std::string specialRangesByDescription(const std::string& Herkunft) {
  return specialRanges(Herkunft, "NBezeichnung");
}

std::string otherOriginsOfCircle(std::int32_t Buchungskreis, const std::string& Herkunft) {
  return join({"SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Buchungskreise WHERE Buchungskreis=",
               number(Buchungskreis), " AND Herkunft <> '", Herkunft, "'"});
}

std::string storedRange(const std::string& NSchl, std::int32_t Buchungskreis) {
  return join({"SELECT * FROM Nummernkreise WHERE NSchl='", NSchl,
               "' AND Buchungskreis=", number(Buchungskreis)});
}

// What the other origin needs stays: the ranges of its circles, and the standard ranges, which both
// share, but for those of special ranges.
std::string deleteRanges(const std::string& andereHerkunft) {
  return join(
      {"DELETE FROM Nummernkreise WHERE NOT EXISTS (SELECT * FROM "
       "Nummernkreis_Buchungskreise WHERE Nummernkreise.Buchungskreis = "
       "Nummernkreis_Buchungskreise.Buchungskreis AND Herkunft='",
       andereHerkunft,
       "') AND NSchl <> 'LM' AND NSchl <> 'AF' AND (Buchungskreis <> 0 OR "
       "(IstNSchlVon <> '' AND IstNSchlVon IS NOT NULL))"});
}

std::string deleteAssignments(const std::string& Herkunft) {
  return join({"DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft='", Herkunft, "'"});
}

std::string insertRange(const RangeRow& range) {
  return join(
      {"INSERT INTO Nummernkreise (Buchungskreis, NSchl, NBezeichnung, StartWert, "
       "AktuellerWert, EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske) VALUES (",
       number(range.Buchungskreis),
       ", '",
       range.NSchl.str(),
       "', '",
       range.NBezeichnung.str(),
       "', ",
       number(range.StartWert.toLong()),
       ", ",
       number(range.AktuellerWert.toLong()),
       ", ",
       number(range.EndWert.toLong()),
       ", ",
       flag(range.Aktiviert),
       ", ",
       number(range.SortierIndex),
       ", '",
       range.IstNSchlVon.str(),
       "', '",
       range.Maske.toText(),
       "')"});
}

std::string updateRange(const RangeRow& range) {
  return join({"UPDATE Nummernkreise SET NBezeichnung='",
               range.NBezeichnung.str(),
               "', StartWert=",
               number(range.StartWert.toLong()),
               ", AktuellerWert=",
               number(range.AktuellerWert.toLong()),
               ", EndWert=",
               number(range.EndWert.toLong()),
               ", Aktiviert=",
               flag(range.Aktiviert),
               ", SortierIndex=",
               number(range.SortierIndex),
               ", IstNSchlVon='",
               range.IstNSchlVon.str(),
               "', Maske='",
               range.Maske.toText(),
               "' WHERE Buchungskreis=",
               number(range.Buchungskreis),
               " AND NSchl='",
               range.NSchl.str(),
               "'"});
}

std::string assignmentCount(const std::string& Herkunft) {
  return join(
      {"SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Zuordnung WHERE Herkunft='", Herkunft, "'"});
}

std::string insertAssignment(std::int32_t Buchungskreis, const std::string& NSchl,
                             const std::string& Benutzer, const std::string& Herkunft) {
  return join(
      {"INSERT INTO Nummernkreis_Zuordnung (Buchungskreis, NSchl, Benutzer, Herkunft) "
       "VALUES (",
       number(Buchungskreis), ", '", NSchl, "', '", Benutzer, "','", Herkunft, "')"});
}

}  // namespace vexnumkr::statement
