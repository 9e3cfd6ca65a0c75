// A failure in each handler of the dialogs: told under the handler's own name, and the dialog goes
// on working.
#include <algorithm>

#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

// A handler, a call that it makes, and what the user does to start it.
struct Handler {
  const char* procedure;
  const char* failingCall;
  std::function<void()> act;
};

class DialogFailuresTest : public DialogSession {
 protected:
  static Box failureIn(const char* procedure, const char* module = "frmNummernkreise") {
    return errorBox(deliberateErrorNumber, module, procedure, deliberateErrorText);
  }

  /// Opens a dialog for the act, which is to raise one failure, that of the handler.
  void expectReport(const Handler& handler, const char* module = "frmNummernkreise",
                    const std::function<void()>& afterwards = {}) {
    SCOPED_TRACE(handler.procedure + std::string(", ") + handler.failingCall);
    init(2);
    show([&] {
      faults().fail(handler.failingCall);
      handler.act();
      EXPECT_FALSE(faults().isPending()) << "the call was not made";
      expectFailure(failureIn(handler.procedure, module));
      if (afterwards) afterwards();
      expectUsable();
      press("cmdCancel");
      EXPECT_FALSE(isOpen());
      EXPECT_EQ(statements().back(), "conn: ROLLBACK");
    });
  }

  /// One box of a failure has come up, besides whatever was asked.
  void expectFailure(const Box& expected) {
    Boxes failures = boxes();
    std::erase_if(failures, [](const Box& box) { return box.title.find("Fehler ") != 0; });
    EXPECT_EQ(failures, Boxes{expected});
  }

  /// Every kind of control does what it is there for.
  void expectUsable() {
    ASSERT_TRUE(isOpen());
    if (editor() != "none") key("Escape");
    for (const char* circle : {"Aktive Buchungskreise", "Alle Buchungskreise"})
      select("cboBuchungskreis", circle);
    select("cboUser", "Anna");
    key("F7");
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    EXPECT_EQ(tree(),
              (Lines{"Angebot (AN)", "Checked Standard", "Checked Nord", "Unchecked Süd",
                     "Rechnung (RE)", "Checked Standard", "Checked Nord", "Unchecked Süd"}));
    click(1, grid_column::Aktuell);
    type("7");
    key("Enter");
    EXPECT_EQ(range("Anna", 0, "AN").substr(0, 4), "1|7|");
    key("Escape");
    clickPicture(3);
    EXPECT_EQ(picture(3), "Checked");
    answer("no");
    press("cmdAuto");
    EXPECT_EQ(boxes().size(), 1U);
  }
};

TEST_F(DialogFailuresTest, EveryHandlerOfTheFormTellsItsOwn) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('AX', 'AN', 'Export', 0, 'ORC')");
  smallCompany("ORC");
  const auto resizeABit = [&] { resize(dialog().width() + 15, dialog().height() + 15); };
  const Handler handlers[] = {
      {"cboBuchungskreis_Click", "cboBuchungskreis.Text",
       [&] { select("cboBuchungskreis", "Nord"); }},
      {"cboBuchungskreis_Click", "cboUser.Text", [&] { select("cboBuchungskreis", "Süd"); }},
      {"cboUser_Click", "cboUser.Text", [&] { select("cboUser", "Max"); }},
      {"cboUser_Click", "cboBuchungskreis.Text", [&] { key("F8"); }},
      {"cmdAuto_Click", "cboBuchungskreis.Text",
       [&] {
         click(2, grid_column::Maske);
         key("Delete");  // numbered, the ranges would be others than expected below
         key("Enter");
         key("Escape");
         answer("yes");
         press("cmdAuto");
       }},
      {"cmdBuchungskreise_Click", "cboBuchungskreis.Text", [&] { press("cmdBuchungskreise"); }},
      {"cmdBuchungskreise_Click", "cboBuchungskreis.SelectSilently",
       [&] { press("cmdBuchungskreise"); }},
      {"cmdSonderkreise_Click", "createForm frmSonderkreise", [&] { press("cmdSonderkreise"); }},
      {"cmdSonderkreise_Click", "frmSonderkreise.ShowModal", [&] { press("cmdSonderkreise"); }},
      {"cmdOptionen_Click", "createForm frmOptionen", [&] { press("cmdOptionen"); }},
      {"cmdOptionen_Click", "frmOptionen.ShowModal", [&] { press("cmdOptionen"); }},
      {"cmdOK_Click", "frmNummernkreise.Unload", [&] { press("cmdOK"); }},
      {"cmdOK_Click", "frmNummernkreise.Unload", [&] { key("F9"); }},
      {"cmdCancel_Click", "frmNummernkreise.Unload", [&] { press("cmdCancel"); }},
      {"cmdCancel_Click", "frmNummernkreise.Unload", [&] { key("F10"); }},
      {"Form_KeyDown", "cboUser.Visible", [&] { key("F8"); }},
      {"Form_KeyDown", "cboUser.ListIndex", [&] { key("F7"); }},
      {"Form_KeyDown", "sftNummernkreise.EndEdit", [&] { key("F10"); }},
      {"Form_Resize", "sftNummernkreise.Position=", resizeABit},
      {"Form_Resize", "sftNummernkreise.ColWidth=", resizeABit},
      {"Form_Resize", "cmdOptionen.Position=", resizeABit},
      {"ShowUserCombo", "lblUser.Visible=", [&] { press("cmdBuchungskreise"); }},
      {"ShowUserCombo", "cboUser.Visible=", [&] { press("cmdBuchungskreise"); }}};
  for (const Handler& handler : handlers) expectReport(handler);
}

