#include "hosting/start_up.h"

#include <algorithm>

#include "data/sql/statements.h"
#include "hosting/call_log.h"
#include "hosting/circle_administration.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using basAllgemein::basInititialize;
using basAllgemein::basTerminate;
using test::errorBox;
using Lines = std::vector<std::string>;

template <class Getter>
bool exists(Getter get) {
  try {
    get();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), error_number::objectNotSet);
    return false;
  }
  return true;
}

const Lines& startUpCalls() {
  static const Lines calls{"conn.IsolationLevel 1048576",
                           "conn.createCommand",
                           "cmd.ActiveConnection conn",
                           "cmd.CommandType 1",
                           "cmd.CommandTimeout 0",
                           "conn.createConnection",
                           "work.CommandTimeout 30",
                           "conn.ConnectionString?",
                           "work.ConnectionString Database=x",
                           "work.ConnectionTimeout 0",
                           "work.CursorLocation 2",
                           "work.IsolationLevel 1048576",
                           "work.Open '' '' -1",
                           "host.CreateObject vxtComDlg.WWSDialog",
                           "dialog.Connection conn",
                           "dialog.MultiSelect False"};
  return calls;
}

// Steps on a host that does nothing but note them.
class LoggedStartUpTest : public testing::Test {
 protected:
  LoggedStartUpTest() { session_.Conn(std::make_shared<test::LoggedConnection>(log_, "conn")); }
  void TearDown() override { EXPECT_EQ(forms_.takeBoxes(), std::vector<test::Box>{}); }

  std::int32_t rowCount() { return session_.XArray().size(); }

  test::CallLog log_;
  test::LoggedHost host_{log_};
  test::RecordingForms forms_;
  const test::FixedClock clock_{"20240315"};
  Session session_{Services{forms_, host_, clock_}};
};

TEST_F(LoggedStartUpTest, BuildsTheWorkingObjectsInOrder) {
  session_.blnChanged(true);
  basInititialize(session_);
  EXPECT_EQ(log_.take(), startUpCalls());
  EXPECT_EQ(rowCount(), 0);
  EXPECT_TRUE(session_.XArray().empty());
  EXPECT_FALSE(session_.blnChanged());
  EXPECT_FALSE(session_.Buchungskreise().exists()) << "filled by the dialog's combo box";
}

TEST_F(LoggedStartUpTest, AFailingStepIsReportedAndLeavesOutTheRest) {
  const Lines& all = startUpCalls();
  const auto tableStep = std::find(all.begin(), all.end(), "host.CreateObject vxtComDlg.WWSDialog");
  for (auto failing = all.begin(); failing != all.end(); ++failing) {
    session_.blnChanged(true);
    log_.failing = *failing;
    basInititialize(session_);
    EXPECT_EQ(forms_.takeBoxes(), std::vector{errorBox(4711, "basAllgemein", "basInititialize",
                                                       "Absichtlicher Fehler")})
        << *failing;
    EXPECT_EQ(log_.take(), Lines(all.begin(), failing + 1));
    EXPECT_EQ(session_.XArray().exists(), failing >= tableStep) << *failing;
    EXPECT_EQ(exists([this] { session_.dlgBuchungskreise(); }), failing > tableStep) << *failing;
    EXPECT_TRUE(session_.blnChanged()) << *failing;
    basTerminate(session_);
    log_.take();
  }
}

TEST_F(LoggedStartUpTest, WithoutAConnectionNothingIsBuilt) {
  session_.Conn(nullptr);
  log_.take();
  basInititialize(session_);
  EXPECT_EQ(forms_.takeBoxes(), std::vector{errorBox(91, "basAllgemein", "basInititialize",
                                                     "Objektvariable nicht festgelegt")});
  EXPECT_EQ(log_.take(), Lines{});
}

TEST_F(LoggedStartUpTest, ReleasesTheWorkingObjectsInOrder) {
  basInititialize(session_);
  session_.Buchungskreise().create();
  log_.take();
  basTerminate(session_);
  EXPECT_EQ(log_.take(), (Lines{"work.Close", "~work", "~cmd", "~dialog"}));
  EXPECT_FALSE(exists([this] { session_.source().ConnWork(); }));
  EXPECT_FALSE(exists([this] { session_.source().cmdSQL(); }));
  EXPECT_FALSE(session_.XArray().exists());
  EXPECT_FALSE(exists([this] { session_.dlgBuchungskreise(); }));
  EXPECT_FALSE(session_.Buchungskreise().exists());
}

