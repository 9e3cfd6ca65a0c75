#include <memory>
#include <ostream>
#include <string>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>
#include <vexnumkr/number_check.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/fill_level.h"
#include "cli/plugin_line.h"
#include "cli/printable.h"
#include "cli/progress.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

using numbers::CheckResult;
using numbers::Company;
using numbers::Finding;
using numbers::RangeLevel;
using numbers::Severity;

struct CheckOptions {
  numbers::CheckOptions check;
  std::string format = "table";
};

const char* nameOf(Severity severity) {
  return severity == Severity::critical ? "critical" : "warning";
}

// A label between quotes, in which a quote stands doubled and "=" must not stand.
std::string plainLabel(const std::string& text) {
  std::string label;
  for (const char c : plainText(text)) {
    if (c == '\'') label += c;
    label += c == '=' ? '_' : c;
  }
  return label;
}

int printUnknown(Session& session, const std::string& text) {
  session.out() << unknownLine(text) << '\n';
  return exit_status::unknown;
}

class CheckPrinter {
 public:
  CheckPrinter(Session& session, const Company& company, const CheckResult& result,
               const numbers::CheckOptions& options)
      : session_(session), company_(company), result_(result), options_(options) {}

  void printTable() const {
    const bool colours = coloursWanted();
    for (const Finding& finding : result_.findings) {
      const bool critical = finding.severity == Severity::critical;
      const char* const colour = critical ? "\033[31m" : "\033[33m";
      session_.out() << (colours ? colour : "") << (critical ? "KRITISCH  " : "Warnung   ")
                     << (colours ? "\033[0m" : "") << printable(finding.text) << '\n';
    }
    if (!result_.findings.empty()) session_.out() << '\n';
    printLevels();
    session_.out() << '\n' << summary() << '\n';
  }

  void printJson() const {
    Json findings = Json::array();
    for (const Finding& finding : result_.findings) findings.push_back(described(finding));
    Json levels = Json::array();
    for (const RangeLevel& level : result_.levels) levels.push_back(described(level));
    session_.printDocument({{"application", company_.application},
                            {"date", options_.date},
                            {"checked", result_.checked.size()},
                            {"critical", result_.count(Severity::critical)},
                            {"warnings", result_.count(Severity::warning)},
                            {"findings", findings},
                            {"ranges", levels}});
  }

  // One line: the state, what is worst, and behind the bar the fill levels with their limits.
  void printNagios() const {
    static constexpr const char* states[] = {"OK", "WARNING", "CRITICAL"};
    std::string line = std::string("NUMMERNKREISE ") + states[nagiosState()] + " - " + summary();
    if (!result_.findings.empty()) line += " " + plainText(result_.findings.front().text);
    line += " |";
    for (const RangeLevel& level : result_.levels)
      line += " '" + plainLabel(level.range->key) + "/" + std::to_string(level.range->circle) +
              "'=" + percentOf(level, '.') + "%;" + std::to_string(options_.warnPercent) + ";" +
              std::to_string(options_.criticalPercent) + ";0;100";
    session_.out() << line << '\n';
  }

  void printOpenMetrics() const {
    printMetric("vexnumkr_range_numbers_used", "Numbers that the range has issued.",
                [](const RangeLevel& level) { return level.used; });
    printMetric("vexnumkr_range_numbers_left", "Numbers that the range can still issue.",
                [](const RangeLevel& level) { return level.left(); });
    session_.out() << "# TYPE vexnumkr_findings gauge\n"
                      "# HELP vexnumkr_findings What the check has found.\n";
    for (const Severity severity : {Severity::critical, Severity::warning})
      session_.out() << "vexnumkr_findings{application=\"" << company_.application
                     << "\",severity=\"" << nameOf(severity) << "\"} " << result_.count(severity)
                     << '\n';
    session_.out() << "# EOF\n";
  }

  int nagiosState() const {
    if (result_.count(Severity::critical) > 0) return 2;
    return result_.findings.empty() ? 0 : 1;
  }

 private:
  static std::string labelValue(const std::string& text) {
    std::string label;
    for (const char c : text) {
      if (c == '\\' || c == '"') label += '\\';
      label += isControl(c) ? ' ' : c;
    }
    return label;
  }

  template <class ValueOf>
  void printMetric(const char* name, const char* help, ValueOf&& valueOf) const {
    session_.out() << "# TYPE " << name << " gauge\n# HELP " << name << ' ' << help << '\n';
    for (const RangeLevel& level : result_.levels)
      session_.out() << name << "{application=\"" << company_.application << "\",key=\""
                     << labelValue(level.range->key) << "\",circle=\"" << level.range->circle
                     << "\"} " << valueOf(level) << '\n';
  }

