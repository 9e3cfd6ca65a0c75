#include "hosting/nummernkreise.h"

#include <functional>

#include "data/booking_circles.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;
using Lines = std::vector<std::string>;

// What the main dialogs of a test were told: "created", "font ...", "shown", "released".
struct DialogScript {
  Lines calls;
  std::string failing;
  std::function<void(Session&)> whenShown;

  void called(const std::string& call) {
    calls.push_back(call);
    if (call == failing) throw Error(4711, "test", "kaputt");
  }
};

class ScriptedDialog final : public MainDialog {
 public:
  ScriptedDialog(Session& session, DialogScript& script) : session_(session), script_(script) {
    script_.called("created");
  }
  ~ScriptedDialog() override { script_.calls.emplace_back("released"); }
  void RefreshFont(const std::string& fontName) override { script_.called("font " + fontName); }
  void Show() override {
    script_.called("shown");
    if (script_.whenShown) script_.whenShown(session_);
  }

 private:
  Session& session_;
  DialogScript& script_;
};

class NummernkreiseTest : public test::CoreSession {
 protected:
  // A component of its own on the session's host and boxes.
  Nummernkreise& component() { return component_; }
  Session& session() { return component_.session(); }
  void user(const std::string& name) { sql("INSERT INTO tblUser VALUES ('" + name + "')"); }
  bool init(std::int32_t application = 1, const std::string& date = "20240315") {
    return component_.Init(hostConnection(), application, "Max", date);
  }
  Lines takeCalls() { return std::exchange(dialogs_.calls, {}); }

  DialogScript dialogs_;

 private:
  const test::FixedClock clock_{"20260307"};
  Nummernkreise component_{Services{forms(), host(), clock_}, [this](Session& session) {
                             return std::make_unique<ScriptedDialog>(session, dialogs_);
                           }};
};

TEST_F(NummernkreiseTest, WhileTheDialogIsOpenTheHostGetsNeitherAnotherOneNorAnotherSession) {
  user("Max");
  ASSERT_TRUE(init(1));
  bool again = true;
  dialogs_.whenShown = [&](Session& session) {
    component().ShowDialog();
    again = component().Init(hostConnection(), 2, "Moritz", "");
    EXPECT_EQ(session.strUser(), "Max");
  };
  component().ShowDialog();
  EXPECT_FALSE(again);
  EXPECT_EQ(takeCalls(), (Lines{"created", "font MS Sans Serif", "shown", "released"}));
  dialogs_.whenShown = nullptr;
  component().ShowDialog();
  EXPECT_EQ(takeCalls().size(), 4U);
}

TEST_F(NummernkreiseTest, InitStoresTheSession) {
  user("Max");
  user("Anna");
  EXPECT_TRUE(init(2));
  EXPECT_EQ(session().sharedConn(), hostConnection());
  EXPECT_EQ(session().LngApplication(), 2);
  EXPECT_EQ(session().Herkunft(), "ORC");
  EXPECT_EQ(session().strUser(), "Max");
  EXPECT_EQ(session().strVerarbeitungsdatum(), "20240315");
  EXPECT_EQ(session().colUser(), (Lines{"Alle Benutzer", "Anna", "Max"}));
  EXPECT_EQ(script().takeStatements(),
            Lines{"conn: SELECT strUserName_PK FROM tblUser ORDER BY strUserName_PK"});
}

TEST_F(NummernkreiseTest, WithoutADateTodayIsTheProcessingDate) {
  VXNummernkreise& publicClass = component();
  EXPECT_TRUE(publicClass.Init(hostConnection(), 1, "Max"));
  EXPECT_EQ(session().strVerarbeitungsdatum(), "20260307");
  EXPECT_TRUE(init(1, ""));
  EXPECT_EQ(session().strVerarbeitungsdatum(), "20260307");
}

TEST_F(NummernkreiseTest, ADateIsKeptAsItIs) {
  for (const char* date : {"31.12.2025", " ", "x", "20240315 "}) {
    EXPECT_TRUE(init(1, date));
    EXPECT_EQ(session().strVerarbeitungsdatum(), date);
  }
}

TEST_F(NummernkreiseTest, AUserTableWithoutRowsIsNoFailure) {
  EXPECT_TRUE(init());
  EXPECT_EQ(session().colUser(), Lines{"Alle Benutzer"});
}

TEST_F(NummernkreiseTest, InitAgainStartsTheUserListAnew) {
  user("Max");
  EXPECT_TRUE(init());
  EXPECT_TRUE(init());
  EXPECT_EQ(session().colUser(), (Lines{"Alle Benutzer", "Max"}));
  user("Eva");
  EXPECT_TRUE(init(2, "20250101"));
  EXPECT_EQ(session().colUser(), (Lines{"Alle Benutzer", "Eva", "Max"}));
  EXPECT_EQ(session().LngApplication(), 2);
  EXPECT_EQ(session().strVerarbeitungsdatum(), "20250101");
}

TEST_F(NummernkreiseTest, WithoutUserTableInitIsReportedAndFalse) {
  sql("DROP TABLE tblUser");
  EXPECT_FALSE(init(2));
  const auto raised = boxes();
  ASSERT_EQ(raised.size(), 1U);
  EXPECT_TRUE(raised[0].title.starts_with("Fehler "));
  EXPECT_TRUE(raised[0].prompt.starts_with("VXNummernkreise\r\nInit: ")) << raised[0].prompt;
  EXPECT_NE(raised[0].prompt.find("no such table: tblUser"), std::string::npos);
  EXPECT_EQ(raised[0].buttons, 48);
  EXPECT_EQ(session().sharedConn(), hostConnection()) << "what was stored stays stored";
  EXPECT_EQ(session().LngApplication(), 2);
  EXPECT_EQ(session().strUser(), "Max");
  EXPECT_EQ(session().strVerarbeitungsdatum(), "20240315");
  EXPECT_EQ(session().colUser(), Lines{"Alle Benutzer"});
}

