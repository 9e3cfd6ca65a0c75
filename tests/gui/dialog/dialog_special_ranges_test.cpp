// Switching special ranges on and off.
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <algorithm>

#include "scenario/windows/controls.h"
#include "scenario/windows/input.h"
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

class DialogSpecialRangesTest : public DialogSession {
 protected:
  /// Three special ranges of each origin: two with the same description, the first one on.
  void addSpecialRanges() {
    for (const char* origin : {"ORB", "ORC"})
      sql(std::string("INSERT INTO Nummernkreis_Sonderkreise VALUES ('A1', 'AN', 'Messe', -1, '") +
          origin + "'), ('A2', 'AN', 'Messe', 0, '" + origin + "'), ('R1', 'RE', 'Ausland', 0, '" +
          origin + "')");
  }
  /// Opens the main dialog, and in it the special ranges; `steps` run there and close it.
  void inSpecialRanges(const std::function<void()>& steps) {
    statements();
    expectDialog("frmSonderkreise", steps);
    press("cmdSonderkreise");
  }
  void inCompanyWithSpecialRanges(std::int32_t application, const std::function<void()>& steps) {
    addSpecialRanges();
    inCompany(application, steps);
  }

  QListWidget& list() const { return control<QListWidget>("lstSonderkreise"); }
  void tick(int entry) {
    scenario::clickAt(*list().viewport(), list().visualItemRect(list().item(entry)).center());
  }
  Lines listed() const {
    Lines texts;
    for (int i = 0; i < list().count(); ++i)
      texts.push_back((list().item(i)->checkState() == Qt::Checked ? "x " : "- ") +
                      list().item(i)->text().toStdString());
    return texts;
  }
  Lines stored() {
    return rows(
        "SELECT U_NSchl, Aktiviert FROM Nummernkreis_Sonderkreise WHERE Herkunft='ORC' ORDER BY "
        "U_NSchl");
  }
  const std::string selectBy =
      "conn: SELECT U_NSchl, NSchl, NBezeichnung, Aktiviert FROM Nummernkreis_Sonderkreise WHERE "
      "Herkunft='ORC' ORDER BY ";
};

TEST_F(DialogSpecialRangesTest, AreListedByDescriptionWithTheirState) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      EXPECT_EQ(listed(), (Lines{"- Ausland (R1)", "x Messe (A1)", "- Messe (A2)"}));
      EXPECT_EQ(statements(), Lines{selectBy + "NBezeichnung"});
      press("cmdCancel");
    });
  });
}

TEST_F(DialogSpecialRangesTest, TheDialogLooksAsDesigned) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      EXPECT_EQ(dialog().windowTitle(), QStringLiteral("Sonderkreise"));
      EXPECT_EQ(dialog().size(), QSize(326, 235));
      EXPECT_EQ(control("lblSonderkreise").geometry(), QRect(8, 8, 307, 13));
      EXPECT_EQ(control<QLabel>("lblSonderkreise").text(),
                QStringLiteral("Folgende Sonderkreise können noch zusätzlich aktiviert werden:"));
      EXPECT_EQ(control("lstSonderkreise").geometry(), QRect(8, 28, 309, 169));
      EXPECT_EQ(control("cmdOK").geometry(), QRect(132, 204, 89, 23));
      EXPECT_EQ(control("cmdCancel").geometry(), QRect(228, 204, 89, 23));
      EXPECT_EQ(control<QPushButton>("cmdOK").text(), QStringLiteral("OK"));
      EXPECT_EQ(control<QPushButton>("cmdCancel").text(), QStringLiteral("Abbrechen"));
      press("cmdCancel");
    });
  });
}

