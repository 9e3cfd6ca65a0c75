#include "hosting/saving.h"

#include "data/sql/set_statements.h"
#include "data/sql/statements.h"
#include "rules/saving/read_back.h"
#include "rules/saving/saving.h"
#include "rules/saving/saving_in_sets.h"
#include "rules/saving/stored_changes.h"
#include "rules/validation.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr Procedure saveProcedure{generalModule, "Save"};
constexpr std::int32_t yesOrNo = msg_box::yesNo + msg_box::question;
constexpr std::int32_t yesNoOrCancel = msg_box::yesNoCancel + msg_box::question;

enum class Decision { Save, Discard, KeepOpen };

Decision decide(Session& session, bool askFirst) {
  if (!session.blnChanged()) return Decision::Discard;
  if (!askFirst) return Decision::Save;
  const std::int32_t answer = session.boxes().MsgBoxEx("Sollen die Änderungen gespeichert werden?",
                                                       yesNoOrCancel, "Abfrage");
  if (answer == msg_box::yes) return Decision::Save;
  // Whoever could not be asked has not agreed to lose anything either. Other applications are never
  // asked, and have not agreed to saving.
  const bool couldBeAsked = answer != 0 || !session.source().origin().exists();
  return answer == msg_box::cancel || !couldBeAsked ? Decision::KeepOpen : Decision::Discard;
}

// One attempt at writing everything.
class Saving {
 public:
  Saving(Session& session, RangeDisplay& display)
      : session_(session), display_(display), data_(session.data()) {}

  // Whether rows were replaced under lock; once it is committed the dialog closes, but a failure
  // leaves it open.
  bool hasUnshownChanges() const { return hasUnshownChanges_; }

  // Whether everything is written and committed. Errors: what keeps it from that.
  bool run() {
    requireOrigin();
    session_.requireTransaction();
    const auto before = firstReading();
    if (!before || !isValid()) return false;
    writeAndCommit(*before);
    return true;
  }

 private:
  void requireOrigin() const {
    if (session_.source().origin().exists()) return;
    throw Error(error_number::invalidCall, "VEXNummernkreise",
                "Die Anwendung " + std::to_string(session_.LngApplication()) +
                    " hat keine eigenen Nummernkreise.");
  }

  // Outside of the transaction, so that hosts go on drawing while the user thinks. Nothing when the
  // user gives up values for those that others have stored.
  std::optional<StoredRanges> firstReading() {
    StoredRanges stored = readStoredRanges(*session_.source().queryAside(statement::ranges()),
                                           data_, Others::passOver);
    const StoredChanges changes = takeStoredChanges(data_, stored);
    const std::int32_t answer =
        changes.conflicts.empty() ? msg_box::yes : answerAbout(changes.conflicts);
    if (answer == msg_box::yes) keepUsersValues(data_.known, changes.conflicts);
    // Whoever could not be asked has not given up anything; the next attempt asks again.
    if (answer == msg_box::no) takeStoredValues(data_, changes.conflicts);
    if (changes.replaced || answer == msg_box::no) display_.showChanges();
    if (answer != msg_box::yes) return std::nullopt;
    return stored;
  }

  // Yes or no, or 0 where the user could not be asked.
  std::int32_t answerAbout(const std::vector<Conflict>& conflicts) {
    const std::int32_t answer =
        session_.boxes().MsgBoxEx(conflictQuestion(conflicts), yesOrNo, "Abfrage");
    return answer == msg_box::yes || answer == 0 ? answer : msg_box::no;
  }

  bool isValid() {
    const Validity validity = CheckValidity(data_.table, session_.reporter());
    if (validity.defect) display_.showDefect(*validity.defect);
    return validity.holds;
  }

  void writeAndCommit(const StoredRanges& before) {
    const Work work(session_.progress(), "Nummernkreise werden gespeichert…");
    StatementSource& source = session_.source();
    session_.Conn().LockTable("Nummernkreise");
    const StoredRanges underLock =
        readStoredRanges(*source.query(statement::ranges()), data_, Others::read);
    hasUnshownChanges_ = takeDrawnNumbers(data_, before, underLock);
    readBack(underLock, write(underLock));
    session_.commitTransaction();
    knowAsStored(data_);
    session_.progress().advance();
  }

  // Row by row nothing is told of what was removed, nor of assignments.
  WrittenInSets write(const StoredRanges& underLock) {
    StatementSource& source = session_.source();
    if (source.access() == DatabaseAccess::inSets)
      return writeDifferences(data_.table, underLock, source, session_.progress());
    writeTable(data_.table, source, session_.progress());
    for (const RangeRow& range : underLock.unknown) InsertIntoNummernkreise(source, range);
    return {};
  }

  // Asks for both before it judges either. Where assignments were left alone their number says
  // enough.
  void readBack(const StoredRanges& underLock, const WrittenInSets& written) {
    StatementSource& source = session_.source();
    const auto ranges = source.query(statement::ranges());
    const auto assignments =
        source.query(written.assignments ? statement::assignments(session_.Herkunft())
                                         : statement::assignmentCount(session_.Herkunft()));
    requireRangesAsWritten(data_.table, {underLock.unknown, written.removed}, *ranges);
    if (written.assignments)
      requireAssignmentsAsWritten(data_.table, *assignments);
    else
      requireAssignmentCount(data_.table, assignments->Fields("Anzahl").toLong());
  }

  Session& session_;
  RangeDisplay& display_;
  RangeData data_;
  bool hasUnshownChanges_ = false;
};

// Where no server can be reached any more the user has just been told so, and whatever comes next
// begins anew.
void restart(Session& session) {
  try {
    session.restartTransaction();
  } catch (const Error& error) {
    if (error.number() != error_number::invalidConnection) throw;
  }
}

// A failure leaves a fresh transaction behind, and what the display shows is what the table holds.
bool saveOrRollBack(Session& session, RangeDisplay& display) {
  Saving saving(session, display);
  bool saved = false;
  if (reportingFailures(session.reporter(), saveProcedure, [&] { saved = saving.run(); }))
    return saved;
  reportingFailures(session.reporter(), saveProcedure, [&] { restart(session); });
  if (saving.hasUnshownChanges()) display.showChanges();
  return false;
}

bool wasReadCompletely(Session& session) {
  if (!session.failures().tableIsPartial()) return true;
  session.boxes().MsgBoxEx(
      "Die Nummernkreise konnten nicht vollständig gelesen werden. Es wird nichts gespeichert.",
      msg_box::okOnly, "Info");
  return false;
}

}  // namespace

bool Save(Session& session, RangeDisplay& display, bool askFirst) {
  bool mayClose = false;
  reportingFailures(session.reporter(), saveProcedure, [&] {
    switch (decide(session, askFirst)) {
      case Decision::Discard:
        session.rollBackTransaction();
        mayClose = true;
        break;
      case Decision::Save:
        mayClose = wasReadCompletely(session) && saveOrRollBack(session, display);
        break;
      case Decision::KeepOpen:
        break;
    }
  });
  return mayClose;
}

}  // namespace vexnumkr::basAllgemein