TEST_F(NummernkreiseTest, AUserWithoutNameEndsTheList) {
  sql("DROP TABLE tblUser");
  sql("CREATE TABLE tblUser (strUserName_PK VARCHAR(40))");
  sql("INSERT INTO tblUser VALUES ('Anna')");
  sql("INSERT INTO tblUser VALUES (NULL)");
  EXPECT_FALSE(init());
  EXPECT_EQ(boxes(), std::vector{errorBox(94, "VXNummernkreise", "Init",
                                          "Unzulässige Verwendung von Null")});
  EXPECT_EQ(session().colUser(), Lines{"Alle Benutzer"}) << "NULL comes first";
}

TEST_F(NummernkreiseTest, AFailingSelectIsReported) {
  script().failStatement(1);
  EXPECT_FALSE(init(3));
  EXPECT_EQ(boxes(),
            std::vector{errorBox(4711, "VXNummernkreise", "Init", "Absichtlicher Fehler")});
}

TEST_F(NummernkreiseTest, InitWithoutConnectionIsReported) {
  EXPECT_FALSE(component().Init(nullptr, 1, "Max", ""));
  EXPECT_EQ(boxes(), std::vector{errorBox(91, "VXNummernkreise", "Init",
                                          "Objektvariable nicht festgelegt")});
  EXPECT_EQ(session().colUser(), Lines{"Alle Benutzer"});
}

TEST_F(NummernkreiseTest, Application1GetsItsFontBeforeTheDialogIsShown) {
  init(1);
  component().ShowDialog();
  EXPECT_EQ(takeCalls(), (Lines{"created", "font MS Sans Serif", "shown", "released"}));
}

TEST_F(NummernkreiseTest, OtherApplicationsKeepTheDesignedFonts) {
  for (const std::int32_t application : {2, 0, 3}) {
    init(application);
    component().ShowDialog();
    EXPECT_EQ(takeCalls(), (Lines{"created", "shown", "released"})) << application;
  }
}

TEST_F(NummernkreiseTest, EveryShowDialogHasADialogOfItsOwn) {
  init(2);
  component().ShowDialog();
  component().ShowDialog();
  EXPECT_EQ(takeCalls(), (Lines{"created", "shown", "released", "created", "shown", "released"}));
}

TEST_F(NummernkreiseTest, TheDialogWorksOnTheSessionOfInit) {
  user("Anna");
  init(2, "20251231");
  Lines seen;
  dialogs_.whenShown = [&](Session& session) {
    seen = session.colUser();
    seen.push_back(session.Herkunft() + session.strVerarbeitungsdatum());
  };
  component().ShowDialog();
  EXPECT_EQ(seen, (Lines{"Alle Benutzer", "Anna", "ORC20251231"}));
}

TEST_F(NummernkreiseTest, AFailureWithTheDialogIsReportedAndReleasesIt) {
  init(1);
  const struct {
    const char* step;
    Lines calls;
  } failures[] = {{"created", {"created"}},
                  {"font MS Sans Serif", {"created", "font MS Sans Serif", "released"}},
                  {"shown", {"created", "font MS Sans Serif", "shown", "released"}}};
  for (const auto& failure : failures) {
    dialogs_.failing = failure.step;
    component().ShowDialog();
    EXPECT_EQ(boxes(), std::vector{errorBox(4711, "VXNummernkreise", "ShowDialog", "kaputt")});
    EXPECT_EQ(takeCalls(), failure.calls);
  }
}

TEST_F(NummernkreiseTest, WithoutInitTheDialogOpensOnAnEmptySession) {
  dialogs_.whenShown = [](Session& session) {
    EXPECT_EQ(session.sharedConn(), nullptr);
    basAllgemein::RefreshCombo(session.Buchungskreise(), session.source(), session.reporter());
  };
  component().ShowDialog();
  EXPECT_EQ(takeCalls(), (Lines{"created", "shown", "released"}));
  EXPECT_EQ(boxes(), std::vector{errorBox(91, "basAllgemein", "RefreshCombo",
                                          "Objektvariable nicht festgelegt")});
}

TEST_F(NummernkreiseTest, ReleasingTheComponentLeavesTheConnectionOpen) {
  const test::FixedClock clock("20260307");
  auto second = std::make_unique<Nummernkreise>(
      Services{forms(), host(), clock},
      [this](Session& session) { return std::make_unique<ScriptedDialog>(session, dialogs_); });
  EXPECT_TRUE(second->Init(hostConnection(), 1, "Max", ""));
  second.reset();
  std::int32_t affected = 0;
  EXPECT_TRUE(hostConnection()->Execute("SELECT * FROM tblUser", affected)->EndOfFile());
}

TEST_F(NummernkreiseTest, ComponentsDoNotShareTheirSession) {
  const test::FixedClock clock("20260307");
  Nummernkreise second(Services{forms(), host(), clock}, [this](Session& session) {
    return std::make_unique<ScriptedDialog>(session, dialogs_);
  });
  init(1);
  EXPECT_TRUE(second.Init(hostConnection(), 2, "Eva", ""));
  EXPECT_EQ(session().Herkunft(), "ORB");
  EXPECT_EQ(session().strUser(), "Max");
}

}  // namespace
}  // namespace vexnumkr