TEST_F(DialogFailuresTest, EveryHandlerOfTheGridTellsItsOwn) {
  smallCompany("ORC");
  const auto editing = [&](const std::string& text, const std::function<void()>& act) {
    return [this, text, act] {
      // The failing call is for the act only.
      const std::string call = faults().takeCall();
      click(1, grid_column::Ende);
      type(text);
      faults().fail(call);
      act();
    };
  };
  const Handler handlers[] = {
      {"sftNummernkreise_ItemClick", "sftNummernkreise.List", [&] { clickPicture(3); }},
      {"sftNummernkreise_ItemClick", "cboUser.Text", [&] { click(2, grid_column::Start); }},
      {"sftNummernkreise_ItemClick", "cboBuchungskreis.Text", [&] { clickPicture(2); }},
      {"sftNummernkreise_KeyDown", "sftNummernkreise.ListIndex", [&] { key("Space"); }},
      {"sftNummernkreise_KeyDown", "sftNummernkreise.List",
       [&] {
         const std::string call = faults().takeCall();
         key("Down", 2);
         faults().fail(call);
         key("F2");
       }},
      {"sftNummernkreise_CEKeyDown", "sftNummernkreise.ListCount",
       editing("88", [&] { key("Tab"); })},
      {"sftNummernkreise_CEKeyDown", "sftNummernkreise.EndEdit",
       editing("88", [&] { key("Enter"); })},
      {"sftNummernkreise_CEKeyDown", "cboUser.Text", editing("99", [&] { key("Shift+Tab"); })},
      {"sftNummernkreise_AfterEdit", "sftNummernkreise.List", editing("88", [&] {
         expectDialog("frmOptionen", [&] { press("cmdCancel"); });
         press("cmdOptionen");
       })}};
  for (const Handler& handler : handlers) expectReport(handler);
}

TEST_F(DialogFailuresTest, TheGeneralModuleTellsItsOwn) {
  smallCompany("ORC");
  const Handler handlers[] = {
      {"CellEditing", "sftNummernkreise.Selected=", [&] { click(2, grid_column::Start); }},
      {"CellEditing", "sftNummernkreise.CellFont", [&] { click(2, grid_column::Start); }},
      {"CellEditing", "sftNummernkreise.ItemEditFont=", [&] { click(2, grid_column::Start); }},
      {"CellEditing", "sftNummernkreise.StartEdit", [&] { click(2, grid_column::Start); }},
      {"CheckBoxHandling", "sftNummernkreise.ItemPicture", [&] { clickPicture(3); }},
      {"CheckBoxHandling", "sftNummernkreise.ItemPicture=", [&] { clickPicture(3); }},
      {"SetRadioButton", "sftNummernkreise.ItemPicture=",
       [&] {
         const std::string call = faults().takeCall();
         select("cboUser", "Max");
         faults().fail(call);
         clickPicture(1);
       }},
      {"SyncDataWithControl", "sftNummernkreise.Clear", [&] { select("cboUser", "Max"); }},
      {"SyncDataWithControl", "sftNummernkreise.ListIndex=", [&] { select("cboUser", "Max"); }},
      {"AddGroup", "sftNummernkreise.CellFontBold=", [&] { select("cboUser", "Max"); }},
      {"AddBuchungskreis", "sftNummernkreise.ItemLevel=", [&] { select("cboUser", "Max"); }},
      {"RefreshCombo", "cboBuchungskreis.Clear", [&] { press("cmdBuchungskreise"); }}};
  for (const Handler& handler : handlers) expectReport(handler, "basAllgemein");
}

TEST_F(DialogFailuresTest, NumberingThatFailsTellsItsOwnAndNumbersNothing) {
  inCompany(2, [&] {
    const Lines before = {values(1), values(3), values(5), values(6), values(7)};
    click(3, grid_column::Maske);
    type("NNNNNNNNNNN");
    key("Enter");
    key("Escape");
    answer("yes");
    press("cmdAuto");
    expectFailure(errorBox(6, "basAllgemein", "StartAutoNum",
                           "Überlauf\r\n(Belegart: Angebot, Buchungskreis: Süd)"));
    EXPECT_EQ(values(2), "100|150|199|JNN") << "its own mask would have given it numbers";
    EXPECT_EQ(values(3), "200|200|299|NNNNNNNNNNN");
    EXPECT_EQ((Lines{values(1), before[1], values(5), values(6), values(7)}), before);
    expectUsable();
  });
}

