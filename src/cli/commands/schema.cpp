#include <algorithm>
#include <memory>
#include <ostream>

#include <vexnumkr/error.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/schema_scripts.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

struct SchemaOptions {
  std::string engine;
  std::string part = "ranges";
  bool settings = false;
};

std::string_view partOf(const SchemaScripts& scripts, const std::string& part) {
  if (part == "ranges") return scripts.ranges;
  if (part == "settings") return scripts.settings;
  if (part == "protokoll") return scripts.journal;
  return scripts.rights;
}

int print(Session& session, const SchemaOptions& options) {
  const SchemaScripts& scripts = schemaScripts(options.engine);
  const std::string_view script = partOf(scripts, options.part);
  if (script.empty())
    throw UsageError("Das Datenbanksystem \"" + options.engine + "\" braucht kein Skript \"" +
                     options.part + "\".");
  if (session.json()) {
    session.printDocument({{"engine", options.engine},
                           {"part", options.part},
                           {"statements", options.part == "protokoll" ? paragraphsOf(script)
                                                                      : statementsOf(script)}});
  } else {
    session.out() << script;
  }
  return exit_status::fine;
}

/// The name behind "CREATE TABLE "; empty for another statement.
std::string tableMadeBy(const std::string& statement) {
  const std::string_view begin = "CREATE TABLE ";
  if (!statement.starts_with(begin)) return {};
  return statement.substr(begin.size(), statement.find_first_of(" (", begin.size()) - begin.size());
}

bool exists(Connection& connection, const std::string& table) {
  try {
    std::int32_t found = 0;
    connection.Execute("SELECT COUNT(*) AS Anzahl FROM " + table + " WHERE 1 = 0", found);
    return true;
  } catch (const Error&) {
    return false;
  }
}

std::vector<std::string> tablesOf(const std::vector<std::string>& statements) {
  std::vector<std::string> tables;
  for (const std::string& statement : statements)
    if (const std::string table = tableMadeBy(statement); !table.empty()) tables.push_back(table);
  return tables;
}

void requireNone(Connection& connection, const std::vector<std::string>& tables) {
  std::string present;
  for (const std::string& table : tables)
    if (exists(connection, table)) present += (present.empty() ? "" : ", ") + table;
  if (!present.empty())
    throw UsageError("In dieser Datenbank gibt es schon: " + present +
                     ". Es wird nichts angelegt; ob die Tabellen stimmen, sagt \"vexnumkr "
                     "doctor\".");
}

// A definition ends a transaction on some engines, so what is there already is taken away instead.
void makeAll(Connection& connection, const std::vector<std::string>& statements) {
  std::vector<std::string> made;
  std::int32_t affected = 0;
  try {
    for (const std::string& statement : statements) {
      connection.Execute(statement, affected);
      if (const std::string table = tableMadeBy(statement); !table.empty()) made.push_back(table);
    }
  } catch (const Error&) {
    for (const std::string& table : made) {
      try {
        connection.Execute("DROP TABLE " + table, affected);
      } catch (const Error&) {  // the first failure is the one to tell
      }
    }
    throw;
  }
}

int create(Session& session, const SchemaOptions& options) {
  Connection& connection = session.connection();
  const SchemaScripts& scripts = schemaScriptsFor(connection);
  if (!options.engine.empty() && options.engine != scripts.engine)
    throw UsageError("Die Verbindung führt zu " + std::string(scripts.engine) + ", nicht zu " +
                     options.engine + ".");
  std::vector<std::string> statements = statementsOf(scripts.ranges);
  if (options.settings)
    for (const std::string& statement : statementsOf(scripts.settings))
      statements.push_back(statement);
  const std::vector<std::string> tables = tablesOf(statements);
  requireNone(connection, tables);
  if (!session.dryRun()) makeAll(connection, statements);
  if (session.json()) {
    session.printDocument(
        {{"engine", scripts.engine}, {"dryRun", session.dryRun()}, {"tables", tables}});
    return exit_status::fine;
  }
  session.out() << (session.dryRun() ? "Es würden angelegt:" : "Angelegt:") << '\n';
  for (const std::string& table : tables) session.out() << "  " << table << '\n';
  return exit_status::fine;
}

OptionText engineText() {
  std::string names;
  for (const std::string& engine : schemaEngines()) names += (names.empty() ? "" : "|") + engine;
  return {"--engine", "NAME", "das Datenbanksystem: " + names};
}

}  // namespace

void addSchema(CommandSet& commands) {
  const auto options = std::make_shared<SchemaOptions>();
  commands.addGroup("schema", "Gibt die Tabellen aus oder legt sie an.");
  Command printing = commands.addTo(
      "schema",
      {"print", "Gibt das Skript aus, das die Tabellen anlegt.",
       "schema print --engine postgresql | psql -d firma"},
      Needs::nothing, [options](Session& session) { return print(session, *options); });
  printing.addText(engineText(), options->engine, Presence::required);
  printing.addChoice(
      {"--part", "TEIL",
       "ranges für die fünf Tabellen (ohne Angabe), settings für die Einstellungen, "
       "rechte für die Rechte des Benutzers, protokoll für das Protokoll der Änderungen"},
      options->part, {"ranges", "settings", "rechte", "protokoll"});
  Command creating = commands.addTo(
      "schema",
      {"create", "Legt die Tabellen in der Datenbank an; was es schon gibt, bleibt.",
       "schema create --connection-file firma.verbindung"},
      Needs::database, [options](Session& session) { return create(session, *options); });
  creating.addText(engineText(), options->engine);
  creating.addFlag("--settings", options->settings, "auch die Tabelle der Einstellungen");
  creating.addDryRun();
}

}  // namespace vexnumkr::cli
