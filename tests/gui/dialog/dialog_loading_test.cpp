// How the main dialog loads: what it reads, in which order, and what a failing step leaves.
#include <QBuffer>
#include <QIcon>
#include <QPixmap>

#include <vexnumkr/error.h>

#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

std::string png() {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QPixmap pixmap(16, 16);
  pixmap.fill(Qt::red);
  pixmap.save(&buffer, "PNG");
  return bytes.toStdString();
}

class PictureTexts final : public HostTexts {
 public:
  std::string Text(std::int32_t, const std::vector<Value>&) override { return {}; }
  PictureData Picture(std::int32_t id) override {
    asked.push_back(id);
    if (fails) throw Error(53, "Host", "Datei nicht gefunden");
    return {png()};
  }

  bool fails = false;
  std::vector<std::int32_t> asked;
};

class DialogLoadingTest : public DialogSession {
 protected:
  /// What was sent, without the many questions for a user's assignment.
  Lines statementsButAssignments() {
    Lines sent = statements();
    std::erase_if(sent, [](const std::string& line) {
      return line.find("SELECT * FROM Nummernkreis_Zuordnung") != std::string::npos;
    });
    return sent;
  }
};

TEST_F(DialogLoadingTest, ReadsEverythingAndThenBeginsTheTransaction) {
  inCompany(2, [&] {
    EXPECT_EQ(
        statementsButAssignments(),
        (Lines{"conn: SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Sonderkreise WHERE "
               "Herkunft='ORC'",
               "conn: SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise WHERE "
               "Herkunft='ORC'",
               "conn: SELECT NSchl, NBezeichnung, Buchungskreis, StartWert, AktuellerWert, "
               "EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske FROM Nummernkreise WHERE "
               "NSchl <> 'LM' AND NSchl <> 'AF' ORDER BY SortierIndex",
               "conn: SELECT U_NSchl, NSchl, NBezeichnung, Aktiviert FROM "
               "Nummernkreis_Sonderkreise WHERE Herkunft='ORC' ORDER BY U_NSchl",
               "conn: BEGIN"}));
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogLoadingTest, EveryShowingIsAFreshOne) {
  inCompany(2, [&] { select("cboUser", "Max"); });
  show([&] {
    EXPECT_EQ(shown("cboUser"), "Alle Benutzer");
    EXPECT_EQ(entries("cboUser"), (Lines{"Alle Benutzer", "Anna", "Max"}));
    EXPECT_EQ(grid().ListCount(), 8);
    press("cmdCancel");
  });
}

TEST_F(DialogLoadingTest, OnlyApplication2OffersTheOptions) {
  for (const std::int32_t application : {1, 2, 3}) {
    init(application);
    show([&] {
      EXPECT_EQ(isVisible("cmdOptionen"), application == 2) << application;
      press("cmdCancel");
    });
  }
}

TEST_F(DialogLoadingTest, SpecialRangesAreOfferedWhereTheOriginHasSome) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('AX', 'AN', 'Export', 0, 'ORC')");
  for (const std::int32_t application : {1, 2}) {
    init(application);
    show([&] {
      EXPECT_EQ(isVisible("cmdSonderkreise"), application == 2) << application;
      press("cmdCancel");
    });
  }
}

TEST_F(DialogLoadingTest, TheIconComesFromTheHost) {
  PictureTexts texts;
  host().plain.texts = &texts;
  inCompany(2, [&] {
    EXPECT_FALSE(dialog().windowIcon().isNull());
    EXPECT_EQ(texts.asked, std::vector<std::int32_t>{267});
  });
}

TEST_F(DialogLoadingTest, AnIconThatFailsIsReportedAndTheDialogDoesWithout) {
  PictureTexts texts;
  texts.fails = true;
  host().plain.texts = &texts;
  inCompany(2, [&] {
    EXPECT_EQ(windows(), (Lines{"box Fehler 53", "open frmNummernkreise"}));
    EXPECT_EQ(boxes(),
              (Boxes{errorBox(53, "frmNummernkreise", "Form_Load", "Datei nicht gefunden")}));
    EXPECT_EQ(grid().ListCount(), 8);
    EXPECT_EQ(statements().back(), "conn: BEGIN");
  });
}

TEST_F(DialogLoadingTest, WithoutInitTheFirstAccessIsReportedAndTheDialogCloses) {
  const std::string notSet = "Objektvariable nicht festgelegt";
  show([&] {
    EXPECT_EQ(
        boxes(),
        (Boxes{errorBox(91, "basAllgemein", "basInititialize", notSet),
               errorBox(91, "basAllgemein", "CheckSonderkreise", notSet),
               errorBox(91, "basAllgemein", "RefreshCombo", notSet),
               errorBox(380, "frmNummernkreise", "Form_Load", "Ungültiger Eigenschaftswert")}));
    press("cmdCancel");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{errorBox(91, "frmNummernkreise", "Form_QueryUnload", notSet)}));
  });
}

TEST_F(DialogLoadingTest, AFailedCountOfSpecialRangesHidesTheirButton) {
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('AX', 'AN', 'Export', 0, 'ORC')");
  smallCompany("ORC");
  init(2);
  script().failStatement(1);
  show([&] {
    EXPECT_EQ(boxes(),
              (Boxes{errorBox(4711, "basAllgemein", "CheckSonderkreise", deliberateErrorText)}));
    EXPECT_FALSE(isVisible("cmdSonderkreise"));
    EXPECT_EQ(grid().ListCount(), 8);
    press("cmdCancel");
  });
}

