#include <ostream>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>
#include <vexnumkr/number_doctor.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"

namespace vexnumkr::cli {
namespace {

using numbers::Diagnosis;

void printText(Session& session, const std::vector<Diagnosis>& found) {
  for (const Diagnosis& diagnosis : found) {
    session.out() << (diagnosis.isFine ? "in Ordnung  " : "FEHLER      ") << diagnosis.title
                  << '\n';
    if (diagnosis.isFine) continue;
    session.out() << "            " << diagnosis.problem
                  << "\n            Abhilfe: " << diagnosis.remedy << '\n';
  }
}

// A connection that cannot be opened is the first thing to find.
std::vector<Diagnosis> opened(Session& session) {
  try {
    session.connection();
    return {};
  } catch (const Error& error) {
    return {{.name = "connection",
             .title = "Verbindung",
             .isFine = false,
             .problem = withoutPasswords(error.description(), session.connectionText()),
             .remedy = "Die Verbindung richtigstellen: Treiber, Server, Datenbank, Benutzer und "
                       "Kennwort; der Server muss laufen und die Datenbank vorhanden sein."}};
  }
}

int runDoctor(Session& session) {
  std::vector<Diagnosis> found = opened(session);
  const bool isOpen = found.empty();
  if (isOpen) found = numbers::diagnose(session.connection(), today());
  bool isFine = true;
  Json list = Json::array();
  for (const Diagnosis& diagnosis : found) {
    isFine = isFine && diagnosis.isFine;
    Json object{{"name", diagnosis.name}, {"fine", diagnosis.isFine}};
    if (!diagnosis.isFine) {
      object["problem"] = diagnosis.problem;
      object["remedy"] = diagnosis.remedy;
    }
    list.push_back(object);
  }
  if (session.json()) {
    session.printDocument({{"fine", isFine}, {"checks", list}});
  } else {
    printText(session, found);
  }
  if (!isOpen) return exit_status::database;
  return isFine ? exit_status::fine : exit_status::findings;
}

}  // namespace

void addDoctor(CommandSet& commands) {
  commands.add({"doctor", "Prüft, ob die Datenbank richtig eingerichtet ist.",
                "doctor --connection-file firma.verbindung"},
               Needs::database, runDoctor);
}

}  // namespace vexnumkr::cli
