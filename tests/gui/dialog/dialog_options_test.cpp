// The options for follow-up documents, kept by the host's settings store.
#include <QGroupBox>
#include <QRadioButton>

#include "scenario/windows/controls.h"
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

const Lines pairs{"optOnNewAN",  "optOnNewAB",  "optOnNewBS", "optOnANToAB",
                  "optOnCopyAN", "optOnCopyAB", "optOnCopyBS"};

class DialogOptionsTest : public DialogSession {
 protected:
  /// Opens the options from the main dialog; `steps` run there and close them.
  void inOptions(const std::function<void()>& steps) {
    expectDialog("frmOptionen", steps);
    press("cmdOptionen");
  }
  void inCompanysOptions(const std::function<void()>& steps) {
    inCompany(2, [&] { inOptions(steps); });
  }

  QRadioButton& option(const std::string& pair, int index) const {
    return control<QRadioButton>(pair + "(" + std::to_string(index) + ")");
  }
  void choose(const std::string& pair, int index) {
    press(pair + "(" + std::to_string(index) + ")");
  }
  /// The chosen index of every pair, from top to bottom: "0000000".
  std::string chosen() const {
    std::string text;
    for (const std::string& pair : pairs) {
      EXPECT_NE(option(pair, 0).isChecked(), option(pair, 1).isChecked()) << pair;
      text += option(pair, 1).isChecked() ? '1' : '0';
    }
    return text;
  }
  SettingsCalls& settings() { return host().settings; }
};

TEST_F(DialogOptionsTest, EveryPairHasItsCaptions) {
  inCompanysOptions([&] {
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("Einstellungen"));
    Lines captions;
    for (QWidget* each : scenario::controlsOf(dialog())) {
      if (const auto* box = qobject_cast<QGroupBox*>(each))
        captions.push_back(box->title().toStdString());
      else if (const auto* button = qobject_cast<QAbstractButton*>(each))
        captions.push_back(button->text().toStdString());
    }
    EXPECT_EQ(captions, (Lines{"Bei Neuanlage eines Angebotes, Nummernkreise für Folgebelege",
                               "anhand der Benutzerzuordnung ermitteln",
                               "Nummernkreis des Angebots verwenden, falls vorhanden",
                               "Bei Neuanlage eines Auftrages, Nummernkreise für Folgebelege",
                               "anhand der Benutzerzuordnung ermitteln",
                               "Nummernkreis des Auftrags verwenden, falls vorhanden",
                               "Bei Neuanlage einer Bestellung, Nummernkreise für Folgebelege",
                               "anhand der Benutzerzuordnung ermitteln",
                               "Nummernkreis der Bestellung verwenden, falls vorhanden",
                               "Bei Übernahme eines Angebotes zum Auftrag",
                               "Nummernkreise des Angebotes übernehmen",
                               "Nummernkreise neu ermitteln",
                               "Bei Kopieren eines Angebotes",
                               "Nummernkreis kopieren",
                               "Nummernkreis neu ermitteln",
                               "Bei Kopieren eines Auftrages",
                               "Nummernkreis kopieren",
                               "Nummernkreis neu ermitteln",
                               "Bei Kopieren einer Bestellung",
                               "Nummernkreis kopieren",
                               "Nummernkreis neu ermitteln",
                               "OK",
                               "Abbrechen"}));
    press("cmdCancel");
  });
}

TEST_F(DialogOptionsTest, NoTextIsCutOff) {
  inCompanysOptions([&] {
    for (QWidget* each : scenario::controlsOf(dialog())) {
      const auto needed = [&](const QString& text) {
        return each->fontMetrics().horizontalAdvance(text);
      };
      const QRect inside = each->parentWidget()->rect();
      EXPECT_TRUE(inside.contains(each->geometry())) << each->objectName().toStdString();
      if (const auto* box = qobject_cast<QGroupBox*>(each)) {
        EXPECT_LT(needed(box->title()), box->width() - 8) << box->title().toStdString();
      } else if (const auto* button = qobject_cast<QAbstractButton*>(each)) {
        EXPECT_LT(needed(button->text()), button->width() - 20) << button->text().toStdString();
        EXPECT_LE(button->fontMetrics().height(), button->height());
      }
    }
    press("cmdCancel");
  });
}

TEST_F(DialogOptionsTest, WithoutSettingsTheFirstChoicesStand) {
  inCompanysOptions([&] {
    EXPECT_EQ(chosen(), "0000000");
    press("cmdCancel");
  });
}

TEST_F(DialogOptionsTest, AreReadInOrderUnderTheirKeys) {
  inCompanysOptions([&] {
    EXPECT_EQ(settings().calls, (Lines{"Init 0", "Get Buchungskreise OnNewAN Standard Standard 0",
                                       "Get Buchungskreise OnNewAB Standard Standard 0",
                                       "Get Buchungskreise OnNewBS Standard Standard 0",
                                       "Get Buchungskreise OnANToAB Standard Standard 0",
                                       "Get Buchungskreise OnCopyAN Standard Standard 0",
                                       "Get Buchungskreise OnCopyAB Standard Standard 0"}));
    press("cmdCancel");
  });
}

TEST_F(DialogOptionsTest, OkWritesAllSixUnderTheOtherSpelling) {
  inCompanysOptions([&] {
    settings().calls.clear();
    choose("optOnANToAB", 1);
    choose("optOnNewAB", 1);
    choose("optOnNewAB", 0);
    press("cmdOK");
    EXPECT_EQ(windows().back(), "close frmOptionen");
  });
  EXPECT_EQ(
      settings().calls,
      (Lines{"Save Buchungskreise ONNewAN 0 Standard", "Save Buchungskreise ONNewAB 0 Standard",
             "Save Buchungskreise ONNewBS 0 Standard", "Save Buchungskreise ONANToAB 1 Standard",
             "Save Buchungskreise ONCopyAN 0 Standard",
             "Save Buchungskreise ONCopyAB 0 Standard"}));
}

