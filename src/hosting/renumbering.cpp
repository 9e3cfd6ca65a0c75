#include "hosting/renumbering.h"

#include "rules/mask_numbering.h"

namespace vexnumkr::basAllgemein {

bool StartAutoNum(Session& session) {
  bool finished = false;
  reportingFailures(session.reporter(), {generalModule, "StartAutoNum"}, [&] {
    const std::int32_t answer = session.boxes().MsgBoxEx(
        "Diese Option startet eine automatische Nummernvergabe nach Maske.\r\n"
        "Alle bisherigen Nummern werden hiermit überschrieben!\r\n\r\n"
        "Möchten Sie trotzdem fortfahren?",
        msg_box::yesNoCancel + msg_box::question, "Abfrage");
    if (answer != msg_box::yes) return;
    const Work work(session.progress(), "Automatische Nummerierung…");
    if (numberFromMasks(session.XArray(), session.strVerarbeitungsdatum(), session.progress()))
      session.blnChanged(true);
    finished = true;
  });
  return finished;
}

}  // namespace vexnumkr::basAllgemein
