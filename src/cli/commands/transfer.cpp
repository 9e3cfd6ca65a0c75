#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <ostream>

#include <vexnumkr/number_transfer.h>

#include "cli/broken_rules.h"
#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/printable.h"
#include "cli/text_table.h"
#include "cli/transfer/change_text.h"
#include "cli/transfer/company_json.h"
#include "cli/transfer/company_tables.h"
#include "cli/transfer/wanted_file.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

using numbers::Change;
using numbers::Company;
using numbers::Finding;
using numbers::ImportPlan;

struct TransferOptions {
  numbers::TransferOptions transfer;
  std::string file = "-";
  std::string format = "json";
};

void printText(Session& session, const std::vector<Change>& changes) {
  for (const Change& change : changes) session.out() << printable(textOf(change)) << '\n';
}

Json listOf(const std::vector<Change>& changes) {
  Json list = Json::array();
  for (const Change& change : changes) list.push_back(described(change));
  return list;
}

bool reissuesOnly(const ImportPlan& plan) {
  return std::all_of(plan.broken.begin(), plan.broken.end(), [](const Finding& finding) {
    return finding.kind == numbers::FindingKind::numbersReissued;
  });
}

std::string refusalOf(const ImportPlan& plan) {
  return reissuesOnly(plan)
             ? "Es wurde nichts geändert; mit --reissue würden diese Nummern noch einmal vergeben."
             : "Es wurde nichts geändert; so ließe sich das nicht speichern.";
}

std::string countOf(const std::vector<Change>& changes) {
  return counted(static_cast<std::int64_t>(changes.size()), "Änderung", "Änderungen");
}

int runExport(Session& session, const TransferOptions& options) {
  const Company company = session.company();
  const bool toScreen = options.file == "-";
  if (options.format != "json") {
    if (toScreen)
      throw UsageError("Für die Form " + options.format + " muss mit -o gesagt werden, wohin.");
    const auto tables = tablesOf(company, options.transfer.withCurrent);
    options.format == "csv" ? writeCsv(options.file, tables) : writeXlsx(options.file, tables);
    return exit_status::fine;
  }
  const Json document = documentOf(company, options.transfer.withCurrent);
  if (toScreen) {
    session.printDocument(document);
    return exit_status::fine;
  }
  std::ofstream out(options.file, std::ios::binary);
  out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
  out.close();
  if (!out) throw UsageError("Die Datei " + options.file + " ist nicht zu schreiben.");
  return exit_status::fine;
}

int runDiff(Session& session, const TransferOptions& options) {
  const Company wanted = readWantedCompany(session, options.file).company;
  numbers::TransferOptions all = options.transfer;
  all.removeOthers = true;
  const Company stored = session.company();
  const std::vector<Change> changes = numbers::differences(stored, wanted, all);
  if (session.json()) {
    session.printDocument({{"changes", listOf(changes)}});
  } else {
    printText(session, changes);
    session.out() << (changes.empty() ? "Kein Unterschied." : countOf(changes) + ".") << '\n';
  }
  return changes.empty() ? exit_status::fine : exit_status::findings;
}

int runImport(Session& session, const TransferOptions& options) {
  const WantedCompany wanted = readWantedCompany(session, options.file);
  Connection& connection = session.connection();
  const ImportPlan plan = session.dryRun()
                              ? numbers::planImport(connection, wanted.company, options.transfer)
                              : numbers::storeCompany(connection, wanted.company, options.transfer);
  requireNoFaults(wanted, plan.faults);
  const bool stored = plan.isPossible() && !session.dryRun();
  if (session.json()) {
    session.printDocument({{"stored", stored},
                           {"changes", listOf(plan.changes)},
                           {"broken", describedRules(plan.broken)}});
  } else {
    printText(session, plan.changes);
    printRules(session, plan.broken);
    session.out() << (!plan.isPossible() ? refusalOf(plan)
                      : plan.changes.empty()
                          ? std::string("Kein Unterschied; es ist nichts zu tun.")
                      : stored ? countOf(plan.changes) + " gespeichert."
                               : countOf(plan.changes) +
                                     (plan.changes.size() == 1 ? " stünde an." : " stünden an."))
                  << '\n';
  }
  return plan.isPossible() ? exit_status::fine : exit_status::findings;
}

void addCurrent(Command& command, TransferOptions& options) {
  command.addFlag("--with-current", options.transfer.withCurrent,
                  "auch die aktuellen Werte; ohne diese Angabe bleiben sie, wie sie sind");
}

void addFile(Command& command, TransferOptions& options) {
  command.addText({"DATEI", "DATEI",
                   "die Datei von export, oder der Ordner von export --format csv; - liest die "
                   "Standardeingabe"},
                  options.file, Presence::required);
}

void addExport(CommandSet& commands) {
  const auto options = std::make_shared<TransferOptions>();
  Command command = commands.add(
      {"export", "Gibt Nummernkreise, Buchungskreise, Zuordnungen und Sonderkreise aus.",
       "export --application 1 -o nummernkreise.json"},
      Needs::application, [options](Session& session) { return runExport(session, *options); });
  command.addText(
      {"-o,--output", "ZIEL", "die Datei, bei csv der Ordner; ohne Angabe die Standardausgabe"},
      options->file);
  command.addChoice(
      {"--format", "FORM", "json (ohne Angabe), csv oder xlsx; einlesen lassen sich json und csv"},
      options->format, {"json", "csv", "xlsx"});
  addCurrent(command, *options);
}

}  // namespace

void addTransfer(CommandSet& commands) {
  addExport(commands);
  const auto options = std::make_shared<TransferOptions>();
  Command comparing = commands.add(
      {"diff", "Sagt, worin sich eine Datei von export und die Datenbank unterscheiden.",
       "diff --application 1 nummernkreise.json"},
      Needs::application, [options](Session& session) { return runDiff(session, *options); });
  addFile(comparing, *options);
  addCurrent(comparing, *options);
  Command importing = commands.add(
      {"import", "Übernimmt eine Datei von export: alles oder nichts.",
       "import --application 1 nummernkreise.json --dry-run"},
      Needs::application, [options](Session& session) { return runImport(session, *options); });
  addFile(importing, *options);
  addCurrent(importing, *options);
  importing.addFlag("--delete", options->transfer.removeOthers,
                    "entfernt auch, was nicht in der Datei steht; gemeinsam benutzte Nummernkreise "
                    "bleiben");
  importing.addFlag("--reissue", options->transfer.reissue,
                    "lässt zu, dass ein Nummernkreis Nummern noch einmal vergibt");
  importing.addDryRun();
}

}  // namespace vexnumkr::cli
