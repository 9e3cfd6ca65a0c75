// Loading, editing and saving over a host whose components are missing or fail.
#include <gtest/gtest.h>

#include "hosting/circle_administration.h"
#include "support/core_session.h"

namespace vexnumkr {
namespace {

using test::Box;
using test::errorBox;
using Boxes = std::vector<Box>;
using Lines = std::vector<std::string>;

const char* const notSet = "Objektvariable nicht festgelegt";
const char* const notCreated = "Objekterstellung durch ActiveX-Komponente nicht möglich";
const char* const broken = "Der Host versagt";

/// A facility that answers questions with Yes; the member named fails.
class Facility final : public HostTexts, public HostMessages {
 public:
  std::string failing;
  int asked = 0;
  int reported = 0;

  std::string Text(std::int32_t, const std::vector<Value>&) override {
    enter("Text");
    return "";
  }
  PictureData Picture(std::int32_t) override { return {}; }
  void ErrorNumber(std::int32_t) override { enter("ErrorNumber"); }
  Value Prepare(const Value&, std::int16_t, const std::optional<Value>&) override {
    enter("Prepare");
    return {};
  }
  std::int32_t Show(const Value&, std::int16_t kind, const std::optional<Value>&, std::int32_t,
                    const std::optional<Value>&, bool) override {
    enter("Show");
    ++(kind == 3 ? reported : asked);
    return msg_box::yes;
  }

 private:
  void enter(const char* member) const {
    if (failing == member) throw Error(4712, "Host", broken);
  }
};

/// A component of a kind that nobody has asked for.
class OtherComponent final : public HostComponent {};

class BrokenHostTest : public test::CoreSession {
 protected:
  void company() {
    sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORB')");
    sql("INSERT INTO Nummernkreise VALUES (0, 'RE', 'Rechnung', 1, 1, 99, -1, 1, '', ''), "
        "(1, 'RE', 'Rechnung', 100, 150, 199, -1, 1, '', '1NN')");
  }
  /// Loads, raises a current value and saves.
  bool loadEditAndSave() {
    LoadItems();
    session().beginTransaction();
    SetValueAll("RE", 1, &RangeRow::AktuellerWert, 160);
    session().blnChanged(true);
    return Save(true);
  }
  Lines stored() {
    return select("SELECT Buchungskreis, AktuellerWert FROM Nummernkreise ORDER BY Buchungskreis");
  }
  const Lines saved{"0|1", "1|160"};
  const Lines untouched{"0|1", "1|150"};
};

struct CircleCase {
  const char* name;
  void (*breakHost)(test::PlainHost&);
  std::int32_t atStart;  // the number of the failure reported then, or 0
  std::int32_t atShow;
};

class BrokenCircleAdministration : public BrokenHostTest,
                                   public testing::WithParamInterface<CircleCase> {};

Boxes report(std::int32_t number, const char* procedure) {
  if (number == 0) return {};
  const char* text = number == 91 ? notSet : number == 429 ? notCreated : broken;
  return {errorBox(number, "basAllgemein", procedure, text)};
}

TEST_P(BrokenCircleAdministration, LeavesTheRestAlone) {
  const CircleCase& broke = GetParam();
  broke.breakHost(host());
  company();
  start(1, {"Max"});
  EXPECT_EQ(boxes(), report(broke.atStart, "basInititialize"));
  EXPECT_EQ(basAllgemein::CallBuchungskreise(session(), "ORB"), broke.atShow == 0);
  EXPECT_EQ(boxes(), report(broke.atShow, "CallBuchungskreise"));
  forms().answer(msg_box::yes);
  EXPECT_TRUE(loadEditAndSave());
  EXPECT_EQ(boxes().size(), 1U) << "the question whether to save";
  EXPECT_EQ(stored(), saved);
}

INSTANTIATE_TEST_SUITE_P(
    Members, BrokenCircleAdministration,
    testing::Values(
        CircleCase{"NotThere", [](auto& host) { host.hasCircleDialog = false; }, 429, 91},
        CircleCase{
            "Nothing",
            [](auto& host) { host.makeInstead = [] { return std::unique_ptr<HostComponent>(); }; },
            429, 91},
        CircleCase{"OfAnotherKind",
                   [](auto& host) {
                     host.makeInstead = [] { return std::make_unique<OtherComponent>(); };
                   },
                   429, 91},
        CircleCase{"Connection", [](auto& host) { host.circleDialog.failing = "Connection"; }, 4712,
                   0},
        CircleCase{"MultiSelect", [](auto& host) { host.circleDialog.failing = "MultiSelect"; },
                   4712, 0},
        CircleCase{"Show", [](auto& host) { host.circleDialog.failing = "Show"; }, 0, 4712}),
    [](const auto& instance) { return std::string(instance.param.name); });

struct FacilityCase {
  const char* name;
  bool hasTexts;
  bool hasMessages;
  const char* failing;
  bool standardReport;    // the failure is shown in a standard box
  bool standardQuestion;  // the question is asked in one
};

class BrokenFacility : public BrokenHostTest, public testing::WithParamInterface<FacilityCase> {};

TEST_P(BrokenFacility, DoesNotHideAFailureAndLeavesTheRestAlone) {
  const FacilityCase& broke = GetParam();
  Facility facility;
  facility.failing = broke.failing;
  host().texts = broke.hasTexts ? &facility : nullptr;
  host().messages = broke.hasMessages ? &facility : nullptr;
  company();
  start(1, {"Max"});
  script().failStatement(1);
  RefreshCombo();
  const Box failure = errorBox(4711, "basAllgemein", "RefreshCombo", test::deliberateErrorText);
  EXPECT_EQ(boxes(), broke.standardReport ? Boxes{failure} : Boxes{});
  EXPECT_EQ(facility.reported, broke.standardReport ? 0 : 1);
  start(1, {"Max"});
  if (broke.standardQuestion) forms().answer(msg_box::yes);
  EXPECT_TRUE(loadEditAndSave());
  EXPECT_EQ(boxes().size(), broke.standardQuestion ? 1U : 0U);
  EXPECT_EQ(facility.asked, broke.standardQuestion ? 0 : 1);
  EXPECT_EQ(stored(), saved);
}

INSTANTIATE_TEST_SUITE_P(
    Members, BrokenFacility,
    testing::Values(FacilityCase{"Whole", true, true, "", false, false},
                    FacilityCase{"TextsNotThere", false, true, "", true, false},
                    FacilityCase{"MessagesNotThere", true, false, "", true, true},
                    FacilityCase{"NothingThere", false, false, "", true, true},
                    FacilityCase{"Text", true, true, "Text", true, false},
                    FacilityCase{"ErrorNumber", true, true, "ErrorNumber", true, false},
                    FacilityCase{"Prepare", true, true, "Prepare", true, false}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(BrokenHostTest, WhatCannotBeAskedIsNotDone) {
  Facility facility;
  facility.failing = "Show";
  host().texts = &facility;
  host().messages = &facility;
  company();
  start(1, {"Max"});
  EXPECT_FALSE(StartAutoNum());
  EXPECT_FALSE(loadEditAndSave()) << "agreed neither to save nor to lose anything";
  EXPECT_EQ(stored(), untouched);
}

}  // namespace
}  // namespace vexnumkr
