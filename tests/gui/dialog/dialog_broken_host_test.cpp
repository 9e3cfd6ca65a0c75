// A host whose components are missing or fail: what is reported, and that the dialog can still be
// loaded, worked and saved.
#include <QRadioButton>

#include "support/dialog_session.h"
#include "support/faults/breakable_messages.h"

namespace vexnumkr::test {
namespace {

const char* const notSet = "Objektvariable nicht festgelegt";
const char* const notCreated = "Objekterstellung durch ActiveX-Komponente nicht möglich";
const char* const broken = "Der Host versagt";

class DialogBrokenHostTest : public DialogSession {
 public:
  using Break = void (*)(DialogBrokenHostTest&);

  DialogHost& brokenHost() { return host(); }
  BreakableMessages& messages() { return messages_; }
  void withoutTexts() { host().plain.texts = nullptr; }
  void withoutMessages() { host().plain.messages = nullptr; }
  bool messagesAreThere() { return host().plain.messages != nullptr; }

 protected:
  DialogBrokenHostTest() {
    host().plain.texts = &messages_;
    host().plain.messages = &messages_;
    sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('A1', 'AN', 'Messe', 0, 'ORB'), "
        "('A1', 'AN', 'Messe', 0, 'ORC')");
  }

  void open(std::int32_t application, const std::function<void()>& steps) {
    smallCompany(application == 1 ? "ORB" : "ORC");
    init(application);
    show(steps);
  }

  /// Everything that has nothing to do with the broken component, from the loaded tree to saving.
  void expectTheRestWorks(std::int32_t application) {
    EXPECT_EQ(tree(),
              (Lines{"Angebot (AN)", "Checked Standard", "Checked Nord", "Unchecked Süd",
                     "Rechnung (RE)", "Checked Standard", "Checked Nord", "Unchecked Süd"}));
    select("cboBuchungskreis", "Süd");
    EXPECT_EQ(grid().ListCount(), 4);
    select("cboBuchungskreis", "Alle Buchungskreise");
    select("cboUser", "Max");
    EXPECT_EQ(picture(2), "ValueTrue");
    select("cboUser", "Alle Benutzer");
    switchSpecialRange();
    click(2, grid_column::Aktuell);
    type("160");
    key("Enter");
    clickPicture(3);
    EXPECT_EQ(picture(3), "Checked");
    if (application == 1) answer("yes");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes().size(), application == 1 ? 1U : 0U);
    EXPECT_EQ(rows("SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'"),
              Lines{"160"});
    EXPECT_EQ(rows("SELECT Aktiviert FROM Nummernkreise WHERE Buchungskreis=2 AND NSchl='AN'"),
              Lines{"-1"});
    EXPECT_EQ(rows("SELECT Aktiviert FROM Nummernkreis_Sonderkreise WHERE Aktiviert<>0"),
              Lines{"-1"});
  }

  void switchSpecialRange() {
    expectDialog("frmSonderkreise", [&] {
      key("Home");
      key("Space");
      press("cmdOK");
    });
    press("cmdSonderkreise");
    EXPECT_EQ(grid().ListCount(), 12);
    click(9, grid_column::Start);  // it is in use, so it needs numbers
    type("5000");
    key("Tab", 2);
    type("5999");
    key("Enter");
    key("Escape");
    EXPECT_EQ(values(9), "5000|5000|5999| ");
  }

  /// The box that reports a failure, as the application shows it.
  static Box reported(std::int32_t application, std::int32_t number, const std::string& module,
                      const std::string& procedure, const std::string& description) {
    if (application == 1) return {"Host: " + module, procedure + ": " + description, 48};
    return errorBox(number, module, procedure, description);
  }

 private:
  BreakableMessages messages_;
};

// The booking-circle administration.

struct CircleCase {
  const char* name;
  DialogBrokenHostTest::Break breakHost;
  std::int32_t atLoad;  // the number of the failure reported then, or 0
  std::int32_t atShow;  // the same for its button
};

std::string textOf(std::int32_t number) {
  if (number == 91) return notSet;
  return number == 429 ? notCreated : broken;
}

class BrokenCircles : public DialogBrokenHostTest,
                      public testing::WithParamInterface<std::tuple<CircleCase, std::int32_t>> {};