TEST_F(DialogSpecialRangesTest, NoTextIsCutOffInEitherFont) {
  addSpecialRanges();
  for (const std::int32_t application : {1, 2}) {
    if (application == 1) smallCompany("ORB");
    init(application);
    show([&] {
      inSpecialRanges([&] {
        const auto& label = control<QLabel>("lblSonderkreise");
        EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), label.width());
        EXPECT_LE(label.fontMetrics().height(), label.height() + 2);
        for (const char* name : {"cmdOK", "cmdCancel"}) {
          const auto& button = control<QPushButton>(name);
          EXPECT_LT(button.fontMetrics().horizontalAdvance(button.text()), button.width() - 8);
        }
        EXPECT_EQ(list().horizontalScrollBar()->maximum(), 0);
        press("cmdCancel");
      });
      press("cmdCancel");
    });
  }
}

TEST_F(DialogSpecialRangesTest, OkWritesEveryRecordInItsOrder) {
  sql("INSERT INTO Nummernkreise VALUES (0, 'A2', 'Messe', 3000, 3000, 3999, -1, 9, 'AN', '')");
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      statements();
      tick(2);
      tick(1);
      press("cmdOK");
      EXPECT_EQ(windows().back(), "close frmSonderkreise");
    });
    const Lines sent = statements();
    ASSERT_GE(sent.size(), 4U);
    EXPECT_EQ(
        (Lines{sent.begin(), sent.begin() + 4}),
        (Lines{"conn: UPDATE RECORD 0 Aktiviert=False", "conn: UPDATE RECORD 1 Aktiviert=False",
               "conn: UPDATE RECORD 2 Aktiviert=True", selectBy + "U_NSchl"}));
    EXPECT_TRUE(changed());
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(stored(), (Lines{"A1 | 0", "A2 | -1", "R1 | 0"}));
}

TEST_F(DialogSpecialRangesTest, EntryAndRecordBelongTogetherAlsoWhereDescriptionsAreTheSame) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      tick(1);
      press("cmdOK");
    });
    clickPicture(3);  // something to save
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(stored(), (Lines{"A1 | 0", "A2 | 0", "R1 | 0"}));
}

TEST_F(DialogSpecialRangesTest, TicksAreSavedWhereNothingElseHasChanged) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      tick(1);
      press("cmdOK");
    });
    EXPECT_TRUE(changed());
    press("cmdOK");
    EXPECT_FALSE(isOpen());
  });
  EXPECT_EQ(stored(), (Lines{"A1 | 0", "A2 | 0", "R1 | 0"}));
  EXPECT_EQ(rows("SELECT Buchungskreis, NSchl FROM Nummernkreis_Zuordnung WHERE Benutzer='Max' "
                 "ORDER BY NSchl"),
            (Lines{"1 | AN", "0 | RE"}));
}

TEST_F(DialogSpecialRangesTest, AUsersChoiceThatIsChosenAgainIsAChangeOfItsOwn) {
  inCompanyWithSpecialRanges(2, [&] {
    select("cboUser", "Max");
    EXPECT_EQ(picture(2), "ValueTrue");
    EXPECT_FALSE(changed());
    clickPicture(2);
    EXPECT_EQ(picture(2), "ValueTrue");
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogSpecialRangesTest, OkWithoutAChangeWritesTheOldStates) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      statements();
      press("cmdOK");
    });
    const Lines sent = statements();
    EXPECT_EQ(
        (Lines{sent.begin(), sent.begin() + 3}),
        (Lines{"conn: UPDATE RECORD 0 Aktiviert=False", "conn: UPDATE RECORD 1 Aktiviert=True",
               "conn: UPDATE RECORD 2 Aktiviert=False"}));
    EXPECT_FALSE(changed());
  });
}

TEST_F(DialogSpecialRangesTest, CancelAndTheCloseButtonWriteNothingYetTheTableIsRefreshed) {
  const std::vector<std::function<void()>> ways = {[&] { press("cmdCancel"); },
                                                   [&] { closeWindow(); }, [&] { key("Escape"); }};
  inCompanyWithSpecialRanges(2, [&] {
    const Lines before = tree();
    for (const auto& way : ways) {
      inSpecialRanges([&] {
        statements();
        tick(0);
        way();
      });
      EXPECT_EQ(statements(), Lines{selectBy + "U_NSchl"});
      EXPECT_EQ(tree(), before);
    }
  });
}