  void printLevels() const {
    TextTable table({"Schlüssel", "Buchungskreis", " von", " bis", " zuletzt", " frei", " belegt"});
    for (const RangeLevel& level : result_.levels)
      table.add({printable(level.range->key), printable(company_.circleName(level.range->circle)),
                 std::to_string(*level.range->start), std::to_string(*level.range->end),
                 std::to_string(*level.range->current), grouped(level.left()),
                 percentOf(level, ',') + " %"});
    table.print(session_.out());
  }

  std::string summary() const {
    const auto critical = static_cast<std::int64_t>(result_.count(Severity::critical));
    const auto warnings = static_cast<std::int64_t>(result_.count(Severity::warning));
    const std::string ranges = counted(static_cast<std::int64_t>(result_.checked.size()),
                                       "Nummernkreis", "Nummernkreise") +
                               " geprüft";
    if (critical + warnings == 0) return ranges + ", alles in Ordnung.";
    return ranges + ": " + grouped(critical) + " kritisch, " +
           counted(warnings, "Warnung", "Warnungen") + ".";
  }

  static Json described(const Finding& finding) {
    Json object{{"kind", numbers::nameOf(finding.kind)}, {"severity", nameOf(finding.severity)}};
    if (finding.keys.empty()) {
      object["circle"] = finding.circle;
      object["key"] = finding.key;
    }
    if (!finding.user.empty()) object["user"] = finding.user;
    if (!finding.keys.empty()) object["keys"] = finding.keys;
    object["text"] = finding.text;
    return object;
  }

  static Json described(const RangeLevel& level) {
    return {{"circle", level.range->circle},
            {"key", level.range->key},
            {"start", *level.range->start},
            {"end", *level.range->end},
            {"current", *level.range->current},
            {"used", level.used},
            {"left", level.left()},
            {"percent", level.percent()}};
  }

  Session& session_;
  const Company& company_;
  const CheckResult& result_;
  const numbers::CheckOptions& options_;
};

int checkAsAsked(Session& session, const CheckOptions& asked) {
  CheckOptions options = asked;
  if (options.check.date.empty()) options.check.date = today();
  if (options.check.warnPercent > options.check.criticalPercent)
    throw UsageError("--warn darf nicht über --critical liegen.");
  if (session.json() && options.format != "table" && options.format != "json")
    throw UsageError("--json und --format " + options.format + " schließen einander aus.");
  if (session.json()) options.format = "json";
  const Company company = session.company();
  const CheckResult result = numbers::check(company, options.check);
  const CheckPrinter printer(session, company, result, options.check);
  if (options.format == "nagios") {
    printer.printNagios();
    return printer.nagiosState();
  }
  if (options.format == "json") printer.printJson();
  if (options.format == "openmetrics") printer.printOpenMetrics();
  if (options.format == "table") printer.printTable();
  const bool isFine = result.findings.empty() || options.format == "openmetrics";
  return isFine ? exit_status::fine : exit_status::findings;
}

int runCheck(Session& session, const CheckOptions& asked) {
  if (asked.format != "nagios") return checkAsAsked(session, asked);
  try {
    return checkAsAsked(session, asked);
  } catch (const UsageError& error) {
    return printUnknown(session, error.what());
  } catch (const Error& error) {
    return printUnknown(
        session,
        "Die Datenbank meldet: " + withoutPasswords(error.description(), session.connectionText()));
  } catch (const std::exception& error) {
    return printUnknown(session, withoutPasswords(error.what(), session.connectionText()));
  }
}

}  // namespace

void addCheck(CommandSet& commands) {
  const auto options = std::make_shared<CheckOptions>();
  Command command = commands.add(
      {"check", "Prüft alle Nummernkreise, Füllstände und Zuordnungen.",
       "check --application 1 --warn 80 --critical 95"},
      Needs::application, [options](Session& session) { return runCheck(session, *options); });
  command.addNumber({"--warn", "PROZENT", "ab diesem Füllstand eine Warnung (ohne Angabe 80)"},
                    options->check.warnPercent, 1, 100);
  command.addNumber({"--critical", "PROZENT", "ab diesem Füllstand kritisch (ohne Angabe 95)"},
                    options->check.criticalPercent, 1, 100);
  command.addChoice({"--format", "FORM",
                     "table (ohne Angabe), json, nagios (eine Zeile; Rückgabewert 0 OK, 1 WARNING, "
                     "2 CRITICAL, 3 UNKNOWN) oder openmetrics"},
                    options->format, {"table", "json", "nagios", "openmetrics"});
  command.addDate(options->check.date);
}

}  // namespace vexnumkr::cli
