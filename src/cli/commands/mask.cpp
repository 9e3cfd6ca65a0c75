#include <memory>
#include <ostream>

#include <vexnumkr/error.h>
#include <vexnumkr/number_company.h>
#include <vexnumkr/number_masks.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

using numbers::Company;
using numbers::MaskNumbers;
using numbers::Range;

struct MaskOptions {
  std::string mask;
  std::string date;
  std::string key;
};

MaskNumbers read(const MaskOptions& options) {
  try {
    const auto numbers = numbers::maskNumbers(options.mask, options.date);
    if (numbers) return *numbers;
  } catch (const Error& error) {
    throw UsageError("Die Maske \"" + options.mask +
                     "\" ergibt keine Nummern: " + error.description() +
                     ". Sie braucht Ziffern, J, M oder N, und höchstens neun Stellen.");
  }
  throw UsageError("Die Maske ist leer.");
}

// The stored ranges with numbers in common; where a key is named, those of its sequence alone.
std::vector<const Range*> overlapping(const Company& company, const MaskNumbers& numbers,
                                      const std::string& key) {
  std::vector<const Range*> found;
  for (const Range& range : company.ranges) {
    const bool isMeant = key.empty() || range.sequence() == key;
    if (isMeant && range.active && range.start && range.end && *range.start <= numbers.high &&
        numbers.low <= *range.end)
      found.push_back(&range);
  }
  return found;
}

Json described(const Range& range) {
  return {
      {"circle", range.circle}, {"key", range.key}, {"start", *range.start}, {"end", *range.end}};
}

void printJson(Session& session, const MaskOptions& options, const MaskNumbers& numbers,
               const std::vector<const Range*>& overlaps) {
  Json list = Json::array();
  for (const Range* range : overlaps) list.push_back(described(*range));
  session.printDocument({{"mask", options.mask},
                         {"date", options.date},
                         {"start", numbers.low},
                         {"end", numbers.high},
                         {"capacity", numbers.capacity()},
                         {"overlaps", list}});
}

void printText(Session& session, const MaskOptions& options, const MaskNumbers& numbers,
               const Company* company, const std::vector<const Range*>& overlaps) {
  std::ostream& out = session.out();
  out << "Maske " << options.mask << " am " << options.date << ":\n"
      << "  Startwert        " << numbers.low << '\n'
      << "  Endwert          " << numbers.high << '\n';
  if (numbers.capacity() > 0) {
    out << "  erste Nummer     " << std::int64_t{numbers.low} + 1
        << " (der Startwert gilt als vergeben)\n"
        << "  Nummern          " << grouped(numbers.capacity()) << '\n';
  } else {
    out << "  Ohne freie Stelle (N) gibt es keine Nummer; so lässt sich das nicht speichern.\n";
  }
  for (const Range* range : overlaps)
    out << "Überschneidet sich mit " << range->key << ", " << company->circleName(range->circle)
        << ": " << *range->start << "–" << *range->end << '\n';
  if (company != nullptr && overlaps.empty())
    out << "Überschneidet sich mit keinem Nummernkreis.\n";
}

int explain(Session& session, const MaskOptions& asked) {
  MaskOptions options = asked;
  if (options.date.empty()) options.date = today();
  const MaskNumbers numbers = read(options);
  if (!options.key.empty() && !session.hasConnection())
    throw UsageError(
        "--key vergleicht mit den gespeicherten Nummernkreisen; dafür fehlt die Verbindung: "
        "--connection, --connection-file oder VEXNUMKR_CONNECTION.");
  std::optional<Company> company;
  if (session.hasConnection()) company = session.company();
  const auto overlaps =
      company ? overlapping(*company, numbers, options.key) : std::vector<const Range*>();
  if (session.json()) {
    printJson(session, options, numbers, overlaps);
  } else {
    printText(session, options, numbers, company ? &*company : nullptr, overlaps);
  }
  return numbers.capacity() > 0 && overlaps.empty() ? exit_status::fine : exit_status::findings;
}

}  // namespace

void addMask(CommandSet& commands) {
  const auto options = std::make_shared<MaskOptions>();
  commands.addGroup("mask", "Erklärt Masken.");
  Command command = commands.addTo(
      "mask",
      {"explain",
       "Sagt, welche Nummern eine Maske ergibt und mit welchen Nummernkreisen sie sich "
       "überschneiden.",
       "mask explain 3JJNNNN --date 20270101"},
      Needs::optionalDatabase, [options](Session& session) { return explain(session, *options); });
  command.addText({"MASKE", "MASKE", "die Maske: Ziffern, J, %, M und N"}, options->mask,
                  Presence::required);
  command.addDate(options->date);
  command.addText(
      {"--key", "NSCHL", "nur mit den Nummernkreisen dieses Nummernschlüssels vergleichen"},
      options->key);
}

}  // namespace vexnumkr::cli
