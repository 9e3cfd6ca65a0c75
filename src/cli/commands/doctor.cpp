#include <ostream>

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

int runDoctor(Session& session) {
  const std::vector<Diagnosis> found = numbers::diagnose(session.connection(), today());
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
  return isFine ? exit_status::fine : exit_status::findings;
}

}  // namespace

void addDoctor(CommandSet& commands) {
  commands.add({"doctor", "Prüft, ob die Datenbank richtig eingerichtet ist.",
                "doctor --connection-file firma.verbindung"},
               Needs::database, runDoctor);
}

}  // namespace vexnumkr::cli