TEST_F(DialogOptionsTest, WhatWasSavedIsShownTheNextTime) {
  inCompany(2, [&] {
    inOptions([&] {
      for (const char* pair : {"optOnNewAN", "optOnNewBS", "optOnANToAB", "optOnCopyAB"})
        choose(pair, 1);
      EXPECT_EQ(chosen(), "1011010");
      press("cmdOK");
    });
    inOptions([&] {
      EXPECT_EQ(chosen(), "1011010");
      press("cmdCancel");
    });
  });
}

TEST_F(DialogOptionsTest, TheLastPairIsNeverKept) {
  inCompany(2, [&] {
    inOptions([&] {
      choose("optOnCopyBS", 1);
      EXPECT_EQ(chosen(), "0000001");
      press("cmdOK");
    });
    EXPECT_EQ(settings().values.count("oncopybs"), 0U);
    inOptions([&] {
      EXPECT_EQ(chosen(), "0000000");
      press("cmdCancel");
    });
  });
}

TEST_F(DialogOptionsTest, CancelAndTheCloseButtonStoreNothing) {
  const std::vector<std::function<void()>> ways = {[&] { press("cmdCancel"); },
                                                   [&] { closeWindow(); }, [&] { key("Escape"); }};
  inCompany(2, [&] {
    for (const auto& way : ways) {
      inOptions([&] {
        choose("optOnNewAN", 1);
        way();
      });
    }
    EXPECT_TRUE(isOpen());
  });
  EXPECT_TRUE(settings().values.empty());
}

TEST_F(DialogOptionsTest, AStoredValueThatIsNoChoiceLeavesTheFirst) {
  settings().values = {
      {"onnewan", "1"}, {"onnewab", "2"}, {"onnewbs", "ja"}, {"onantoab", ""}, {"oncopyan", "1"}};
  inCompanysOptions([&] {
    EXPECT_EQ(chosen(), "1000100");
    press("cmdCancel");
  });
}

TEST_F(DialogOptionsTest, WithoutTheStoreTheDefaultsShowAndOkDoesNothing) {
  host().hasSettings = false;
  inCompanysOptions([&] {
    EXPECT_EQ(chosen(), "0000000");
    choose("optOnNewAN", 1);
    press("cmdOK");
    EXPECT_EQ(boxes(), Boxes{});
  });
  EXPECT_TRUE(settings().calls.empty());
}

TEST_F(DialogOptionsTest, WithoutAConnectionNothingIsReported) {
  inCompany(2, [&] {
    script().failConnect();
    inOptions([&] {
      EXPECT_EQ(chosen(), "0000000");
      press("cmdOK");
    });
    EXPECT_EQ(boxes(), Boxes{});
  });
}

// The choices are not part of the dialog's transaction.
TEST_F(DialogOptionsTest, TheStoreHasAConnectionOfItsOwn) {
  inCompany(2, [&] {
    statements();
    inOptions([&] {
      ASSERT_EQ(settings().connections.size(), 1U);
      EXPECT_NE(settings().connections[0], session().sharedConn().get());
      EXPECT_EQ(settings().connections[0]->ConnectionString(), session().Conn().ConnectionString());
      choose("optOnNewAN", 1);
      press("cmdOK");
    });
    EXPECT_EQ(statements(), Lines{});
    EXPECT_FALSE(changed());
  });
  EXPECT_EQ(settings().values["onnewan"], "1");
}

TEST_F(DialogOptionsTest, NothingIsReloadedAfterwards) {
  inCompany(2, [&] {
    grid().List(1, grid_column::Beschreibung, "verändert");
    inOptions([&] { press("cmdOK"); });
    EXPECT_EQ(cell(1, grid_column::Beschreibung), "verändert");
  });
}

TEST_F(DialogOptionsTest, KeysChooseAndConfirm) {
  inCompanysOptions([&] {
    EXPECT_EQ(focus(), "optOnNewAN(0)");
    key("Down");
    EXPECT_EQ(focus(), "optOnNewAN(1)");
    EXPECT_EQ(chosen(), "1000000");
    key("Tab");
    EXPECT_EQ(focus(), "optOnNewAB(0)");
    key("Enter");
    EXPECT_EQ(windows().back(), "close frmOptionen");
  });
  EXPECT_EQ(settings().values["onnewan"], "1");
}

TEST_F(DialogOptionsTest, TabVisitsOneButtonOfEachPair) {
  inCompanysOptions([&] {
    Lines visited;
    for (int i = 0; i < 9; ++i) {
      visited.push_back(focus());
      key("Tab");
    }
    EXPECT_EQ(visited,
              (Lines{"optOnNewAN(0)", "optOnNewAB(0)", "optOnNewBS(0)", "optOnANToAB(0)",
                     "optOnCopyAN(0)", "optOnCopyAB(0)", "optOnCopyBS(0)", "cmdOK", "cmdCancel"}));
    EXPECT_EQ(focus(), "optOnNewAN(0)");
    press("cmdCancel");
  });
}

TEST_F(DialogOptionsTest, TheirFontIsTheDesignedOne) {
  inCompanysOptions([&] {
    EXPECT_EQ(dialog().font().family(), QStringLiteral("Tahoma"));
    EXPECT_EQ(option("optOnNewAN", 0).font().family(), QStringLiteral("Tahoma"));
    press("cmdCancel");
  });
}

}  // namespace
}  // namespace vexnumkr::test
