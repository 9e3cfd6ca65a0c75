#include "numbers/doctor/probes.h"

namespace vexnumkr::numbers {

const std::vector<TableShape>& hostTables() {
  static const std::vector<TableShape> tables = {
      {"Nummernkreise",
       {"Buchungskreis", "NSchl", "NBezeichnung", "StartWert", "AktuellerWert", "EndWert",
        "Aktiviert", "SortierIndex", "IstNSchlVon", "Maske"}},
      {"Nummernkreis_Buchungskreise", {"Buchungskreis", "Beschreibung", "Herkunft"}},
      {"Nummernkreis_Zuordnung", {"Buchungskreis", "NSchl", "Benutzer", "Herkunft"}},
      {"Nummernkreis_Sonderkreise", {"U_NSchl", "NSchl", "NBezeichnung", "Aktiviert", "Herkunft"}},
      {"tblUser", {"strUserName_PK"}}};
  return tables;
}

namespace probe {
namespace {

// The lowest number of all, which no host uses.
const std::string circle = "-2147483648";

std::string atRange(const std::string& key) {
  return " WHERE Buchungskreis = " + circle + " AND NSchl = '" + key + "'";
}

}  // namespace

std::string readNothing(const std::string& table, const std::string& columns) {
  return "SELECT " + columns + " FROM " + table + " WHERE 1 = 0";
}

std::string rangesWithNull() {
  return "SELECT COUNT(*) AS Anzahl FROM Nummernkreise WHERE NSchl <> 'LM' AND NSchl <> 'AF' AND "
         "(NBezeichnung IS NULL OR StartWert IS NULL OR AktuellerWert IS NULL OR EndWert IS NULL)";
}

std::string users() { return "SELECT COUNT(*) AS Anzahl FROM tblUser"; }

std::string usersCalled(const std::string& name) {
  return "SELECT COUNT(*) AS Anzahl FROM tblUser WHERE strUserName_PK = '" + name + "'";
}

std::string serverDate() { return "SELECT CAST(CURRENT_DATE AS CHAR(10)) AS Tag"; }

std::string clusterState() {
  return "SHOW GLOBAL STATUS WHERE Variable_name IN ('wsrep_provider_name', "
         "'wsrep_cluster_status', 'wsrep_local_state_comment')";
}

std::string tablesWithoutKey() {
  std::string names;
  for (const TableShape& table : hostTables())
    names += (names.empty() ? "'" : ", '") + table.name + "'";
  return "SELECT t.TABLE_NAME AS Tabelle FROM information_schema.TABLES t WHERE "
         "t.TABLE_SCHEMA = DATABASE() AND t.TABLE_NAME IN (" +
         names +
         ") AND NOT EXISTS (SELECT 1 FROM information_schema.STATISTICS s WHERE s.TABLE_SCHEMA = "
         "t.TABLE_SCHEMA AND s.TABLE_NAME = t.TABLE_NAME AND s.INDEX_NAME = 'PRIMARY') "
         "ORDER BY t.TABLE_NAME";
}

std::string insertRange(const std::string& key) {
  return "INSERT INTO Nummernkreise (Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, "
         "EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske) VALUES (" +
         circle + ", '" + key + "', 'Prüfung', -2147483647, 0, 2147483647, -1, 99999999, '', '')";
}

std::string updateRange(const std::string& key) {
  return "UPDATE Nummernkreise SET AktuellerWert = 1" + atRange(key);
}

std::string describeRange(const std::string& key, const std::string& literal) {
  return "UPDATE Nummernkreise SET NBezeichnung = " + literal + atRange(key);
}

std::string readRange(const std::string& key) {
  return "SELECT NBezeichnung, StartWert, AktuellerWert, EndWert, Aktiviert FROM Nummernkreise" +
         atRange(key);
}

std::string countRanges(const std::string& key) {
  return "SELECT COUNT(*) AS Anzahl FROM Nummernkreise" + atRange(key);
}

std::string deleteRanges() { return "DELETE FROM Nummernkreise WHERE Buchungskreis = " + circle; }

std::vector<std::string> writesElsewhere() {
  return {"INSERT INTO Nummernkreis_Zuordnung (Buchungskreis, NSchl, Benutzer, Herkunft) VALUES (" +
              circle + ", '~vexnumkr', '~vexnumkr', '~~~')",
          "DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft = '~~~'",
          "INSERT INTO Nummernkreis_Buchungskreise (Buchungskreis, Beschreibung, Herkunft) VALUES "
          "(" +
              circle + ", 'Prüfung', '~~~')",
          "UPDATE Nummernkreis_Buchungskreise SET Beschreibung = 'Noch' WHERE Herkunft = '~~~'",
          "DELETE FROM Nummernkreis_Buchungskreise WHERE Herkunft = '~~~'",
          "UPDATE Nummernkreis_Sonderkreise SET Aktiviert = -1 WHERE Herkunft = '~~~'"};
}

std::vector<std::string> deletesElsewhere() {
  return {"DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft = '~~~'",
          "DELETE FROM Nummernkreis_Buchungskreise WHERE Herkunft = '~~~'"};
}

}  // namespace probe
}  // namespace vexnumkr::numbers
