// Numbers all ranges of application 2 anew and saves them, as a dialog does, but without one:
// saving_program DATE, the database in VEXNUMKR_CONNECTION. Writes "saving" when it begins to save
// and "saved" when that has returned.
#include <QCoreApplication>
#include <cstdio>

#include <vexnumkr/adapters.h>

#include "data/circle_changes.h"
#include "data/loading.h"
#include "data/special_ranges.h"
#include "hosting/renumbering.h"
#include "hosting/saving.h"
#include "hosting/start_up.h"
#include "rules/activity.h"
#include "support/plain_host.h"

namespace vexnumkr::test {
namespace {

constexpr std::int32_t application = 2;

// Every question is answered with yes; whatever failed is told, too.
class Agreeing final : public FormsToolkit {
 public:
  std::unique_ptr<Form> createForm(const FormDescription&, FormEvents&) override {
    throw Error::cannotCreateObject();
  }
  std::int32_t MsgBox(const std::string& prompt, std::int32_t, const std::string& title) override {
    std::fprintf(stderr, "%s: %s\n", title.c_str(), prompt.c_str());
    return msg_box::yes;
  }
  void SetMousePointer(MousePointer) override {}
  void DoEvents() override {}
  void closeAll() noexcept override {}
};

struct NoDisplay final : RangeDisplay {
  void showDefect(const RangeDefect&) override {}
  void showChanges() override {}
};

void say(const char* text) {
  std::puts(text);
  std::fflush(stdout);
}

void load(Session& session) {
  basAllgemein::basInititialize(session);
  const RangeData data = session.data();
  basAllgemein::RefreshCombo(session.Buchungskreise(), session.source(), session.reporter());
  basAllgemein::LoadItems(data, session.source(), session.reporter(), session.progress());
  basAllgemein::CheckActivity(data.table, data.users, session.reporter());
  basAllgemein::RefreshSGroups(data, session.source(), session.reporter(), session.progress());
  session.beginTransaction();
}

int run(const std::string& date) {
  Agreeing forms;
  PlainHost host;
  const FixedClock clock(date);
  Session session({forms, host, clock});
  session.Conn(openQtSqlConnection(qEnvironmentVariable("VEXNUMKR_CONNECTION").toStdString()));
  session.LngApplication(application);
  session.strVerarbeitungsdatum(date);
  session.createColUser();
  session.colUser().emplace_back(alleBenutzer);
  session.colUser().emplace_back("Anna");
  load(session);
  basAllgemein::StartAutoNum(session);
  NoDisplay display;
  say("saving");
  const bool saved = basAllgemein::Save(session, display, false);
  if (saved) say("saved");
  basAllgemein::basTerminate(session);
  return saved ? 0 : 1;
}

}  // namespace
}  // namespace vexnumkr::test

int main(int argc, char** argv) {
  const QCoreApplication process(argc, argv);
  if (argc != 2) return 2;
  try {
    return vexnumkr::test::run(argv[1]);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
