#include <ctime>
#include <memory>
#include <ostream>

#include <vexnumkr/error.h>
#include <vexnumkr/number_journal.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/schema_scripts.h"
#include "cli/transfer/change_text.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

constexpr const char* dropEntries = "DROP TABLE Nummernkreis_Protokoll";

struct JournalOptions {
  bool withCurrent = false;
  bool deleteEntries = false;
  std::string since;
  std::string until;
};

void append(std::vector<std::string>& statements, std::string_view script) {
  for (std::string& statement : app::paragraphsOf(script))
    statements.push_back(std::move(statement));
}

void ignoringFailures(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error&) {  // an earlier failure is the one to tell
  }
}

void execute(Connection& connection, const std::string& statement) {
  std::int32_t affected = 0;
  connection.Execute(statement, affected);
}

// On some engines a definition is stored at once and ends the transaction, so that there is none
// left to commit.
void commit(Connection& connection) {
  constexpr std::int32_t noTransaction = -2147168242;
  try {
    connection.CommitTrans();
  } catch (const Error& error) {
    if (error.number() != noTransaction) throw;
  }
}

void executeAll(Connection& connection, const std::vector<std::string>& statements) {
  connection.BeginTrans();
  try {
    for (const std::string& statement : statements) execute(connection, statement);
    commit(connection);
  } catch (const Error&) {
    ignoringFailures([&] { connection.RollbackTrans(); });
    throw;
  }
}

// Nothing stays of a journal that could not be made as a whole.
void installAll(Connection& connection, const app::SchemaScripts& scripts,
                const std::vector<std::string>& statements) {
  const bool wasThere = numbers::hasJournal(connection);
  try {
    executeAll(connection, statements);
  } catch (const Error&) {
    if (wasThere) throw;
    for (const std::string& statement : app::paragraphsOf(scripts.journalEnd))
      ignoringFailures([&] { execute(connection, statement); });
    ignoringFailures([&] { execute(connection, dropEntries); });
    throw;
  }
}

void printStatements(Session& session, const std::vector<std::string>& statements) {
  session.out() << "Es würde ausgeführt:\n";
  for (const std::string& statement : statements) session.out() << '\n' << statement << ";\n";
}

void printObject(Session& session, const app::SchemaScripts& scripts, Json further,
                 const std::vector<std::string>& statements) {
  Json document{{"engine", scripts.engine}, {"dryRun", session.dryRun()}};
  document.update(further);
  document["statements"] = statements;
  session.printDocument(document);
}

int install(Session& session, const JournalOptions& options) {
  Connection& connection = session.connection();
  const app::SchemaScripts& scripts = schemaScriptsFor(connection);
  std::vector<std::string> statements = app::paragraphsOf(scripts.journal);
  if (options.withCurrent) append(statements, scripts.journalDraws);
  if (!session.dryRun()) installAll(connection, scripts, statements);
  if (session.json()) {
    printObject(session, scripts, {{"withCurrent", options.withCurrent}}, statements);
  } else if (session.dryRun()) {
    printStatements(session, statements);
  } else {
    session.out() << "Das Protokoll ist eingerichtet (Tabelle Nummernkreis_Protokoll); gezogene "
                     "Nummern werden "
                  << (options.withCurrent ? "auch" : "nicht") << " aufgezeichnet.\n";
  }
  return exit_status::fine;
}

int remove(Session& session, const JournalOptions& options) {
  Connection& connection = session.connection();
  const app::SchemaScripts& scripts = schemaScriptsFor(connection);
  const bool hasEntries = numbers::hasJournal(connection);
  std::vector<std::string> statements;
  if (hasEntries) append(statements, scripts.journalEnd);
  if (hasEntries && options.deleteEntries) statements.emplace_back(dropEntries);
  if (!session.dryRun() && hasEntries) executeAll(connection, statements);
  if (session.json()) {
    printObject(session, scripts, {{"deleteEntries", options.deleteEntries}}, statements);
  } else if (!hasEntries) {
    session.out() << "Es gibt kein Protokoll; es ist nichts zu tun.\n";
  } else if (session.dryRun()) {
    printStatements(session, statements);
  } else {
    session.out() << "Es wird nichts mehr aufgezeichnet; die Einträge "
                  << (options.deleteEntries ? "sind gelöscht" : "bleiben") << ".\n";
  }
  return exit_status::fine;
}

std::string formatted(const std::tm& time, const char* format) {
  char text[32];
  return {text, std::strftime(text, sizeof text, format, &time)};
}