TEST_F(DialogSpecialRangesTest, ASwitchedOnRangeIsAddedForEverybody) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      tick(0);
      press("cmdOK");
    });
    const Lines shownItems = tree();
    EXPECT_EQ((Lines{shownItems.end() - 4, shownItems.end()}),
              (Lines{"Ausland (R1)", "Checked Standard", "Unchecked Nord", "Unchecked Süd"}));
    EXPECT_EQ(cell(static_cast<std::int32_t>(shownItems.size()) - 4, 11), "RE");
    EXPECT_EQ(range("Max", 0, "R1"), "0|0|0||True");
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogSpecialRangesTest, ASwitchedOffRangeIsRemovedForEverybody) {
  inCompanyWithSpecialRanges(2, [&] {
    ASSERT_NE(range("Max", 0, "A1"), "none");
    inSpecialRanges([&] {
      tick(1);
      press("cmdOK");
    });
    EXPECT_EQ(grid().ListCount(), 8);
    EXPECT_EQ(range("Max", 0, "A1"), "none");
    EXPECT_EQ(range("Alle Benutzer", 1, "A1"), "none");
    EXPECT_TRUE(changed());
  });
}

TEST_F(DialogSpecialRangesTest, CancellingTheMainDialogTakesTheSwitchesBack) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      for (int entry = 0; entry < 3; ++entry) tick(entry);
      press("cmdOK");
    });
    press("cmdCancel");
  });
  EXPECT_EQ(stored(), (Lines{"A1 | -1", "A2 | 0", "R1 | 0"}));
}

TEST_F(DialogSpecialRangesTest, KeysWorkTheListAndTheButtons) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      EXPECT_EQ(focus(), "lstSonderkreise");
      key("Home");
      key("Space");
      key("Down", 2);
      key("Space");
      EXPECT_EQ(listed(), (Lines{"x Ausland (R1)", "x Messe (A1)", "x Messe (A2)"}));
      key("Space");
      EXPECT_EQ(listed()[2], "- Messe (A2)");
      Lines visited;
      for (int i = 0; i < 3; ++i) {
        key("Tab");
        visited.push_back(focus());
      }
      EXPECT_EQ(visited, (Lines{"cmdOK", "cmdCancel", "lstSonderkreise"}));
      statements();
      key("Enter");
    });
    EXPECT_EQ(statements().front(), "conn: UPDATE RECORD 0 Aktiviert=True");
    EXPECT_TRUE(isOpen());
  });
}

TEST_F(DialogSpecialRangesTest, AFailedRecordIsReportedAndEndsTheWriting) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      for (int entry = 0; entry < 3; ++entry) tick(entry);
      statements();
      script().failStatement(2);
      press("cmdOK");
      EXPECT_EQ(windows().back(), "close frmSonderkreise");
    });
    EXPECT_EQ(boxes(),
              (Boxes{errorBox(4711, "frmSonderkreise", "SaveSettings", deliberateErrorText)}));
    const Lines sent = statements();
    EXPECT_EQ((Lines{sent.begin(), sent.begin() + 3}),
              (Lines{"conn: UPDATE RECORD 0 Aktiviert=True",
                     "conn: UPDATE RECORD 1 Aktiviert=False !failed", selectBy + "U_NSchl"}));
    EXPECT_NE(range("Max", 0, "R1"), "none");  // the record written before stays written
    EXPECT_NE(range("Max", 0, "A1"), "none");
  });
}

TEST_F(DialogSpecialRangesTest, AFailedLoadLeavesAnEmptyListAndOkWritesNothing) {
  inCompanyWithSpecialRanges(2, [&] {
    script().failStatement(1);
    windows();
    inSpecialRanges([&] {
      EXPECT_EQ(windows(), (Lines{"box Fehler 4711", "open frmSonderkreise"}));
      EXPECT_EQ(boxes(),
                (Boxes{errorBox(4711, "frmSonderkreise", "Form_Load", deliberateErrorText)}));
      EXPECT_EQ(listed(), Lines{});
      statements();
      press("cmdOK");
    });
    EXPECT_EQ(statements(), Lines{selectBy + "U_NSchl"});
  });
}