TEST_F(DialogLoadingTest, WithoutTheCirclesThereIsNothingToChooseAndLoadingEnds) {
  smallCompany("ORC");
  init(2);
  script().failStatement(2);
  show([&] {
    EXPECT_EQ(
        boxes(),
        (Boxes{errorBox(4711, "basAllgemein", "RefreshCombo", deliberateErrorText),
               errorBox(380, "frmNummernkreise", "Form_Load", "Ungültiger Eigenschaftswert")}));
    EXPECT_EQ(entries("cboBuchungskreis"), Lines{});
    EXPECT_EQ(grid().ListCount(), 0);
    statements();
    press("cmdCancel");
    EXPECT_FALSE(isOpen());
    const Boxes raised = boxes();  // there is no transaction to roll back
    ASSERT_EQ(raised.size(), 1U);
    EXPECT_EQ(raised[0].prompt.find("frmNummernkreise\r\nForm_QueryUnload: "), 0U);
    EXPECT_EQ(statements(), Lines{"conn: ROLLBACK !failed"});
  });
}

TEST_F(DialogLoadingTest, WhatIsChangedAfterLoadingHasEndedCanBeTakenBack) {
  smallCompany("ORC");
  init(2);
  script().failStatement(2);
  show([&] {
    boxes();
    statements();
    host().plain.circleDialog.whenShown = [](Connection& connection) {
      std::int32_t affected = 0;
      realConnection(connection).Execute("DELETE FROM Nummernkreis_Buchungskreise", affected);
    };
    press("cmdBuchungskreise");
    EXPECT_EQ(statements().front(), "conn: BEGIN");
    boxes();
    press("cmdCancel");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(statements().back(), "conn: ROLLBACK");
  });
  EXPECT_EQ(rows("SELECT COUNT(*) FROM Nummernkreis_Buchungskreise"), Lines{"2"});
}

TEST_F(DialogLoadingTest, FailedRangesAreReportedAndTheTransactionBegins) {
  smallCompany("ORC");
  init(2);
  script().failStatement(3);
  show([&] {
    EXPECT_EQ(boxes(), (Boxes{errorBox(4711, "basAllgemein", "LoadItems", deliberateErrorText)}));
    EXPECT_EQ(grid().ListCount(), 0);
    EXPECT_EQ(statements().back(), "conn: BEGIN");
    press("cmdCancel");
  });
}

TEST_F(DialogLoadingTest, WithoutTheWorkingConnectionThereIsNoRangeTable) {
  init(2);
  script().failConnect();
  const std::string notSet = "Objektvariable nicht festgelegt";
  show([&] {
    EXPECT_EQ(windows(), (Lines{"box Fehler 4711", "box Fehler 91", "box Fehler 91",
                                "box Fehler 91", "open frmNummernkreise"}));
    EXPECT_EQ(boxes(),
              (Boxes{errorBox(4711, "basAllgemein", "basInititialize", deliberateErrorText),
                     errorBox(91, "basAllgemein", "SyncDataWithControl", notSet),
                     errorBox(91, "basAllgemein", "LoadItems", notSet),
                     errorBox(91, "basAllgemein", "RefreshSGroups", notSet)}))
        << "the second failure of the grid is not told again";
    press("cmdCancel");
  });
}

TEST_F(DialogLoadingTest, WithoutTheCircleAdministrationTheDialogWorksAllTheSame) {
  host().plain.hasCircleDialog = false;
  inCompany(2, [&] {
    EXPECT_EQ(boxes(), (Boxes{errorBox(429, "basAllgemein", "basInititialize",
                                       "Objekterstellung durch ActiveX-Komponente nicht "
                                       "möglich")}));
    EXPECT_EQ(grid().ListCount(), 8);
    statements();
    press("cmdBuchungskreise");
    EXPECT_EQ(boxes(), (Boxes{errorBox(91, "basAllgemein", "CallBuchungskreise",
                                       "Objektvariable nicht festgelegt")}));
    EXPECT_EQ(statements(), Lines{});
  });
}

TEST_F(DialogLoadingTest, AMissingValueEndsLoadingAtItsRecord) {
  sql("INSERT INTO Nummernkreise VALUES (0, 'AN', 'Angebot', 1, 5, 99, -1, 1, '', ''), "
      "(0, 'RE', 'Rechnung', NULL, 5, 99, -1, 2, '', '')");
  init(2);
  show([&] {
    EXPECT_EQ(
        boxes(),
        (Boxes{errorBox(94, "basAllgemein", "LoadItems", "Unzulässige Verwendung von Null")}));
    EXPECT_EQ(tree(), (Lines{"Angebot (AN)", "Checked Standard"}));
    press("cmdCancel");
  });
}

TEST_F(DialogLoadingTest, AKeyWithoutAStandardRangeFailsTheActivityRule) {
  sql("INSERT INTO tblUser VALUES ('Anna')");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORC')");
  sql("INSERT INTO Nummernkreise VALUES (1, 'AN', 'Angebot', 1, 5, 99, -1, 1, '', '')");
  init(2);
  show([&] {
    EXPECT_EQ(boxes(), (Boxes{errorBox(9, "basAllgemein", "CheckActivity",
                                       "Index außerhalb des gültigen Bereichs")}));
    EXPECT_EQ(tree(), Lines{"Checked Nord"});
    press("cmdCancel");
  });
}

}  // namespace
}  // namespace vexnumkr::test