std::tm dayOf(const std::string& date) {
  std::tm day{};
  day.tm_year = std::stoi(date.substr(0, 4)) - 1900;
  day.tm_mon = std::stoi(date.substr(4, 2)) - 1;
  day.tm_mday = std::stoi(date.substr(6, 2));
  day.tm_isdst = -1;
  return day;
}

// The midnight with which a day begins here, or so many days later, as the journal has it.
std::string midnight(const std::string& date, int daysLater) {
  if (date.empty()) return {};
  std::tm day = dayOf(date);
  day.tm_mday += daysLater;
  const std::time_t time = std::mktime(&day);
  std::tm universal{};
  gmtime_r(&time, &universal);
  return formatted(universal, "%Y-%m-%dT%H:%M:%S.000Z");
}

// "2026-11-22T09:30:00.123Z" as people have it here.
std::string localTime(const std::string& time) {
  std::tm universal = dayOf(time.substr(0, 4) + time.substr(5, 2) + time.substr(8, 2));
  universal.tm_hour = std::stoi(time.substr(11, 2));
  universal.tm_min = std::stoi(time.substr(14, 2));
  universal.tm_sec = std::stoi(time.substr(17, 2));
  const std::time_t seconds = timegm(&universal);
  std::tm local{};
  localtime_r(&seconds, &local);
  return formatted(local, "%d.%m.%Y %H:%M:%S");
}

void printText(Session& session, const numbers::JournalEntry& entry) {
  session.out() << localTime(entry.time);
  if (!entry.login.empty()) session.out() << "  " << entry.login;
  if (!entry.user.empty()) session.out() << " (" << entry.user << ")";
  session.out() << '\n';
  for (const numbers::JournalChange& change : entry.changes)
    session.out() << "  " << textOf(change.change) << '\n';
}

void printObjects(Session& session, const numbers::JournalEntry& entry) {
  for (const numbers::JournalChange& change : entry.changes) {
    Json object{{"time", entry.time}, {"login", entry.login}, {"user", entry.user}};
    if (change.application != 0) object["application"] = change.application;
    object.update(described(change.change));
    session.printLine(object);
  }
}

int show(Session& session, const JournalOptions& asked) {
  Connection& connection = session.connection();
  if (!numbers::hasJournal(connection))
    throw UsageError(
        "In dieser Datenbank gibt es kein Protokoll, oder es ist nicht zu lesen. \"vexnumkr "
        "journal install\" richtet es ein.");
  const numbers::JournalOptions options{
      .since = midnight(asked.since, 0),
      .before = midnight(asked.until, 1),
      .application = session.namesApplication() ? session.application() : 0};
  bool isEmpty = true;
  numbers::readJournal(connection, options, [&](const numbers::JournalEntry& entry) {
    isEmpty = false;
    session.json() ? printObjects(session, entry) : printText(session, entry);
  });
  if (isEmpty && !session.json()) session.out() << "Es wurde nichts geändert.\n";
  return exit_status::fine;
}

}  // namespace

void addJournal(CommandSet& commands) {
  const auto options = std::make_shared<JournalOptions>();
  commands.addGroup("journal",
                    "Zeichnet auf, wer wann was geändert hat, und zeigt es: Einrichten, Beenden, "
                    "Ansehen.");
  Command installing = commands.addTo(
      "journal",
      {"install", "Richtet das Protokoll ein: eine Tabelle und Trigger, die sie füllen.",
       "journal install --connection-file verwalter.verbindung"},
      Needs::database, [options](Session& session) { return install(session, *options); });
  installing.addFlag("--with-current", options->withCurrent,
                     "zeichnet auch auf, wenn eine Anwendung eine Nummer zieht");
  installing.addDryRun();
  Command removing = commands.addTo(
      "journal", {"remove", "Beendet das Protokoll; die Einträge bleiben.", "journal remove"},
      Needs::database, [options](Session& session) { return remove(session, *options); });
  removing.addFlag("--delete-entries", options->deleteEntries, "löscht auch alle Einträge");
  removing.addDryRun();
  Command showing = commands.addTo(
      "journal",
      {"show", "Zeigt, wer wann was geändert hat, Speichern für Speichern.",
       "journal show --since 20261101"},
      Needs::optionalDatabase, [options](Session& session) { return show(session, *options); });
  showing.addDate({"--since", "JJJJMMTT", "erst ab diesem Tag"}, options->since);
  showing.addDate({"--until", "JJJJMMTT", "nur bis zu diesem Tag"}, options->until);
}

}  // namespace vexnumkr::cli
