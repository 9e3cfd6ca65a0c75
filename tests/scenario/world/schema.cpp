#include "scenario/world/schema.h"

namespace vexnumkr::scenario {

// The columns say NOT NULL nowhere, so that scenarios can store rows that a careful host would not.
const std::vector<TableDefinition>& tableDefinitions() {
  static const std::vector<TableDefinition> definitions = {
      {"Nummernkreise",
       "Buchungskreis INTEGER, NSchl VARCHAR(50), NBezeichnung VARCHAR(255), StartWert INTEGER, "
       "AktuellerWert INTEGER, EndWert INTEGER, Aktiviert SMALLINT, SortierIndex INTEGER, "
       "IstNSchlVon VARCHAR(50), Maske VARCHAR(255), PRIMARY KEY (Buchungskreis, NSchl)",
       10},
      {"Nummernkreis_Buchungskreise",
       "Buchungskreis INTEGER, Beschreibung VARCHAR(255), Herkunft VARCHAR(10), "
       "PRIMARY KEY (Herkunft, Buchungskreis)",
       3},
      {"Nummernkreis_Zuordnung",
       "Buchungskreis INTEGER, NSchl VARCHAR(50), Benutzer VARCHAR(100), Herkunft VARCHAR(10)", 4},
      {"Nummernkreis_Sonderkreise",
       "U_NSchl VARCHAR(50), NSchl VARCHAR(50), NBezeichnung VARCHAR(255), Aktiviert SMALLINT, "
       "Herkunft VARCHAR(10), PRIMARY KEY (Herkunft, U_NSchl)",
       5},
      {settingsTable,
       "Bereich VARCHAR(100), Schluessel VARCHAR(100), Profil VARCHAR(50), Benutzer VARCHAR(50), "
       "Wert VARCHAR(255), PRIMARY KEY (Bereich, Schluessel, Profil, Benutzer)",
       5},
      {"tblUser", "strUserName_PK VARCHAR(100), PRIMARY KEY (strUserName_PK)", 1},
  };
  return definitions;
}

namespace {

constexpr const char* rangeKey = "PRIMARY KEY (Buchungskreis, NSchl)";

// A unique key takes rows with NULL in it, as SQLite's primary key does.
std::string withUniqueRangeKey(std::string definition) {
  const std::size_t at = definition.find(rangeKey);
  if (at == std::string::npos) return definition;
  return definition.replace(at, std::string("PRIMARY KEY").size(), "UNIQUE");
}

std::string withCollation(std::string definition, const std::string& collation) {
  for (std::size_t at = definition.find("VARCHAR("); at != std::string::npos;
       at = definition.find("VARCHAR(", at + 1))
    definition.insert(definition.find(')', at) + 1, collation);
  return definition;
}

}  // namespace

std::string createStatement(const TableDefinition& table, std::string_view engine) {
  std::string definition = table.definition;
  std::string options;
  if (engine != "sqlite") definition = withUniqueRangeKey(definition);
  if (engine == "postgresql") definition = withCollation(definition, " COLLATE \"C\"");
  if (engine == "mariadb")
    options = " ENGINE = InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin";
  return std::string("CREATE TABLE ") + table.name + " (" + definition + ")" + options;
}

const std::vector<std::string>& indexStatements() {
  static const std::vector<std::string> statements = {
      "CREATE INDEX Nummernkreis_Zuordnung_Index ON Nummernkreis_Zuordnung "
      "(Buchungskreis, NSchl, Benutzer, Herkunft)",
  };
  return statements;
}

}  // namespace vexnumkr::scenario
