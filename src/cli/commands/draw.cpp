#include <memory>
#include <ostream>

#include <vexnumkr/numbers.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"

namespace vexnumkr::cli {
namespace {

struct DrawOptions {
  numbers::DrawRequest request;
  std::int32_t circle = 0;
  const CLI::Option* hasCircle = nullptr;
};

Json described(const numbers::Draw& draw, const numbers::DrawRequest& request,
               std::int32_t number) {
  return {{"number", number},
          {"key", request.key},
          {"user", request.user},
          {"circle", draw.circle},
          {"drawnFrom", draw.key},
          {"left", draw.left(number)},
          {"lastTenPercent", draw.isInLastTenth(number)},
          {"lastOne", draw.isLast(number)}};
}

// Said once for all numbers of a call.
void warn(Session& session, const numbers::Draw& draw) {
  const std::string range =
      "Nummernkreis \"" + draw.key + "\", Buchungskreis " + std::to_string(draw.circle);
  if (draw.isLast(draw.last)) {
    session.messages() << "vexnumkr: Das war die letzte Nummer: " << range << ".\n";
  } else if (draw.isInLastTenth(draw.last)) {
    session.messages() << "vexnumkr: Nur noch " << draw.left(draw.last)
                       << " Nummern frei: " << range << ".\n";
  }
}

int runDraw(Session& session, const DrawOptions& options) {
  numbers::DrawRequest request = options.request;
  request.application = session.application();
  if (options.hasCircle->count() > 0) request.circle = options.circle;
  Connection& connection = session.connection();
  const numbers::Draw draw =
      session.dryRun() ? numbers::tryDraw(connection, request) : numbers::draw(connection, request);
  for (std::int64_t number = draw.first; number <= draw.last; ++number) {
    const auto issued = static_cast<std::int32_t>(number);
    if (session.json()) {
      session.printLine(described(draw, request, issued));
    } else {
      session.out() << issued << '\n';
    }
  }
  if (!session.json()) warn(session, draw);
  return exit_status::fine;
}

}  // namespace

void addDraw(CommandSet& commands) {
  const auto options = std::make_shared<DrawOptions>();
  CLI::App& command =
      commands.add("draw", "Zieht die nächste Nummer, oder mehrere.",
                   "draw --application 1 --user Hoffmann --key RE", Needs::application,
                   [options](Session& session) { return runDraw(session, *options); });
  addText(command, "--user", options->request.user, "NAME",
          "für wen; wer keine eigene Zuordnung hat, zieht aus der gemeinsamen")
      ->required();
  addText(command, "--key", options->request.key, "NSCHL", "der Nummernschlüssel, z. B. RE")
      ->required();
  options->hasCircle =
      addNumber(command, "--circle", options->circle, "N",
                "der Buchungskreis, wenn mehrere zugeordnet sind", INT32_MIN, INT32_MAX);
  addNumber(command, "--count", options->request.count, "K",
            "so viele auf einmal; es gibt alle oder keine", 1, 1000000);
  commands.addDryRun(command);
}

}  // namespace vexnumkr::cli
