// Two hosts on one database: what another one does while the dialog is open, and when it is saved.
#include "app/program.h"
#include "support/dialog_session.h"
#include "support/engine_waits.h"
#include "support/other_writer.h"

namespace vexnumkr::test {
namespace {

constexpr std::int32_t busy = 5;
constexpr std::int32_t busyBecauseOutdated = 517;
constexpr long longestWait = 5000;

class DialogTwoHostsTest : public DialogSession {
 protected:
  /// Opens the dialog and enters 160 as the current value of offers of Nord, instead of 150.
  void inChangedCompany(const std::function<void()>& steps) {
    sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('BR', 'RE', 'Barrechnung', 0, 'ORC')");
    inCompany(2, [&] {
      click(2, 3);
      type("160");
      key("Enter");
      ASSERT_TRUE(changed());
      before_ = stored();
      statements();
      steps();
      EXPECT_FALSE(isOpen());
    });
  }
  /// Opening the special ranges reads them, within the dialog's transaction.
  void readInTransaction() {
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

  void savesAtOnce() {
    const EngineWaits waits;
    press("cmdOK");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(statements().back(), "conn: COMMIT");
    EXPECT_EQ(waits.milliseconds(), 0);
  }
  void failsToSave(std::int32_t number, const std::string& failed, long waited) {
    const EngineWaits waits;
    press("cmdOK");
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(boxes(), (Boxes{errorBox(number, "basAllgemein", "Save", "database is locked")}));
    const Lines sent = statements();
    ASSERT_GE(sent.size(), 3U);
    EXPECT_EQ(sent[sent.size() - 3].find(failed), 0U) << sent[sent.size() - 3];
    EXPECT_TRUE(sent[sent.size() - 3].ends_with(" !failed"));
    EXPECT_EQ((Lines{sent.end() - 2, sent.end()}), (Lines{"conn: ROLLBACK", "conn: BEGIN"}));
    EXPECT_EQ(waits.milliseconds(), waited);
    EXPECT_EQ(cell(2, 3), "160") << "the user's value is kept";
    EXPECT_TRUE(changed());
  }

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

TEST_P(DialogTwoHostsKeepingTest, WhatAnotherChangesMeanwhileIsSavedOver) {
  inChangedCompany([&] {
    sql("UPDATE Nummernkreise SET AktuellerWert = 42, Maske = 'N' WHERE Buchungskreis < 2");
    sql("DELETE FROM Nummernkreise WHERE NSchl = 'RE'");
    sql("INSERT INTO Nummernkreise VALUES (2, 'VK', 'Verkauf', 1, 1, 9, -1, 3, '', '')");
    sql("INSERT INTO Nummernkreise VALUES (2, 'LM', 'Mahnung', 1, 1, 9, -1, 3, '', '')");
    sql("UPDATE Nummernkreis_Zuordnung SET Buchungskreis = 2");
    sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'VK', 'Anna', 'ORC')");
    savesAtOnce();
  });
  EXPECT_EQ(rows("SELECT NSchl FROM Nummernkreise WHERE NSchl = 'LM'"), Lines{"LM"});
  sql("DELETE FROM Nummernkreise WHERE NSchl = 'LM'");
  EXPECT_EQ(stored(), saved_);
}

TEST_P(DialogTwoHostsKeepingTest, ALockIsWaitedForAndThenReportedAndSavingAgainWorks) {
  inChangedCompany([&] {
    OtherWriter other(databaseFile());
    failsToSave(busy, "conn: DELETE FROM Nummernkreise ", longestWait);
    EXPECT_EQ(stored(), before_);
    failsToSave(busy, "conn: DELETE FROM Nummernkreise ", longestWait);
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
TEST_F(DialogTwoHostsTest, TheHostThatSavesLastPrevails) {
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
    savesAtOnce();
  });
  EXPECT_EQ(stored(), saved_);
}

TEST_F(DialogTwoHostsTest, AReaderIsWaitedForAtTheCommit) {
  inChangedCompany([&] {
    sql("BEGIN");
    EXPECT_EQ(stored(), before_);
    failsToSave(busy, "conn: COMMIT", longestWait);
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

// Neither could end its transaction while both wait, so the engine does not even begin to.
TEST_F(DialogTwoHostsTest, OnceTheDialogHasReadALockIsReportedAtOnce) {
  inChangedCompany([&] {
    readInTransaction();
    OtherWriter other(databaseFile());
    failsToSave(busy, "conn: DELETE FROM Nummernkreise ", 0);
    EXPECT_EQ(stored(), before_);
    failsToSave(busy, "conn: DELETE FROM Nummernkreise ", longestWait);
    other.release();
    savesAtOnce();
  });
  EXPECT_EQ(stored(), saved_);
}

TEST_F(DialogTwoHostsTest, OnceTheDialogHasReadTheOtherWaitsForIt) {
  inChangedCompany([&] {
    readInTransaction();
    {
      const EngineWaits waits;
      try {
        sql("DELETE FROM Nummernkreise");
        ADD_FAILURE() << "was not held up";
      } catch (const Error& error) {
        EXPECT_EQ(error.number(), busy);
      }
      EXPECT_EQ(waits.milliseconds(), longestWait);
    }
    savesAtOnce();
  });
  EXPECT_EQ(stored(), saved_);
}

TEST_F(DialogTwoHostsTest, WhatTheDialogHasReadMayBeOutdated) {
  sql("PRAGMA journal_mode = WAL");
  inChangedCompany([&] {
    readInTransaction();
    sql("UPDATE Nummernkreise SET AktuellerWert = 42 WHERE Buchungskreis = 2");
    before_ = stored();
    failsToSave(busyBecauseOutdated, "conn: DELETE FROM Nummernkreise ", 0);
    EXPECT_EQ(stored(), before_) << "what the other one did";
    savesAtOnce();
  });
  EXPECT_EQ(stored(), saved_);
}

}  // namespace
}  // namespace vexnumkr::test
