// What the general module does without the working objects that it needs: every procedure tells its
// own failure and returns.
#include "data/booking_circles.h"
#include "data/range_rows.h"
#include "hosting/circle_administration.h"
#include "hosting/start_up.h"
#include "rules/validation.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::errorBox;

class ReportedFailuresTest : public test::CoreSession {
 protected:
  void SetUp() override {
    start(1, {"Anna"});
    session().blnChanged(true);
  }
  /// `procedure` tells that something is not there, in one box of its own and nothing else.
  void expectReport(const char* name, const std::function<void()>& procedure) {
    SCOPED_TRACE(name);
    procedure();
    EXPECT_EQ(boxes(),
              (std::vector{errorBox(91, "basAllgemein", name, "Objektvariable nicht festgelegt")}));
    EXPECT_FALSE(session().progress().isWorking());
  }
};

TEST_F(ReportedFailuresTest, WithoutTheRangeTable) {
  table().release();
  expectReport("FoundInXArray", [&] { EXPECT_EQ(FoundInXArray("Anna", 1, "RE"), -1); });
  expectReport("RefreshInXArray", [&] { RefreshInXArray(); });
  expectReport("SetValue", [&] { SetValue("RE", "Nord", "Anna", true); });
  expectReport("AddDataGroup", [&] {
    const auto questions = makeRangeQuestions(source(), session().reporter());
    basAllgemein::AddDataGroup(session().data(), *questions, session().reporter(), RangeRow(),
                               false);
  });
  expectReport("AddDataBuchungskreis", [&] { AddDataBuchungskreis("Anna", 1, "Nord", "", false); });
  expectReport("LoadItems", [&] { LoadItems(); });
  expectReport("RefreshSGroups", [&] { RefreshSGroups(); });
  expectReport("CheckActivity", [&] { CheckActivity(); });
  expectReport("CheckValidity", [&] {
    EXPECT_FALSE(basAllgemein::CheckValidity(table(), session().reporter()).holds);
  });
}

TEST_F(ReportedFailuresTest, WithoutTheCommand) {
  session().source().cmdSQL(nullptr);
  expectReport("AktiviertDB", [&] { EXPECT_FALSE(AktiviertDB(1, "RE", "Anna")); });
  expectReport("CheckSonderkreise", [&] { EXPECT_FALSE(CheckSonderkreise()); });
  expectReport("RefreshCombo", [&] { RefreshCombo(); });
  expectReport("LoadItems", [&] { LoadItems(); });
  expectReport("RefreshSGroups", [&] { RefreshSGroups(); });
}

TEST_F(ReportedFailuresTest, WithoutTheWorkingConnection) {
  session().source().ConnWork(nullptr);
  std::int32_t start = 1;
  std::int32_t end = 2;
  std::int32_t current = 3;
  expectReport("GetBuchungskreisData", [&] { GetBuchungskreisData(1, "RE", start, end, current); });
  EXPECT_EQ(start + end + current, 0);
}

TEST_F(ReportedFailuresTest, WithoutTheBookingCircles) {
  session().Buchungskreise().release();
  row({.Benutzer = alleBenutzer, .Buchungskreis = 0, .Gruppe = "Standard", .NSchl = "RE"});
  expectReport("LookupBuchungskreis", [&] {
    EXPECT_EQ(
        basAllgemein::LookupBuchungskreis(session().Buchungskreise(), session().reporter(), 1),
        std::nullopt);
  });
  expectReport("RefreshInXArray", [&] { RefreshInXArray(); });
}

TEST_F(ReportedFailuresTest, WithoutTheirAdministration) {
  session().dlgBuchungskreise(nullptr);
  expectReport("CallBuchungskreise",
               [&] { EXPECT_FALSE(basAllgemein::CallBuchungskreise(session(), "ORB")); });
}

TEST_F(ReportedFailuresTest, WithoutTheHostsConnection) {
  session().Conn(nullptr);
  session().blnChanged(false);
  expectReport("Save", [&] { EXPECT_FALSE(Save(false)); });
  expectReport("basInititialize", [&] { basAllgemein::basInititialize(session()); });
}

TEST_F(ReportedFailuresTest, NumberingWithoutTheRangeTable) {
  table().release();
  forms().answer(msg_box::yes);
  EXPECT_FALSE(StartAutoNum());
  EXPECT_EQ(boxes().back(),
            errorBox(91, "basAllgemein", "StartAutoNum", "Objektvariable nicht festgelegt"));
}

}  // namespace
}  // namespace vexnumkr
