#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
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

std::string_view partOf(const app::SchemaScripts& scripts, const std::string& part) {
  if (part == "ranges") return scripts.ranges;
  if (part == "settings") return scripts.settings;
  if (part == "protokoll") return scripts.journal;
  return scripts.rights;
}

int print(Session& session, const SchemaOptions& options) {
  const app::SchemaScripts& scripts = schemaScripts(options.engine);
  const std::string_view script = partOf(scripts, options.part);
  if (script.empty())
    throw UsageError("Das Datenbanksystem \"" + options.engine + "\" braucht kein Skript \"" +
                     options.part + "\".");
  if (session.json()) {
    session.printDocument(
        {{"engine", options.engine},
         {"part", options.part},
         {"statements",
          options.part == "protokoll" ? app::paragraphsOf(script) : app::statementsOf(script)}});
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

// What makes tables, and which; tables that are there already stay as they are.
struct Making {
  std::vector<std::string> statements;
  std::vector<std::string> tables;
  std::vector<std::string> present;
};

// The statements behind that of a table, up to the next one, are for it.
Making makingOf(const std::vector<std::string>& statements,
                const std::function<bool(const std::string&)>& isPresent) {
  Making making;
  bool isWanted = true;
  for (const std::string& statement : statements) {
    if (const std::string table = tableMadeBy(statement); !table.empty()) {
      isWanted = !isPresent(table);
      (isWanted ? making.tables : making.present).push_back(table);
    }
    if (isWanted) making.statements.push_back(statement);
  }
  return making;
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

// A new file, gone again unless it is kept.
class NewFile {
 public:
  explicit NewFile(const std::string& path) : path_(path) {
    if (path_.empty()) return;
    std::FILE* const file = std::fopen(path_.c_str(), "wbx");
    if (file == nullptr)
      throw UsageError("Die Datei " + path_ + " ist nicht anzulegen: " + std::strerror(errno) +
                       ".");
    std::fclose(file);
  }
  ~NewFile() {
    std::error_code none;
    if (!path_.empty()) std::filesystem::remove(path_, none);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  void keep() { path_.clear(); }

 private:
  std::string path_;
};

std::vector<std::string> statementsFor(const app::SchemaScripts& scripts,
                                       const SchemaOptions& options) {
  if (!options.engine.empty() && options.engine != scripts.engine)
    throw UsageError("Die Verbindung führt zu " + std::string(scripts.engine) + ", nicht zu " +
                     options.engine + ".");
  std::vector<std::string> statements = app::statementsOf(scripts.ranges);
  if (options.settings)
    for (const std::string& statement : app::statementsOf(scripts.settings))
      statements.push_back(statement);
  return statements;
}

void printMade(Session& session, const app::SchemaScripts& scripts, const Making& making) {
  if (session.json())
    return session.printDocument({{"engine", scripts.engine},
                                  {"dryRun", session.dryRun()},
                                  {"tables", making.tables},
                                  {"present", making.present}});
  const auto list = [&](const char* heading, const std::vector<std::string>& tables) {
    if (tables.empty()) return;
    session.out() << heading << '\n';
    for (const std::string& table : tables) session.out() << "  " << table << '\n';
  };
  list(session.dryRun() ? "Es würden angelegt:" : "Angelegt:", making.tables);
  list("Gibt es schon:", making.present);
  if (making.tables.empty()) session.out() << "Es ist nichts zu tun.\n";
}

// In a database that is not there yet there are no tables.
int tryNewFile(Session& session, const SchemaOptions& options) {
  const app::SchemaScripts& scripts = schemaScripts("sqlite");
  printMade(session, scripts,
            makingOf(statementsFor(scripts, options), [](const std::string&) { return false; }));
  return exit_status::fine;
}

int create(Session& session, const SchemaOptions& options) {
  const std::string missing = session.missingFile();
  if (!missing.empty() && session.dryRun()) return tryNewFile(session, options);
  NewFile file(missing);
  Connection& connection = session.connection();
  const app::SchemaScripts& scripts = schemaScriptsFor(connection);
  const Making making = makingOf(statementsFor(scripts, options), [&](const std::string& table) {
    return exists(connection, table);
  });
  if (!session.dryRun()) makeAll(connection, making.statements);
  file.keep();
  printMade(session, scripts, making);
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
