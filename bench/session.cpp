#include "bench/session.h"

#include <stdexcept>
#include <utility>

#include <vexnumkr/adapters.h>

#include "data/booking_circles.h"
#include "data/loading.h"
#include "data/range_table.h"
#include "data/special_ranges.h"
#include "data/sql/statements.h"
#include "hosting/saving.h"
#include "hosting/start_up.h"
#include "rules/activity.h"
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
  void closeAll() noexcept override {}

  int messages = 0;
  std::vector<std::string> failures;
};

// Every range is in order.
class NoDisplay final : public RangeDisplay {
 public:
  void showDefect(const RangeDefect&) override { throw std::runtime_error("a rule is broken"); }
  void showChanges() override {}
};

}  // namespace

struct Session::Surroundings {
  explicit Surroundings(DatabaseAccess access)
      : session(Services{forms, host, clock, nullptr, access}) {}

  void requireNoFailure() const {
    if (!forms.failures.empty()) throw std::runtime_error(forms.failures.front());
  }

  SilentForms forms;
  test::PlainHost host;
  test::FixedClock clock{"20260315"};
  vexnumkr::Session session;
  NoDisplay display;
};

Session::Session(std::shared_ptr<Connection> connection, DatabaseAccess access)
    : surroundings_(std::make_unique<Surroundings>(access)) {
  vexnumkr::Session& session = this->session();
  session.Conn(std::move(connection));
  session.LngApplication(1);
  session.strVerarbeitungsdatum("20260315");
  basAllgemein::basInititialize(session);
  readLists();
}

Session::Session(const std::string& connectionString, DatabaseAccess access)
    : Session(openQtSqlConnection(connectionString), access) {}

Session::~Session() { basAllgemein::basTerminate(session()); }

vexnumkr::Session& Session::session() { return surroundings_->session; }

void Session::readLists() {
  vexnumkr::Session& session = this->session();
  session.createColUser();
  session.colUser().emplace_back(alleBenutzer);
  std::int32_t affected = 0;
  const auto users = session.Conn().Execute(statement::users(), affected);
  for (; !users->EndOfFile(); users->MoveNext())
    session.colUser().push_back(users->Fields("strUserName_PK").toText());
  static_cast<void>(basAllgemein::CheckSonderkreise(session.source(), session.reporter()));
  basAllgemein::RefreshCombo(session.Buchungskreise(), session.source(), session.reporter());
  surroundings_->requireNoFailure();
}

void Session::load() {
  vexnumkr::Session& session = this->session();
  session.XArray().create();
  const RangeData data = session.data();
  if (basAllgemein::LoadItems(data, session.source(), session.reporter(), session.progress()))
    basAllgemein::CheckActivity(data.table, data.users, session.reporter());
  basAllgemein::RefreshSGroups(data, session.source(), session.reporter(), session.progress());
  surroundings_->requireNoFailure();
}

void Session::begin() { session().beginTransaction(); }

void Session::changeOneValue() {
  vexnumkr::Session& session = this->session();
  for (const RangeRow& row : session.XArray()) {
    if (!row.isCommon() || row.AktuellerWert.toLong() >= row.EndWert.toLong()) continue;
    const std::int32_t start = row.StartWert.toLong();
    const std::int32_t changed = row.AktuellerWert.toLong() == start ? start + 1 : start;
    basAllgemein::SetValueAll(session.XArray(), session.colUser(), session.reporter(),
                              row.NSchl.str(), row.Buchungskreis, &RangeRow::AktuellerWert,
                              changed);
    return;
  }
  throw std::runtime_error("there is no range with room");
}

void Session::save() {
  session().beginTransaction();
  saveChanges();
}

void Session::saveChanges() {
  session().blnChanged(true);
  const bool saved = basAllgemein::Save(session(), surroundings_->display, false);
  surroundings_->requireNoFailure();
  if (!saved) throw std::runtime_error("nothing was saved");
}

int Session::takeMessages() {
  surroundings_->requireNoFailure();
  return std::exchange(surroundings_->forms.messages, 0);
}

}  // namespace vexnumkr::bench