TEST_P(BrokenCircles, AreReportedWhereTheyFailAndNowhereElse) {
  const auto& [circles, application] = GetParam();
  circles.breakHost(*this);
  const auto report = [app = application](std::int32_t number, const char* procedure) {
    return number == 0 ? Boxes{}
                       : Boxes{reported(app, number, "basAllgemein", procedure, textOf(number))};
  };
  open(application, [&, app = application, faults = circles] {
    EXPECT_EQ(boxes(), report(faults.atLoad, "basInititialize"));
    const Lines before = tree();
    statements();
    press("cmdBuchungskreise");
    EXPECT_EQ(boxes(), report(faults.atShow, "CallBuchungskreise"));
    EXPECT_EQ(statements().empty(), faults.atShow != 0);
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(shown("cboBuchungskreis"), "Alle Buchungskreise");
    expectTheRestWorks(app);
  });
}

INSTANTIATE_TEST_SUITE_P(
    Members, BrokenCircles,
    testing::Combine(
        testing::Values(
            CircleCase{"NotThere",
                       [](auto& test) { test.brokenHost().plain.hasCircleDialog = false; }, 429,
                       91},
            CircleCase{"Nothing",
                       [](auto& test) {
                         test.brokenHost().plain.makeInstead = [] {
                           return std::unique_ptr<HostComponent>();
                         };
                       },
                       429, 91},
            CircleCase{"OfAnotherKind",
                       [](auto& test) {
                         SettingsCalls& calls = test.brokenHost().settings;
                         test.brokenHost().plain.makeInstead = [&calls] {
                           return std::make_unique<KeptSettings>(calls);
                         };
                       },
                       429, 91},
            CircleCase{
                "Connection",
                [](auto& test) { test.brokenHost().plain.circleDialog.failing = "Connection"; },
                4712, 0},
            CircleCase{
                "MultiSelect",
                [](auto& test) { test.brokenHost().plain.circleDialog.failing = "MultiSelect"; },
                4712, 0},
            CircleCase{"Show",
                       [](auto& test) { test.brokenHost().plain.circleDialog.failing = "Show"; }, 0,
                       4712}),
        testing::Values(1, 2)),
    [](const auto& instance) {
      return std::get<0>(instance.param).name + std::to_string(std::get<1>(instance.param));
    });

// The settings store, which application 2 uses.

class BrokenSettings : public DialogBrokenHostTest,
                       public testing::WithParamInterface<const char*> {
 protected:
  /// Opens the options, chooses the second way of the first pair and presses OK.
  void workOptions() {
    expectDialog("frmOptionen", [&] {
      for (const char* pair : {"optOnNewAN", "optOnANToAB", "optOnCopyBS"})
        EXPECT_TRUE(control<QRadioButton>(std::string(pair) + "(0)").isChecked()) << pair;
      press("optOnNewAN(1)");
      press("cmdOK");
    });
    press("cmdOptionen");
  }
};

TEST_P(BrokenSettings, AreNeverReported) {
  const std::string member = GetParam();
  host().hasSettings = member != "NotThere";
  host().settings.failing = member;
  // Not read, it cannot be shown.
  if (member == "GetSetting") host().settings.values["onantoab"] = "1";
  open(2, [&] {
    workOptions();
    EXPECT_EQ(boxes(), Boxes{});
    const bool stored = host().settings.values.count("onnewan") != 0;
    EXPECT_EQ(stored, member == "GetSetting" || member == "Init");
    expectTheRestWorks(2);
  });
}

INSTANTIATE_TEST_SUITE_P(Members, BrokenSettings,
                         testing::Values("NotThere", "Init", "GetSetting", "SaveSetting"),
                         [](const auto& instance) { return std::string(instance.param); });

// Texts, pictures and message boxes of the host.

struct MessageCase {
  const char* name;
  DialogBrokenHostTest::Break breakHost;
};

class BrokenMessages : public DialogBrokenHostTest,
                       public testing::WithParamInterface<MessageCase> {};

TEST_P(BrokenMessages, LeaveFailuresToTheStandardBox) {
  GetParam().breakHost(*this);
  const std::string host = messagesAreThere() ? "Host: " : "";
  open(1, [&] {
    script().failStatement(1);
    press("cmdBuchungskreise");
    EXPECT_EQ(boxes(),
              (Boxes{errorBox(4711, "basAllgemein", "RefreshCombo", deliberateErrorText)}));
    click(2, grid_column::Aktuell);
    type("160");
    key("Enter");
    statements();
    answer("yes");
    press("cmdOK");
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{{host + "Abfrage", "Sollen die Änderungen gespeichert werden?", 35},
                              {host + "Info",
                               "Die Nummernkreise konnten nicht vollständig gelesen werden. Es "
                               "wird nichts gespeichert.",
                               0}}));
    EXPECT_EQ(statements(), Lines{});
    press("cmdCancel");
    EXPECT_EQ(statements(), Lines{"conn: ROLLBACK"});
  });
  init(1);
  show([&] { expectTheRestWorks(1); });  // reads again
}

