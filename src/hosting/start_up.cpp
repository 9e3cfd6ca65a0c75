#include "hosting/start_up.h"

#include "data/table/columns.h"
#include "hosting/reporting.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr std::int32_t noTimeout = 0;

void bindTextCommand(Command& command, Connection& connection) {
  command.ActiveConnection(connection);
  command.CommandType(ado::commandText);
  command.CommandTimeout(noTimeout);
}

void openWorkingConnection(Connection& working, const Connection& host) {
  working.CommandTimeout(noTimeout);
  working.ConnectionString(host.ConnectionString());
  working.ConnectionTimeout(noTimeout);
  working.CursorLocation(ado::useServer);
  working.IsolationLevel(ado::isolated);
  working.Open("", "", ado::unspecified);
}

std::unique_ptr<BookingCircleDialog> createBookingCircleDialog(const HostContext& context) {
  auto component = context.host().CreateObject(component_name::bookingCircles);
  auto* dialog = dynamic_cast<BookingCircleDialog*>(component.get());
  if (dialog == nullptr) throw Error::cannotCreateObject();
  static_cast<void>(component.release());
  return std::unique_ptr<BookingCircleDialog>(dialog);
}

}  // namespace

void basInititialize(HostContext& context) {
  reportingFailures(context, {moduleName, "basInititialize"}, [&] {
    context.Conn().IsolationLevel(ado::isolated);
    context.cmdSQL(context.Conn().createCommand());
    bindTextCommand(context.cmdSQL(), context.Conn());
    context.ConnWork(context.Conn().createConnection());
    openWorkingConnection(context.ConnWork(), context.Conn());
    context.XArray(std::make_unique<XArray>(XArray::withColumns(column::last)));
    context.dlgBuchungskreise(createBookingCircleDialog(context));
    context.dlgBuchungskreise().Connection(context.sharedConn());
    context.dlgBuchungskreise().MultiSelect(false);
    context.blnChanged(false);
  });
}

void basTerminate(HostContext& context) {
  ignoringFailures([&] { context.ConnWork().Close(); });
  ignoringFailures([&] { context.ConnWork(nullptr); });
  ignoringFailures([&] { context.cmdSQL(nullptr); });
  ignoringFailures([&] { context.XArray(nullptr); });
  ignoringFailures([&] { context.dlgBuchungskreise(nullptr); });
  ignoringFailures([&] { context.Buchungskreise(nullptr); });
}

}  // namespace vexnumkr::basAllgemein
