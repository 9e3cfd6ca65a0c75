#include "hosting/saving.h"

#include "rules/saving.h"
#include "rules/validation.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr Procedure saveProcedure{generalModule, "Save"};

bool isValid(Session& session, RangeDisplay& display) {
  const Validity validity = CheckValidity(session.XArray(), session.reporter());
  if (validity.defect) display.showDefect(*validity.defect);
  return validity.holds;
}

void writeAndCommit(Session& session) {
  const Work work(session.progress(), "Nummernkreise werden gespeichert…");
  writeTable(session.XArray(), session.source(), session.progress());
  session.Conn().CommitTrans();
  session.progress().advance();
}

// True when the table was written and committed. A failure leaves a fresh transaction behind.
bool writeOrRollBack(Session& session) {
  if (reportingFailures(session.reporter(), saveProcedure, [&] { writeAndCommit(session); }))
    return true;
  ignoringFailures([&] { session.Conn().RollbackTrans(); });
  reportingFailures(session.reporter(), saveProcedure, [&] { session.Conn().BeginTrans(); });
  return false;
}

enum class Decision { Save, Discard, KeepOpen };

Decision decide(Session& session, bool askFirst) {
  if (!session.blnChanged()) return Decision::Discard;
  if (!askFirst) return Decision::Save;
  const std::int32_t answer =
      session.boxes().MsgBoxEx("Sollen die Änderungen gespeichert werden?",
                               msg_box::yesNoCancel + msg_box::question, "Abfrage");
  if (answer == msg_box::cancel) return Decision::KeepOpen;
  // Whoever could not be asked has not agreed to saving.
  return answer == msg_box::yes ? Decision::Save : Decision::Discard;
}

}  // namespace

bool Save(Session& session, RangeDisplay& display, bool askFirst) {
  bool mayClose = false;
  reportingFailures(session.reporter(), saveProcedure, [&] {
    switch (decide(session, askFirst)) {
      case Decision::Discard:
        session.Conn().RollbackTrans();
        mayClose = true;
        break;
      case Decision::Save:
        mayClose = isValid(session, display) && writeOrRollBack(session);
        break;
      case Decision::KeepOpen:
        break;
    }
  });
  return mayClose;
}

}  // namespace vexnumkr::basAllgemein
