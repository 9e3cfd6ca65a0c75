// Two hosts on one database: what another one does while the dialog is open, and when it is saved.
#include <QApplication>
#include <QLabel>

#include "app/program.h"
#include "support/dialog_session.h"
#include "support/faults/engine_waits.h"
#include "support/other_writer.h"

namespace vexnumkr::test {
namespace {

constexpr std::int32_t busy = 5;
constexpr long longestWait = 5000;

class DialogTwoHostsTest : public DialogSession {
 protected:
  /// Opens the dialog and enters 160 as the current value of offers of Nord, instead of 150.
  void inChangedCompany(const std::function<void()>& steps) {
    sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('BR', 'RE', 'Barrechnung', 0, 'ORC')");
    inCompany(2, [&] {
      click(2, grid_column::Aktuell);
      type("160");
      key("Enter");
      ASSERT_TRUE(changed());
      before_ = stored();
      statements();
      steps();
      EXPECT_FALSE(isOpen());
    });
  }
  /// Opening the special ranges reads them on the connection that saves.
  void readOnTheSavingConnection() {
    expectDialog("frmSonderkreise", [&] { press("cmdCancel"); });
    press("cmdSonderkreise");
    statements();
  }
  Lines stored() {
    Lines all = rows("SELECT * FROM Nummernkreise ORDER BY NSchl, Buchungskreis");
    for (const std::string& row :
         rows("SELECT * FROM Nummernkreis_Zuordnung ORDER BY Benutzer, NSchl, Buchungskreis"))
      all.push_back(row);
    return all;
  }

  /// `asked`: the changes of others that the user is asked about, and overrules.
  void savesAtOnce(const std::string& asked = {}) {
    const EngineWaits waits;
    if (!asked.empty()) answer("yes");
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), asked.empty() ? Boxes{} : Boxes{conflictBox(asked)});
    EXPECT_EQ(statements().back(), "conn: COMMIT");
    EXPECT_EQ(waits.milliseconds(), 0);
  }
  /// `last`: what was sent last before the failure, or failed.
  void failsToSave(const std::string& last) {
    const EngineWaits waits;
    press("cmdOK");
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{errorBox(busy, "basAllgemein", "Save", "database is locked")}));
    const Lines sent = statements();
    ASSERT_GE(sent.size(), 3U);
    EXPECT_EQ((Lines{sent.end() - 3, sent.end()}), (Lines{last, "conn: ROLLBACK", "conn: BEGIN"}));
    EXPECT_EQ(waits.milliseconds(), longestWait);
    EXPECT_EQ(cell(2, grid_column::Aktuell), "160") << "the user's value is kept";
    EXPECT_TRUE(changed());
  }
  /// What the progress window says; empty where there is none.
  static std::string progressCaption() {
    for (const QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == QLatin1String("progress") && window->isVisible())
        return window->findChild<QLabel*>(QStringLiteral("caption"))->text().toStdString();
    return {};
  }
  /// What it says at last while OK waits for `other`, who lets go after a while.
  std::string captionWhileWaitingFor(OtherWriter& other) {
    everyLookTakes(std::chrono::milliseconds(200));
    std::string seen;
    int pauses = 0;
    const EngineWaits waits([&] {
      if (!progressCaption().empty()) seen = progressCaption();
      if (++pauses == 10) other.release();
    });
    press("cmdOK");
    return seen;
  }
  static Box conflictBox(const std::string& changes) {
    return {"Abfrage",
            "Folgende Nummernkreise wurden inzwischen an anderer Stelle geändert:\r\n" + changes +
                "\r\n\r\nSollen trotzdem Ihre Werte gespeichert werden?",
            36};
  }
  /// The saved table, but for the row at that place.
  Lines savedBut(std::size_t place, const std::string& row) const {
    Lines lines = saved_;
    lines.at(place) = row;
    return lines;
  }

  const std::string readAgain_ =
      "work: SELECT NSchl, NBezeichnung, Buchungskreis, StartWert, AktuellerWert, EndWert, "
      "Aktiviert, SortierIndex, IstNSchlVon, Maske FROM Nummernkreise WHERE NSchl <> 'LM' AND "
      "NSchl <> 'AF' ORDER BY SortierIndex";

  Lines before_;
  const Lines saved_ = {"0 | AN | Angebot | 1 | 5 | 99 | -1 | 1 |  | ",
                        "1 | AN | Angebot | 100 | 160 | 199 | -1 | 1 |  | JNN",
                        "2 | AN | Angebot | 200 | 200 | 299 | 0 | 1 |  | ",
                        "0 | RE | Rechnung | 1000 | 1500 | 1999 | -1 | 2 |  | ",
                        "1 | RE | Rechnung | 2000 | 2000 | 2999 | -1 | 2 |  | ",
                        "2 | RE | Rechnung | 0 | 0 | 0 | 0 | 2 |  | 0",
                        "0 | AN | ALL | ORC",
                        "1 | AN | ALL | ORC",
                        "0 | RE | ALL | ORC",
                        "1 | RE | ALL | ORC",
                        "0 | AN | Anna | ORC",
                        "0 | RE | Anna | ORC",
                        "1 | AN | Max | ORC",
                        "0 | RE | Max | ORC"};
};

