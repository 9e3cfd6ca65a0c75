#include "hosting/start_up.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr std::int32_t noTimeout = 0;
// On engines that lock what the dialog's own transaction has written, the working connection would
// wait for it without end.
constexpr std::int32_t workingTimeout = 30;

void bindTextCommand(Command& command, Connection& connection) {
  command.ActiveConnection(connection);
  command.CommandType(ado::commandText);
  command.CommandTimeout(noTimeout);
}

void openWorkingConnection(Connection& working, const Connection& host) {
  working.CommandTimeout(workingTimeout);
  working.ConnectionString(host.ConnectionString());
  working.ConnectionTimeout(noTimeout);
  working.CursorLocation(ado::useServer);
  working.IsolationLevel(ado::isolated);
  working.Open("", "", ado::unspecified);
}

std::unique_ptr<BookingCircleDialog> createBookingCircleDialog(Session& session) {
  auto component = session.host().CreateObject(component_name::bookingCircles);
  auto* dialog = dynamic_cast<BookingCircleDialog*>(component.get());
  if (dialog == nullptr) throw Error::cannotCreateObject();
  static_cast<void>(component.release());
  return std::unique_ptr<BookingCircleDialog>(dialog);
}

}  // namespace

void basInititialize(Session& session) {
  session.failures().forget();
  session.data().known.clear();
  reportingFailures(session.reporter(), {generalModule, "basInititialize"}, [&] {
    session.Conn().OnLockWait(&session.lockNotice());
    session.Conn().IsolationLevel(ado::isolated);
    session.source().cmdSQL(session.Conn().createCommand());
    bindTextCommand(session.source().cmdSQL(), session.Conn());
    session.source().ConnWork(session.Conn().createConnection());
    session.source().ConnWork().OnLockWait(&session.lockNotice());
    openWorkingConnection(session.source().ConnWork(), session.Conn());
    session.XArray().create();
    session.dlgBuchungskreise(createBookingCircleDialog(session));
    session.dlgBuchungskreise().Connection(session.sharedConn());
    session.dlgBuchungskreise().MultiSelect(false);
    session.blnChanged(false);
  });
}

void basTerminate(Session& session) {
  ignoringFailures([&] { session.Conn().OnLockWait(nullptr); });
  ignoringFailures([&] { session.source().ConnWork().Close(); });
  session.source().ConnWork(nullptr);
  session.source().cmdSQL(nullptr);
  session.XArray().release();
  session.dlgBuchungskreise(nullptr);
  session.Buchungskreise().release();
}

}  // namespace vexnumkr::basAllgemein
