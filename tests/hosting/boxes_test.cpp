#include "hosting/boxes.h"

#include <new>
#include <stdexcept>

#include "data/stored/nz_value.h"
#include "hosting/host_facility.h"
#include "support/plain_host.h"
#include "support/recording_forms.h"

namespace vexnumkr {
namespace {

using basAllgemein::NzValue;
using test::Box;
using test::errorBox;
using Shown = std::vector<Box>;
using Lines = std::vector<std::string>;

// A toolkit whose boxes cannot be shown.
class BrokenForms final : public FormsToolkit {
 public:
  std::unique_ptr<Form> createForm(const FormDescription& /*description*/,
                                   FormEvents& /*events*/) override {
    throw Error(1, "test", "no forms");
  }
  std::int32_t MsgBox(const std::string& /*prompt*/, std::int32_t /*buttons*/,
                      const std::string& /*title*/) override {
    ++attempts;
    throw Error(1, "test", "no boxes");
  }
  void SetMousePointer(MousePointer /*pointer*/) override {}
  void DoEvents() override {}
  void closeAll() noexcept override {}

  int attempts = 0;
};

class BoxesTest : public testing::Test {
 protected:
  void TearDown() override {
    EXPECT_EQ(forms_.takeBoxes(), Shown{});
    EXPECT_EQ(facility_.takeCalls(), Lines{});
    EXPECT_TRUE(forms_.allAnswersUsed());
  }

  Boxes& boxesOf(std::int32_t application) {
    boxes_.application(application);
    return boxes_;
  }
  void show(std::int32_t application) {
    boxesOf(application)
        .ShowInfoBox(3021, "Kein Datensatz", "Form_Load", 3, 48, "frmNummernkreise");
  }
  static Box shownBox() {
    return {"Fehler 3021", "frmNummernkreise\r\nForm_Load: Kein Datensatz", 48};
  }