TEST_F(DialogSpecialRangesTest, AMissingStateEndsTheListAtItsRecord) {
  addSpecialRanges();
  sql("UPDATE Nummernkreis_Sonderkreise SET Aktiviert=NULL WHERE U_NSchl='A2'");
  smallCompany("ORC");
  init(2);
  show([&] {
    EXPECT_EQ(
        boxes(),
        (Boxes{errorBox(94, "basAllgemein", "RefreshSGroups", "Unzulässige Verwendung von Null")}));
    inSpecialRanges([&] {
      EXPECT_EQ(
          boxes(),
          (Boxes{errorBox(94, "frmSonderkreise", "Form_Load", "Unzulässige Verwendung von Null")}));
      EXPECT_EQ(listed(), (Lines{"- Ausland (R1)", "x Messe (A1)", "- Messe (A2)"}));
      press("cmdCancel");
    });
    EXPECT_EQ(boxes().size(), 1U);
    press("cmdCancel");
  });
}

TEST_F(DialogSpecialRangesTest, WithoutARecordOkWritesNothing) {
  inCompanyWithSpecialRanges(2, [&] {
    std::int32_t affected = 0;
    realConnection(*session().sharedConn())
        .Execute("DELETE FROM Nummernkreis_Sonderkreise", affected);
    inSpecialRanges([&] {
      EXPECT_EQ(listed(), Lines{});
      statements();
      press("cmdOK");
    });
    EXPECT_EQ(statements(), Lines{selectBy + "U_NSchl"});
  });
}

TEST_F(DialogSpecialRangesTest, OnlyApplication1SwitchesTheirFonts) {
  inCompanyWithSpecialRanges(1, [&] {
    inSpecialRanges([&] {
      for (QWidget* each : scenario::controlsOf(dialog()))
        EXPECT_EQ(each->font().family(), QStringLiteral("MS Sans Serif"));
      press("cmdCancel");
    });
  });
}

TEST_F(DialogSpecialRangesTest, OtherApplicationsKeepTheDesignedFonts) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      for (QWidget* each : scenario::controlsOf(dialog()))
        EXPECT_EQ(each->font().family(), QStringLiteral("Tahoma"));
      press("cmdCancel");
    });
  });
}

TEST_F(DialogSpecialRangesTest, AGroupThatWasSwitchedOnComesIntoView) {
  inCompanyWithSpecialRanges(2, [&] {
    resize(dialog().minimumWidth(), dialog().minimumHeight());
    inSpecialRanges([&] {
      tick(0);
      press("cmdOK");
    });
    GridView& view = gridAccess().view();
    const Lines items = tree();
    const auto group = std::find(items.begin(), items.end(), "Ausland (R1)") - items.begin();
    ASSERT_LT(static_cast<std::size_t>(group), items.size());
    const QRect place = view.visualRect(view.gridModel().indexOf(static_cast<int>(group)));
    EXPECT_TRUE(view.viewport()->rect().contains(place.center()));
    EXPECT_EQ(grid().ListIndex(), -1) << "nothing becomes current";
  });
}

TEST_F(DialogSpecialRangesTest, TheListGrowsWithItsWindow) {
  inCompanyWithSpecialRanges(2, [&] {
    inSpecialRanges([&] {
      const QRect list = control("lstSonderkreise").geometry();
      const QRect ok = control("cmdOK").geometry();
      resize(dialog().width() + 100, dialog().height() + 50);
      EXPECT_EQ(control("lstSonderkreise").geometry(), list.adjusted(0, 0, 100, 50));
      EXPECT_EQ(control("cmdOK").geometry(), ok.translated(100, 50));
      press("cmdCancel");
    });
  });
}

}  // namespace
}  // namespace vexnumkr::test
