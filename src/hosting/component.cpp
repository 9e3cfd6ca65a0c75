#include "hosting/component.h"

#include "data/sql/statements.h"
#include "hosting/reporting.h"

namespace vexnumkr {
namespace {

constexpr const char* moduleName = "VXNummernkreise";

}  // namespace

Component::Component(const Services& services, MainDialogFactory createDialog)
    : context_(services), createDialog_(std::move(createDialog)) {}

// The user list goes with the object; the host's connection is only no longer shared.
Component::~Component() { context_.releaseColUser(); }

bool Component::Init(std::shared_ptr<Connection> Conn, std::int32_t LngApplication,
                     const std::string& strUser, const std::string& jmtVerarbeitungsdatum) {
  bool initialised = false;
  if (isBusy()) return initialised;
  reportingFailures(context_, {moduleName, "Init"}, [&] {
    context_.Conn(std::move(Conn));
    context_.createColUser();
    context_.LngApplication(LngApplication);
    context_.strUser(strUser);
    context_.strVerarbeitungsdatum(jmtVerarbeitungsdatum.empty() ? context_.clock().today()
                                                                 : jmtVerarbeitungsdatum);
    context_.colUser().emplace_back(alleBenutzer);
    readUsers();
    initialised = true;
  });
  return initialised;
}

bool Component::isBusy() { return isOpen_ || context_.progress().isWorking(); }

void Component::readUsers() {
  auto users = context_.Conn().createRecordset();
  users->CursorLocation(ado::useClient);
  users->Open(statement::users(), context_.Conn(), ado::openForwardOnly, ado::lockReadOnly,
              ado::unspecified);
  for (; !users->EndOfFile(); users->MoveNext())
    context_.colUser().push_back(users->Fields("strUserName_PK").toText());
  users->Close();
}

void Component::ShowDialog() {
  if (isBusy()) return;
  isOpen_ = true;
  reportingFailures(context_, {moduleName, "ShowDialog"}, [&] {
    const auto dialog = createDialog_(context_);
    if (context_.Herkunft() == "ORB") dialog->RefreshFont(hostFont);
    dialog->Show();
  });
  isOpen_ = false;
}

}  // namespace vexnumkr