// However the engine keeps the database: a journal lets nobody write while somebody reads, a
// write-ahead log does.
class DialogTwoHostsKeepingTest : public DialogTwoHostsTest,
                                  public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override { sql(std::string("PRAGMA journal_mode = ") + GetParam()); }
};

TEST_P(DialogTwoHostsKeepingTest, WhatAnotherChangesMeanwhileIsAskedAboutOrKept) {
  inChangedCompany([&] {
    sql("UPDATE Nummernkreise SET AktuellerWert = 42, Maske = 'N' WHERE Buchungskreis < 2");
    sql("DELETE FROM Nummernkreise WHERE NSchl = 'RE'");
    sql("INSERT INTO Nummernkreise VALUES (2, 'VK', 'Verkauf', 1, 1, 9, -1, 3, '', '')");
    sql("INSERT INTO Nummernkreise VALUES (2, 'LM', 'Mahnung', 1, 1, 9, -1, 3, '', '')");
    sql("UPDATE Nummernkreis_Zuordnung SET Buchungskreis = 2");
    sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'VK', 'Anna', 'ORC')");
    savesAtOnce("Angebot, Nord: Aktuell 150 -> 42");
  });
  EXPECT_EQ(rows("SELECT NSchl FROM Nummernkreise WHERE NSchl = 'LM'"), Lines{"LM"});
  sql("DELETE FROM Nummernkreise WHERE NSchl = 'LM'");
  Lines expected = savedBut(0, "0 | AN | Angebot | 1 | 42 | 99 | -1 | 1 |  | N");
  expected.insert(expected.begin() + 6, "2 | VK | Verkauf | 1 | 1 | 9 | -1 | 3 |  | ");
  EXPECT_EQ(stored(), expected);
}

TEST_P(DialogTwoHostsKeepingTest, WhoGivesWayTakesWhatTheOtherHasStored) {
  inChangedCompany([&] {
    sql("UPDATE Nummernkreise SET AktuellerWert = 170 WHERE Buchungskreis = 1 AND NSchl = 'AN'");
    before_ = stored();
    answer("no");
    press("cmdOK");
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes(), Boxes{conflictBox("Angebot, Nord: Aktuell 150 -> 170")});
    EXPECT_EQ(statements(), Lines{readAgain_});
    EXPECT_EQ(cell(2, grid_column::Aktuell), "170");
    EXPECT_EQ(range("Max", 1, "AN"), "100|170|199|JNN|True");
    savesAtOnce();
  });
  EXPECT_EQ(stored(), savedBut(1, "1 | AN | Angebot | 100 | 170 | 199 | -1 | 1 |  | JNN"));
}

TEST_P(DialogTwoHostsKeepingTest, ALockIsWaitedForAndThenReportedAndSavingAgainWorks) {
  inChangedCompany([&] {
    OtherWriter other(databaseFile());
    failsToSave(readAgain_);
    EXPECT_EQ(stored(), before_);
    failsToSave(readAgain_);
    EXPECT_EQ(stored(), before_);
    other.release();
    savesAtOnce();
  });
  EXPECT_EQ(stored(), saved_);
}

TEST_P(DialogTwoHostsKeepingTest, ALockThatIsReleasedInTimeIsNotNoticed) {
  inChangedCompany([&] {
    OtherWriter other(databaseFile());
    int pauses = 0;
    const EngineWaits waits([&] {
      if (++pauses == 5) other.release();
    });
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(pauses, 5);
  });
  EXPECT_EQ(stored(), saved_);
}

TEST_P(DialogTwoHostsKeepingTest, WhileALockIsWaitedForTheUserSeesIt) {
  inChangedCompany([&] {
    OtherWriter other(databaseFile());
    EXPECT_EQ(captionWhileWaitingFor(other), "Nummernkreise werden gespeichert…");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
  });
  EXPECT_EQ(stored(), saved_);
}

TEST_P(DialogTwoHostsKeepingTest, CancellingNeedsNoLock) {
  inChangedCompany([&] {
    OtherWriter other(databaseFile());
    const EngineWaits waits;
    press("cmdCancel");
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(waits.milliseconds(), 0);
    other.release();
  });
  EXPECT_EQ(stored(), before_);
}

