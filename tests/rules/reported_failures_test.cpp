// What the general module does without the working objects that it needs: every procedure tells its
// own failure and returns.
#include "data/booking_circles.h"
#include "data/loading.h"
#include "data/range_table.h"
#include "data/special_ranges.h"
#include "hosting/start_up.h"
#include "rules/activity.h"
#include "rules/mask_numbering.h"
#include "rules/saving.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using namespace basAllgemein;
using test::errorBox;

class ReportedFailuresTest : public test::CoreSession {
 protected:
  void SetUp() override {
    start(1, {"Anna"});
    context().blnChanged(true);
  }
  /// `procedure` tells that something is not there, in one box of its own and nothing else.
  void expectReport(const char* name, const std::function<void()>& procedure) {
    SCOPED_TRACE(name);
    procedure();
    EXPECT_EQ(boxes(),
              (std::vector{errorBox(91, "basAllgemein", name, "Objektvariable nicht festgelegt")}));
    EXPECT_FALSE(context().progress().isWorking());
  }

  static void refill(HostContext&, const std::string&, const std::string&) {}
  const NewRange range_{1, "Nord", "RE", "Rechnung", "1", "1", "9", 1, ""};
  bool viewReset_ = false;
};

TEST_F(ReportedFailuresTest, WithoutTheRangeTable) {
  context().XArray(nullptr);
  expectReport("FoundInXArray", [&] { EXPECT_EQ(FoundInXArray(context(), "Anna", 1, "RE"), -1); });
  expectReport("RefreshInXArray", [&] { RefreshInXArray(context()); });
  expectReport("SetValue", [&] { SetValue(context(), "RE", "Nord", "Anna", 8, true); });
  expectReport("AddDataGroup", [&] { AddDataGroup(context(), RangeRow(), false); });
  expectReport("AddDataBuchungskreis",
               [&] { AddDataBuchungskreis(context(), "Anna", 1, "Nord", "", false); });
  expectReport("LoadItems", [&] { LoadItems(context(), CheckActivity); });
  expectReport("RefreshSGroups", [&] { RefreshSGroups(context()); });
  expectReport("CheckActivity", [&] { CheckActivity(context()); });
  expectReport("CheckValidity",
               [&] { EXPECT_FALSE(CheckValidity(context(), viewReset_, refill)); });
}

TEST_F(ReportedFailuresTest, WithoutTheUsers) {
  context().releaseColUser();
  expectReport("AddInXArray", [&] { AddInXArray(context(), alleBenutzer, range_, true); });
  expectReport("DeleteInXArray", [&] { DeleteInXArray(context(), 1, "RE", true); });
  expectReport("SetValueAll", [&] { SetValueAll(context(), "RE", 1, 5, 7); });
  expectReport("CheckActivity", [&] { CheckActivity(context()); });
}

TEST_F(ReportedFailuresTest, WithoutTheCommand) {
  context().cmdSQL(nullptr);
  expectReport("AktiviertDB", [&] { EXPECT_FALSE(AktiviertDB(context(), 1, "RE", "Anna")); });
  expectReport("CheckSonderkreise", [&] { EXPECT_FALSE(CheckSonderkreise(context())); });
  expectReport("RefreshCombo", [&] { RefreshCombo(context(), nullptr); });
  expectReport("LoadItems", [&] { LoadItems(context(), CheckActivity); });
  expectReport("RefreshSGroups", [&] { RefreshSGroups(context()); });
}

TEST_F(ReportedFailuresTest, WithoutTheWorkingConnection) {
  context().ConnWork(nullptr);
  std::int32_t start = 1;
  std::int32_t end = 2;
  std::int32_t current = 3;
  expectReport("GetBuchungskreisData",
               [&] { GetBuchungskreisData(context(), 1, "RE", start, end, current); });
  EXPECT_EQ(start + end + current, 0);
}

TEST_F(ReportedFailuresTest, WithoutTheBookingCircles) {
  context().Buchungskreise(nullptr);
  row({alleBenutzer, 0, "Standard", "RE"});
  expectReport("LookupBuchungskreis",
               [&] { EXPECT_EQ(LookupBuchungskreis(context(), 0, 1), Value(-1)); });
  expectReport("RefreshInXArray", [&] { RefreshInXArray(context()); });
}

TEST_F(ReportedFailuresTest, WithoutTheirAdministration) {
  context().dlgBuchungskreise(nullptr);
  expectReport("CallBuchungskreise", [&] { EXPECT_FALSE(CallBuchungskreise(context(), "ORB")); });
}

TEST_F(ReportedFailuresTest, WithoutTheHostsConnection) {
  context().Conn(nullptr);
  context().blnChanged(false);
  expectReport("Save", [&] { EXPECT_FALSE(Save(context(), viewReset_, false, refill)); });
  expectReport("basInititialize", [&] { basInititialize(context()); });
}

TEST_F(ReportedFailuresTest, NumberingWithoutTheRangeTable) {
  context().XArray(nullptr);
  forms().answer(msg_box::yes);
  EXPECT_FALSE(StartAutoNum(context()));
  EXPECT_EQ(boxes().back(),
            errorBox(91, "basAllgemein", "StartAutoNum", "Objektvariable nicht festgelegt"));
}

}  // namespace
}  // namespace vexnumkr