INSTANTIATE_TEST_SUITE_P(
    Members, BrokenMessages,
    testing::Values(
        MessageCase{"TextsNotThere", [](auto& test) { test.withoutTexts(); }},
        MessageCase{"MessagesNotThere", [](auto& test) { test.withoutMessages(); }},
        MessageCase{"NeitherThere",
                    [](auto& test) {
                      test.withoutTexts();
                      test.withoutMessages();
                    }},
        MessageCase{"Text", [](auto& test) { test.messages().failing = "Text"; }},
        MessageCase{"ErrorNumber", [](auto& test) { test.messages().failing = "ErrorNumber"; }},
        MessageCase{"Prepare", [](auto& test) { test.messages().failing = "Prepare"; }}),
    [](const auto& instance) { return std::string(instance.param.name); });

class BrokenMessageBoxes : public DialogBrokenHostTest {};

TEST_F(BrokenMessageBoxes, AFailureIsStillShown) {
  messages().failing = "Show";
  open(1, [&] {
    script().failStatement(1);
    press("cmdBuchungskreise");
    EXPECT_EQ(boxes(),
              (Boxes{errorBox(4711, "basAllgemein", "RefreshCombo", deliberateErrorText)}));
    press("cmdCancel");
  });
}

// Whoever could not be asked has agreed to nothing, and loses nothing.
TEST_F(BrokenMessageBoxes, AQuestionThatCannotBeAskedKeepsTheDialogAndItsTransaction) {
  messages().failing = "Show";
  const char* const stored =
      "SELECT AktuellerWert FROM Nummernkreise WHERE Buchungskreis=1 AND NSchl='AN'";
  open(1, [&] {
    press("cmdAuto");
    EXPECT_EQ(values(2), "100|150|199|JNN");
    EXPECT_FALSE(changed());
    click(2, grid_column::Aktuell);
    type("160");
    key("Enter");
    statements();
    press("cmdOK");
    ASSERT_TRUE(isOpen());
    closeWindow();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(statements(), Lines{});
    EXPECT_EQ(cell(2, grid_column::Aktuell), "160");
    EXPECT_TRUE(changed());
    EXPECT_EQ(rows(stored), Lines{"150"});
    messages().failing.clear();
    answer("yes");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes().size(), 1U);
  });
  EXPECT_EQ(rows(stored), Lines{"160"});
}

TEST_F(BrokenMessageBoxes, AWrongEntryIsRefusedAlsoWithoutAWord) {
  messages().failing = "Show";
  open(1, [&] {
    click(2, grid_column::Aktuell);
    type("viel");
    key("Enter");
    EXPECT_EQ(editor(), "2/3 viel");
    key("Escape");
    messages().failing.clear();
    expectTheRestWorks(1);
  });
}

class BrokenPicture : public DialogBrokenHostTest, public testing::WithParamInterface<int> {};

TEST_P(BrokenPicture, IsReportedAndTheDialogDoesWithout) {
  messages().failing = "Picture";
  open(GetParam(), [&] {
    EXPECT_EQ(boxes(),
              (Boxes{reported(GetParam(), 4712, "frmNummernkreise", "Form_Load", broken)}));
    expectTheRestWorks(GetParam());
  });
}

INSTANTIATE_TEST_SUITE_P(Applications, BrokenPicture, testing::Values(1, 2));

// Once everything is back, nothing is left of the failures.

TEST_F(DialogBrokenHostTest, AMendedHostIsUsedTheNextTime) {
  host().plain.hasCircleDialog = false;
  host().hasSettings = false;
  open(2, [&] {
    EXPECT_EQ(boxes().size(), 1U);
    press("cmdCancel");
  });
  host().plain.hasCircleDialog = true;
  host().hasSettings = true;
  show([&] {
    press("cmdBuchungskreise");
    EXPECT_EQ(host().plain.circleDialog.shown.size(), 1U);
    expectDialog("frmOptionen", [&] {
      press("optOnNewAN(1)");
      press("cmdOK");
    });
    press("cmdOptionen");
    EXPECT_EQ(host().settings.values["onnewan"], "1");
    expectTheRestWorks(2);
  });
}

}  // namespace
}  // namespace vexnumkr::test
