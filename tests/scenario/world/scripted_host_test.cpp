#include "scenario/world/scripted_host.h"

#include <gtest/gtest.h>

#include <vexnumkr/adapters.h>
#include <vexnumkr/error.h>

#include "scenario/world/database.h"
#include "scenario/world/temporary_folder.h"
#include "support/faults/scripted_connection.h"

namespace vexnumkr::scenario {
namespace {

class ScriptedHostTest : public ::testing::Test {
 protected:
  ScriptedHostTest() {
    database_.createTables();
    connection_ = test::scriptedConnection(openQtSqlConnection(text_), script_);
  }

  void queueCircle(const std::string& row) {
    host_.queueForBookingCircles("INSERT INTO Nummernkreis_Buchungskreise VALUES " + row);
  }

  void showCircles() {
    const auto component = host_.CreateObject(component_name::bookingCircles);
    auto& dialog = dynamic_cast<BookingCircleDialog&>(*component);
    dialog.Connection(connection_);
    dialog.MultiSelect(false);
    dialog.Show("ORB", 27);
  }

  TemporaryFolder folder_;
  const std::string text_ = "Driver=QSQLITE;Database=" + folder_.path() + "/x.db";
  ScenarioDatabase database_{text_};
  test::ConnectionScript script_;
  std::shared_ptr<Connection> connection_;
  ScriptedHost host_;
};

TEST_F(ScriptedHostTest, RunsAllQueuedStatementsAtOneShowing) {
  queueCircle("(1, 'Nord', 'ORB')");
  queueCircle("(2, 'Ost', 'ORB')");
  showCircles();
  showCircles();
  EXPECT_EQ(database_.rows("Nummernkreis_Buchungskreise"),
            (std::vector<PrintedRow>{"1 | Nord | ORB", "2 | Ost | ORB"}));
  EXPECT_TRUE(script_.takeStatements().empty());
}

TEST_F(ScriptedHostTest, FailsTheShowingOfAFailingStatement) {
  queueCircle("(1, 'Nord', 'ORB')");
  queueCircle("(1, 'Nord', 'ORB')");
  queueCircle("(2, 'Ost', 'ORB')");
  EXPECT_THROW(showCircles(), Error);
  EXPECT_NO_THROW(showCircles());
  EXPECT_EQ(database_.rows("Nummernkreis_Buchungskreise"),
            (std::vector<PrintedRow>{"1 | Nord | ORB"}));
}

TEST_F(ScriptedHostTest, KeepsSettingsWhateverHappensToTheStatements) {
  script_.failStatement(1);
  const auto component = host_.CreateObject(component_name::settings);
  auto& settings = dynamic_cast<SettingsStore&>(*component);
  settings.Init(0, *connection_);
  settings.SaveSetting("Buchungskreise", "ONNewAN", "1", "Standard");
  std::string value;
  settings.GetSetting("Buchungskreise", "OnNewAN", value, "Standard", "Standard", "0");
  EXPECT_EQ(value, "1");
  EXPECT_EQ(database_.rows("Einstellungen"),
            (std::vector<PrintedRow>{"Buchungskreise | ONNewAN | Standard | Standard | 1"}));
  EXPECT_TRUE(script_.takeStatements().empty());
}

TEST_F(ScriptedHostTest, CannotCreateWhatIsWithheldOrUnknown) {
  EXPECT_THROW(host_.CreateObject("vxKitCtl.Frame"), Error);
  EXPECT_NE(host_.CreateObject("VXTCOMDLG.WWSDIALOG"), nullptr);
  host_.withhold("vxtcomdlg.wwsdialog");
  try {
    host_.CreateObject(component_name::bookingCircles);
    FAIL() << "the component was created";
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 429);
  }
  EXPECT_NE(host_.CreateObject(component_name::settings), nullptr);
}

}  // namespace
}  // namespace vexnumkr::scenario
