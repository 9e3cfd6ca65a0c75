#include "numbers/sql/statements.h"

namespace vexnumkr::numbers::statement {
namespace {

std::string atRange(const Literals& literals, std::int32_t circle, const std::string& key) {
  return " WHERE Buchungskreis = " + Literals::number(circle) +
         " AND NSchl = " + literals.text(key);
}

}  // namespace

// By circle first, which is how the assignments are indexed.
std::string assignedRanges(const Literals& literals, const std::string& origin,
                           const std::string& user, const std::string& key,
                           std::optional<std::int32_t> circle) {
  const std::string herkunft = literals.text(origin);
  return "SELECT Z.Buchungskreis AS Kreis, Z.Benutzer AS Benutzer, Z.NSchl AS Schluessel, "
         "N.NSchl AS Bereich, N.Aktiviert AS Aktiviert, N.IstNSchlVon AS IstNSchlVon, "
         "S.U_NSchl AS Sonderkreis, S.Aktiviert AS Eingeschaltet, G.NSchl AS Gemeinsam, "
         "G.Aktiviert AS GemeinsamAktiviert, T.U_NSchl AS GemeinsamSonderkreis, "
         "T.Aktiviert AS GemeinsamEingeschaltet "
         "FROM (SELECT Buchungskreis FROM Nummernkreis_Buchungskreise WHERE Herkunft = " +
         herkunft +
         " UNION SELECT 0) K JOIN Nummernkreis_Zuordnung Z ON Z.Buchungskreis = K.Buchungskreis "
         "AND Z.NSchl = " +
         literals.text(key) + " AND Z.Benutzer IN (" + literals.text(user) +
         ", 'ALL') AND Z.Herkunft = " + herkunft +
         " LEFT JOIN Nummernkreise N ON N.Buchungskreis = Z.Buchungskreis AND N.NSchl = Z.NSchl "
         "LEFT JOIN Nummernkreis_Sonderkreise S ON S.Herkunft = " +
         herkunft +
         " AND S.U_NSchl = N.NSchl LEFT JOIN Nummernkreise G ON G.Buchungskreis = N.Buchungskreis "
         "AND G.NSchl = RTRIM(N.IstNSchlVon) "
         "LEFT JOIN Nummernkreis_Sonderkreise T ON T.Herkunft = " +
         herkunft + " AND T.U_NSchl = G.NSchl" +
         (circle ? " WHERE Z.Buchungskreis = " + Literals::number(*circle) : std::string());
}

std::string takeWriteLock() {
  return "UPDATE Nummernkreise SET AktuellerWert = AktuellerWert WHERE 1 = 0";
}

// The difference is a decimal, since it may lie outside the 32 bits of its operands.
std::string issueNumbers(const Literals& literals, std::int32_t circle, const std::string& key,
                         std::int32_t count) {
  const std::string number = Literals::number(count);
  return "UPDATE Nummernkreise SET AktuellerWert = AktuellerWert + " + number +
         atRange(literals, circle, key) +
         " AND StartWert <= AktuellerWert AND AktuellerWert <= EndWert - " + number + ".0";
}

std::string rangeValues(const Literals& literals, std::int32_t circle, const std::string& key) {
  return "SELECT StartWert, AktuellerWert, EndWert FROM Nummernkreise" +
         atRange(literals, circle, key);
}

std::string ranges() {
  return "SELECT Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, EndWert, Aktiviert, "
         "SortierIndex, IstNSchlVon, Maske FROM Nummernkreise";
}

std::string circles(const Literals& literals, const std::string& origin) {
  return "SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise WHERE Herkunft = " +
         literals.text(origin);
}

std::string assignments(const Literals& literals, const std::string& origin) {
  return "SELECT Buchungskreis, NSchl, Benutzer FROM Nummernkreis_Zuordnung WHERE Herkunft = " +
         literals.text(origin);
}

std::string specialRanges(const Literals& literals, const std::string& origin) {
  return "SELECT U_NSchl, NSchl, NBezeichnung, Aktiviert FROM Nummernkreis_Sonderkreise "
         "WHERE Herkunft = " +
         literals.text(origin);
}

std::string users() { return "SELECT strUserName_PK FROM tblUser"; }

std::string journalProbe() { return "SELECT Tabelle FROM Nummernkreis_Protokoll WHERE 1 = 0"; }

// What may be larger than 32 bits comes as a text.
std::string journal(const Literals& literals, const std::string& since, const std::string& before,
                    const std::string& last, std::int32_t count) {
  return "SELECT CAST(Eintrag AS CHAR(20)) AS Nr, Zeitpunkt, Anmeldung, Anwender, CAST(Sitzung AS "
         "CHAR(20)) AS Sitzung, CAST(Vorgang AS CHAR(20)) AS Vorgang, Tabelle, Aktion, Herkunft, "
         "Buchungskreis, NSchl, U_NSchl, Benutzer, NBezeichnung, StartWert, AktuellerWert, "
         "EndWert, "
         "Aktiviert, SortierIndex, IstNSchlVon, Maske, Beschreibung FROM Nummernkreis_Protokoll "
         "WHERE Eintrag > " +
         last + (since.empty() ? "" : " AND Zeitpunkt >= " + literals.text(since)) +
         (before.empty() ? "" : " AND Zeitpunkt < " + literals.text(before)) +
         " ORDER BY Eintrag LIMIT " + Literals::number(count);
}

std::string usedNumbers(const std::string& select) {
  return "SELECT Nummer FROM (" + select + "\n) Q";
}

}  // namespace vexnumkr::numbers::statement
