#include "rules/refused_row_classes.h"

#include <array>
#include <utility>

namespace vexnumkr::test {
namespace {

using Texts = std::vector<std::string>;
using Causes = std::map<std::string, Cause>;
using Classes = std::vector<RefusedRowClass>;
using enum Outcome;

constexpr const char* primaryKey = ", PRIMARY KEY (Buchungskreis, NSchl)";
constexpr const char* putAside = "ALTER TABLE Nummernkreise RENAME TO Original";
constexpr const char* putBack = "ALTER TABLE Original RENAME TO Nummernkreise";

Texts operator+(Texts first, const Texts& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// A table in place of the shipped one, with the same ranges.
struct Shape {
  std::string column = {};      // is defined in another way
  std::string definition = {};  // namely so
  std::string more = primaryKey;
  std::string behind = {};       // the closing bracket
  Texts parts = {};              // made before the ranges come
  bool isGenerated = false;      // the column is
  bool hasOneOfTheHost = false;  // a column more, without a default
};

constexpr std::array<std::pair<const char*, const char*>, 10> columns = {{
    {"Buchungskreis", "INTEGER NOT NULL"},
    {"NSchl", "VARCHAR(10) NOT NULL"},
    {"NBezeichnung", "VARCHAR(255)"},
    {"StartWert", "INTEGER"},
    {"AktuellerWert", "INTEGER"},
    {"EndWert", "INTEGER"},
    {"Aktiviert", "SMALLINT"},
    {"SortierIndex", "INTEGER"},
    {"IstNSchlVon", "VARCHAR(10)"},
    {"Maske", "VARCHAR(255)"},
}};

std::string creation(const Shape& shape) {
  std::string list;
  for (const auto& [name, definition] : columns)
    list += (list.empty() ? "" : ", ") + std::string(name) + " " +
            (name == shape.column ? shape.definition : definition);
  if (shape.hasOneOfTheHost) list += ", Mandant INTEGER NOT NULL";
  return "CREATE TABLE Nummernkreise (" + list + shape.more + ")" + shape.behind;
}

std::string copying(const Shape& shape) {
  std::string names;
  for (const auto& [name, definition] : columns)
    if (!shape.isGenerated || name != shape.column)
      names += (names.empty() ? "" : ", ") + std::string(name);
  const std::string into = names + (shape.hasOneOfTheHost ? ", Mandant" : "");
  const std::string from = names + (shape.hasOneOfTheHost ? ", 1" : "");
  return "INSERT INTO Nummernkreise (" + into + ") SELECT " + from + " FROM Original";
}

Cause withTable(Outcome outcome, const Shape& shape) {
  return {outcome,
          Texts{putAside, creation(shape)} + shape.parts + Texts{copying(shape)},
          {"DROP TABLE Nummernkreise", putBack}};
}

Causes everywhere(const Cause& cause) {
  return {{"sqlite", cause}, {"postgresql", cause}, {"mariadb", cause}};
}

Cause withForeignKey(const std::string& checked) {
  Cause cause = withTable(
      refused, {.more = primaryKey +
                        (", FOREIGN KEY (Buchungskreis) REFERENCES Kreise (Nummer)" + checked)});
  cause.arrange = Texts{"CREATE TABLE Kreise (Nummer INTEGER PRIMARY KEY)",
                        "INSERT INTO Kreise VALUES (0), (1), (7), (8), (9)"} +
                  cause.arrange;
  cause.remove.push_back("DROP TABLE Kreise");
  return cause;
}

Cause withDocuments() {
  return {refused,
          {"CREATE TABLE Belege (Kreis INTEGER, Art VARCHAR(10), FOREIGN KEY (Kreis, Art) "
           "REFERENCES Nummernkreise (Buchungskreis, NSchl))",
           "INSERT INTO Belege VALUES (9, 'XX')"},
          {"DROP TABLE Belege"}};
}

Cause withAssignments(const std::string& constraint) {
  return {refused,
          {"ALTER TABLE Nummernkreis_Zuordnung RENAME TO Zuordnung_Original",
           "CREATE TABLE Nummernkreis_Zuordnung (Buchungskreis INTEGER, NSchl VARCHAR(10), "
           "Benutzer VARCHAR(40), Herkunft VARCHAR(3), " +
               constraint + ")",
           "INSERT INTO Nummernkreis_Zuordnung SELECT * FROM Zuordnung_Original"},
          {"DROP TABLE Nummernkreis_Zuordnung",
           "ALTER TABLE Zuordnung_Original RENAME TO Nummernkreis_Zuordnung"}};
}

Classes constraints() {
  const Cause hostsColumn = withTable(refused, {.hasOneOfTheHost = true});
  Causes notNull = everywhere(hostsColumn);
  notNull[notStrict] = hostsColumn;
  notNull[notStrict].outcome = saved;  // The engine takes 0 for the host's column.
  const Cause deferred = withForeignKey(" DEFERRABLE INITIALLY DEFERRED");
  return {
      {"CHECK", everywhere(withTable(
                    refused, {.more = primaryKey + std::string(", CHECK (EndWert < 1000)")}))},
      {"CHECK of an assignment", everywhere(withAssignments("CHECK (Benutzer <> 'Max')"))},
      {"NOT NULL without a default", notNull},
      {"foreign key", everywhere(withForeignKey(""))},
      {"foreign key, deferred", {{"sqlite", deferred}, {"postgresql", deferred}}},
      {"foreign key of documents", everywhere(withDocuments())},
      {"unique key of assignments", everywhere(withAssignments("UNIQUE (Benutzer, Herkunft)"))},
      {"unique key that ignores duplicates",
       {{"sqlite",
         withTable(notAsWritten, {.more = primaryKey + std::string(" ON CONFLICT IGNORE")})}}},
      {"no unique key", everywhere(withTable(notAsWritten, {.more = ""}))},
      {"exclusion constraint",
       {{"postgresql",
         {refused,
          {"ALTER TABLE Nummernkreise ADD CONSTRAINT k EXCLUDE USING btree (SortierIndex WITH =) "
           "WHERE (StartWert > 1)"},
          {"ALTER TABLE Nummernkreise DROP CONSTRAINT k"}}}}},
  };
}

Cause sqliteTrigger(Outcome outcome, const std::string& event, const std::string& body) {
  return {outcome, {"CREATE TRIGGER t " + event + " BEGIN " + body + "; END"}, {"DROP TRIGGER t"}};
}

Cause postgresqlTrigger(Outcome outcome, const std::string& event, const std::string& table,
                        const std::string& body) {
  return {outcome,
          {"CREATE FUNCTION f() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN " + body +
               "; RETURN new; END $$",
           "CREATE TRIGGER t " + event + " ON " + table + " FOR EACH ROW EXECUTE FUNCTION f()"},
          {"DROP TRIGGER t ON " + table, "DROP FUNCTION f()"}};
}

Cause mariadbTrigger(Outcome outcome, const std::string& body) {
  return {outcome,
          {"CREATE TRIGGER t BEFORE INSERT ON Nummernkreise FOR EACH ROW " + body},
          {"DROP TRIGGER t"}};
}

RefusedRowClass passingOver(const std::string& name, Outcome outcome, const std::string& event,
                            const std::string& table, const std::string& condition) {
  return {name,
          {{"sqlite", sqliteTrigger(outcome, event + " ON " + table + " WHEN " + condition,
                                    "SELECT RAISE(IGNORE)")},
           {"postgresql", postgresqlTrigger(outcome, event, table,
                                            "IF " + condition + " THEN RETURN NULL; END IF")}}};
}

Classes triggers() {
  return {
      {"trigger that raises",
       {{"sqlite", sqliteTrigger(refused, "BEFORE INSERT ON Nummernkreise WHEN new.NSchl = 'SO'",
                                 "SELECT RAISE(ABORT, 'nicht heute')")},
        {"postgresql",
         postgresqlTrigger(refused, "BEFORE INSERT", "Nummernkreise",
                           "IF new.NSchl = 'SO' THEN RAISE EXCEPTION 'nicht heute'; END IF")},
        {"mariadb",
         mariadbTrigger(refused, "SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT = 'nicht heute'")}}},
      passingOver("trigger that passes over a range", notAsWritten, "BEFORE INSERT",
                  "Nummernkreise", "new.NSchl = 'SO'"),
      passingOver("trigger that passes over a change", refused, "BEFORE UPDATE", "Nummernkreise",
                  "new.NSchl = 'RE'"),
      passingOver("trigger that passes over an assignment", notAsWritten, "BEFORE INSERT",
                  "Nummernkreis_Zuordnung", "new.Benutzer = 'Max'"),
      {"trigger that changes a value",
       {{"sqlite", sqliteTrigger(notAsWritten, "AFTER INSERT ON Nummernkreise",
                                 "UPDATE Nummernkreise SET EndWert = 11 WHERE Buchungskreis = 2")},
        {"postgresql",
         postgresqlTrigger(notAsWritten, "BEFORE INSERT", "Nummernkreise", "new.EndWert := 11")},
        {"mariadb", mariadbTrigger(notAsWritten, "SET new.EndWert = 11")}}},
      {"rule",
       {{"postgresql",
         {notAsWritten,
          {"CREATE RULE r AS ON INSERT TO Nummernkreise WHERE new.NSchl = 'SO' DO INSTEAD NOTHING"},
          {"DROP RULE r ON Nummernkreise"}}}}},
  };
}

// What the engine refuses where it is strict, and everywhere but in "notStrict".
Causes strictly(const Shape& shape, Outcome onSqlite) {
  Causes causes = everywhere(withTable(refused, shape));
  causes["sqlite"].outcome = onSqlite;
  causes[notStrict] = withTable(notAsWritten, shape);
  return causes;
}

Classes columnsAndPartitions() {
  return {
      {"generated column",
       strictly({.column = "EndWert",
                 .definition = "INTEGER GENERATED ALWAYS AS (StartWert + 8) STORED",
                 .isGenerated = true},
                refused)},
      {"SMALLINT overflow", strictly({.column = "EndWert", .definition = "SMALLINT"}, saved)},
      {"text too long", strictly({.column = "NBezeichnung", .definition = "VARCHAR(20)"}, saved)},
      {"missing partition",
       {{"postgresql",
         withTable(refused, {.behind = " PARTITION BY LIST (Buchungskreis)",
                             .parts = {"CREATE TABLE Teil PARTITION OF Nummernkreise FOR VALUES IN "
                                       "(0, 1, 7, 8, 9)"}})},
        {"mariadb", withTable(refused, {.behind = " PARTITION BY LIST (Buchungskreis) (PARTITION "
                                                  "Teil VALUES IN (0, 1, 7, 8, 9))"})}}},
  };
}

Cause withView(Outcome outcome, const std::string& condition, const Texts& more = {}) {
  return {outcome,
          Texts{putAside, "CREATE VIEW Nummernkreise AS SELECT * FROM Original" + condition} + more,
          {"DROP VIEW Nummernkreise", putBack}};
}

// SQLite's views take changes by triggers only.
Cause withSqliteView(Outcome outcome, const std::string& insert) {
  return withView(
      outcome, "",
      {"CREATE TRIGGER Neu INSTEAD OF INSERT ON Nummernkreise BEGIN " + insert + "; END",
       "CREATE TRIGGER Weg INSTEAD OF DELETE ON Nummernkreise BEGIN DELETE FROM "
       "Original WHERE Buchungskreis = old.Buchungskreis AND NSchl = old.NSchl; END"});
}

Cause withPostgresqlView() {
  const Cause trigger =
      postgresqlTrigger(notAsWritten, "INSTEAD OF INSERT", "Nummernkreise", "NULL");
  Cause cause = withView(notAsWritten, "", trigger.arrange);
  cause.remove = trigger.remove + cause.remove;
  return cause;
}

Classes views() {
  const Cause whole = withView(saved, "");
  const Cause hiding = withView(notAsWritten, " WHERE Buchungskreis <> 2");
  const Cause checking = withView(refused, " WHERE Buchungskreis <> 2 WITH CHECK OPTION");
  return {
      {"INSTEAD OF trigger that stores nothing",
       {{"sqlite", withSqliteView(notAsWritten, "SELECT 1")},
        {"postgresql", withPostgresqlView()}}},
      {"view that stores everything",
       {{"sqlite",
         withSqliteView(saved,
                        "INSERT OR REPLACE INTO Original VALUES (new.Buchungskreis, new.NSchl, "
                        "new.NBezeichnung, new.StartWert, new.AktuellerWert, new.EndWert, "
                        "new.Aktiviert, new.SortierIndex, new.IstNSchlVon, new.Maske)")},
        {"postgresql", whole},
        {"mariadb", whole}}},
      {"view that hides a range", {{"postgresql", hiding}, {"mariadb", hiding}}},
      {"view with CHECK OPTION", {{"postgresql", checking}, {"mariadb", checking}}},
  };
}

RefusedRowClass without(const std::string& right, const std::string& table) {
  const std::string which = right + " ON " + table;
  const Cause cause{
      refused, {"REVOKE " + which + " FROM {user}"}, {"GRANT " + which + " TO {user}"}, true};
  return {"user without " + which, {{"postgresql", cause}, {"mariadb", cause}}};
}

RefusedRowClass withPolicy(const std::string& name, Outcome outcome, const std::string& policy) {
  return {
      name,
      {{"postgresql",
        {outcome,
         {"CREATE POLICY p ON Nummernkreise " + policy,
          "ALTER TABLE Nummernkreise ENABLE ROW LEVEL SECURITY"},
         {"ALTER TABLE Nummernkreise DISABLE ROW LEVEL SECURITY", "DROP POLICY p ON Nummernkreise"},
         true}}}};
}

Classes rights() {
  return {without("INSERT", "Nummernkreise"),
          without("UPDATE", "Nummernkreise"),
          without("DELETE", "Nummernkreise"),
          without("INSERT", "Nummernkreis_Zuordnung"),
          withPolicy("row-level security for writing", refused,
                     "USING (true) WITH CHECK (Buchungskreis <> 2)"),
          withPolicy("row-level security for reading", notAsWritten,
                     "USING (Buchungskreis <> 2) WITH CHECK (true)")};
}

}  // namespace

Classes refusedRowClasses() {
  Classes all = constraints();
  for (const Classes& more : {triggers(), columnsAndPartitions(), views(), rights()})
    all.insert(all.end(), more.begin(), more.end());
  for (RefusedRowClass& one : all)
    if (const auto found = one.causes.find("mariadb"); found != one.causes.end())
      one.causes.emplace(notStrict, Cause(found->second));
  return all;
}

}  // namespace vexnumkr::test
