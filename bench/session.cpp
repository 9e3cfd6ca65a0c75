#include "bench/session.h"

#include <stdexcept>
#include <utility>

#include <vexnumkr/adapters.h>

#include "data/booking_circles.h"
#include "data/loading.h"
#include "data/query.h"
#include "data/special_ranges.h"
#include "data/sql/statements.h"
#include "data/table/columns.h"
#include "hosting/start_up.h"
#include "rules/activity.h"
#include "rules/saving.h"
#include "support/plain_host.h"

namespace vexnumkr::bench {
namespace {

// Shows nothing, and says yes.
class SilentForms final : public FormsToolkit {
 public:
  std::unique_ptr<Form> createForm(const FormDescription&, FormEvents&) override {
    throw std::logic_error("no forms here");
  }
  std::int32_t MsgBox(const std::string& prompt, std::int32_t, const std::string& title) override {
    if (title.rfind("Fehler ", 0) == 0) failures.push_back(prompt);
    ++messages;
    return msg_box::yes;
  }
  void SetMousePointer(MousePointer) override {}
  void DoEvents() override {}

  int messages = 0;
  std::vector<std::string> failures;
};

void refillNothing(HostContext&, const std::string&, const std::string&) {}

}  // namespace

struct Session::Surroundings {
  void requireNoFailure() const {
    if (!forms.failures.empty()) throw std::runtime_error(forms.failures.front());
  }

  SilentForms forms;
  test::PlainHost host;
  test::FixedClock clock{"20260315"};
  HostContext context{Services{forms, host, clock}};
};

Session::Session(std::shared_ptr<Connection> connection)
    : surroundings_(std::make_unique<Surroundings>()) {
  HostContext& session = context();
  session.Conn(std::move(connection));
  session.LngApplication(1);
  session.strVerarbeitungsdatum("20260315");
  basAllgemein::basInititialize(session);
  readLists();
}

Session::Session(const std::string& connectionString)
    : Session(openQtSqlConnection(connectionString)) {}

Session::~Session() { basAllgemein::basTerminate(context()); }

HostContext& Session::context() { return surroundings_->context; }

void Session::readLists() {
  HostContext& session = context();
  session.createColUser();
  session.colUser().emplace_back(alleBenutzer);
  std::int32_t affected = 0;
  const auto users = session.Conn().Execute(statement::users(), affected);
  for (; !users->EndOfFile(); users->MoveNext())
    session.colUser().push_back(users->Fields("strUserName_PK").toText());
  static_cast<void>(basAllgemein::CheckSonderkreise(session));
  basAllgemein::RefreshCombo(session, nullptr);
  surroundings_->requireNoFailure();
}

void Session::load() {
  context().XArray(std::make_unique<XArray>(XArray::withColumns(column::last)));
  basAllgemein::LoadItems(context(), basAllgemein::CheckActivity);
  basAllgemein::RefreshSGroups(context());
  surroundings_->requireNoFailure();
}

void Session::save() {
  context().blnChanged(true);
  context().Conn().BeginTrans();
  bool viewReset = false;
  const bool saved = basAllgemein::Save(context(), viewReset, false, refillNothing);
  surroundings_->requireNoFailure();
  if (!saved) throw std::runtime_error("nothing was saved");
}

int Session::takeMessages() {
  surroundings_->requireNoFailure();
  return std::exchange(surroundings_->forms.messages, 0);
}

}  // namespace vexnumkr::bench