  test::RecordingForms forms_;
  test::HostFacility facility_;
  Progress progress_{nullptr};
  Boxes boxes_{forms_, facility_, progress_};
};

TEST_F(BoxesTest, Application1HasFailuresShownByItsHost) {
  show(1);
  EXPECT_EQ(facility_.takeCalls(),
            (Lines{"ErrorNumber 3021", "Prepare Kein Datensatz, 3, none", "Text 10055(Form_Load)",
                   "Show 10055(Form_Load), 3, frmNummernkreise, 48, none, True"}));
}

TEST_F(BoxesTest, EveryOtherApplicationGetsTheStandardBox) {
  for (const std::int32_t application : {0, 2, 3, -1, 11}) {
    show(application);
    EXPECT_EQ(forms_.takeBoxes(), Shown{shownBox()}) << application;
  }
}

TEST_F(BoxesTest, AFacilityThatFailsDoesNotHideTheFailure) {
  for (const char* failing : {"Texts", "Messages", "ErrorNumber", "Prepare", "Text ", "Show"}) {
    facility_.failing = failing;
    show(1);
    EXPECT_EQ(forms_.takeBoxes(), Shown{shownBox()}) << failing;
    facility_.takeCalls();
  }
}

TEST_F(BoxesTest, OtherApplicationsDoNotEvenLookForTheFacility) {
  facility_.failing = "Messages";
  show(2);
  EXPECT_EQ(forms_.takeBoxes(), Shown{shownBox()});
  forms_.answer(msg_box::no);
  EXPECT_EQ(boxesOf(2).MsgBoxEx("Wirklich?", 35, "Abfrage"), msg_box::no);
  EXPECT_EQ(forms_.takeBoxes(), (Shown{{"Abfrage", "Wirklich?", 35}}));
}

TEST_F(BoxesTest, AFailureWithoutNumberAndTextIsShownAllTheSame) {
  boxesOf(2).ShowInfoBox(0, "", "Init", 3, 48, "VXNummernkreise");
  EXPECT_EQ(forms_.takeBoxes(), (Shown{{"Fehler 0", "VXNummernkreise\r\nInit: ", 48}}));
  boxesOf(2).ShowInfoBox(-2147467259, "x", "Init", 3, 48, "VXNummernkreise");
  EXPECT_EQ(forms_.takeBoxes(), (Shown{{"Fehler -2147467259", "VXNummernkreise\r\nInit: x", 48}}));
}

TEST_F(BoxesTest, Application1IsAskedByItsHost) {
  facility_.answer = msg_box::no;
  EXPECT_EQ(boxesOf(1).MsgBoxEx("Wirklich?", 35, "Abfrage"), msg_box::no);
  EXPECT_EQ(facility_.takeCalls(), Lines{"Show Wirklich?, 4, none, 35, Abfrage, False"});
}

TEST_F(BoxesTest, Application2IsAskedInAStandardBox) {
  for (const std::int32_t answer : {msg_box::ok, msg_box::cancel, msg_box::yes, msg_box::no}) {
    forms_.answer(answer);
    EXPECT_EQ(boxesOf(2).MsgBoxEx("Wirklich?", 35, "Abfrage"), answer);
    EXPECT_EQ(forms_.takeBoxes(), (Shown{{"Abfrage", "Wirklich?", 35}}));
  }
}

TEST_F(BoxesTest, OtherApplicationsAreNotAsked) {
  for (const std::int32_t application : {0, 3, -1})
    EXPECT_EQ(boxesOf(application).MsgBoxEx("Wirklich?", 35, "Abfrage"), 0) << application;
}

TEST_F(BoxesTest, AQuestionThatFailsAnswersNothing) {
  facility_.answer = msg_box::yes;
  for (const char* failing : {"Messages", "Show"}) {
    facility_.failing = failing;
    EXPECT_EQ(boxesOf(1).MsgBoxEx("Wirklich?", 35, "Abfrage"), 0) << failing;
    facility_.takeCalls();
  }
}

TEST(BoxesWithoutFacilityTest, Application1GetsStandardBoxes) {
  test::RecordingForms forms;
  test::PlainHost host;
  Progress progress(nullptr);
  Boxes boxes(forms, host, progress);
  boxes.application(1);
  boxes.ShowInfoBox(9, "Index", "LoadItems", 3, 48, "basAllgemein");
  EXPECT_EQ(forms.takeBoxes(), Shown{errorBox(9, "basAllgemein", "LoadItems", "Index")});
  forms.answer(msg_box::yes);
  EXPECT_EQ(boxes.MsgBoxEx("Wirklich?", 35, "Abfrage"), msg_box::yes);
  EXPECT_EQ(forms.takeBoxes(), (Shown{{"Abfrage", "Wirklich?", 35}}));
}

TEST(BoxesThatCannotBeShownTest, NothingEscapes) {
  BrokenForms forms;
  test::PlainHost host;
  Progress progress(nullptr);
  Boxes boxes(forms, host, progress);
  boxes.application(2);
  EXPECT_EQ(boxes.MsgBoxEx("Wirklich?", 35, "Abfrage"), 0);
  reportingFailures(boxes, {"basAllgemein", "Save"}, [] { throw Error::overflow(); });
  EXPECT_EQ(forms.attempts, 2);
}

TEST(NzValueTest, ReplacesNothingAndEmptyTextsAlone) {
  const Value replacement(7);
  EXPECT_EQ(NzValue(Null{}, replacement), replacement);
  EXPECT_EQ(NzValue("", replacement), replacement);
  EXPECT_EQ(NzValue(Empty{}, replacement), replacement);
  for (const Value& value : {Value(" "), Value(0), Value(false), Value("0"), Value("x")})
    EXPECT_EQ(NzValue(value, replacement), value);
}

TEST_F(BoxesTest, ABodyThatEndsWellIsNotReported) {
  int runs = 0;
  reportingFailures(boxesOf(2), {"basAllgemein", "Save"}, [&] { ++runs; });
  EXPECT_EQ(runs, 1);
}

TEST_F(BoxesTest, AFailureEndsTheBodyAndIsReportedUnderItsProcedure) {
  int reached = 0;
  reportingFailures(boxesOf(2), {"frmSonderkreise", "cmdOK_Click"}, [&] {
    reached = 1;
    if (reached == 1) throw Error(1555, "QSQLITE", "UNIQUE constraint failed");
    reached = 2;
  });
  EXPECT_EQ(reached, 1) << "what the body has done stays done";
  EXPECT_EQ(forms_.takeBoxes(),
            Shown{errorBox(1555, "frmSonderkreise", "cmdOK_Click", "UNIQUE constraint failed")});
}

TEST_F(BoxesTest, FailuresOfTheLanguageHaveNumbersOfTheirOwn) {
  const Procedure procedure{"basAllgemein", "Save"};
  reportingFailures(boxesOf(2), procedure, [] { throw std::bad_alloc(); });
  EXPECT_EQ(forms_.takeBoxes(),
            Shown{errorBox(7, "basAllgemein", "Save", "Nicht genügend Speicher")});
  reportingFailures(boxesOf(2), procedure, [] { throw std::runtime_error("unerwartet"); });
  EXPECT_EQ(forms_.takeBoxes(), Shown{errorBox(51, "basAllgemein", "Save", "unerwartet")});
  reportingFailures(boxesOf(2), procedure, [] { throw 5; });
  EXPECT_EQ(forms_.takeBoxes(), Shown{errorBox(51, "basAllgemein", "Save", "Interner Fehler")});
}

TEST_F(BoxesTest, IgnoredFailuresAreSilent) {
  int steps = 0;
  ignoringFailures([&] {
    ++steps;
    throw Error::overflow();
  });
  ignoringFailures([&] { ++steps; });
  EXPECT_EQ(steps, 2);
}

}  // namespace
}  // namespace vexnumkr