// How the pointer looks is nothing to trouble the user with, nor does it keep any work from ending.
TEST_F(DialogFailuresTest, APointerThatCannotChangeIsNobodysFailure) {
  smallCompany("ORC");
  const std::function<void()> acts[] = {[&] {
                                          answer("yes");
                                          press("cmdAuto");
                                          EXPECT_EQ(boxes().size(), 1U);
                                          EXPECT_NE(values(2), "100|150|199|JNN");
                                        },
                                        [&] {
                                          sql("INSERT INTO Nummernkreis_Buchungskreise VALUES "
                                              "(3, 'West', 'ORC')");
                                          press("cmdBuchungskreise");
                                          EXPECT_EQ(tree()[4], "Unchecked West");
                                        }};
  for (const auto& act : acts) {
    init(2);
    show([&] {
      faults().fail("SetMousePointer");
      act();
      EXPECT_FALSE(faults().isPending()) << "the call was not made";
      EXPECT_EQ(boxes(), Boxes{});
      EXPECT_TRUE(changed());
      ASSERT_TRUE(isOpen());
      press("cmdCancel");
    });
  }
}

TEST_F(DialogFailuresTest, LoadingTellsItsOwnAndTheDialogCanBeClosed) {
  smallCompany("ORC");
  for (const char* call :
       {"sftNummernkreise.CellButtonPicture=", "sftNummernkreise.DisplayStyle=",
        "cmdOptionen.Visible=", "Checked.Picture", "cmdSonderkreise.Visible=",
        "cboBuchungskreis.ListIndex=", "cboUser.AddItem", "DoEvents", "cboUser.ListIndex="}) {
    SCOPED_TRACE(call);
    init(2);
    faults().fail(call);
    show([&] {
      expectFailure(failureIn("Form_Load"));
      statements();
      resize(dialog().width() + 50, dialog().height());
      press("cmdCancel");
      EXPECT_FALSE(isOpen());
      EXPECT_EQ(statements(), Lines{"conn: ROLLBACK !failed"});
      EXPECT_EQ(boxes().size(), 1U) << "there is no transaction";
    });
  }
}

TEST_F(DialogFailuresTest, StepsOfLoadingThatTellTheirOwnLetItGoOn) {
  smallCompany("ORC");
  const std::pair<const char*, const char*> steps[] = {{"CreateToolTips", "cmdAuto.ToolTipText="},
                                                       {"CreateToolTips", "cboUser.ToolTipText="},
                                                       {"ShowUserCombo", "lblUser.Visible="}};
  for (const auto& [procedure, call] : steps) {
    SCOPED_TRACE(call);
    init(2);
    faults().fail(call);
    show([&] {
      expectFailure(failureIn(procedure));
      expectUsable();
      press("cmdCancel");
      EXPECT_EQ(statements().back(), "conn: ROLLBACK");
    });
  }
}

TEST_F(DialogFailuresTest, SwitchingFontsTellsItsOwn) {
  smallCompany("ORB");
  init(1);
  faults().fail("cboUser.SetFont");
  show([&] {
    expectFailure(failureIn("RefreshFont", "basAllgemein"));
    expectUsable();
    press("cmdCancel");
  });
}

TEST_F(DialogFailuresTest, AFormThatCannotBeMadeIsToldByTheComponent) {
  init(2);
  faults().fail("createForm frmNummernkreise");
  component().ShowDialog();
  EXPECT_EQ(boxes(), Boxes{failureIn("ShowDialog", "VXNummernkreise")});
  show([&] { press("cmdCancel"); });
}

TEST_F(DialogFailuresTest, TheSpecialRangesTellTheirOwn) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('AX', 'AN', 'Export', 0, 'ORC')");
  smallCompany("ORC");
  struct Step {
    const char* procedure;
    const char* call;
    std::function<void()> act;
  };
  const Step steps[] = {{"Form_Load", "lstSonderkreise.AddItem", [&] { press("cmdCancel"); }},
                        {"SaveSettings", "lstSonderkreise.Selected", [&] { press("cmdOK"); }},
                        {"cmdCancel_Click", "frmSonderkreise.Unload", [&] {
                           press("cmdCancel");
                           EXPECT_EQ(windows().back(), "box Fehler 4711")
                               << "the dialog is still open";
                           press("cmdCancel");
                         }}};
  for (const Step& step : steps) {
    expectReport({step.procedure, step.call,
                  [&] {
                    expectDialog("frmSonderkreise", step.act);
                    press("cmdSonderkreise");
                  }},
                 "frmSonderkreise");
  }
}

}  // namespace
}  // namespace vexnumkr::test
