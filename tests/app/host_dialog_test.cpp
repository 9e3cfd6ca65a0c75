// The component in the stand-alone host: the sample under the real dialog, and the host's
// components behind it.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QIcon>
#include <QImage>
#include <QMessageBox>
#include <QTest>

#include <vexnumkr/component.h>

#include "app/components/offered_components.h"
#include "app/components/window_icon.h"
#include "app/expected_windows.h"
#include "app/sample_database.h"

namespace vexnumkr::app {
namespace {

using test::child;
using test::click;
using test::Row;

class HostDialog : public testing::TestWithParam<std::int32_t> {
 protected:
  /// Shows the dialog and plays `act` in it, which has to close it.
  void inDialog(const std::function<void(QDialog&)>& act) {
    auto component = createVXNummernkreise(host_);
    ASSERT_TRUE(component->Init(database_.connect(), GetParam(), "Hoffmann", "20270115"));
    windows_.expect("frmNummernkreise", act);
    component->ShowDialog();
  }

  /// Shows the dialog, plays `act` in it and presses OK.
  void editAndSave(const std::function<void(QDialog&)>& act) {
    inDialog([&](QDialog& dialog) {
      act(dialog);
      if (GetParam() == 1) answer("Sollen die Änderungen gespeichert werden?");
      click(dialog, "cmdOK");
    });
  }

  void answer(const char* question) {
    windows_.expect("msgBox", [=](QDialog& box) {
      EXPECT_TRUE(static_cast<QMessageBox&>(box).text().contains(QString::fromUtf8(question)));
      click(box, "yes");
    });
  }

  std::vector<Row> ranges() const {
    return database_.rows(
        "SELECT * FROM Nummernkreise WHERE StartWert <> 0 ORDER BY NSchl, Buchungskreis");
  }

  std::vector<Row> assignments() const {
    return database_.rows("SELECT * FROM Nummernkreis_Zuordnung ORDER BY 1, 2, 3, 4");
  }

  test::SampleDatabase database_;
  StandAloneHost host_;
  test::ExpectedWindows windows_;
};

TEST_P(HostDialog, IsSavedAsItIs) {
  const auto rangesBefore = ranges();
  const auto assignmentsBefore = assignments();
  editAndSave([](QDialog& dialog) {
    // The range that is a user's own already: choosing it changes nothing, but asks for saving.
    for (int users = 0; users < 3; ++users) QTest::keyClick(&dialog, Qt::Key_F8);
    EXPECT_EQ(child<QComboBox>(dialog, "cboUser").currentText(), QStringLiteral("Hoffmann"));
    auto& grid = child<QAbstractItemView>(dialog, "sftNummernkreise");
    QTest::keyClick(&grid, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_Space);
  });
  EXPECT_EQ(ranges(), rangesBefore);
  EXPECT_EQ(assignments(), assignmentsBefore);
  // The booking circles without a range of their own have got empty ones by being saved.
  EXPECT_GT(database_.rows("SELECT * FROM Nummernkreise").size(), rangesBefore.size());
}

TEST_P(HostDialog, IsSavedAfterRenumbering) {
  editAndSave([&](QDialog& dialog) {
    answer("Möchten Sie trotzdem fortfahren?");
    click(dialog, "cmdAuto");
  });
  EXPECT_EQ(database_.rows("SELECT StartWert, AktuellerWert, EndWert FROM Nummernkreise WHERE "
                           "NSchl = 'RE' AND Buchungskreis = 0"),
            (std::vector<Row>{{"270000", "270000", "279999"}}));
}

TEST_P(HostDialog, AdministersBookingCirclesInItsTransaction) {
  const auto before = database_.rows("SELECT * FROM Nummernkreis_Buchungskreise");
  inDialog([&](QDialog& dialog) {
    windows_.expect("frmBuchungskreise", [&](QDialog& circles) {
      windows_.expect("frmBuchungskreis", [](QDialog& editor) {
        test::typeInto(editor, "txtBeschreibung", QStringLiteral("Lager Süd"));
        click(editor, "cmdOK");
      });
      click(circles, "cmdNeu");
      click(circles, "cmdSchliessen");
    });
    click(dialog, "cmdBuchungskreise");
    const auto& filter = child<QComboBox>(dialog, "cboBuchungskreis");
    EXPECT_GE(filter.findText(QStringLiteral("Lager Süd")), 0);
    EXPECT_EQ(filter.currentText(), QStringLiteral("Alle Buchungskreise"));
    click(dialog, "cmdCancel");
  });
  EXPECT_EQ(database_.rows("SELECT * FROM Nummernkreis_Buchungskreise"), before);
}

TEST_P(HostDialog, ReportsFailuresInTheSameBox) {
  database_.run("DROP TABLE tblUser");
  windows_.expect("msgBox", [](QDialog& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Fehler 1"));
    EXPECT_TRUE(static_cast<QMessageBox&>(box).text().startsWith(
        QStringLiteral("VXNummernkreise\nInit: no such table: tblUser")))
        << static_cast<QMessageBox&>(box).text().toStdString();
    click(box, "ok");
  });
  auto component = createVXNummernkreise(host_);
  EXPECT_FALSE(component->Init(database_.connect(), GetParam(), "Hoffmann"));
}

TEST_P(HostDialog, HasTheHostsWindowIcon) {
  inDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowIcon().pixmap(64).toImage().convertToFormat(QImage::Format_ARGB32),
              QIcon(QPixmap::fromImage(paintWindowIcon(256)))
                  .pixmap(64)
                  .toImage()
                  .convertToFormat(QImage::Format_ARGB32));
    click(dialog, "cmdCancel");
  });
}

class OptionsOfHost : public HostDialog {};

TEST_P(OptionsOfHost, AreKeptWhateverBecomesOfTheDialog) {
  inDialog([&](QDialog& dialog) {
    windows_.expect("frmOptionen", [](QDialog& options) {
      child<QAbstractButton>(options, "optOnANToAB(1)").click();
      click(options, "cmdOK");
    });
    click(dialog, "cmdOptionen");
    windows_.expect("frmOptionen", [](QDialog& options) {
      EXPECT_TRUE(child<QAbstractButton>(options, "optOnANToAB(1)").isChecked());
      EXPECT_TRUE(child<QAbstractButton>(options, "optOnNewAN(0)").isChecked());
      click(options, "cmdCancel");
    });
    click(dialog, "cmdOptionen");
    click(dialog, "cmdCancel");
  });
  EXPECT_EQ(test::rowsOf(database_.folder() + "/firma-einstellungen.db",
                         "SELECT Schluessel, Wert FROM Einstellungen WHERE Wert <> '0'"),
            (std::vector<Row>{{"ONANToAB", "1"}}));
}

INSTANTIATE_TEST_SUITE_P(Accounting, OptionsOfHost, testing::Values(2));
INSTANTIATE_TEST_SUITE_P(Applications, HostDialog, testing::Values(1, 2));

}  // namespace
}  // namespace vexnumkr::app
