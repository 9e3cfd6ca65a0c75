#include <memory>
#include <ostream>

#include <vexnumkr/numbers.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/text_table.h"

namespace vexnumkr::cli {
namespace {

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
    session.messages() << "vexnumkr: Nur noch "
                       << counted(draw.left(draw.last), "Nummer", "Nummern") << " frei: " << range
                       << ".\n";
  }
}

int runDraw(Session& session, const numbers::DrawRequest& asked) {
  numbers::DrawRequest request = asked;
  request.application = session.application();
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
  const auto request = std::make_shared<numbers::DrawRequest>();
  Command command = commands.add(
      {"draw", "Zieht die nächste Nummer, oder mehrere.",
       "draw --application 1 --user Hoffmann --key RE"},
      Needs::application, [request](Session& session) { return runDraw(session, *request); });
  command.addText(
      {"--user", "NAME", "für wen; wer keine eigene Zuordnung hat, zieht aus der gemeinsamen"},
      request->user, Presence::required);
  command.addText({"--key", "NSCHL", "der Nummernschlüssel, z. B. RE"}, request->key,
                  Presence::required);
  command.addNumber({"--circle", "N", "der Buchungskreis, wenn mehrere zugeordnet sind"},
                    request->circle);
  command.addNumber({"--count", "K", "so viele auf einmal; es gibt alle oder keine"},
                    request->count, 1, 1000000);
  command.addDryRun();
}

}  // namespace vexnumkr::cli
