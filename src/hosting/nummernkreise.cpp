#include "hosting/nummernkreise.h"

#include "data/sql/statements.h"

namespace vexnumkr {
namespace {

constexpr const char* moduleName = "VXNummernkreise";

// The connection keeps nobody that is told of its waits longer than this lives.
class ToldOfWaits {
 public:
  ToldOfWaits(Connection& connection, LockWait& told) : connection_(connection) {
    connection_.OnLockWait(&told);
  }
  ~ToldOfWaits() {
    ignoringFailures([this] { connection_.OnLockWait(nullptr); });
  }
  ToldOfWaits(const ToldOfWaits&) = delete;
  ToldOfWaits& operator=(const ToldOfWaits&) = delete;

 private:
  Connection& connection_;
};

}  // namespace

Nummernkreise::Nummernkreise(const Services& services, MainDialogFactory createDialog)
    : forms_(services.forms), session_(services), createDialog_(std::move(createDialog)) {}

bool Nummernkreise::Init(std::shared_ptr<Connection> Conn, std::int32_t LngApplication,
                         const std::string& strUser, const std::string& jmtVerarbeitungsdatum) {
  bool initialised = false;
  if (isBusy()) return initialised;
  isInitialising_ = true;
  reportingFailures(session_.reporter(), {moduleName, "Init"}, [&] {
    session_.Conn(std::move(Conn));
    session_.createColUser();
    session_.LngApplication(LngApplication);
    session_.strUser(strUser);
    session_.strVerarbeitungsdatum(jmtVerarbeitungsdatum.empty() ? session_.clock().today()
                                                                 : jmtVerarbeitungsdatum);
    session_.colUser().emplace_back(alleBenutzer);
    readUsers();
    // The host may have released the component while its database was asked.
    initialised = !session_.isAbandoned();
  });
  isInitialising_ = false;
  return initialised;
}

void Nummernkreise::abandon() noexcept {
  session_.abandon();
  forms_.closeAll();
}

// Boxes, dialogs and progress handle events, in which the host may call again.
bool Nummernkreise::isBusy() {
  return isOpen_ || isInitialising_ || session_.progress().isWorking();
}

void Nummernkreise::readUsers() {
  const ToldOfWaits told(session_.Conn(), session_.lockNotice());
  auto users = session_.Conn().createRecordset();
  users->CursorLocation(ado::useClient);
  users->Open(statement::users(), session_.Conn(), ado::openForwardOnly, ado::lockReadOnly,
              ado::unspecified);
  for (; !users->EndOfFile(); users->MoveNext())
    session_.colUser().push_back(users->Fields("strUserName_PK").toText());
  users->Close();
}

void Nummernkreise::ShowDialog() {
  if (isBusy()) return;
  isOpen_ = true;
  reportingFailures(session_.reporter(), {moduleName, "ShowDialog"}, [&] {
    const auto dialog = createDialog_(session_);
    // The windows of that host have a font of their own, and its dialogs look alike.
    if (session_.Herkunft() == "ORB") dialog->RefreshFont(hostFont);
    dialog->Show();
  });
  isOpen_ = false;
}

}  // namespace vexnumkr