TEST_F(LoggedStartUpTest, AConnectionThatDoesNotCloseIsReleasedWithTheRestAndSilently) {
  basInititialize(session_);
  log_.take();
  log_.failing = "work.Close";
  basTerminate(session_);
  EXPECT_EQ(log_.take(), (Lines{"work.Close", "~work", "~cmd", "~dialog"}));
  EXPECT_FALSE(session_.XArray().exists());
}

TEST_F(LoggedStartUpTest, ReleasingNothingIsSilent) {
  basTerminate(session_);
  basTerminate(session_);
  EXPECT_EQ(log_.take(), Lines{});
}

TEST_F(LoggedStartUpTest, WhatTheHostHandedOverOutlivesTheDialog) {
  session_.LngApplication(1);
  session_.strUser("Max");
  session_.strVerarbeitungsdatum("20240315");
  session_.createColUser();
  session_.colUser().emplace_back(alleBenutzer);
  basInititialize(session_);
  session_.blnChanged(true);
  basTerminate(session_);
  EXPECT_EQ(test::nameOf(*session_.sharedConn()), "conn");
  EXPECT_EQ(session_.LngApplication(), 1);
  EXPECT_EQ(session_.strUser(), "Max");
  EXPECT_EQ(session_.strVerarbeitungsdatum(), "20240315");
  EXPECT_EQ(session_.colUser(), Lines{alleBenutzer});
  EXPECT_TRUE(session_.blnChanged());
  EXPECT_EQ(std::count(log_.lines.begin(), log_.lines.end(), "~conn"), 0);
  EXPECT_EQ(std::count(log_.lines.begin(), log_.lines.end(), "conn.Close"), 0);
}

// The same on a real database.
class StartUpTest : public test::CoreSession {};

TEST_F(StartUpTest, ReopeningIsFresh) {
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
  start(1, {"Max"});
  row({.Benutzer = "Max", .Buchungskreis = 1, .Gruppe = "Nord", .NSchl = "RE"});
  session().blnChanged(true);
  basTerminate(session());
  start(1, {"Max"});
  EXPECT_EQ(rows(), Lines{});
  EXPECT_FALSE(session().blnChanged());
  std::int32_t affected = 0;
  EXPECT_TRUE(session().source().ConnWork().Execute(statement::users(), affected)->EndOfFile());
  EXPECT_EQ(session().source().ConnWork().ConnectionString(), session().Conn().ConnectionString());
  EXPECT_EQ(session().source().ConnWork().IsolationLevel(), ado::isolated);
  EXPECT_EQ(session().Conn().IsolationLevel(), ado::isolated);
}

TEST_F(StartUpTest, TheCommandRunsOnTheHostsConnection) {
  start(1);
  script().takeStatements();
  std::int32_t affected = 0;
  session().source().cmdSQL().CommandText(statement::users());
  session().source().cmdSQL().Execute(affected);
  EXPECT_EQ(script().takeStatements(), Lines{"conn: " + statement::users()});
}

TEST_F(StartUpTest, WithoutWorkingConnectionLaterProceduresReportTheirOwnFailures) {
  script().failConnect();
  start(1);
  EXPECT_EQ(boxes(),
            std::vector{errorBox(4711, "basAllgemein", "basInititialize", "Absichtlicher Fehler")})
      << "the booking circles are still read, on the host's connection";
  EXPECT_FALSE(basAllgemein::CallBuchungskreise(session(), "ORB"));
  EXPECT_EQ(boxes(), std::vector{errorBox(91, "basAllgemein", "CallBuchungskreise",
                                          "Objektvariable nicht festgelegt")});
}

TEST_F(StartUpTest, AHostWithoutCircleAdministrationFailsOnlyThere) {
  host().hasCircleDialog = false;
  start(2, {"Max"});
  EXPECT_EQ(boxes(),
            std::vector{errorBox(429, "basAllgemein", "basInititialize",
                                 "Objekterstellung durch ActiveX-Komponente nicht möglich")});
  EXPECT_EQ(rows(), Lines{}) << "the table is there";
  EXPECT_FALSE(basAllgemein::CallBuchungskreise(session(), "ORC"));
  EXPECT_EQ(boxes(), std::vector{errorBox(91, "basAllgemein", "CallBuchungskreise",
                                          "Objektvariable nicht festgelegt")});
}

TEST_F(StartUpTest, TheCircleAdministrationWorksOnTheHostsConnection) {
  start(1);
  EXPECT_EQ(host().circleDialog.connection, hostConnection());
  EXPECT_EQ(host().circleDialog.multiSelect, std::vector<bool>{false});
}

}  // namespace
}  // namespace vexnumkr