INSTANTIATE_TEST_SUITE_P(Keepings, DialogTwoHostsKeepingTest, testing::Values("delete", "wal"),
                         [](const auto& tested) { return std::string(tested.param); });

// Another process of the stand-alone host, whose user numbers all ranges from their masks and
// saves.
TEST_F(DialogTwoHostsTest, TheHostThatSavesLastPrevailsWhereItsUserSaysSo) {
  inChangedCompany([&] {
    const ProgramRun other =
        runProgram(QStringLiteral(HOST_PROGRAM),
                   {QStringLiteral("--connection"),
                    QString::fromStdString(session().Conn().ConnectionString()),
                    QStringLiteral("--application"), QStringLiteral("2"), QStringLiteral("--user"),
                    QStringLiteral("Anna"), QStringLiteral("--date"), QStringLiteral("20261121")},
                   {{QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGIN_FOLDER)},
                    {QStringLiteral("QT_QPA_GENERIC_PLUGINS"),
                     QStringLiteral("buttonpresser:cmdAuto/yes/cmdOK")}});
    EXPECT_EQ(other.exitCode, 0) << other.errors;
    EXPECT_EQ(stored()[1], "1 | AN | Angebot | 600 | 600 | 699 | -1 | 1 |  | JNN");
    savesAtOnce("Angebot, Nord: Aktuell 150 -> 600");
  });
  EXPECT_EQ(stored(), saved_);
}

// The options have a connection of their own.
TEST_F(DialogTwoHostsTest, WhileTheOptionsWaitForALockTheUserSeesIt) {
  inCompany(2, [&] {
    host().settings.whenSaved = [&](Connection& connection) {
      host().settings.whenSaved = {};
      std::int32_t affected = 0;
      connection.Execute("UPDATE Nummernkreise SET Maske = 'N'", affected);
      EXPECT_EQ(affected, 5);
    };
    expectDialog("frmOptionen", [&] {
      OtherWriter other(databaseFile());
      EXPECT_EQ(captionWhileWaitingFor(other), "Die Datenbank ist gerade gesperrt…");
      everyLookTakes(std::chrono::milliseconds(0));
      EXPECT_EQ(windows().back(), "close frmOptionen");
      EXPECT_EQ(progressCaption(), "");
    });
    press("cmdOptionen");
    EXPECT_EQ(boxes(), Boxes{});
  });
}

TEST_F(DialogTwoHostsTest, AReaderIsWaitedForAtTheCommit) {
  inChangedCompany([&] {
    sql("BEGIN");
    EXPECT_EQ(stored(), before_);
    failsToSave("conn: COMMIT !failed");
    EXPECT_EQ(stored(), before_);
    sql("COMMIT");
    EXPECT_EQ(stored(), before_) << "nothing of it was saved";
    savesAtOnce();
  });
  EXPECT_EQ(stored(), saved_);
}

TEST_F(DialogTwoHostsTest, AReaderThatEndsInTimeIsNotNoticed) {
  inChangedCompany([&] {
    sql("BEGIN");
    EXPECT_EQ(stored(), before_);
    int pauses = 0;
    const EngineWaits waits([&] {
      if (++pauses == 5) sql("COMMIT");
    });
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(pauses, 5);
  });
  EXPECT_EQ(stored(), saved_);
}

// What was only read locks nothing, so neither of the two keeps the other from ending.
TEST_F(DialogTwoHostsTest, OnceTheDialogHasReadALockIsWaitedForAllTheSame) {
  inChangedCompany([&] {
    readOnTheSavingConnection();
    OtherWriter other(databaseFile());
    failsToSave(readAgain_);
    EXPECT_EQ(stored(), before_);
    failsToSave(readAgain_);
    other.release();
    savesAtOnce();
  });
  EXPECT_EQ(stored(), saved_);
}

TEST_F(DialogTwoHostsTest, OnceTheDialogHasReadTheOtherDoesNotWaitForIt) {
  inChangedCompany([&] {
    readOnTheSavingConnection();
    {
      const EngineWaits waits;
      EXPECT_NO_THROW(sql("DELETE FROM Nummernkreise"));
      EXPECT_EQ(waits.milliseconds(), 0);
    }
    savesAtOnce();
  });
  EXPECT_EQ(stored(), saved_);
}

TEST_F(DialogTwoHostsTest, WhatTheDialogHasReadIsReadAnew) {
  sql("PRAGMA journal_mode = WAL");
  inChangedCompany([&] {
    readOnTheSavingConnection();
    sql("UPDATE Nummernkreise SET AktuellerWert = 242 WHERE Buchungskreis = 2");
    savesAtOnce();
  });
  EXPECT_EQ(stored(), savedBut(2, "2 | AN | Angebot | 200 | 242 | 299 | 0 | 1 |  | "));
}

}  // namespace
}  // namespace vexnumkr::test
