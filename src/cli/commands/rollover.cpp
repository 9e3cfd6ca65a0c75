#include <memory>
#include <ostream>

#include <vexnumkr/number_rollover.h>

#include "cli/broken_rules.h"
#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/text_table.h"

namespace vexnumkr::cli {
namespace {

using numbers::MaskFailure;
using numbers::Range;
using numbers::Reissuing;
using numbers::Renumbering;
using numbers::RolloverPlan;

struct RolloverOptions {
  std::string date;
  bool apply = false;
  bool reissue = false;
};

std::string shown(const std::optional<std::int32_t>& value) {
  return value ? std::to_string(*value) : "NULL";
}

Json described(const Range& range) {
  const auto value = [](const std::optional<std::int32_t>& number) {
    return number ? Json(*number) : Json();
  };
  return {
      {"start", value(range.start)}, {"current", value(range.current)}, {"end", value(range.end)}};
}

Json described(const Renumbering& change) {
  Json json{{"circle", change.range.circle},
            {"key", change.range.key},
            {"mask", change.range.mask},
            {"old", described(change.range)},
            {"new",
             {{"start", change.numbers.low},
              {"current", change.numbers.low},
              {"end", change.numbers.high}}},
            {"reissues", change.reissued.has_value()}};
  if (change.reissued)
    json["reissued"] = {{"first", change.reissued->first}, {"last", change.reissued->last}};
  return json;
}

Json described(const RolloverPlan& plan) {
  Json changes = Json::array();
  for (const Renumbering& change : plan.changes) changes.push_back(described(change));
  Json failures = Json::array();
  for (const MaskFailure& failure : plan.failures)
    failures.push_back({{"circle", failure.range.circle},
                        {"key", failure.range.key},
                        {"mask", failure.range.mask},
                        {"text", failure.text}});
  return {{"changes", changes}, {"maskErrors", failures}, {"broken", describedRules(plan.broken)}};
}

void printChanges(Session& session, const RolloverPlan& plan) {
  TextTable table({"Schlüssel", " Buchungskreis", "Maske", " Start", " Aktuell", " Ende",
                   " -> Start", " Ende"});
  for (const Renumbering& change : plan.changes)
    table.add({change.range.key, std::to_string(change.range.circle), change.range.mask,
               shown(change.range.start), shown(change.range.current), shown(change.range.end),
               std::to_string(change.numbers.low), std::to_string(change.numbers.high)});
  if (!table.isEmpty()) table.print(session.out());
}

void printReissues(Session& session, const RolloverPlan& plan) {
  const char* const weight = plan.reissuing == Reissuing::allowed ? "ACHTUNG " : "FEHLER  ";
  for (const auto& [range, numbers, reissued] : plan.changes)
    if (reissued)
      session.out() << weight << range.key << ", Buchungskreis " << range.circle << ": vergibt "
                    << reissued->first << "–" << reissued->last << " noch einmal.\n";
}

std::string refusalOf(const RolloverPlan& plan) {
  return plan.failures.empty() && plan.broken.empty()
             ? "Es wurde nichts geändert; mit --reissue würden diese Nummern noch einmal vergeben."
             : "Es wurde nichts geändert; so ließe sich das nicht speichern.";
}

void printText(Session& session, const RolloverPlan& plan, bool applied) {
  printChanges(session, plan);
  printReissues(session, plan);
  for (const MaskFailure& failure : plan.failures)
    session.out() << "FEHLER  " << failure.text << '\n';
  printRules(session, plan.broken);
  const std::string ranges =
      counted(static_cast<std::int64_t>(plan.changes.size()), "Nummernkreis", "Nummernkreise");
  if (plan.changes.empty() && plan.isPossible()) {
    session.out() << "Alle Nummernkreise haben schon die Nummern ihrer Maske.\n";
  } else if (!plan.isPossible()) {
    session.out() << refusalOf(plan) << '\n';
  } else if (applied) {
    session.out() << ranges << " neu nummeriert.\n";
  } else {
    session.out() << ranges << " neu zu nummerieren; mit --apply wird es gespeichert.\n";
  }
}

int runRollover(Session& session, const RolloverOptions& options) {
  const std::string date = options.date.empty() ? today() : options.date;
  const bool apply = options.apply && !session.dryRun();
  Connection& connection = session.connection();
  const Reissuing reissuing = options.reissue ? Reissuing::allowed : Reissuing::refused;
  RolloverPlan plan =
      apply ? numbers::applyRollover(connection, session.application(), date, reissuing)
            : numbers::planRollover(session.company(), date);
  plan.reissuing = reissuing;
  const bool applied = apply && plan.isPossible();
  if (session.json()) {
    Json document{{"date", date}, {"applied", applied}};
    document.update(described(plan));
    session.printDocument(document);
  } else {
    printText(session, plan, applied);
  }
  return plan.isPossible() ? exit_status::fine : exit_status::findings;
}

}  // namespace

void addRollover(CommandSet& commands) {
  const auto options = std::make_shared<RolloverOptions>();
  Command command = commands.add(
      {"rollover", "Jahreswechsel: nummeriert alle Nummernkreise neu nach ihrer Maske.",
       "rollover --application 1 --date 20270101"},
      Needs::application, [options](Session& session) { return runRollover(session, *options); });
  command.addDate(options->date);
  command.addFlag("--apply", options->apply,
                  "speichert es; ohne diese Angabe wird nur gezeigt, was geschähe");
  command.addFlag("--reissue", options->reissue,
                  "lässt zu, dass Nummern noch einmal vergeben werden");
  command.addDryRun();
}

}  // namespace vexnumkr::cli
